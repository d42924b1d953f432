// The group file: its default, its load, its save, and the reload that renumbers the groups.

#include <algorithm>
#include <climits>

#include "directory/contact_local_manager.h"
#include "directory/data_files.h"
#include "directory/internal/fixed_groups.h"
#include "directory/internal/group_element.h"
#include "directory/internal/xml_file.h"
#include "directory/internal/xml_names.h"
#include "platform/device_services.h"

namespace NS_DIRECTORY {
namespace {

constexpr int LAST_FIXED_GROUP_ID = GROUP_ID_BLACKLIST;
constexpr int FIRST_USER_GROUP_ID = LAST_FIXED_GROUP_ID + 1;

}  // namespace

int CContactLocalManager::CreateContactGroupList(const qz::basic_string<char>& strPath)
{
    CXmlOutput file;
    (void)AppendDefaultGroups(file);
    (void)file.Save(strPath.c_str());  // nothing is reported
    return DIR_RET_OK;
}

int CContactLocalManager::MyCreateDefaultGroup()
{
    (void)MyInsertFixedGroups(m_nMaxGroupCount);
    return DIR_RET_OK;
}

bool CContactLocalManager::MyInsertFixedGroups(int nLimit)
{
    bool bMemory = true;
    for (const FixedGroup& fixed : FIXED_GROUPS) {
        // A list that has it already keeps it.
        const int nInserted = MyInsertGroupWithin(nLimit, MakeFixedGroup(fixed), false);
        bMemory = bMemory && nInserted != DIR_RET_NO_MEMORY;
    }
    if (m_pIdGenerator != nullptr) {
        (void)m_pIdGenerator->SetBegin(LAST_FIXED_GROUP_ID);
    }
    return bMemory;
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
        MyKeepGroupNames();  // the list that knows them is about to go
    }
    (void)MyClearGroupList();  // always true
    return MyFillGroupList(file, nLimit);
}

// What the list holds takes no new slot, and neither do fixed groups that the load makes afresh.
int CContactLocalManager::MyGroupLimitForReload() const
{
    int nHeld = GetCurrentGroupCount();
    for (const FixedGroup& fixed : FIXED_GROUPS) {
        if (!IsGroupExist(fixed.m_pName)) {
            ++nHeld;
        }
    }
    return std::max({m_nMaxGroupCount, nHeld, m_nGroupRoom});
}

int CContactLocalManager::MyFillGroupList(const CXmlInput& file, int nLimit)
{
    m_bGroupUnsaved = false;
    if (!file.HasRoot()) {
        MySetGroupUnread(file.IsOutOfMemory(), nLimit);
        m_bKeepGroupNames = m_bKeepGroupNames || !m_bGroupUnread;
        return DIR_RET_NONE;
    }
    // Without the fixed groups the directory could hold no contact.
    bool bMemory = MyInsertFixedGroups(INT_MAX) && !file.IsOutOfMemory();
    int nResult = DIR_RET_OK;
    int nNextId = FIRST_USER_GROUP_ID;
    for (pugi::xml_node element : file.Root().children(ELEMENT_GROUP)) {
        GroupData group;
        if (!ReadGroupElement(element, group)) {
            continue;
        }
        group.m_nId = nNextId++;  // a refused element uses up its id
        const int nInserted = MyInsertGroupWithin(nLimit, group, false);
        bMemory = bMemory && nInserted != DIR_RET_NO_MEMORY;
        if (nInserted < 0) {
            nResult = DIR_RET_NONE;
        }
    }
    MySetGroupUnread(!bMemory, nLimit);
    return bMemory ? nResult : DIR_RET_NONE;
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
    for (GroupIterator pos = m_listGroup.begin(); pos != m_listGroup.end(); pos = pos->next) {
        const GroupData& group = *pos->value;
        AppendGroupElement(
            file, root,
            {group.m_strDisplayName.c_str(), group.m_strRing.c_str(), group.m_bReadOnly});
    }
    m_bGroupUnsaved = !file.Save(GROUP_FILE_PATH);
    MySetGroupDirty(false);  // whatever became of the write
    return DIR_RET_OK;
}

}  // namespace NS_DIRECTORY
