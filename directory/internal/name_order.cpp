// The walks that keep the two lists in order. Names are compared by strcasecmp, and the first
// comparison that decides ends the walk.

#include "directory/internal/name_order.h"

#include <strings.h>

#include "directory/internal/fixed_groups.h"

namespace NS_DIRECTORY {
namespace {

int CompareNames(const qz::basic_string<char>& left, const qz::basic_string<char>& right)
{
    return strcasecmp(left.c_str(), right.c_str());
}

bool IsSecondOfName(const GroupData& present, const GroupData& group, const char* pName)
{
    return present.m_strDisplayName == pName && group.m_strDisplayName == pName;
}

// The walk passes over the fixed groups unseen, so their names are guarded where they stand: "All
// Contacts" at the head, and "Blacklist" at the tail of a list without user groups. The end of the
// list where group is no second one of them.
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

// Behind the user groups that sort before the name.
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
        const int nOrder = IsFixedGroupId(present.m_nId)
                               ? -1
                               : CompareNames(present.m_strDisplayName, group.m_strDisplayName);
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
    if (group.m_strDisplayName.empty() || nCount >= nLimit) {
        return {list.end(), DIR_RET_INVALID};
    }
    const GroupDataList::ListIterator first = FindFirstOfFixed(list, group);
    if (first != list.end()) {
        return {first, DIR_RET_GROUP_EXIST};
    }
    // The walk comes first for every id: a user group of the name refuses the fixed groups too.
    const GroupPlace place = FindUserGroupPlace(list, group, pRenamed);
    if (place.m_nResult < 0) {
        return place;
    }
    if (group.m_nId == GROUP_ID_ALL) {
        return {list.begin(), 0};
    }
    return group.m_nId == GROUP_ID_BLACKLIST ? GroupPlace{list.end(), nCount} : place;
}

ContactPlace FindContactPlace(const ItemDataList& list, const ItemData& item,
                              const ItemData* pRenamed)
{
    int nCounter = 0;
    ItemDataList::ListIterator pos = list.begin();
    for (; pos != list.end(); pos = pos->next) {
        const ItemData& present = *pos->value;
        if (&present == pRenamed) {
            continue;
        }
        // Counted before the comparison: the contact that ends the walk counts too.
        if (IsCountedIn(item.m_nGroupId, present)) {
            ++nCounter;
        }
        const int nOrder = CompareNames(present.m_strDisplayName, item.m_strDisplayName);
        if (nOrder == 0) {
            return {pos, DIR_RET_CONTACT_EXIST};
        }
        if (nOrder > 0) {
            break;
        }
    }
    return {pos, nCounter};
}

}  // namespace NS_DIRECTORY
