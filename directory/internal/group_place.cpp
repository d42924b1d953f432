// The order of the group list: the fixed groups, then the user groups by strcasecmp of their names.

#include "directory/internal/group_place.h"

#include <strings.h>

#include "directory/internal/fixed_groups.h"
#include "directory/internal/limits.h"

namespace NS_DIRECTORY {
namespace {

bool IsSecondOfName(const GroupData& present, const GroupData& group, const char* pName)
{
    return present.m_strDisplayName == pName && group.m_strDisplayName == pName;
}

// The walk below does not look at the fixed groups, so their names are guarded here: "All Contacts"
// at the head, and "Blacklist" at the tail of a list without user groups. The end of the list if
// group is no second one of them.
GroupDataList::ListIterator FindFirstOfFixed(const GroupDataList& list, const GroupData& group)
{
    if (list.size() > 0 && IsSecondOfName(*list.begin()->value, group, ALL_CONTACTS.m_pName)) {
        return list.begin();
    }
    if (list.size() > 1 && IsSecondOfName(*list.end()->prev->value, group, BLACKLIST.m_pName)) {
        return list.end()->prev;
    }
    return list.end();
}

// After the user groups that sort before the name.
GroupPlace FindUserGroupPlace(const GroupDataList& list, const GroupData& group,
                              const GroupData* pRenamed)
{
    int nPosition = 0;
    GroupDataList::ListIterator pos = list.begin();
    for (; pos != list.end(); pos = pos->next) {
        const GroupData& present = *pos->value;
        if (&present == pRenamed) {
            continue;
        }
        const int nOrder =
            IsFixedGroupId(present.m_nId)
                ? -1
                : strcasecmp(present.m_strDisplayName.c_str(), group.m_strDisplayName.c_str());
        if (nOrder == 0) {
            return {pos, DIR_RET_GROUP_EXIST};
        }
        if (nOrder > 0) {
            break;
        }
        ++nPosition;
    }
    return {pos, nPosition};
}

}  // namespace

GroupPlace FindGroupPlace(const GroupDataList& list, const GroupData& group, int nLimit,
                          const GroupData* pRenamed)
{
    const int nCount = static_cast<int>(list.size()) - (pRenamed == nullptr ? 0 : 1);
    if (group.m_strDisplayName.empty() || !HasRoomForGroup(nCount, nLimit)) {
        return {list.end(), DIR_RET_INVALID};
    }
    const GroupDataList::ListIterator first = FindFirstOfFixed(list, group);
    if (first != list.end()) {
        return {first, DIR_RET_GROUP_EXIST};
    }
    // The walk comes before the ids: a user group of the name refuses the fixed groups too.
    const GroupPlace place = FindUserGroupPlace(list, group, pRenamed);
    if (place.m_nResult < 0) {
        return place;
    }
    if (group.m_nId == GROUP_ID_ALL) {
        return {list.begin(), 0};
    }
    return group.m_nId == GROUP_ID_BLACKLIST ? GroupPlace{list.end(), nCount} : place;
}

}  // namespace NS_DIRECTORY
