// The ordered group list: how a group is found, added and erased.

#include <cstring>
#include <new>

#include "directory/contact_local_manager.h"
#include "directory/internal/fixed_groups.h"
#include "directory/internal/group_finders.h"
#include "directory/internal/group_place.h"

namespace NS_DIRECTORY {

CContactLocalManager::GroupData* CContactLocalManager::MyFindGroupById(int nId) const
{
    return FindGroupById(m_listGroup, nId);
}

// By the id alone: the mark in the file protects no user group.
bool CContactLocalManager::MyIsGroupReadOnly(int nId) const
{
    return IsFixedGroupId(nId);
}

CContactLocalManager::GroupData* CContactLocalManager::MyFindGroupByDisplayName(
    const qz::basic_string<char>& strName) const
{
    return FindGroupByName(m_listGroup, strName);
}

CContactLocalManager::GroupData* CContactLocalManager::MyFindGroupByDisplayName(
    qz::basic_string<char>& strName) const
{
    const qz::basic_string<char>& strSame = strName;
    return MyFindGroupByDisplayName(strSame);
}

int CContactLocalManager::MyGName2Id(const qz::basic_string<char>& strName) const
{
    const GroupData* pGroup = MyFindGroupByDisplayName(strName);
    return pGroup == nullptr ? GROUP_ID_NONE : pGroup->m_nId;
}

int CContactLocalManager::GetGroupIdByGroupName(const qz::basic_string<char>& strName) const
{
    return MyGName2Id(strName);
}

int CContactLocalManager::GetGIdByGName(const qz::basic_string<char>& strName) const
{
    return MyGName2Id(strName);
}

bool CContactLocalManager::IsGroupExist(const qz::basic_string<char>& strName) const
{
    return MyFindGroupByDisplayName(strName) != nullptr;
}

qz::basic_string<char> CContactLocalManager::MyGId2Name(int nId) const
{
    const GroupData* pGroup = MyFindGroupById(nId);
    return pGroup == nullptr ? qz::basic_string<char>() : pGroup->m_strDisplayName;
}

void CContactLocalManager::GetBlacklistGroupName(qz::basic_string<char>& strName) const
{
    strName = MyGId2Name(GROUP_ID_BLACKLIST);
}

CContactLocalManager::GroupData* CContactLocalManager::MyFindGDataByIndex(int nIndex) const
{
    if (nIndex < 0 || nIndex >= GetCurrentGroupCount()) {
        return nullptr;
    }
    GroupIterator pos = m_listGroup.begin();
    for (; nIndex > 0; --nIndex) {
        pos = pos->next;
    }
    return pos->value;
}

int CContactLocalManager::GetGroupNameByIndex(int nIndex, qz::basic_string<char>& strName) const
{
    const GroupData* pGroup = MyFindGDataByIndex(nIndex);
    if (pGroup == nullptr) {
        return DIR_RET_NONE;
    }
    strName = pGroup->m_strDisplayName;
    return DIR_RET_OK;
}

// A failed search returns the position of "All Contacts": hosts that need to know ask IsGroupExist.
int CContactLocalManager::GetGroupIndexByName(const char* pName) const
{
    if (pName == nullptr) {
        return 0;
    }
    int nIndex = 0;
    for (const GroupData& group : RecordsOf(m_listGroup)) {
        if (std::strcmp(group.m_strDisplayName.c_str(), pName) == 0) {
            return nIndex;
        }
        ++nIndex;
    }
    return 0;
}

// Only this comparison, whatever group is there: callers rely on it.
bool CContactLocalManager::IsBlacklistIndex(int nIndex) const
{
    return nIndex == GetCurrentGroupCount() - 1;
}

int CContactLocalManager::MyInsertGroup(const GroupData& data, bool bSave)
{
    const int nResult =
        MyLinkGroup(FindGroupPlace(m_listGroup, data, m_nMaxGroupCount, nullptr), data);
    if (nResult >= 0 && bSave) {
        MySetGroupDirty(true);
    }
    return nResult;
}

int CContactLocalManager::MyLinkGroup(const GroupPlace& place, const GroupData& data)
{
    if (place.m_nResult < 0) {
        return place.m_nResult;
    }
    GroupData* pGroup = new (std::nothrow) GroupData(data);
    if (pGroup == nullptr) {
        return DIR_RET_NO_MEMORY;
    }
    m_listGroup.insert(place.m_itPlace, pGroup);
    return place.m_nResult;
}

CContactLocalManager::GroupIterator CContactLocalManager::MyEraseGroup(GroupIterator pos)
{
    delete pos->value;
    return m_listGroup.erase(pos);
}

bool CContactLocalManager::MyClearGroupList()
{
    for (GroupIterator pos = m_listGroup.begin(); pos != m_listGroup.end();) {
        pos = MyEraseGroup(pos);
    }
    return true;
}

}  // namespace NS_DIRECTORY
