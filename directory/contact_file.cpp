// The contact file: its load, its reload and its save.

#include "directory/contact_local_manager.h"
#include "directory/data_files.h"
#include "directory/internal/contact_element.h"
#include "directory/internal/contact_load.h"
#include "directory/internal/missing_groups.h"
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

int CContactLocalManager::MyFillContactList(const CXmlInput& file, const ContactLimits& limits)
{
    struct Listener final : CContactLoadListener
    {
        explicit Listener(CContactLocalManager& directory) : m_directory(directory) {}
        void Take(ItemData*, pugi::xml_node) override {}  // it comes to the list at once or later
        void Append(ItemData* pItem) override
        {
            m_directory.MyLinkContact(m_directory.m_listContact.end(), pItem);
        }
        void Clear() override { m_directory.MyUnlinkContacts(); }
        void Refuse(int, pugi::xml_node, const ItemData*) override {}  // the result shows it

        CContactLocalManager& m_directory;
    };
    Listener listener(*this);
    const ContactLoadData data{m_listGroup, m_listContact, LimitsForLoad(limits, m_listGroup),
                               m_bKeepGroupNames};
    const int nLoaded = LoadContacts(file.Root(), data, listener);
    m_bContactUnsaved = false;
    MySetContactUnread(file.IsOutOfMemory() || nLoaded == DIR_RET_NO_MEMORY, limits);
    return file.HasRoot() && !file.IsOutOfMemory() && nLoaded == DIR_RET_OK ? DIR_RET_OK
                                                                            : DIR_RET_NONE;
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
    for (const ItemData& item : RecordsOf(m_listContact)) {
        AppendContactElement(file, root, item, GroupNameForFile(m_listGroup, item));
    }
    m_bContactUnsaved = !file.Save(CONTACT_FILE_PATH);
    MySetContactDirty(false);  // whatever became of the write
    return DIR_RET_OK;
}

}  // namespace NS_DIRECTORY
