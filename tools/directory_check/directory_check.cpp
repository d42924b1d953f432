// Groups first, as in a start: contacts find their group by its name.

#include "tools/directory_check/directory_check.h"

#include <algorithm>

#include "directory/internal/contact_element.h"
#include "directory/internal/fixed_groups.h"
#include "directory/internal/group_element.h"
#include "directory/internal/group_links.h"
#include "directory/internal/xml_names.h"

using namespace NS_DIRECTORY;

namespace {

std::string Quoted(const qz::basic_string<char>& strName)
{
    return "\"" + std::string(strName.c_str()) + "\"";
}

std::string EqualName(const qz::basic_string<char>& strPresent)
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
        return EqualName(place.m_itPlace->value->m_strDisplayName);
    }
    return group.m_strDisplayName.empty()
               ? "it has no name"
               : OverLimit(START_MAX_GROUP_COUNT, "groups, the two fixed ones included");
}

// What a save writes for a group, to be compared with what stands in the file.
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

void SortByPlace(FileReportData& report)
{
    std::stable_sort(report.m_findings.begin(), report.m_findings.end(),
                     [](const FindingData& left, const FindingData& right) {
                         return left.m_nOffset < right.m_nOffset;
                     });
}

}  // namespace

ReportData CDirectoryCheck::Run(const std::string& strGroupFile, const std::string& strContactFile)
{
    CheckGroupFile(strGroupFile);
    for (auto pos = m_listGroup.begin(); pos != m_listGroup.end(); pos = pos->next) {
        m_report.m_groups.emplace_back(pos->value->m_strDisplayName.c_str());
    }
    CheckContactFile(strContactFile);
    SortByPlace(m_report.m_groupFile);
    SortByPlace(m_report.m_contactFile);
    return m_report;
}

void CDirectoryCheck::CheckGroupFile(const std::string& strPath)
{
    CFileCheck file(m_report.m_groupFile, strPath, ELEMENT_ROOT_GROUP, ELEMENT_GROUP);
    CXmlOutput defaults;
    if (file.IsAbsent()) {
        CheckGroups(file, AppendDefaultGroups(defaults));  // a start makes the file first
        return;
    }
    file.CheckWhole();
    if (!file.Root().empty()) {
        CheckGroups(file, file.Root());
    }
}

void CDirectoryCheck::CheckGroups(CFileCheck& file, pugi::xml_node root)
{
    for (const FixedGroup& fixed : FIXED_GROUPS) {
        (void)TakeGroup(file, {}, MakeFixedGroup(fixed));  // the list is empty: nothing refuses
    }
    for (const pugi::xml_node element : root.children(ELEMENT_GROUP)) {
        CheckGroup(file, element);
    }
}

void CDirectoryCheck::CheckGroup(CFileCheck& file, pugi::xml_node element)
{
    CXmlOutput output;
    GroupData group;
    if (!ReadGroupElement(element, group)) {
        const char* pFixed = element.attribute(ATTRIBUTE_DISPLAY_NAME).value();
        file.CheckAttributes(element, Write(output, *FindGroupByName(m_listGroup, pFixed)));
        return;
    }
    group.m_nId = static_cast<int>(m_groups.size());  // that of no fixed group
    if (TakeGroup(file, element, group)) {
        file.CheckAttributes(element, Write(output, group));
    }
}

bool CDirectoryCheck::TakeGroup(CFileCheck& file, pugi::xml_node element, const GroupData& group)
{
    const GroupPlace place = FindGroupPlace(m_listGroup, group, START_MAX_GROUP_COUNT, nullptr);
    if (place.m_nResult < 0) {
        file.Refuse(element, ReasonOf(place, group));
        return false;
    }
    m_listGroup.insert(place.m_itPlace, &m_groups.emplace_back(group));
    return true;
}

void CDirectoryCheck::CheckContactFile(const std::string& strPath)
{
    CFileCheck file(m_report.m_contactFile, strPath, ELEMENT_ROOT_CONTACT, ELEMENT_CONTACT);
    if (file.IsAbsent()) {
        return;
    }
    file.CheckWhole();
    if (m_listGroup.size() == 0) {
        m_limits = LimitsWithoutGroups(m_limits);
    }
    for (const pugi::xml_node element : file.Root().children(ELEMENT_CONTACT)) {
        CheckContact(file, element);
    }
}

void CDirectoryCheck::CheckContact(CFileCheck& file, pugi::xml_node element)
{
    ItemData item;
    const qz::basic_string<char> strGroupName(ReadContactElement(element, item));
    // Without groups each contact keeps the name of its own through saves.
    const bool bKeepName = m_listGroup.size() == 0;
    ResolveGroup(m_listGroup, strGroupName, bKeepName, item);
    if (!TakeContact(file, element, item)) {
        return;
    }
    qz::basic_string<char> strWritten(GroupNameForFile(m_listGroup, item));
    if (!strGroupName.empty() && !(strWritten == strGroupName)) {
        file.Add(FindingKind::NO_GROUP, element,
                 "there is no group " + Quoted(strGroupName) + ": the next save writes " +
                     Quoted(strWritten) + ", where the contact stands");
        strWritten = strGroupName;  // told once
    }
    CXmlOutput output;
    file.CheckAttributes(element, Write(output, item, strWritten.c_str()));
}

bool CDirectoryCheck::TakeContact(CFileCheck& file, pugi::xml_node element, const ItemData& item)
{
    int& nCount = CountOfSide(item.m_nGroupId);
    switch (TestContactLimit(m_limits, item.m_nGroupId, nCount, 1)) {
        case DIR_RET_BLACK_FULL:
            file.Refuse(element, OverLimit(m_limits.m_nBlack, "blacklisted contacts"));
            return false;
        case DIR_RET_CONTACT_FULL:
            file.Refuse(element, OverLimit(m_limits.m_nOrdinary, "ordinary contacts"));
            return false;
        default:
            break;
    }
    const ContactPlace place = FindContactPlaceFromTail(m_listContact, item);
    if (place.m_nResult < 0) {
        file.Refuse(element, EqualName(place.m_itPlace->value->m_strDisplayName));
        return false;
    }
    m_listContact.insert(place.m_itPlace, &m_contacts.emplace_back(item));
    ++nCount;
    return true;
}

int& CDirectoryCheck::CountOfSide(int nGroupId)
{
    return nGroupId == GROUP_ID_BLACKLIST ? m_report.m_nBlack : m_report.m_nOrdinary;
}
