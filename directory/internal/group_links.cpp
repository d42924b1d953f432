// The walks from a contact to its group and back to the name in the file.

#include "directory/internal/group_links.h"

namespace NS_DIRECTORY {

CContactLocalManager::GroupData* FindGroupById(const GroupDataList& list, int nId)
{
    if (nId == GROUP_ID_NONE) {
        return nullptr;
    }
    for (GroupDataList::ListIterator pos = list.begin(); pos != list.end(); pos = pos->next) {
        if (pos->value->m_nId == nId) {
            return pos->value;
        }
    }
    return nullptr;
}

CContactLocalManager::GroupData* FindGroupByName(const GroupDataList& list,
                                                 const qz::basic_string<char>& strName)
{
    if (strName.empty()) {
        return nullptr;
    }
    for (GroupDataList::ListIterator pos = list.begin(); pos != list.end(); pos = pos->next) {
        if (pos->value->m_strDisplayName == strName) {
            return pos->value;
        }
    }
    return nullptr;
}

void ResolveGroup(const GroupDataList& list, const qz::basic_string<char>& strGroupName,
                  bool bKeepName, CContactLocalManager::ItemData& item)
{
    const CContactLocalManager::GroupData* pGroup = FindGroupByName(list, strGroupName);
    if (pGroup != nullptr) {
        item.m_nGroupId = pGroup->m_nId;
        return;
    }
    item.m_nGroupId = GROUP_ID_ALL;
    if (bKeepName) {
        item.m_strKeptGroupName = strGroupName;
    }
}

const char* GroupNameById(const GroupDataList& list, int nId)
{
    const CContactLocalManager::GroupData* pGroup = FindGroupById(list, nId);
    return pGroup == nullptr ? "" : pGroup->m_strDisplayName.c_str();
}

const char* GroupNameForFile(const GroupDataList& list, const CContactLocalManager::ItemData& item)
{
    if (!item.m_strKeptGroupName.empty()) {
        return item.m_strKeptGroupName.c_str();
    }
    return GroupNameById(list, item.m_nGroupId);
}

}  // namespace NS_DIRECTORY
