// The walks over the group list that look for one group.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_FINDERS_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_FINDERS_H

#include "directory/internal/records.h"

namespace NS_DIRECTORY {

// Each finder returns the first such group, or null; null also for GROUP_ID_NONE and an empty name.
inline GroupData* FindGroupById(const GroupDataList& list, int nId)
{
    if (nId == GROUP_ID_NONE) {
        return nullptr;
    }
    for (GroupData& group : RecordsOf(list)) {
        if (group.m_nId == nId) {
            return &group;
        }
    }
    return nullptr;
}

inline GroupData* FindGroupByName(const GroupDataList& list, const qz::basic_string<char>& strName)
{
    if (strName.empty()) {
        return nullptr;
    }
    for (GroupData& group : RecordsOf(list)) {
        if (group.m_strDisplayName == strName) {
            return &group;
        }
    }
    return nullptr;
}

// GROUP_ID_NONE if no group has the name.
inline int GroupIdByName(const GroupDataList& list, const qz::basic_string<char>& strName)
{
    const GroupData* pGroup = FindGroupByName(list, strName);
    return pGroup == nullptr ? GROUP_ID_NONE : pGroup->m_nId;
}

// Empty if no group has the id. Good until the list changes.
inline const char* GroupNameById(const GroupDataList& list, int nId)
{
    const GroupData* pGroup = FindGroupById(list, nId);
    return pGroup == nullptr ? "" : pGroup->m_strDisplayName.c_str();
}

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_FINDERS_H
