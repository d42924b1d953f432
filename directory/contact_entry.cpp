// Adding and updating contacts. A new contact goes through the ordered insert; an update edits the
// record in place, unless the name changes: the name decides the place in the list.

#include "directory/contact_local_manager.h"
#include "directory/internal/fixed_groups.h"
#include "platform/device_services.h"

namespace NS_DIRECTORY {
namespace {

bool Assign(qz::basic_string<char>& strField, const qz::basic_string<char>& strNew)
{
    if (strField == strNew) {
        return false;
    }
    strField = strNew;
    return true;
}

bool Assign(int& nField, int nNew)
{
    const bool bDiffers = nField != nNew;
    nField = nNew;
    return bDiffers;
}

}  // namespace

int CContactLocalManager::AddContact(const qz::basic_string<char>& strGroupName,
                                     const ContactGeneralItemData& data)
{
    const int nChange = MyTestChange();
    if (nChange < 0) {
        return nChange;
    }
    const int nGroupId = MyGName2Id(strGroupName);
    return nGroupId < 0 ? DIR_RET_GROUP_NOT_FOUND : MyAddToGroup(nGroupId, data);
}

int CContactLocalManager::AddContactById(int nGroupId, const ContactGeneralItemData& data)
{
    const int nChange = MyTestChange(nGroupId);
    if (nChange < 0) {
        return nChange;
    }
    return MyFindGroupById(nGroupId) == nullptr ? DIR_RET_GROUP_ID_FAIL
                                                : MyAddToGroup(nGroupId, data);
}

int CContactLocalManager::AddBlackContact(const ContactGeneralItemData& data)
{
    return AddContactById(GROUP_ID_BLACKLIST, data);
}

int CContactLocalManager::MyAddToGroup(int nGroupId, const ContactGeneralItemData& data)
{
    ItemData item;
    (void)MyCGID2ID(&item, nGroupId, data, false);  // refuses only ids of no group
    return MyInsertContactNoCheckGroup(item, true);
}

int CContactLocalManager::MyCGID2ID(ItemData* pItem, int nGroupId,
                                    const ContactGeneralItemData& data, bool bUnused) const
{
    (void)bUnused;
    if (nGroupId == GROUP_ID_NONE || pItem == nullptr) {
        return DIR_RET_NONE;
    }
    pItem->m_strDisplayName = data.m_strDisplayName;
    pItem->m_strOfficeNumber = data.m_strOfficeNumber;
    pItem->m_strMobileNumber = data.m_strMobileNumber;
    pItem->m_strOtherNumber = data.m_strOtherNumber;
    pItem->m_strRing = data.m_strRing;
    pItem->m_nLine = data.m_nLine;
    pItem->m_nGroupId = nGroupId;
    if (IsColorfulScreen() != 0) {
        pItem->m_strDefaultPhoto = data.m_strDefaultPhoto;
        pItem->m_nSelectedPhoto = data.m_nSelectedPhoto;
    }
    return DIR_RET_OK;
}

int CContactLocalManager::UpdateContactData(const qz::basic_string<char>& strName,
                                            const ContactGeneralItemData& data)
{
    const int nChange = MyTestChange();
    if (nChange < 0) {
        return nChange;
    }
    if (strName.empty()) {  // before the search, which would only not find it
        return DIR_RET_EMPTY_KEY;
    }
    // The contact before its group: hosts learn first that the contact is gone.
    if (GetContactGroupId(strName) < 0) {
        return DIR_RET_CONTACT_NOT_FOUND;
    }
    const GroupData* pTarget = MyFindGroupByDisplayName(data.m_strGroupName);
    if (pTarget == nullptr) {
        return DIR_RET_GROUP_NOT_FOUND;
    }
    const bool bRename = !(strName == data.m_strDisplayName);
    // A taken name before the limits, unlike in an add.
    if (bRename && IsContactExist(data.m_strDisplayName)) {
        return DIR_RET_CONTACT_EXIST;
    }
    int nCounter = 0;
    const ItemIterator pos = MyFindAndCount(strName, pTarget->m_nId, nCounter);
    if (bRename) {
        return MyRenameContact(pos, pTarget->m_nId, data);
    }
    const int nUpdated = MyUpdateInPlace(*pos->value, pTarget->m_nId, data);
    return nUpdated < 0 ? nUpdated : nCounter;
}

// The contact of that name, which is known to exist, and how many contacts of the group the list
// holds up to it.
CContactLocalManager::ItemIterator CContactLocalManager::MyFindAndCount(
    const qz::basic_string<char>& strName, int nGroupId, int& nCounter) const
{
    ItemIterator pos = m_listContact.begin();
    for (;; pos = pos->next) {
        const ItemData& item = *pos->value;
        if (IsCountedIn(nGroupId, item)) {
            ++nCounter;
        }
        if (item.m_strDisplayName == strName) {
            return pos;
        }
    }
}

int CContactLocalManager::MyRenameContact(ItemIterator pos, int nGroupId,
                                          const ContactGeneralItemData& data)
{
    ItemData item;
    (void)MyCGID2ID(&item, nGroupId, data, false);  // refuses only ids of no group
    // A contact that stays in its group still waits for the missing one.
    if (pos->value->m_nGroupId == nGroupId) {
        item.m_strKeptGroupName = pos->value->m_strKeptGroupName;
    }
    return MyReplaceContact(pos, item);
}

int CContactLocalManager::MyUpdateInPlace(ItemData& item, int nGroupId,
                                          const ContactGeneralItemData& data)
{
    // Other moves test no limit, even if the count is above it.
    if (CrossesBlacklist(item.m_nGroupId, nGroupId)) {
        const int nTest = MyTestContactLimit(nGroupId, 1);
        if (nTest < 0) {
            return nTest;
        }
    }
    bool bChanged = Assign(item.m_strOfficeNumber, data.m_strOfficeNumber);
    bChanged = Assign(item.m_strMobileNumber, data.m_strMobileNumber) || bChanged;
    bChanged = Assign(item.m_strOtherNumber, data.m_strOtherNumber) || bChanged;
    bChanged = Assign(item.m_strRing, data.m_strRing) || bChanged;
    bChanged = Assign(item.m_nLine, data.m_nLine) || bChanged;
    bChanged = MyChangeContactGroup(item, nGroupId) || bChanged;
    if (IsColorfulScreen() != 0) {
        bChanged = Assign(item.m_strDefaultPhoto, data.m_strDefaultPhoto) || bChanged;
        bChanged = Assign(item.m_nSelectedPhoto, data.m_nSelectedPhoto) || bChanged;
    }
    if (bChanged) {
        MySetContactDirty(true);
    }
    return DIR_RET_OK;
}

}  // namespace NS_DIRECTORY
