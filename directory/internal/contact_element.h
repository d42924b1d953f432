// The form of a contact in a file, read and written side by side.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_CONTACT_ELEMENT_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_CONTACT_ELEMENT_H

#include "directory/internal/records.h"
#include "directory/internal/xml_file.h"

namespace NS_DIRECTORY {

// The photo attributes are written and read on colour screens only, so both of these ask the
// device for its screen once for each contact.
void AppendContactElement(CXmlOutput& file, pugi::xml_node root, const ItemData& item,
                          const char* pGroupName);

// Fills a fresh record, all but its group, and returns the name of its group, which lives as long
// as the document.
const char* ReadContactElement(pugi::xml_node element, ItemData& item);

// For the export: the same element without line, selected photo and name index.
void AppendExportedContact(CXmlOutput& file, pugi::xml_node root, const ItemData& item,
                           const char* pGroupName);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_CONTACT_ELEMENT_H
