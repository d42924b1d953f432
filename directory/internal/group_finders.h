// The walks over the group list that look for one group.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_FINDERS_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_FINDERS_H

#include "directory/internal/records.h"

namespace NS_DIRECTORY {

// Each the first such group, or null; null also for GROUP_ID_NONE and for an empty name.
GroupData* FindGroupById(const GroupDataList& list, int nId);
GroupData* FindGroupByName(const GroupDataList& list, const qz::basic_string<char>& strName);
GroupData* FindGroupByName(const GroupDataList& list, const char* pName);

// GROUP_ID_NONE if no group has the name.
int GroupIdByName(const GroupDataList& list, const char* pName);

// Empty if no group has the id. Good until the list changes.
const char* GroupNameById(const GroupDataList& list, int nId);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_FINDERS_H
