// The two groups that every directory has, known by their ids in memory and by their names in the
// files.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_FIXED_GROUPS_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_FIXED_GROUPS_H

#include <cstring>

#include "directory/contact_local_manager.h"
#include "directory/internal/xml_names.h"

namespace NS_DIRECTORY {

struct FixedGroup
{
    int m_nId;
    const char* m_pName;
};

inline constexpr FixedGroup FIXED_GROUPS[] = {{GROUP_ID_ALL, NAME_ALL_CONTACTS},
                                              {GROUP_ID_BLACKLIST, NAME_BLACKLIST}};

// As every load makes it afresh.
inline CContactLocalManager::GroupData MakeFixedGroup(const FixedGroup& fixed)
{
    CContactLocalManager::GroupData group;
    group.m_nId = fixed.m_nId;
    group.m_strDisplayName = fixed.m_pName;
    group.m_bReadOnly = true;
    return group;
}

inline bool IsFixedGroupId(int nId)
{
    return nId == GROUP_ID_ALL || nId == GROUP_ID_BLACKLIST;
}

inline bool IsFixedGroupName(const char* pName)
{
    return std::strcmp(pName, NAME_ALL_CONTACTS) == 0 || std::strcmp(pName, NAME_BLACKLIST) == 0;
}

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_FIXED_GROUPS_H
