// directory_check: says what a start of the directory would make of the two files, and changes
// neither. Exit status: 0 where the start takes all and the next save sheds nothing, 1 for
// findings, 2 for wrong arguments and files that cannot be read.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "directory/data_files.h"
#include "tools/directory_check/device_services.h"
#include "tools/directory_check/directory_check.h"
#include "tools/directory_check/report.h"

namespace {

constexpr int EXIT_FINDINGS = 1;
constexpr int EXIT_UNUSABLE = 2;

struct OptionsData
{
    std::vector<std::string> m_paths{NS_DIRECTORY::DATA_DIR};
    bool m_bPlain = false;
    bool m_bJson = false;
};

void Describe(CLI::App& app, OptionsData& options)
{
    app.add_option("path", options.m_paths,
                   "The data folder, or the group file and the contact file")
        ->expected(1, 2)
        ->capture_default_str();
    app.add_flag("--plain", options.m_bPlain, "Judge for a plain screen, which has no photos");
    app.add_flag("--json", options.m_bJson, "Print JSON for programs");
    app.footer("Exit status: 0 no findings, 1 findings, 2 wrong arguments or unreadable files.");
}

void Require(bool bReadable, const std::string& strPath)
{
    if (!bReadable) {
        throw CUnreadable(strPath + ": not there");
    }
}

// In a folder either file may be missing, as on a new device; a file that is named must be there.
ReportData Check(const std::vector<std::string>& paths)
{
    namespace fs = std::filesystem;
    CDirectoryCheck check;
    if (paths.size() == 1) {
        const fs::path folder(paths[0]);
        Require(fs::is_directory(folder), paths[0]);
        return check.Run(folder / NS_DIRECTORY::GROUP_FILE_NAME,
                         folder / NS_DIRECTORY::CONTACT_FILE_NAME);
    }
    for (const std::string& strPath : paths) {
        Require(fs::exists(strPath), strPath);
    }
    return check.Run(paths[0], paths[1]);
}

int Run(const OptionsData& options)
{
    SetPlainScreen(options.m_bPlain);
    const ReportData report = Check(options.m_paths);
    if (options.m_bJson) {
        PrintJson(std::cout, report);
    } else {
        PrintText(std::cout, report);
    }
    return report.FindingCount() == 0 ? EXIT_SUCCESS : EXIT_FINDINGS;
}

int ParseAndRun(int nArguments, char** pArguments)
{
    CLI::App app("Says what a start of the directory would make of its two files.");
    OptionsData options;
    Describe(app, options);
    try {
        app.parse(nArguments, pArguments);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? EXIT_SUCCESS : EXIT_UNUSABLE;
    }
    return Run(options);
}

}  // namespace

int main(int nArguments, char** pArguments)
{
    try {
        return ParseAndRun(nArguments, pArguments);
    } catch (const std::exception& error) {
        (void)std::fprintf(stderr, "directory_check: %s\n", error.what());
        return EXIT_UNUSABLE;
    }
}
