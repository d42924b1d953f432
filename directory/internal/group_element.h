// The form of a group in a file, read and written side by side.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_ELEMENT_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_ELEMENT_H

#include "directory/internal/records.h"
#include "directory/internal/xml_file.h"

namespace NS_DIRECTORY {

// The attributes of one group element, as texts that live as long as the record or the row that
// they come from.
struct GroupElementData
{
    const char* m_pDisplayName;
    const char* m_pRing;
    bool m_bReadOnly;
};

void AppendGroupElement(CXmlOutput& file, pugi::xml_node root, const GroupElementData& data);

// Fills name, ring and read-only mark of group and leaves the id alone. False, with group as it
// was, for an element of a fixed group: a load passes over those.
bool ReadGroupElement(pugi::xml_node element, GroupData& group);

// Appends a root_group with what a new device starts with, and returns it.
pugi::xml_node AppendDefaultGroups(CXmlOutput& file);

// For the export: the same element without the read-only mark.
void AppendExportedGroup(CXmlOutput& file, pugi::xml_node root, const GroupData& group);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_ELEMENT_H
