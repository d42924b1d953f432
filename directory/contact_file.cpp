// The contact file: its load, its save, and the names of missing groups that it must not lose.

#include <algorithm>

#include "directory/contact_local_manager.h"
#include "directory/data_files.h"
#include "directory/internal/contact_element.h"
#include "directory/internal/contact_limits.h"
#include "directory/internal/group_links.h"
#include "directory/internal/xml_file.h"
#include "directory/internal/xml_names.h"
#include "platform/device_services.h"

namespace NS_DIRECTORY {
namespace {

void ReadContactFile(CXmlInput& file)
{
    if (ZMK_MiscHelper::pathFileExist(CONTACT_FILE_PATH) != 0) {
        file.Read(CONTACT_FILE_PATH, ELEMENT_ROOT_CONTACT);
    }
}

}  // namespace

int CContactLocalManager::MyLoadContactFromXmlFile(const qz::basic_string<char>& strFileName)
{
    (void)strFileName;  // the path is fixed
    CXmlInput file;
    ReadContactFile(file);
    return MyFillContactList(file, MyContactLimits());
}

int CContactLocalManager::ReloadContactXml()
{
    const ContactLimits limits = MyContactLimitsForReload();
    CXmlInput file;
    ReadContactFile(file);
    if (file.IsOutOfMemory()) {
        MySetContactUnread(true, limits);
        return DIR_RET_NONE;  // the list stays: part of the file is less
    }
    (void)MyClearContactList();  // always true: it takes every entry
    return MyFillContactList(file, limits);
}

ContactLimits CContactLocalManager::MyContactLimits() const
{
    return {m_nMaxContactCount, m_nMaxBlackCount};
}

// What the list holds takes no new slot. A contact of group 0 that keeps the name of the blacklist
// is on its way back there.
ContactLimits CContactLocalManager::MyContactLimitsForReload() const
{
    int nBlackHeld = 0;
    for (ItemIterator pos = m_listContact.begin(); pos != m_listContact.end(); pos = pos->next) {
        const ItemData& item = *pos->value;
        if (item.m_nGroupId == GROUP_ID_BLACKLIST || item.m_strKeptGroupName == NAME_BLACKLIST) {
            ++nBlackHeld;
        }
    }
    return {std::max({m_nMaxContactCount, GetCurrentContactCount(), m_nContactRoom}),
            std::max({m_nMaxBlackCount, nBlackHeld, m_nBlackRoom})};
}

int CContactLocalManager::MyFillContactList(const CXmlInput& file, const ContactLimits& limits)
{
    const ContactLimits room = m_listGroup.size() == 0 ? LimitsWithoutGroups(limits) : limits;
    bool bMemory = !file.IsOutOfMemory();
    int nResult = file.HasRoot() ? DIR_RET_OK : DIR_RET_NONE;
    for (pugi::xml_node element : file.Root().children(ELEMENT_CONTACT)) {
        ItemData item;
        const qz::basic_string<char> strGroupName(ReadContactElement(element, item));
        ResolveGroup(m_listGroup, strGroupName, m_bKeepGroupNames, item);
        const int nInserted = MyInsertLoadedContact(room, item);
        bMemory = bMemory && nInserted != DIR_RET_NO_MEMORY;
        if (nInserted < 0) {
            nResult = DIR_RET_NONE;
        }
    }
    m_bContactUnsaved = false;
    MySetContactUnread(!bMemory, limits);
    return bMemory ? nResult : DIR_RET_NONE;
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
    return GroupNameForFile(m_listGroup, item);
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
    m_bContactUnsaved = !file.Save(CONTACT_FILE_PATH);
    MySetContactDirty(false);  // whatever became of the write
    return DIR_RET_OK;
}

}  // namespace NS_DIRECTORY
