// What a save would shed is found by comparing with what it would write, so nothing here knows an
// attribute by name but the key and the photos, which depend on the screen.

#include "tools/directory_check/file_check.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "directory/internal/xml_names.h"

namespace {

std::string ReadText(const std::string& strPath)
{
    std::error_code error;
    std::ifstream file(strPath, std::ios::binary);
    if (!std::filesystem::is_regular_file(strPath, error) || !file) {
        throw CUnreadable(strPath + ": cannot be read");
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

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
    : m_report(report), m_pRoot(pRoot), m_pElement(pElement), m_input(strPath.c_str(), pRoot)
{
    report.m_strPath = strPath;
    report.m_bAbsent = !std::filesystem::exists(strPath);
    if (!report.m_bAbsent) {
        m_strText = ReadText(strPath);
    }
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
                  "; what stands behind is not read, and the next save drops it");
    }
    if (!m_input.HasRoot()) {
        AddAt(FindingKind::NO_ROOT, -1, {},
              std::string("there is no <") + m_pRoot +
                  ">: nothing is taken, and the next save writes over what stands there");
    }
}

void CFileCheck::CheckRoot(pugi::xml_node root)
{
    for (const pugi::xml_attribute& attribute : root.attributes()) {
        Add(FindingKind::UNKNOWN_ATTRIBUTE, root, "the next save drops " + Quoted(attribute));
    }
    for (const pugi::xml_node node : root.children()) {
        if (std::strcmp(node.name(), m_pElement) != 0) {
            AddDropped(node);
            continue;
        }
        for (const pugi::xml_node inner : node.children()) {
            AddDropped(inner);
        }
    }
}

void CFileCheck::AddDropped(pugi::xml_node node)
{
    Add(FindingKind::SHED, node, "the next save drops the " + Described(node));
}

void CFileCheck::CheckAttributes(pugi::xml_node element, pugi::xml_node written)
{
    for (const pugi::xml_attribute& attribute : element.attributes()) {
        const pugi::xml_attribute kept = written.attribute(attribute.name());
        const std::string strQuoted = Quoted(attribute);
        if (element.attribute(attribute.name()) != attribute) {
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
    m_report.m_findings.push_back({kind, LineAt(nOffset), nOffset, strSubject, strText});
}

// 0 where the parser's offset is none of the file's own: a negative one, or one into a file that is
// not in UTF-8.
int CFileCheck::LineAt(std::ptrdiff_t nOffset) const
{
    const bool bOwn = m_input.Status().encoding == pugi::encoding_utf8 && nOffset >= 0 &&
                      nOffset <= static_cast<std::ptrdiff_t>(m_strText.size());
    return bOwn ? 1 + static_cast<int>(
                          std::count(m_strText.begin(), m_strText.begin() + nOffset, '\n'))
                : 0;
}
