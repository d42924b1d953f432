// What a save would shed is found by comparing with what it would write, so nothing here knows an
// attribute by name but the key and the photos, which depend on the screen.

#include "tools/directory_check/file_check.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <string_view>

#include "directory/internal/xml_names.h"
#include "tools/directory_check/characters.h"
#include "tools/directory_check/input_file.h"

namespace {

// What a line is about: the group or contact of the node, or nothing.
std::string SubjectOf(pugi::xml_node node)
{
    for (; !node.empty(); node = node.parent()) {
        const pugi::xml_attribute name = node.attribute(NS_DIRECTORY::ATTRIBUTE_DISPLAY_NAME);
        if (!name.empty()) {
            return std::string(node.name()) + " \"" + name.value() + "\"";
        }
    }
    return {};
}

std::string Quoted(const pugi::xml_attribute& attribute)
{
    return std::string(attribute.name()) + "=\"" + attribute.value() + "\"";
}

bool IsPhoto(const pugi::xml_attribute& attribute)
{
    return std::strcmp(attribute.name(), NS_DIRECTORY::ATTRIBUTE_DEFAULT_PHOTO) == 0 ||
           std::strcmp(attribute.name(), NS_DIRECTORY::ATTRIBUTE_SELECTED_PHOTO) == 0;
}

// No text and no number: an attribute that is not there reads the same.
bool IsBlank(const pugi::xml_attribute& attribute)
{
    return *attribute.value() == '\0' || std::strcmp(attribute.value(), "0") == 0;
}

std::string Described(pugi::xml_node node)
{
    switch (node.type()) {
        case pugi::node_element:
            return std::string("element <") + node.name() + ">";
        case pugi::node_comment:
            return "comment";
        case pugi::node_pi:
            return std::string("instruction <?") + node.name() + "?>";
        case pugi::node_doctype:
            return "document type";
        default:
            return "text";
    }
}

}  // namespace

CFileCheck::CFileCheck(FileReportData& report, const std::string& strPath, const char* pRoot,
                       const char* pElement)
    : m_report(report),
      m_pRoot(pRoot),
      m_pElement(pElement),
      m_strText(KindOf(strPath) == PathKind::ABSENT ? "" : ReadText(strPath)),
      m_input(strPath.c_str(), pRoot)
{
    if (m_input.IsOutOfMemory()) {
        throw CUnreadable(strPath + ": there is no memory to read it");
    }
    report.m_strPath = strPath;
    report.m_bAbsent = KindOf(strPath) == PathKind::ABSENT;
}

void CFileCheck::CheckWhole()
{
    CheckParser();
    // A load sees no comments and the like, but a save sheds them all the same.
    pugi::xml_document document;
    (void)document.load_buffer(m_strText.data(), m_strText.size(), pugi::parse_full);
    const pugi::xml_node root = document.child(m_pRoot);
    for (const pugi::xml_node node : document.children()) {
        if (node == root) {
            CheckRoot(root);
        } else if (node.type() != pugi::node_declaration && !root.empty()) {
            AddDropped(node);
        }
    }
}

void CFileCheck::CheckParser()
{
    const pugi::xml_parse_result& status = m_input.Status();
    m_report.m_strParserStatus = status.description();
    if (!status) {
        AddAt(FindingKind::PARSER_STOPPED, status.offset, {},
              "the parser stops at byte " + std::to_string(status.offset) + " of " +
                  std::to_string(m_strText.size()) + ": " + status.description() +
                  "; what follows is not read, and the next save drops it");
    }
    if (!m_input.HasRoot()) {
        AddAt(FindingKind::NO_ROOT, -1, {},
              std::string("there is no <") + m_pRoot +
                  ">: nothing is taken, and the next save writes over what is there");
    }
}

void CFileCheck::CheckRoot(pugi::xml_node root)
{
    for (const pugi::xml_attribute& attribute : root.attributes()) {
        Add(FindingKind::UNKNOWN_ATTRIBUTE, root, "the next save drops " + Quoted(attribute));
    }
    for (const pugi::xml_node node : root.children()) {
        if (std::strcmp(node.name(), m_pElement) == 0) {
            CheckElement(node);
        } else {
            AddDropped(node);
        }
    }
}

void CFileCheck::CheckElement(pugi::xml_node element)
{
    for (const pugi::xml_attribute& attribute : element.attributes()) {
        const std::string strFault = XmlFault(attribute.value());
        if (!strFault.empty()) {
            Add(FindingKind::NOT_WELL_FORMED, element,
                "strict XML readers refuse the file: " + strFault + " in " + Quoted(attribute));
        }
    }
    for (const pugi::xml_node inner : element.children()) {
        AddDropped(inner);
    }
}

void CFileCheck::AddDropped(pugi::xml_node node)
{
    Add(FindingKind::SHED, node, "the next save drops the " + Described(node));
}

void CFileCheck::CheckAttributes(pugi::xml_node element, pugi::xml_node written)
{
    std::set<std::string_view> seen;
    for (const pugi::xml_attribute& attribute : element.attributes()) {
        const pugi::xml_attribute kept = written.attribute(attribute.name());
        const std::string strQuoted = Quoted(attribute);
        if (!seen.insert(attribute.name()).second) {
            Add(FindingKind::SHED, element, "the next save drops the second " + strQuoted);
        } else if (kept.empty() && !IsPhoto(attribute)) {
            Add(FindingKind::UNKNOWN_ATTRIBUTE, element, "the next save drops " + strQuoted);
        } else if (kept.empty() && !IsBlank(attribute)) {
            Add(FindingKind::SHED, element, "the next save drops " + strQuoted);
        } else if (!IsBlank(attribute) && std::strcmp(attribute.value(), kept.value()) != 0) {
            Add(FindingKind::SHED, element,
                "the next save writes " + Quoted(kept) + " in place of " + strQuoted);
        }
    }
}

void CFileCheck::Refuse(pugi::xml_node element, const std::string& strReason)
{
    ++m_report.m_nRefused;
    Add(FindingKind::REFUSED, element, "not taken, and dropped by the next save: " + strReason);
}

void CFileCheck::Add(FindingKind kind, pugi::xml_node node, const std::string& strText)
{
    AddAt(kind, node.offset_debug(), SubjectOf(node), strText);
}

void CFileCheck::AddAt(FindingKind kind, std::ptrdiff_t nOffset, const std::string& strSubject,
                       const std::string& strText)
{
    m_report.m_findings.push_back({kind, 0, nOffset, strSubject, strText});
}

void CFileCheck::Finish()
{
    std::vector<FindingData>& findings = m_report.m_findings;
    std::stable_sort(findings.begin(), findings.end(),
                     [](const FindingData& left, const FindingData& right) {
                         return left.m_nOffset < right.m_nOffset;
                     });
    int nLine = 1;
    auto pos = m_strText.begin();
    for (FindingData& finding : findings) {
        if (IsOwnOffset(finding.m_nOffset)) {
            const auto place = m_strText.begin() + finding.m_nOffset;
            nLine += static_cast<int>(std::count(pos, place, '\n'));
            pos = place;
            finding.m_nLine = nLine;
        }
    }
}

// False for an offset that is none of the file's own: a negative one, or one into a file that is
// not in UTF-8.
bool CFileCheck::IsOwnOffset(std::ptrdiff_t nOffset) const
{
    return m_input.Status().encoding == pugi::encoding_utf8 && nOffset >= 0 &&
           nOffset <= static_cast<std::ptrdiff_t>(m_strText.size());
}
