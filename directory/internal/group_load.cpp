// The load of the groups: the fixed ones, whatever the file says of them, then its elements one by
// one, each into its place.

#include "directory/internal/group_load.h"

#include <algorithm>
#include <climits>

#include "directory/internal/fixed_groups.h"
#include "directory/internal/group_element.h"
#include "directory/internal/xml_names.h"

namespace NS_DIRECTORY {
namespace {

int LoadGroup(const GroupDataList& list, const GroupData& group, int nLimit, pugi::xml_node element,
              CGroupLoadListener& listener)
{
    const GroupPlace place = FindGroupPlace(list, group, nLimit, nullptr);
    if (place.m_nResult < 0) {
        listener.Refuse(place, group, element);
        return DIR_RET_NONE;
    }
    return listener.Take(place, group, element) < 0 ? DIR_RET_NO_MEMORY : DIR_RET_OK;
}

}  // namespace

int LoadGroups(pugi::xml_node root, const GroupDataList& list, int nLimit,
               CGroupLoadListener& listener)
{
    int nResult = DIR_RET_OK;  // the worst of all, which is the lowest
    for (const FixedGroup& fixed : FIXED_GROUPS) {
        // No limit refuses them: without them the directory could hold no contact.
        const int nLoaded = LoadGroup(list, MakeFixedGroup(fixed), INT_MAX, {}, listener);
        nResult = std::min(nResult, nLoaded);
    }
    int nNextId = FIRST_USER_GROUP_ID;
    for (const pugi::xml_node element : root.children(ELEMENT_GROUP)) {
        GroupData group;
        if (!ReadGroupElement(element, group)) {
            listener.PassOver(element);
            continue;
        }
        group.m_nId = nNextId++;  // a refused element uses up its id
        nResult = std::min(nResult, LoadGroup(list, group, nLimit, element, listener));
    }
    return nResult;
}

}  // namespace NS_DIRECTORY
