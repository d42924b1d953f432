// What a check finds out, for people and programs alike.

#ifndef NSDIRECTORY_TOOLS_DIRECTORY_CHECK_FINDINGS_H
#define NSDIRECTORY_TOOLS_DIRECTORY_CHECK_FINDINGS_H

#include <cstddef>
#include <string>
#include <vector>

enum class FindingKind
{
    PARSER_STOPPED,     // what follows is not read
    NO_ROOT,            // nothing in the file is read
    NOT_WELL_FORMED,    // read here, but strict XML readers refuse the file
    REFUSED,            // the group or contact is not taken
    NO_GROUP,           // the contact's group does not exist
    UNKNOWN_ATTRIBUTE,  // never read or written
    SHED                // dropped or changed by the next save for another reason
};

struct FindingData
{
    FindingKind m_kind;
    int m_nLine;               // 0 if it has none
    std::ptrdiff_t m_nOffset;  // of the element's name, in bytes; -1 if it has none
    std::string m_strSubject;  // the group or contact; may be empty
    std::string m_strText;
};

struct FileReportData
{
    std::string m_strPath;
    bool m_bAbsent = false;
    std::string m_strParserStatus;
    int m_nRefused = 0;
    // In the order of the file. For one element: what is not well-formed, then whether it is
    // taken and its group, then its attributes in their order, then what is inside.
    std::vector<FindingData> m_findings;
};

struct ReportData
{
    std::string m_strLocale;
    FileReportData m_groupFile;
    FileReportData m_contactFile;
    std::vector<std::string> m_groups;  // in the order of the list
    int m_nOrdinary = 0;
    int m_nBlack = 0;

    // False if only the other file is judged.
    bool HasGroupFile() const { return !m_groupFile.m_strPath.empty(); }
    bool HasContactFile() const { return !m_contactFile.m_strPath.empty(); }

    std::size_t FindingCount() const
    {
        return m_groupFile.m_findings.size() + m_contactFile.m_findings.size();
    }
};

#endif  // NSDIRECTORY_TOOLS_DIRECTORY_CHECK_FINDINGS_H
