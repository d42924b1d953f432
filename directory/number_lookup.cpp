// Who is calling: one search over the contact list, and the questions that start from a number.
// There is no index. A walk over a thousand contacts takes some microseconds and needs no memory,
// and the first contact in list order answers, whatever was added when.

#include "directory/contact_local_manager.h"

namespace NS_DIRECTORY {

CContactLocalManager::ItemData* CContactLocalManager::MyFindContactByNumber(
    const qz::basic_string<char>& strNumber, const qz::basic_string<char>& strSecond) const
{
    (void)strSecond;  // takes no part
    if (strNumber.empty()) {
        return nullptr;  // or it would match every empty field
    }
    for (ItemIterator pos = m_listContact.begin(); pos != m_listContact.end(); pos = pos->next) {
        const ItemData& item = *pos->value;
        if (item.m_strMobileNumber == strNumber || item.m_strOfficeNumber == strNumber ||
            item.m_strOtherNumber == strNumber) {
            return pos->value;
        }
    }
    return nullptr;
}

qz::basic_string<char> CContactLocalManager::GetContactNameByPhoneNumber(const char* pNumber) const
{
    const ItemData* pItem = MyFindContactByNumber(pNumber, {});
    return pItem == nullptr ? qz::basic_string<char>() : pItem->m_strDisplayName;
}

bool CContactLocalManager::IsBlackContactNumber(const char* pNumber) const
{
    const ItemData* pItem = MyFindContactByNumber(pNumber, {});
    return pItem != nullptr && pItem->m_nGroupId == GROUP_ID_BLACKLIST;
}

int CContactLocalManager::GetContactDataByNumber(ContactGeneralItemData* pData,
                                                 const char* pNumber) const
{
    const ItemData* pItem = MyFindContactByNumber(pNumber, {});
    return pItem == nullptr ? DIR_RET_NONE : MyID2CGID(pData, *pItem);
}

int CContactLocalManager::GetContactData(ContactGeneralItemData* pData,
                                         const qz::basic_string<char>& strName,
                                         const qz::basic_string<char>& strNumber) const
{
    const ItemData* pItem = MyFindContact(strName);
    if (pItem != nullptr) {
        return MyID2CGID(pData, *pItem);
    }
    // As a text: what stands behind a NUL in the number is not part of it.
    return GetContactDataByNumber(pData, strNumber.c_str());
}

}  // namespace NS_DIRECTORY
