// Groups first, as in a start: contacts find their group by its name.

#include "tools/directory_check/directory_check.h"

#include "directory/internal/contact_element.h"
#include "directory/internal/group_element.h"
#include "directory/internal/group_finders.h"
#include "directory/internal/missing_groups.h"
#include "directory/internal/xml_names.h"
#include "tools/directory_check/input_file.h"

using namespace NS_DIRECTORY;

namespace {

std::string Quoted(const std::string& strName)
{
    return '"' + strName + '"';
}

std::string EqualName(const std::string& strPresent)
{
    return strPresent.empty()
               ? "one without a name is there already"
               : Quoted(strPresent) + " is there already; letter case makes no difference";
}

std::string OverLimit(int nLimit, const char* pWhat)
{
    return "over the limit of " + std::to_string(nLimit) + " " + pWhat;
}

std::string ReasonOf(const GroupPlace& place, const CContactLocalManager::GroupData& group)
{
    if (place.m_nResult == DIR_RET_GROUP_EXIST) {
        return EqualName(place.m_itPlace->value->m_strDisplayName.c_str());
    }
    return group.m_strDisplayName.empty()
               ? "it has no name"
               : OverLimit(START_MAX_GROUP_COUNT, "groups, the two fixed ones included");
}

std::string ReasonOf(int nCode, const ContactLimits& limits, const ItemData* pPresent)
{
    switch (nCode) {
        case DIR_RET_BLACK_FULL:
            return OverLimit(limits.m_nBlack, "blacklisted contacts");
        case DIR_RET_CONTACT_FULL:
            return OverLimit(limits.m_nOrdinary, "ordinary contacts");
        default:
            return EqualName(pPresent->m_strDisplayName.c_str());
    }
}

// What a save writes for a group, to be compared with what is in the file.
pugi::xml_node Write(CXmlOutput& output, const CContactLocalManager::GroupData& group)
{
    const pugi::xml_node root = output.AppendRoot(ELEMENT_ROOT_GROUP);
    AppendGroupElement(
        output, root, {group.m_strDisplayName.c_str(), group.m_strRing.c_str(), group.m_bReadOnly});
    return root.first_child();
}

pugi::xml_node Write(CXmlOutput& output, const CContactLocalManager::ItemData& item,
                     const char* pGroupName)
{
    const pugi::xml_node root = output.AppendRoot(ELEMENT_ROOT_CONTACT);
    AppendContactElement(output, root, item, pGroupName);
    return root.first_child();
}

}  // namespace

ReportData CDirectoryCheck::Run(const std::string& strGroupFile, const std::string& strContactFile)
{
    CheckGroupFile(strGroupFile);
    for (auto pos = m_listGroup.begin(); pos != m_listGroup.end(); pos = pos->next) {
        m_report.m_groups.emplace_back(pos->value->m_strDisplayName.c_str());
    }
    CheckContactFile(strContactFile);
    return m_report;
}

void CDirectoryCheck::CheckGroupFile(const std::string& strPath)
{
    CFileCheck file(m_report.m_groupFile, strPath, ELEMENT_ROOT_GROUP, ELEMENT_GROUP);
    m_pFile = &file;
    CXmlOutput defaults;
    if (file.IsAbsent()) {
        (void)LoadGroups(AppendDefaultGroups(defaults), m_listGroup, START_MAX_GROUP_COUNT, *this);
        return;  // a start makes the file first
    }
    file.CheckWhole();
    if (!file.Root().empty()) {
        (void)LoadGroups(file.Root(), m_listGroup, START_MAX_GROUP_COUNT, *this);
    }
    file.Finish();
}

int CDirectoryCheck::Take(const GroupPlace& place, const GroupData& group, pugi::xml_node element)
{
    m_listGroup.insert(place.m_itPlace, &m_groups.emplace_back(group));
    if (!element.empty()) {
        CXmlOutput output;
        m_pFile->CheckAttributes(element, Write(output, group));
    }
    return DIR_RET_OK;
}

void CDirectoryCheck::Refuse(const GroupPlace& place, const GroupData& group,
                             pugi::xml_node element)
{
    m_pFile->Refuse(element, ReasonOf(place, group));
}

void CDirectoryCheck::PassOver(pugi::xml_node element)
{
    CXmlOutput output;
    const char* pFixed = element.attribute(ATTRIBUTE_DISPLAY_NAME).value();
    m_pFile->CheckAttributes(element, Write(output, *FindGroupByName(m_listGroup, pFixed)));
}

void CDirectoryCheck::CheckContactFile(const std::string& strPath)
{
    CFileCheck file(m_report.m_contactFile, strPath, ELEMENT_ROOT_CONTACT, ELEMENT_CONTACT);
    m_pFile = &file;
    if (file.IsAbsent()) {
        return;
    }
    file.CheckWhole();
    // Without groups each contact keeps the name of its own through saves.
    const bool bKeepNames = m_listGroup.size() == 0;
    m_limits = LimitsForLoad({START_MAX_CONTACT_COUNT, START_MAX_BLACK_COUNT}, m_listGroup);
    if (LoadContacts(file.Root(), {m_listGroup, m_listContact, m_limits, bKeepNames}, *this) ==
        DIR_RET_NO_MEMORY) {
        throw CUnreadable(strPath + ": there is no memory to read it");
    }
    file.Finish();
}

void CDirectoryCheck::Take(ItemData* pItem, pugi::xml_node element)
{
    const ItemData& item = *m_contacts.emplace_back(pItem);
    ++(item.m_nGroupId == GROUP_ID_BLACKLIST ? m_report.m_nBlack : m_report.m_nOrdinary);
    const char* pGroupName = element.attribute(ATTRIBUTE_GROUP_ID_NAME).value();
    const std::string strWritten = GroupNameForFile(m_listGroup, item);
    if (*pGroupName == '\0' || strWritten == pGroupName) {
        pGroupName = strWritten.c_str();
    } else if (m_report.HasGroupFile()) {
        m_pFile->Add(FindingKind::NO_GROUP, element,
                     "there is no group " + Quoted(pGroupName) + ": the next save writes " +
                         Quoted(strWritten) + ", where the contact is");
    }
    CXmlOutput output;  // a missing group is reported once, so its name counts as written
    m_pFile->CheckAttributes(element, Write(output, item, pGroupName));
}

void CDirectoryCheck::Append(ItemData* pItem)
{
    m_listContact.push_back(pItem);
}

void CDirectoryCheck::Clear()
{
    m_listContact.clear();
}

void CDirectoryCheck::Refuse(int nCode, pugi::xml_node element, const ItemData* pPresent)
{
    m_pFile->Refuse(element, ReasonOf(nCode, m_limits, pPresent));
}
