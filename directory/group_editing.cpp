// Editing of groups. An add, a rename and a single removal end with a reload of both files, since
// that is what gives the groups their ids. Each saves first what the reload will take.

#include <climits>

#include "directory/contact_local_manager.h"
#include "directory/internal/fixed_groups.h"
#include "directory/internal/group_place.h"
#include "directory/internal/limits.h"

namespace NS_DIRECTORY {

int CContactLocalManager::AddGroup(const ContactGroupData& data)
{
    const int nChange = MyTestChange();
    if (nChange < 0) {
        return nChange;
    }
    return MyAddGroup(data, GROUP_ID_NONE);
}

// The generator's id may be that of a group in the list. No host sees it: the file holds no ids and
// the reload gives new ones.
int CContactLocalManager::MyAddGroup(const ContactGroupData& data, int nId)
{
    // An existing name is reported even if the list is full.
    if (IsGroupExist(data.m_strDisplayName)) {
        return DIR_RET_GROUP_EXIST;
    }
    if (!HasRoomForGroup(GetCurrentGroupCount(), m_nMaxGroupCount)) {
        return DIR_RET_GROUP_FULL;
    }
    if (nId == GROUP_ID_NONE) {
        nId = m_pIdGenerator == nullptr ? GROUP_ID_NONE : m_pIdGenerator->GenId();
        if (nId < 0) {
            return DIR_RET_GROUP_ID_FAIL;
        }
    } else if (MyFindGroupById(nId) != nullptr) {
        return DIR_RET_GROUP_EXIST;
    }
    GroupData group;
    if (MyCGD2GD(&group, nId, data) == DIR_RET_NONE) {
        return DIR_RET_INVALID;
    }
    int nPosition = MyInsertGroup(group, true);
    if (nPosition < 0) {
        return nPosition;
    }
    if (m_bGroupUnsaved) {  // the reload would find it in no file
        (void)MyEraseGroup(MyFindGroupPosition(data.m_strDisplayName, nPosition));
        m_bGroupUnsaved = false;
        return DIR_RET_NO_MEMORY;
    }
    // If the reload gets no memory, the present ids stay for a while: no other group has this one.
    MyFindGroupByDisplayName(data.m_strDisplayName)->m_nId = INT_MAX;
    MyReloadAfterEdit();
    return nPosition;
}

int CContactLocalManager::MyCGD2GD(GroupData* pGroup, int nId, const ContactGroupData& data) const
{
    if (pGroup == nullptr || nId < 0) {
        return DIR_RET_NONE;
    }
    pGroup->m_nId = nId;
    pGroup->m_strDisplayName = data.m_strDisplayName;
    pGroup->m_strRing = data.m_strRing;
    pGroup->m_bReadOnly = MyIsGroupReadOnly(nId);
    return DIR_RET_OK;
}

// Groups first: contacts find their group by its name.
void CContactLocalManager::MyReloadAfterEdit()
{
    if (m_bGroupUnsaved || m_bContactUnsaved) {  // memory is all there is; the next edit reloads
        MySetGroupUnread(true, GetCurrentGroupCount());
        return;
    }
    (void)ReloadGroupXml();  // the edit is made, whatever the files give back
    (void)ReloadContactXml();
}

int CContactLocalManager::UpdateGroupData(const qz::basic_string<char>& strName,
                                          const ContactGroupData& data)
{
    const int nChange = MyTestChange();
    if (nChange < 0) {
        return nChange;
    }
    if (strName.empty()) {
        return DIR_RET_INVALID;
    }
    int nPosition = 0;
    const GroupIterator pos = MyFindGroupPosition(strName, nPosition);
    if (pos == m_listGroup.end()) {
        return DIR_RET_INVALID;
    }
    if (!(strName == data.m_strDisplayName)) {
        return MyRenameGroup(pos, data);
    }
    if (!(pos->value->m_strRing == data.m_strRing)) {
        pos->value->m_strRing = data.m_strRing;
        MySetGroupDirty(true);
    }
    return nPosition;
}

CContactLocalManager::GroupIterator CContactLocalManager::MyFindGroupPosition(
    const qz::basic_string<char>& strName, int& nPosition) const
{
    GroupIterator pos = m_listGroup.begin();
    for (nPosition = 0; pos != m_listGroup.end(); pos = pos->next) {
        if (pos->value->m_strDisplayName == strName) {
            break;
        }
        ++nPosition;
    }
    return pos;
}

int CContactLocalManager::MyRenameGroup(GroupIterator pos, const ContactGroupData& data)
{
    GroupData* pGroup = pos->value;
    const int nTest = MyTestRename(*pGroup, data);
    if (nTest < 0) {
        return nTest;
    }
    // All memory of the edit itself is taken before the first write: if a container ends the
    // process, both files are as before.
    const GroupData before(*pGroup);
    const GroupIterator posNext = m_listGroup.erase(pos);
    (void)MyCGD2GD(pGroup, pGroup->m_nId, data);  // the id of a stored group is never negative
    // It has a place: the test has looked for it among the same groups.
    const GroupPlace place = FindGroupPlace(m_listGroup, *pGroup, m_nMaxGroupCount, nullptr);
    m_listGroup.insert(place.m_itPlace, pGroup);
    // The contact file gets the new name first: the contacts are about to be read back by it.
    MySetContactDirty(true);
    if (m_bContactUnsaved) {  // the file with the old name would cost them their group
        *pGroup = before;
        (void)m_listGroup.erase(place.m_itPlace->prev);
        m_listGroup.insert(posNext, pGroup);
        m_bContactUnsaved = false;
        return DIR_RET_NO_MEMORY;
    }
    MySetGroupDirty(true);
    MyReloadAfterEdit();
    return place.m_nResult;
}

// All that could refuse the new name, tested before anything is touched, in the order in which an
// add refuses.
int CContactLocalManager::MyTestRename(const GroupData& group, const ContactGroupData& data) const
{
    if (IsGroupExist(data.m_strDisplayName)) {
        return DIR_RET_GROUP_EXIST;
    }
    // The reload makes the fixed group again beside the renamed one, so no slot becomes free.
    const int nOthers = GetCurrentGroupCount() - (MyIsGroupReadOnly(group.m_nId) ? 0 : 1);
    if (!HasRoomForGroup(nOthers, m_nMaxGroupCount)) {
        return DIR_RET_GROUP_FULL;
    }
    GroupData renamed;
    (void)MyCGD2GD(&renamed, group.m_nId, data);
    const GroupPlace place = FindGroupPlace(m_listGroup, renamed, m_nMaxGroupCount, &group);
    if (place.m_nResult < 0) {
        return place.m_nResult;
    }
    // The contacts of a renamed blacklist become ordinary ones, and the next start would drop those
    // that do not fit.
    const bool bLeavesBlacklist = IsBlack(group.m_nId) && m_nBlackCount > 0;
    if (bLeavesBlacklist && static_cast<int>(m_listContact.size()) > m_nMaxContactCount) {
        return DIR_RET_CONTACT_FULL;
    }
    return DIR_RET_OK;
}

int CContactLocalManager::RemoveGroup(const qz::basic_string<char>& strName)
{
    const int nChange = MyTestChange();
    if (nChange < 0) {
        return nChange;
    }
    int nPosition = 0;
    const GroupIterator pos = MyFindGroupPosition(strName, nPosition);
    if (pos == m_listGroup.end()) {
        return DIR_RET_GROUP_NOT_FOUND;
    }
    if (MyIsGroupReadOnly(pos->value->m_nId)) {
        return DIR_RET_GROUP_READ_ONLY;
    }
    (void)MyUpdateAllContactGroupId(pos->value->m_nId, GROUP_ID_ALL);
    // Again, and also for a group without contacts: the reload takes what this file holds.
    MySetContactDirty(true);
    (void)MyEraseGroup(pos);
    MySetGroupDirty(true);
    MyReloadAfterEdit();
    return DIR_RET_OK;
}

int CContactLocalManager::RemoveAllGroup()
{
    const int nChange = MyTestChange();
    if (nChange < 0) {
        return nChange;
    }
    bool bRemoved = false;
    for (GroupIterator pos = m_listGroup.begin(); pos != m_listGroup.end();) {
        if (MyIsGroupReadOnly(pos->value->m_nId)) {
            pos = pos->next;
            continue;
        }
        (void)MyUpdateAllContactGroupId(pos->value->m_nId, GROUP_ID_ALL);
        pos = MyEraseGroup(pos);
        bRemoved = true;
    }
    if (!bRemoved) {
        return DIR_RET_GROUP_NOT_FOUND;
    }
    // No reload: only the fixed groups are left, and their ids do not change.
    MySetGroupDirty(true);
    return DIR_RET_OK;
}

int CContactLocalManager::MyUpdateAllContactGroupId(int nOldId, int nNewId)
{
    bool bChanged = false;
    for (ItemData& item : RecordsOf(m_listContact)) {
        if (item.m_nGroupId == nOldId) {
            bChanged = MyChangeContactGroup(item, nNewId);  // the same result for all
        }
    }
    if (bChanged) {
        MySetContactDirty(true);
    }
    return DIR_RET_OK;
}

}  // namespace NS_DIRECTORY
