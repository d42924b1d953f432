// The floor: the same files, read and written by bare calls of the XML library.

#ifndef NSDIRECTORY_BENCH_BARE_XML_H
#define NSDIRECTORY_BENCH_BARE_XML_H

#include <string>
#include <vector>

#include "bench/sample.h"

inline constexpr char GROUP_FILE[] = "config/data/contact_group_list.xml";
inline constexpr char CONTACT_FILE[] = "config/data/contact_list.xml";
// Written by the reference beside the files of the library.
inline constexpr char BARE_GROUP_FILE[] = "bare_group_list.xml";
inline constexpr char BARE_CONTACT_FILE[] = "bare_contact_list.xml";

// Each reads the file, copies every attribute into a plain record of std::string, in the order of
// the document and without a look at names, and releases it all.
void BareLoadGroups(const char* pPath);
void BareLoadContacts(const char* pPath);

void BareSaveGroups(const char* pPath, const std::vector<std::string>& groups);
void BareSaveContacts(const char* pPath, const std::vector<SampleContact>& contacts);

#endif  // NSDIRECTORY_BENCH_BARE_XML_H
