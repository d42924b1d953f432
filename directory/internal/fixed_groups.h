// The two groups that every directory has, known by their ids in memory and by their names in the
// files. Every test of such an id or name is here.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_FIXED_GROUPS_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_FIXED_GROUPS_H

#include <cstring>

#include "directory/internal/records.h"

namespace NS_DIRECTORY {

struct FixedGroup
{
    int m_nId;
    const char* m_pName;
};

inline constexpr FixedGroup ALL_CONTACTS{GROUP_ID_ALL, "All Contacts"};
inline constexpr FixedGroup BLACKLIST{GROUP_ID_BLACKLIST, "Blacklist"};
inline constexpr FixedGroup FIXED_GROUPS[] = {ALL_CONTACTS, BLACKLIST};

// Each load numbers the user groups from here on.
inline constexpr int FIRST_USER_GROUP_ID = BLACKLIST.m_nId + 1;

inline bool IsFixedGroupId(int nId)
{
    return nId == ALL_CONTACTS.m_nId || nId == BLACKLIST.m_nId;
}

inline bool IsFixedGroupName(const char* pName)
{
    return std::strcmp(pName, ALL_CONTACTS.m_pName) == 0 ||
           std::strcmp(pName, BLACKLIST.m_pName) == 0;
}

// As every load makes it.
inline GroupData MakeFixedGroup(const FixedGroup& fixed)
{
    GroupData group;
    group.m_nId = fixed.m_nId;
    group.m_strDisplayName = fixed.m_pName;
    group.m_bReadOnly = true;
    return group;
}

inline bool IsBlack(int nGroupId)
{
    return nGroupId == BLACKLIST.m_nId;
}

// Only a contact that crosses the border of the blacklist needs a slot on the other side.
inline bool CrossesBlacklist(int nFromGroupId, int nToGroupId)
{
    return IsBlack(nFromGroupId) != IsBlack(nToGroupId);
}

// In counts and removals, the id of "All Contacts" means every contact, blacklisted ones too.
inline bool IsCountedIn(int nGroupId, const ItemData& item)
{
    return nGroupId == ALL_CONTACTS.m_nId || item.m_nGroupId == nGroupId;
}

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_FIXED_GROUPS_H
