// The contact file: its load, its save, and the names of missing groups that it must not lose.

#include <algorithm>
#include <climits>

#include "directory/contact_local_manager.h"
#include "directory/internal/contact_element.h"
#include "directory/internal/xml_file.h"
#include "directory/internal/xml_names.h"
#include "platform/device_services.h"

namespace NS_DIRECTORY {
namespace {

// Of two limits, negative ones holding nothing.
int SumOfLimits(int nLeft, int nRight)
{
    const int nFirst = std::max(nLeft, 0);
    return nFirst + std::min(std::max(nRight, 0), INT_MAX - nFirst);
}

}  // namespace

int CContactLocalManager::MyLoadContactFromXmlFile(const qz::basic_string<char>& strFileName)
{
    (void)strFileName;  // the path is fixed
    return MyFillContactList(MyContactLimits());
}

int CContactLocalManager::ReloadContactXml()
{
    const ContactLimits limits = MyContactLimitsForReload();
    const bool bCleared = MyClearContactList();
    const bool bLoaded = MyFillContactList(limits) == DIR_RET_OK;
    return bCleared && bLoaded ? DIR_RET_OK : DIR_RET_NONE;
}

CContactLocalManager::ContactLimits CContactLocalManager::MyContactLimits() const
{
    return {m_nMaxContactCount, m_nMaxBlackCount};
}

// What the list holds takes no new slot. A contact of group 0 that keeps the name of the blacklist
// is on its way back there.
CContactLocalManager::ContactLimits CContactLocalManager::MyContactLimitsForReload() const
{
    int nBlackHeld = 0;
    for (ItemIterator pos = m_listContact.begin(); pos != m_listContact.end(); pos = pos->next) {
        const ItemData& item = *pos->value;
        if (item.m_nGroupId == GROUP_ID_BLACKLIST || item.m_strKeptGroupName == NAME_BLACKLIST) {
            ++nBlackHeld;
        }
    }
    return {std::max(m_nMaxContactCount, GetCurrentContactCount()),
            std::max(m_nMaxBlackCount, nBlackHeld)};
}

int CContactLocalManager::MyFillContactList(const ContactLimits& limits)
{
    if (ZMK_MiscHelper::pathFileExist(CONTACT_FILE_PATH) == 0) {
        return DIR_RET_NONE;
    }
    const CXmlInput file(CONTACT_FILE_PATH, ELEMENT_ROOT_CONTACT);
    if (!file.HasRoot()) {
        return DIR_RET_NONE;
    }
    ContactLimits room = limits;
    if (m_listGroup.size() == 0) {
        // Without groups every contact stands on the ordinary side, the blacklisted ones too.
        room.m_nOrdinary = SumOfLimits(limits.m_nOrdinary, limits.m_nBlack);
    }
    int nResult = DIR_RET_OK;
    for (pugi::xml_node element : file.Root().children(ELEMENT_CONTACT)) {
        ItemData item;
        const qz::basic_string<char> strGroupName(ReadContactElement(element, item));
        MyResolveGroup(item, strGroupName);
        if (MyInsertLoadedContact(room, item) < 0) {
            nResult = DIR_RET_NONE;
        }
    }
    return nResult;
}

// A contact of no group that exists stands in "All Contacts". Where groups went missing with a
// broken group file it keeps the name, or the next save would lose its way home.
void CContactLocalManager::MyResolveGroup(ItemData& item,
                                          const qz::basic_string<char>& strGroupName) const
{
    item.m_nGroupId = MyGName2Id(strGroupName);
    if (item.m_nGroupId != GROUP_ID_NONE) {
        return;
    }
    item.m_nGroupId = GROUP_ID_ALL;
    if (m_bKeepGroupNames) {
        item.m_strKeptGroupName = strGroupName;
    }
}

// For the contacts in memory when a reload is about to lose the group list.
void CContactLocalManager::MyKeepGroupNames()
{
    for (ItemIterator pos = m_listContact.begin(); pos != m_listContact.end(); pos = pos->next) {
        ItemData& item = *pos->value;
        if (item.m_strKeptGroupName.empty()) {
            item.m_strKeptGroupName = MyGId2Name(item.m_nGroupId);
        }
    }
}

// Good until either list changes.
const char* CContactLocalManager::MyGroupNameForFile(const ItemData& item) const
{
    if (!item.m_strKeptGroupName.empty()) {
        return item.m_strKeptGroupName.c_str();
    }
    const GroupData* pGroup = MyFindGroupById(item.m_nGroupId);
    return pGroup == nullptr ? "" : pGroup->m_strDisplayName.c_str();
}

void CContactLocalManager::MySetContactDirty(bool bDirty)
{
    if (m_bContactDirty == bDirty) {
        return;
    }
    m_bContactDirty = bDirty;
    if (bDirty) {
        (void)SaveContactToXml();  // always 1
    }
}

int CContactLocalManager::SaveContactToXml()
{
    if (!m_bContactDirty) {
        return DIR_RET_OK;
    }
    CXmlOutput file;
    pugi::xml_node root = file.AppendRoot(ELEMENT_ROOT_CONTACT);
    for (ItemIterator pos = m_listContact.begin(); pos != m_listContact.end(); pos = pos->next) {
        AppendContactElement(file, root, *pos->value, MyGroupNameForFile(*pos->value));
    }
    file.Save(CONTACT_FILE_PATH);
    MySetContactDirty(false);  // whatever became of the write
    return DIR_RET_OK;
}

}  // namespace NS_DIRECTORY
