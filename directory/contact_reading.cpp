// How a contact leaves the directory: by name, or on a page of its group.

#include "directory/contact_local_manager.h"
#include "directory/internal/fixed_groups.h"
#include "directory/internal/page_window.h"
#include "platform/device_services.h"

namespace NS_DIRECTORY {
namespace {

// "All Contacts" lists every group but the blacklist.
bool IsListedIn(int nListId, int nGroupId)
{
    return nListId == GROUP_ID_ALL ? !IsBlack(nGroupId) : nGroupId == nListId;
}

}  // namespace

int CContactLocalManager::MyID2CGID(ContactGeneralItemData* pData, const ItemData& item) const
{
    const GroupData* pGroup = MyFindGroupById(item.m_nGroupId);
    if (pData == nullptr || pGroup == nullptr) {
        return DIR_RET_NONE;
    }
    pData->m_strDisplayName = item.m_strDisplayName;
    pData->m_strGroupName = pGroup->m_strDisplayName;
    pData->m_strOfficeNumber = item.m_strOfficeNumber;
    pData->m_strMobileNumber = item.m_strMobileNumber;
    pData->m_strOtherNumber = item.m_strOtherNumber;
    pData->m_strRing = item.m_strRing;
    pData->m_nLine = item.m_nLine;
    if (IsColorfulScreen() != 0) {
        pData->m_strDefaultPhoto = item.m_strDefaultPhoto;
        pData->m_nSelectedPhoto = item.m_nSelectedPhoto;
    }
    return DIR_RET_OK;
}

int CContactLocalManager::GetContactDataByName(ContactGeneralItemData* pData,
                                               const qz::basic_string<char>& strName) const
{
    const ItemData* pItem = MyFindContact(strName);
    return pItem == nullptr ? DIR_RET_NONE : MyID2CGID(pData, *pItem);
}

int CContactLocalManager::GetContactList(ContactGeneralItemListData* pList,
                                         const qz::basic_string<char>& strGroupName) const
{
    // A name of no group gives an id below 0, which is refused there.
    return GetContactListById(pList, MyGName2Id(strGroupName));
}

int CContactLocalManager::GetContactListById(ContactGeneralItemListData* pList, int nGroupId) const
{
    if (pList == nullptr || nGroupId < 0 || MyFindGroupById(nGroupId) == nullptr) {
        return DIR_RET_NONE;
    }
    const CPageWindow window(pList->m_nIndexFrom, pList->m_nCountToGet);
    ContactGeneralItemData scratch;  // its photo fields stay empty on plain screens
    int nTotal = 0;
    // To the end of the list even after the page, for the total.
    for (const ItemData& item : RecordsOf(m_listContact)) {
        if (!IsListedIn(nGroupId, item.m_nGroupId)) {
            continue;
        }
        if (window.Holds(nTotal) && MyID2CGID(&scratch, item) == DIR_RET_OK) {
            pList->m_listData.push_back(scratch);
        }
        ++nTotal;
    }
    pList->m_nTotalCount = nTotal;
    return DIR_RET_OK;
}

}  // namespace NS_DIRECTORY
