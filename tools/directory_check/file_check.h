// One of the two files while it is checked: what the parser makes of it, and the findings in it.

#ifndef NSDIRECTORY_TOOLS_DIRECTORY_CHECK_FILE_CHECK_H
#define NSDIRECTORY_TOOLS_DIRECTORY_CHECK_FILE_CHECK_H

#include <string>

#include "directory/internal/xml_file.h"
#include "tools/directory_check/findings.h"

class CFileCheck
{
  public:
    // Reads the file as a load does. It may be absent. Throws CUnreadable.
    CFileCheck(FileReportData& report, const std::string& strPath, const char* pRoot,
               const char* pElement);

    bool IsAbsent() const { return m_report.m_bAbsent; }

    // What a load reads; null if there is no such root.
    pugi::xml_node Root() const { return m_input.Root(); }

    // Finds where the parser stopped, whether there is a root, and what a load passes over.
    void CheckWhole();

    // Finds what a save changes that writes one element for another.
    void CheckAttributes(pugi::xml_node element, pugi::xml_node written);

    void Refuse(pugi::xml_node element, const std::string& strReason);
    void Add(FindingKind kind, pugi::xml_node node, const std::string& strText);

    // Puts the findings into their order and numbers their lines. Called last.
    void Finish();

  private:
    void AddAt(FindingKind kind, std::ptrdiff_t nOffset, const std::string& strSubject,
               const std::string& strText);
    void CheckParser();
    void CheckRoot(pugi::xml_node root);
    void CheckElement(pugi::xml_node element);
    void AddDropped(pugi::xml_node node);
    bool IsOwnOffset(std::ptrdiff_t nOffset) const;

    FileReportData& m_report;
    const char* m_pRoot;
    const char* m_pElement;
    std::string m_strText;  // read ahead of the parser, which would wait for a pipe
    NS_DIRECTORY::CXmlInput m_input;
};

#endif  // NSDIRECTORY_TOOLS_DIRECTORY_CHECK_FILE_CHECK_H
