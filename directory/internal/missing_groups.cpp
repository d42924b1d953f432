// Keep, resolve, write: the header explains why.

#include "directory/internal/missing_groups.h"

#include "directory/internal/group_finders.h"

namespace NS_DIRECTORY {

void KeepGroupNames(const ItemDataList& contacts, const GroupDataList& groups)
{
    for (ItemData& item : RecordsOf(contacts)) {
        if (item.m_strKeptGroupName.empty()) {
            item.m_strKeptGroupName = GroupNameById(groups, item.m_nGroupId);
        }
    }
}

void ResolveGroup(const GroupDataList& groups, const char* pGroupName, bool bKeepName,
                  ItemData& item)
{
    item.m_nGroupId = GroupIdByName(groups, pGroupName);
    if (item.m_nGroupId != GROUP_ID_NONE) {
        return;
    }
    item.m_nGroupId = GROUP_ID_ALL;
    if (bKeepName) {
        item.m_strKeptGroupName = pGroupName;
    }
}

const char* GroupNameForFile(const GroupDataList& groups, const ItemData& item)
{
    return item.m_strKeptGroupName.empty() ? GroupNameById(groups, item.m_nGroupId)
                                           : item.m_strKeptGroupName.c_str();
}

}  // namespace NS_DIRECTORY
