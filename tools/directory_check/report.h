// The two forms of a report.

#ifndef NSDIRECTORY_TOOLS_DIRECTORY_CHECK_REPORT_H
#define NSDIRECTORY_TOOLS_DIRECTORY_CHECK_REPORT_H

#include <iosfwd>

#include "tools/directory_check/findings.h"

void PrintText(std::ostream& out, const ReportData& report);
void PrintJson(std::ostream& out, const ReportData& report);

#endif  // NSDIRECTORY_TOOLS_DIRECTORY_CHECK_REPORT_H
