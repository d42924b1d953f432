// A report as text, one finding a line as compilers print theirs, and as JSON.

#include "tools/directory_check/report.h"

#include <nlohmann/json.hpp>
#include <ostream>

namespace {

using Json = nlohmann::ordered_json;

constexpr int JSON_INDENT = 2;

const char* NameOf(FindingKind kind)
{
    switch (kind) {
        case FindingKind::PARSER_STOPPED:
            return "parser-stopped";
        case FindingKind::NO_ROOT:
            return "no-root";
        case FindingKind::REFUSED:
            return "refused";
        case FindingKind::NO_GROUP:
            return "no-group";
        case FindingKind::UNKNOWN_ATTRIBUTE:
            return "unknown-attribute";
        default:
            return "shed";
    }
}

void PrintFindings(std::ostream& out, const FileReportData& file)
{
    for (const FindingData& finding : file.m_findings) {
        out << file.m_strPath;
        if (finding.m_nLine != 0) {
            out << ':' << finding.m_nLine;
        }
        out << ": " << NameOf(finding.m_kind) << ": ";
        if (!finding.m_strSubject.empty()) {
            out << finding.m_strSubject << ": ";
        }
        out << finding.m_strText << '\n';
    }
}

void PrintGroups(std::ostream& out, const ReportData& report)
{
    out << report.m_groupFile.m_strPath << ": ";
    if (report.m_groupFile.m_bAbsent) {
        out << "absent, a start writes the default groups; ";
    }
    if (report.m_groups.empty()) {
        out << "no groups, so no number is blocked and no contact handed out until one is added\n";
        return;
    }
    out << report.m_groups.size() << " groups taken, " << report.m_groupFile.m_nRefused
        << " refused\n";
    for (const std::string& strName : report.m_groups) {
        out << "    " << strName << '\n';
    }
}

void PrintContacts(std::ostream& out, const ReportData& report)
{
    out << report.m_contactFile.m_strPath << ": ";
    if (report.m_contactFile.m_bAbsent) {
        out << "absent, no contacts\n";
        return;
    }
    out << report.m_nOrdinary << " ordinary and " << report.m_nBlack
        << " blacklisted contacts taken, " << report.m_contactFile.m_nRefused << " refused\n";
}

Json JsonOf(const FindingData& finding)
{
    return {{"kind", NameOf(finding.m_kind)},
            {"line", finding.m_nLine},
            {"offset", finding.m_nOffset},
            {"subject", finding.m_strSubject},
            {"text", finding.m_strText}};
}

Json JsonOf(const FileReportData& file)
{
    Json findings = Json::array();
    for (const FindingData& finding : file.m_findings) {
        findings.push_back(JsonOf(finding));
    }
    return {{"path", file.m_strPath},
            {"absent", file.m_bAbsent},
            {"parser", file.m_strParserStatus},
            {"refused", file.m_nRefused},
            {"findings", findings}};
}

}  // namespace

void PrintText(std::ostream& out, const ReportData& report)
{
    PrintGroups(out, report);
    PrintFindings(out, report.m_groupFile);
    PrintContacts(out, report);
    PrintFindings(out, report.m_contactFile);
    out << "findings: " << report.FindingCount() << '\n';
}

void PrintJson(std::ostream& out, const ReportData& report)
{
    const Json json = {{"group_file", JsonOf(report.m_groupFile)},
                       {"contact_file", JsonOf(report.m_contactFile)},
                       {"groups", report.m_groups},
                       {"ordinary_contacts", report.m_nOrdinary},
                       {"blacklisted_contacts", report.m_nBlack},
                       {"findings", report.FindingCount()}};
    // A file may hold bytes that are no UTF-8; in JSON they would be none either.
    out << json.dump(JSON_INDENT, ' ', false, Json::error_handler_t::replace) << '\n';
}
