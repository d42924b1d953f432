// The group file: its default, its load, its save, and the reload that renumbers the groups.

#include "directory/contact_local_manager.h"
#include "directory/data_files.h"
#include "directory/internal/fixed_groups.h"
#include "directory/internal/group_element.h"
#include "directory/internal/group_load.h"
#include "directory/internal/missing_groups.h"
#include "directory/internal/xml_file.h"
#include "directory/internal/xml_names.h"
#include "platform/device_services.h"

namespace NS_DIRECTORY {

int CContactLocalManager::CreateContactGroupList(const qz::basic_string<char>& strPath)
{
    CXmlOutput file;
    (void)AppendDefaultGroups(file);
    (void)file.Save(strPath.c_str());  // nothing is reported
    return DIR_RET_OK;
}

int CContactLocalManager::MyCreateDefaultGroup()
{
    for (const FixedGroup& fixed : FIXED_GROUPS) {
        (void)MyInsertGroup(MakeFixedGroup(fixed), false);  // a list that has it keeps it
    }
    MyResetGenerator();
    return DIR_RET_OK;
}

// Its next id is that of the first user group.
void CContactLocalManager::MyResetGenerator()
{
    if (m_pIdGenerator != nullptr) {
        (void)m_pIdGenerator->SetBegin(FIRST_USER_GROUP_ID - 1);
    }
}

void CContactLocalManager::MyEnsureGroupFile()
{
    if (ZMK_MiscHelper::pathFileExist(GROUP_FILE_PATH) == 0) {
        (void)CreateContactGroupList(GROUP_FILE_PATH);  // the load shows what became of it
    }
}

int CContactLocalManager::MyLoadGroupFromXmlFile(const qz::basic_string<char>& strFileName)
{
    (void)strFileName;  // the path is fixed
    MyEnsureGroupFile();
    const CXmlInput file(GROUP_FILE_PATH, ELEMENT_ROOT_GROUP);
    return MyFillGroupList(file, m_nMaxGroupCount);
}

int CContactLocalManager::ReloadGroupXml()
{
    const int nLimit = MyGroupLimitForReload();
    MyEnsureGroupFile();
    const CXmlInput file(GROUP_FILE_PATH, ELEMENT_ROOT_GROUP);
    if (file.IsOutOfMemory()) {
        MySetGroupUnread(true, nLimit);
        return DIR_RET_NONE;  // the list stays: part of the file is less
    }
    if (!file.HasRoot()) {
        KeepGroupNames(m_listContact, m_listGroup);
    }
    (void)MyClearGroupList();  // always true
    return MyFillGroupList(file, nLimit);
}

int CContactLocalManager::MyFillGroupList(const CXmlInput& file, int nLimit)
{
    struct Listener final : CGroupLoadListener
    {
        explicit Listener(CContactLocalManager& directory) : m_directory(directory) {}
        int Take(const GroupPlace& place, const GroupData& group, pugi::xml_node) override
        {
            return m_directory.MyLinkGroup(place, group);
        }
        void Refuse(const GroupPlace&, const GroupData&, pugi::xml_node) override {}
        void PassOver(pugi::xml_node) override {}

        CContactLocalManager& m_directory;
    };
    m_bGroupUnsaved = false;
    if (!file.HasRoot()) {
        MySetGroupUnread(file.IsOutOfMemory(), nLimit);
        m_bKeepGroupNames = m_bKeepGroupNames || !m_bGroupUnread;
        return DIR_RET_NONE;
    }
    MyResetGenerator();
    Listener listener(*this);
    const int nLoaded = LoadGroups(file.Root(), m_listGroup, nLimit, listener);
    MySetGroupUnread(file.IsOutOfMemory() || nLoaded == DIR_RET_NO_MEMORY, nLimit);
    return !m_bGroupUnread && nLoaded == DIR_RET_OK ? DIR_RET_OK : DIR_RET_NONE;
}

void CContactLocalManager::MySetGroupDirty(bool bDirty)
{
    if (m_bGroupDirty == bDirty) {
        return;
    }
    m_bGroupDirty = bDirty;
    if (bDirty) {
        (void)SaveGroupToXml();  // always 1
    }
}

int CContactLocalManager::SaveGroupToXml()
{
    if (!m_bGroupDirty) {
        return DIR_RET_OK;
    }
    CXmlOutput file;
    pugi::xml_node root = file.AppendRoot(ELEMENT_ROOT_GROUP);
    for (const GroupData& group : RecordsOf(m_listGroup)) {
        AppendGroupElement(
            file, root,
            {group.m_strDisplayName.c_str(), group.m_strRing.c_str(), group.m_bReadOnly});
    }
    m_bGroupUnsaved = !file.Save(GROUP_FILE_PATH);
    MySetGroupDirty(false);  // whatever became of the write
    return DIR_RET_OK;
}

}  // namespace NS_DIRECTORY
