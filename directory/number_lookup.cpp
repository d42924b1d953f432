// Who is calling: one search over the contact list, and the questions that start from a number.
// There is no index. A walk over a thousand contacts takes some microseconds and needs no memory,
// and the first contact in list order answers, whatever was added when.

#include "directory/contact_local_manager.h"
#include "directory/internal/fixed_groups.h"

namespace NS_DIRECTORY {
namespace {

bool HoldsNumber(const CContactLocalManager::ItemData& item,
                 const qz::basic_string<char>& strNumber)
{
    return item.m_strMobileNumber == strNumber || item.m_strOfficeNumber == strNumber ||
           item.m_strOtherNumber == strNumber;
}

}  // namespace

CContactLocalManager::ItemData* CContactLocalManager::MyFindContactByNumber(
    const qz::basic_string<char>& strNumber, const qz::basic_string<char>& strSecond) const
{
    (void)strSecond;  // takes no part
    if (strNumber.empty()) {
        return nullptr;  // or it would match every empty field
    }
    // The foremost contact wins, but the walk goes from both ends at once: each step of a walk
    // waits for memory, and two walks wait at the same time.
    ItemData* pFromBack = nullptr;
    ItemIterator posFront = m_listContact.begin();
    ItemIterator posBack = m_listContact.end();
    while (posFront != posBack) {
        if (HoldsNumber(*posFront->value, strNumber)) {
            return posFront->value;
        }
        posFront = posFront->next;
        if (posFront == posBack) {
            break;
        }
        posBack = posBack->prev;
        if (HoldsNumber(*posBack->value, strNumber)) {
            pFromBack = posBack->value;
        }
    }
    return pFromBack;
}

qz::basic_string<char> CContactLocalManager::GetContactNameByPhoneNumber(const char* pNumber) const
{
    const ItemData* pItem = MyFindContactByNumber(pNumber, {});
    return pItem == nullptr ? qz::basic_string<char>() : pItem->m_strDisplayName;
}

bool CContactLocalManager::IsBlackContactNumber(const char* pNumber) const
{
    const ItemData* pItem = MyFindContactByNumber(pNumber, {});
    return pItem != nullptr && IsBlack(pItem->m_nGroupId);
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
