// The ordered contact list: how a contact is found, where a new one goes, and the count of the
// blacklist, which changes with the list and here only.

#include <new>

#include "directory/contact_local_manager.h"
#include "directory/internal/contact_limits.h"
#include "directory/internal/name_order.h"

namespace NS_DIRECTORY {

CContactLocalManager::ItemData* CContactLocalManager::MyFindContact(
    const qz::basic_string<char>& strName) const
{
    if (strName.empty()) {
        return nullptr;
    }
    for (ItemIterator pos = m_listContact.begin(); pos != m_listContact.end(); pos = pos->next) {
        if (pos->value->m_strDisplayName == strName) {
            return pos->value;
        }
    }
    return nullptr;
}

int CContactLocalManager::GetContactGroupId(const qz::basic_string<char>& strName) const
{
    const ItemData* pItem = MyFindContact(strName);
    return pItem == nullptr ? GROUP_ID_NONE : pItem->m_nGroupId;
}

bool CContactLocalManager::IsContactExist(const qz::basic_string<char>& strName) const
{
    return MyFindContact(strName) != nullptr;
}

int CContactLocalManager::MyGetContactCountByGroupId(int nGroupId) const
{
    int nCount = 0;
    for (ItemIterator pos = m_listContact.begin(); pos != m_listContact.end(); pos = pos->next) {
        if (nGroupId == GROUP_ID_ALL || pos->value->m_nGroupId == nGroupId) {
            ++nCount;
        }
    }
    return nCount;
}

int CContactLocalManager::MyInsertContactNoCheckGroup(const ItemData& data, bool bSave)
{
    return MyReplaceContact(nullptr, data, bSave);
}

int CContactLocalManager::MyInsertContact(const ItemData& data, bool bSave)
{
    if (MyFindGroupById(data.m_nGroupId) != nullptr) {
        return MyInsertContactNoCheckGroup(data, bSave);
    }
    ItemData fallback(data);
    fallback.m_nGroupId = GROUP_ID_ALL;
    return MyInsertContactNoCheckGroup(fallback, bSave);
}

// The new record goes in before the old one goes out, so that a refusal leaves the old one as it
// was and where it was.
int CContactLocalManager::MyReplaceContact(ItemIterator posOld, const ItemData& data, bool bSave)
{
    const ItemData* pOld = posOld == nullptr ? nullptr : posOld->value;
    // The limit before the names: a full directory says so also of a name that exists.
    const int nTest = MyTestContactLimit(MyContactLimits(), data.m_nGroupId, pOld);
    if (nTest < 0) {
        return nTest;
    }
    const ContactPlace place = FindContactPlace(m_listContact, data, pOld);
    if (place.m_nResult < 0) {
        return place.m_nResult;
    }
    const int nLinked = MyLinkContact(place.m_itPlace, data);
    if (nLinked < 0) {
        return nLinked;
    }
    if (posOld != nullptr) {
        (void)MyEraseContact(posOld);
    }
    if (bSave) {
        MySetContactDirty(true);
    }
    return place.m_nResult;
}

int CContactLocalManager::MyInsertLoadedContact(const ContactLimits& limits, const ItemData& data)
{
    const int nTest = MyTestContactLimit(limits, data.m_nGroupId, nullptr);
    if (nTest < 0) {
        return nTest;
    }
    const ContactPlace place = FindContactPlaceFromTail(m_listContact, data);
    return place.m_nResult < 0 ? place.m_nResult : MyLinkContact(place.m_itPlace, data);
}

int CContactLocalManager::MyCountOfSide(int nGroupId) const
{
    return nGroupId == GROUP_ID_BLACKLIST ? GetCurrentBlackCount() : GetCurrentContactCount();
}

int CContactLocalManager::MyTestContactLimit(const ContactLimits& limits, int nGroupId,
                                             const ItemData* pOld) const
{
    const bool bBlack = nGroupId == GROUP_ID_BLACKLIST;
    const bool bOldMakesRoom =
        pOld != nullptr && (pOld->m_nGroupId == GROUP_ID_BLACKLIST) == bBlack;
    const int nCount = MyCountOfSide(nGroupId) - (bOldMakesRoom ? 1 : 0);
    return TestContactLimit(limits, nGroupId, nCount, 1);
}

int CContactLocalManager::MyLinkContact(ItemIterator pos, const ItemData& data)
{
    ItemData* pItem = new (std::nothrow) ItemData(data);
    if (pItem == nullptr) {
        return DIR_RET_NO_MEMORY;
    }
    m_listContact.insert(pos, pItem);
    if (pItem->m_nGroupId == GROUP_ID_BLACKLIST) {
        ++m_nBlackCount;
    }
    return DIR_RET_OK;
}

CContactLocalManager::ItemIterator CContactLocalManager::MyEraseContact(ItemIterator pos)
{
    if (pos->value->m_nGroupId == GROUP_ID_BLACKLIST) {
        --m_nBlackCount;
    }
    delete pos->value;
    return m_listContact.erase(pos);
}

bool CContactLocalManager::MyChangeContactGroup(ItemData& item, int nGroupId)
{
    if (item.m_nGroupId == nGroupId) {
        return false;
    }
    if (item.m_nGroupId == GROUP_ID_BLACKLIST) {
        --m_nBlackCount;
    } else if (nGroupId == GROUP_ID_BLACKLIST) {
        ++m_nBlackCount;
    }
    item.m_nGroupId = nGroupId;
    item.m_strKeptGroupName.clear();
    return true;
}

}  // namespace NS_DIRECTORY
