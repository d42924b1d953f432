// XML in and out. The files of devices in the field depend on the options here.

#include "directory/internal/xml_file.h"

#include <cerrno>
#include <cstring>
#include <utility>

namespace NS_DIRECTORY {
namespace {

constexpr unsigned int PARSE_OPTIONS = pugi::parse_default;
constexpr unsigned int WRITE_FLAGS = pugi::format_indent;
constexpr char INDENT[] = "\t";
static_assert(PARSE_OPTIONS == 0x74 && WRITE_FLAGS == 1 && pugi::encoding_auto == 0,
              "files would be written or read in another form");

// The XML library does not say that the C library had no memory for a stream; errno does. What
// errno held before stays if nothing fails here: a host may look for it after several calls.
class CErrorWatch
{
  public:
    CErrorWatch() : m_nBefore(std::exchange(errno, 0)) {}
    CErrorWatch(const CErrorWatch&) = delete;
    CErrorWatch& operator=(const CErrorWatch&) = delete;
    ~CErrorWatch()
    {
        if (errno == 0) {
            errno = m_nBefore;
        }
    }

    bool IsOutOfMemory() const { return errno == ENOMEM; }

  private:
    int m_nBefore;
};

}  // namespace

void CXmlInput::Read(const char* pPath, const char* pRootName)
{
    const CErrorWatch watch;
    m_status = m_document.load_file(pPath, PARSE_OPTIONS, pugi::encoding_auto);
    m_bOutOfMemory =
        m_status.status == pugi::status_out_of_memory || (!m_status && watch.IsOutOfMemory());
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

bool CXmlOutput::Save(const char* pPath) const
{
    if (!m_bWhole) {
        return false;
    }
    const CErrorWatch watch;
    return m_document.save_file(pPath, INDENT, WRITE_FLAGS, pugi::encoding_auto) ||
           !watch.IsOutOfMemory();
}

}  // namespace NS_DIRECTORY
