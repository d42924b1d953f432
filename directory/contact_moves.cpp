// Moving contacts between groups. Only a move across the border of the blacklist needs a slot. The
// moves by name count all slots before the first contact moves; the others test no such thing.

#include "directory/contact_local_manager.h"
#include "directory/internal/contact_limits.h"
#include "directory/internal/name_list.h"

namespace NS_DIRECTORY {

int CContactLocalManager::IsListCanMove(QZList<qz::basic_string<char>>& listName,
                                        const qz::basic_string<char>& strGroupName)
{
    if (m_bReloadByHttp) {
        return DIR_RET_RELOADING;
    }
    const int nTargetId = MyGName2Id(strGroupName);
    if (nTargetId < 0) {
        return DIR_RET_GROUP_NOT_FOUND;
    }
    const bool bToBlack = nTargetId == GROUP_ID_BLACKLIST;
    int nNeeded = 0;
    CNameList names(listName);
    for (ItemIterator pos = m_listContact.begin(); pos != m_listContact.end() && !names.IsEmpty();
         pos = pos->next) {
        const bool bIsBlack = pos->value->m_nGroupId == GROUP_ID_BLACKLIST;
        if (names.Strike(pos->value->m_strDisplayName) && bIsBlack != bToBlack) {
            ++nNeeded;
        }
    }
    const int nTest =
        TestContactLimit(MyContactLimits(), nTargetId, MyCountOfSide(nTargetId), nNeeded);
    return nTest < 0 ? nTest : DIR_RET_OK_ZERO;
}

int CContactLocalManager::MoveListToGroup(QZList<qz::basic_string<char>>& listName,
                                          const qz::basic_string<char>& strGroupName)
{
    const int nChange = MyTestChange();
    if (nChange < 0) {
        return nChange;
    }
    const int nTest = IsListCanMove(listName, strGroupName);
    if (nTest != DIR_RET_OK_ZERO) {
        return nTest;
    }
    const int nTargetId = MyGName2Id(strGroupName);
    CNameList names(listName);
    bool bMoved = false;
    for (ItemIterator pos = m_listContact.begin(); pos != m_listContact.end() && !names.IsEmpty();
         pos = pos->next) {
        if (names.Strike(pos->value->m_strDisplayName)) {
            bMoved = MyChangeContactGroup(*pos->value, nTargetId) || bMoved;
        }
    }
    if (bMoved) {
        MySetContactDirty(true);
    }
    return DIR_RET_OK_ZERO;
}

int CContactLocalManager::MoveContactToGroup(const qz::basic_string<char>& strName,
                                             const qz::basic_string<char>& strGroupName)
{
    const int nChange = MyTestChange();
    if (nChange < 0) {
        return nChange;
    }
    QZList<qz::basic_string<char>> listName;
    listName.push_back(strName);
    const int nTest = IsListCanMove(listName, strGroupName);
    if (nTest != DIR_RET_OK_ZERO) {
        return nTest;
    }
    ItemData* pItem = MyFindContact(strName);
    // A name of no contact is no failure here, unlike in SetContactGroupId.
    if (pItem != nullptr && MyChangeContactGroup(*pItem, MyGName2Id(strGroupName))) {
        MySetContactDirty(true);
    }
    return DIR_RET_OK_ZERO;
}

int CContactLocalManager::SetContactGroupId(const qz::basic_string<char>& strName, int nGroupId)
{
    const int nChange = MyTestChange();
    if (nChange < 0) {
        return nChange;
    }
    ItemData* pItem = MyFindContact(strName);
    if (pItem == nullptr) {  // before the group, as in UpdateContactData
        return DIR_RET_CONTACT_NOT_FOUND;
    }
    if (MyFindGroupById(nGroupId) == nullptr) {
        return DIR_RET_GROUP_NOT_FOUND;
    }
    if (MyChangeContactGroup(*pItem, nGroupId)) {
        MySetContactDirty(true);
    }
    return DIR_RET_OK;
}

// No limit on the way out: a number is never kept blocked for want of a slot.
int CContactLocalManager::Black2Local(const qz::basic_string<char>& strName)
{
    if (MyCatchUp() < 0) {
        return DIR_RET_NO_MEMORY;
    }
    if (GetContactGroupId(strName) != GROUP_ID_BLACKLIST) {
        return DIR_RET_NOT_BLACK;
    }
    return SetContactGroupId(strName, GROUP_ID_ALL);
}

int CContactLocalManager::Local2Black(const qz::basic_string<char>& strName)
{
    if (MyCatchUp() < 0) {
        return DIR_RET_NO_MEMORY;
    }
    // Equal, not at or above, and ahead of all else: a count that other roads have brought above
    // the limit stops nothing here.
    if (m_nBlackCount == m_nMaxBlackCount) {
        return DIR_RET_BLACK_FULL;
    }
    if (GetContactGroupId(strName) == GROUP_ID_BLACKLIST) {
        return DIR_RET_ALREADY_BLACK;
    }
    return SetContactGroupId(strName, GROUP_ID_BLACKLIST);
}

}  // namespace NS_DIRECTORY
