// Moving contacts between groups. Only a move across the border of the blacklist needs a slot. The
// moves by group name count all slots before the first contact moves; the others test no limit.

#include "directory/contact_local_manager.h"
#include "directory/internal/fixed_groups.h"
#include "directory/internal/name_set.h"

namespace NS_DIRECTORY {

int CContactLocalManager::IsListCanMove(QZList<qz::basic_string<char>>& listName,
                                        const qz::basic_string<char>& strGroupName)
{
    if (m_bReloadByHttp) {
        return DIR_RET_RELOADING;
    }
    return MyTestMove(CNameSet(listName), MyGName2Id(strGroupName));
}

int CContactLocalManager::MyTestMove(const CNameSet& names, int nTargetId) const
{
    if (nTargetId < 0) {
        return DIR_RET_GROUP_NOT_FOUND;
    }
    int nNeeded = 0;
    VisitNamed(m_listContact, names, [&nNeeded, nTargetId](ItemIterator pos) {
        nNeeded += CrossesBlacklist(pos->value->m_nGroupId, nTargetId) ? 1 : 0;
    });
    const int nTest = MyTestContactLimit(nTargetId, nNeeded);
    return nTest < 0 ? nTest : DIR_RET_OK_ZERO;
}

int CContactLocalManager::MoveListToGroup(QZList<qz::basic_string<char>>& listName,
                                          const qz::basic_string<char>& strGroupName)
{
    const int nChange = MyTestChange();
    if (nChange < 0) {
        return nChange;
    }
    const CNameSet names(listName);
    const int nTargetId = MyGName2Id(strGroupName);
    const int nTest = MyTestMove(names, nTargetId);
    if (nTest != DIR_RET_OK_ZERO) {
        return nTest;
    }
    bool bMoved = false;
    VisitNamed(m_listContact, names, [this, &bMoved, nTargetId](ItemIterator pos) {
        bMoved = MyChangeContactGroup(*pos->value, nTargetId) || bMoved;
    });
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
    const int nTargetId = MyGName2Id(strGroupName);
    if (nTargetId < 0) {
        return DIR_RET_GROUP_NOT_FOUND;
    }
    const ItemIterator pos = MyFindContactPosition(strName);
    const bool bExists = pos != m_listContact.end();
    const bool bCrosses = bExists && CrossesBlacklist(pos->value->m_nGroupId, nTargetId);
    const int nTest = MyTestContactLimit(nTargetId, bCrosses ? 1 : 0);
    if (nTest < 0) {
        return nTest;
    }
    // A name of no contact is no failure here, unlike in SetContactGroupId. An empty name is tested
    // like any other, but moves nothing.
    if (bExists && !strName.empty() && MyChangeContactGroup(*pos->value, nTargetId)) {
        MySetContactDirty(true);
    }
    return DIR_RET_OK_ZERO;
}

int CContactLocalManager::SetContactGroupId(const qz::basic_string<char>& strName, int nGroupId)
{
    const int nChange = MyTestChange(nGroupId);
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

// No limit is tested: a number is never kept blocked because a slot is missing.
int CContactLocalManager::Black2Local(const qz::basic_string<char>& strName)
{
    if (MyCatchUp() < 0) {
        return DIR_RET_NO_MEMORY;
    }
    if (!IsBlack(GetContactGroupId(strName))) {
        return DIR_RET_NOT_BLACK;
    }
    return SetContactGroupId(strName, GROUP_ID_ALL);
}

int CContactLocalManager::Local2Black(const qz::basic_string<char>& strName)
{
    if (MyCatchUp() < 0) {
        return DIR_RET_NO_MEMORY;
    }
    // Equal, not at or above: a count that other calls have brought above the limit stops nothing
    // here. Tested even before the name.
    if (m_nBlackCount == m_nMaxBlackCount) {
        return DIR_RET_BLACK_FULL;
    }
    if (IsBlack(GetContactGroupId(strName))) {
        return DIR_RET_ALREADY_BLACK;
    }
    return SetContactGroupId(strName, GROUP_ID_BLACKLIST);
}

}  // namespace NS_DIRECTORY
