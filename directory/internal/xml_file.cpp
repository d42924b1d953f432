// XML in and out. The files of devices in the field depend on the options here.

#include "directory/internal/xml_file.h"

#include <cstring>

namespace NS_DIRECTORY {
namespace {

constexpr unsigned int PARSE_OPTIONS = pugi::parse_default;
constexpr unsigned int WRITE_FLAGS = pugi::format_indent;
constexpr char INDENT[] = "\t";
static_assert(PARSE_OPTIONS == 0x74 && WRITE_FLAGS == 1 && pugi::encoding_auto == 0,
              "files would be written or read in another form");

}  // namespace

CXmlInput::CXmlInput(const char* pPath, const char* pRootName)
{
    m_status = m_document.load_file(pPath, PARSE_OPTIONS, pugi::encoding_auto);
    m_root = m_document.child(pRootName);
}

pugi::xml_attribute CAttributeReader::Find(const char* pName)
{
    if (std::strcmp(m_next.name(), pName) != 0) {
        return m_element.attribute(pName);
    }
    const pugi::xml_attribute found = m_next;
    m_next = m_next.next_attribute();
    return found;
}

CXmlOutput::CXmlOutput()
{
    pugi::xml_node declaration = m_document.prepend_child(pugi::node_declaration);
    AppendText(declaration, "version", "1.0");
    AppendText(declaration, "encoding", "utf-8");
}

void CXmlOutput::Save(const char* pPath) const
{
    if (!m_bWhole) {
        return;
    }
    // A failed write goes unreported: what is in memory stays, and the next save brings it along.
    (void)m_document.save_file(pPath, INDENT, WRITE_FLAGS, pugi::encoding_auto);
}

}  // namespace NS_DIRECTORY
