// The ordered contact list: how a contact is found, placed and removed. The count of the blacklist
// changes here only.

#include <strings.h>

#include <new>

#include "directory/contact_local_manager.h"
#include "directory/internal/fixed_groups.h"

namespace NS_DIRECTORY {
namespace {

struct ContactPlace
{
    ItemDataList::ListIterator m_itPlace;
    int m_nResult;
};

// The record goes in front of m_itPlace. m_nResult counts the contacts of its group, or all for
// group 0, that the walk met, the one that ended it included; DIR_RET_CONTACT_EXIST if a name is
// equal. pReplaced, if not null, is a record of the list that does not count: it is about to go.
ContactPlace FindContactPlace(const ItemDataList& list, const ItemData& item,
                              const ItemData* pReplaced)
{
    int nCounter = 0;
    ItemDataList::ListIterator pos = list.begin();
    for (; pos != list.end(); pos = pos->next) {
        const ItemData& present = *pos->value;
        if (&present == pReplaced) {
            continue;
        }
        // Counted before the comparison: the contact that ends the walk counts too.
        if (IsCountedIn(item.m_nGroupId, present)) {
            ++nCounter;
        }
        const int nOrder =
            strcasecmp(present.m_strDisplayName.c_str(), item.m_strDisplayName.c_str());
        if (nOrder == 0) {
            return {pos, DIR_RET_CONTACT_EXIST};
        }
        if (nOrder > 0) {
            break;
        }
    }
    return {pos, nCounter};
}

}  // namespace

CContactLocalManager::ItemData* CContactLocalManager::MyFindContact(
    const qz::basic_string<char>& strName) const
{
    if (strName.empty()) {
        return nullptr;  // one contact may have no name, but lookups do not find it
    }
    const ItemIterator pos = MyFindContactPosition(strName);
    return pos == m_listContact.end() ? nullptr : pos->value;
}

CContactLocalManager::ItemIterator CContactLocalManager::MyFindContactPosition(
    const qz::basic_string<char>& strName) const
{
    ItemIterator pos = m_listContact.begin();
    while (pos != m_listContact.end() && !(pos->value->m_strDisplayName == strName)) {
        pos = pos->next;
    }
    return pos;
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
    for (const ItemData& item : RecordsOf(m_listContact)) {
        if (IsCountedIn(nGroupId, item)) {
            ++nCount;
        }
    }
    return nCount;
}

int CContactLocalManager::MyInsertContactNoCheckGroup(const ItemData& data, bool bSave)
{
    // The limit before the names: a full directory is reported even for a name that exists.
    const int nTest = MyTestContactLimit(data.m_nGroupId, 1);
    if (nTest < 0) {
        return nTest;
    }
    const int nResult = MyPlaceContact(data, nullptr);
    if (nResult >= 0 && bSave) {
        MySetContactDirty(true);
    }
    return nResult;
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

// The new record goes in before the old one goes out, so that a refusal leaves the old one
// untouched.
int CContactLocalManager::MyReplaceContact(ItemIterator posOld, const ItemData& data)
{
    const ItemData& old = *posOld->value;
    const int nNeeded = CrossesBlacklist(old.m_nGroupId, data.m_nGroupId) ? 1 : 0;
    const int nTest = MyTestContactLimit(data.m_nGroupId, nNeeded);
    if (nTest < 0) {
        return nTest;
    }
    const int nResult = MyPlaceContact(data, &old);
    if (nResult >= 0) {
        (void)MyEraseContact(posOld);
        MySetContactDirty(true);
    }
    return nResult;
}

int CContactLocalManager::MyPlaceContact(const ItemData& data, const ItemData* pReplaced)
{
    const ContactPlace place = FindContactPlace(m_listContact, data, pReplaced);
    if (place.m_nResult < 0) {
        return place.m_nResult;
    }
    ItemData* pItem = new (std::nothrow) ItemData(data);
    if (pItem == nullptr) {
        return DIR_RET_NO_MEMORY;
    }
    MyLinkContact(place.m_itPlace, pItem);
    return place.m_nResult;
}

void CContactLocalManager::MyLinkContact(ItemIterator pos, ItemData* pItem)
{
    m_listContact.insert(pos, pItem);
    if (IsBlack(pItem->m_nGroupId)) {
        ++m_nBlackCount;
    }
}

void CContactLocalManager::MyUnlinkContacts()
{
    m_listContact.clear();
    m_nBlackCount = 0;
}

CContactLocalManager::ItemIterator CContactLocalManager::MyEraseContact(ItemIterator pos)
{
    if (IsBlack(pos->value->m_nGroupId)) {
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
    if (CrossesBlacklist(item.m_nGroupId, nGroupId)) {
        m_nBlackCount += IsBlack(nGroupId) ? 1 : -1;
    }
    item.m_nGroupId = nGroupId;
    item.m_strKeptGroupName.clear();
    return true;
}

bool CContactLocalManager::MyClearContactList()
{
    for (ItemIterator pos = m_listContact.begin(); pos != m_listContact.end();) {
        pos = MyEraseContact(pos);
    }
    m_nBlackCount = 0;  // whatever it was
    return m_listContact.size() == 0;
}

}  // namespace NS_DIRECTORY
