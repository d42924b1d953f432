// Reading and writing of XML files, and the only place with the options of the parser and the
// writer.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_XML_FILE_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_XML_FILE_H

#include <pugixml.hpp>

namespace NS_DIRECTORY {

// A file read into memory. Of a damaged file the document holds the part before the fault, of a
// file that cannot be opened nothing.
class CXmlInput
{
  public:
    CXmlInput() = default;  // as of an absent file
    CXmlInput(const char* pPath, const char* pRootName) { Read(pPath, pRootName); }
    void Read(const char* pPath, const char* pRootName);  // once

    pugi::xml_node Root() const { return m_root; }  // null if the file has no such element
    bool HasRoot() const { return !m_root.empty(); }
    const pugi::xml_parse_result& Status() const { return m_status; }  // loads do not go by it
    // True if there was no memory to read all of the file: the document holds any part of it.
    bool IsOutOfMemory() const { return m_bOutOfMemory; }

  private:
    pugi::xml_document m_document;
    pugi::xml_parse_result m_status;
    pugi::xml_node m_root;
    bool m_bOutOfMemory = false;
};

// Looks up the attributes of one element by name, each name once; the first of a name counts. It
// is fastest if they are asked for in the order of the element.
class CAttributeReader
{
  public:
    explicit CAttributeReader(pugi::xml_node element)
        : m_element(element), m_next(element.first_attribute())
    {}

    pugi::xml_attribute Find(const char* pName);

  private:
    pugi::xml_node m_element;
    // The first attribute not found yet; all before it have other names than those still to come.
    pugi::xml_attribute m_next;
};

// A document to be written. It knows whether every node got its memory, and a document that is not
// whole replaces no file.
class CXmlOutput
{
  public:
    CXmlOutput();

    pugi::xml_node AppendRoot(const char* pName) { return AppendElement(m_document, pName); }
    // These three are inline because a save calls them a dozen times for each contact.
    pugi::xml_node AppendElement(pugi::xml_node parent, const char* pName)
    {
        pugi::xml_node element = parent.append_child(pName);
        // Out of memory, the XML library still adds the node but leaves its name empty.
        MyNote(*element.name() != '\0');
        return element;
    }

    void AppendText(pugi::xml_node element, const char* pName, const char* pValue)
    {
        pugi::xml_attribute attribute = element.append_attribute(pName);
        // A value that is not set is written as an empty one.
        MyNote(*attribute.name() != '\0' && (*pValue == '\0' || attribute.set_value(pValue)));
    }

    void AppendNumber(pugi::xml_node element, const char* pName, int nValue)
    {
        pugi::xml_attribute attribute = element.append_attribute(pName);
        MyNote(*attribute.name() != '\0' && attribute.set_value(nValue));
    }

    // Rewrites the file in place. False if memory ran short, so that the file still has to be
    // written; a write that fails for any other reason goes unreported.
    bool Save(const char* pPath) const;

  private:
    void MyNote(bool bGotMemory) { m_bWhole = m_bWhole && bGotMemory; }

    pugi::xml_document m_document;
    bool m_bWhole = true;
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_XML_FILE_H
