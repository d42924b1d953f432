// A report as text, one finding a line as compilers print theirs, and as JSON.

#include "tools/directory_check/report.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "tools/directory_check/characters.h"

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
        case FindingKind::NOT_WELL_FORMED:
            return "not-well-formed";
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
        out << Shown(file.m_strPath);
        if (finding.m_nLine != 0) {
            out << ':' << finding.m_nLine;
        }
        out << ": " << NameOf(finding.m_kind) << ": ";
        if (!finding.m_strSubject.empty()) {
            out << Shown(finding.m_strSubject) << ": ";
        }
        out << Shown(finding.m_strText) << '\n';
    }
}

void PrintGroups(std::ostream& out, const ReportData& report)
{
    out << Shown(report.m_groupFile.m_strPath) << ": ";
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
        out << "    " << Shown(strName) << '\n';
    }
}

void PrintContacts(std::ostream& out, const ReportData& report)
{
    out << Shown(report.m_contactFile.m_strPath) << ": ";
    if (report.m_contactFile.m_bAbsent) {
        out << "absent, no contacts\n";
        return;
    }
    out << report.m_nOrdinary << " ordinary and " << report.m_nBlack
        << " blacklisted contacts taken, " << report.m_contactFile.m_nRefused << " refused"
        << (report.HasGroupFile() ? "" : "; their groups are not judged without the group file")
        << '\n';
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
    out << "locale: " << Shown(report.m_strLocale) << '\n';
    if (report.HasGroupFile()) {
        PrintGroups(out, report);
        PrintFindings(out, report.m_groupFile);
    }
    if (report.HasContactFile()) {
        PrintContacts(out, report);
        PrintFindings(out, report.m_contactFile);
    }
    out << "findings: " << report.FindingCount() << '\n';
}

void PrintJson(std::ostream& out, const ReportData& report)
{
    Json json = {{"locale", report.m_strLocale},
                 {"group_file", nullptr},
                 {"contact_file", nullptr},
                 {"findings", report.FindingCount()}};
    if (report.HasGroupFile()) {
        json["group_file"] = JsonOf(report.m_groupFile);
        json["groups"] = report.m_groups;
    }
    if (report.HasContactFile()) {
        json["contact_file"] = JsonOf(report.m_contactFile);
        json["ordinary_contacts"] = report.m_nOrdinary;
        json["blacklisted_contacts"] = report.m_nBlack;
    }
    // A file may hold bytes that are no UTF-8; in JSON they would be none either.
    out << json.dump(JSON_INDENT, ' ', false, Json::error_handler_t::replace) << '\n';
}
