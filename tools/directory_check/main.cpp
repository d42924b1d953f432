// directory_check: says what a start of the directory would make of the two files, and changes
// neither. Exit status: 0 if the start takes all and the next save sheds nothing, 1 for findings, 2
// for wrong arguments, files that cannot be read, and a report that cannot be written.

#include <CLI/CLI.hpp>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "directory/data_files.h"
#include "directory/internal/xml_names.h"
#include "tools/directory_check/characters.h"
#include "tools/directory_check/device_services.h"
#include "tools/directory_check/directory_check.h"
#include "tools/directory_check/input_file.h"
#include "tools/directory_check/report.h"

namespace {

constexpr int EXIT_FINDINGS = 1;
constexpr int EXIT_UNUSABLE = 2;

struct OptionsData
{
    std::vector<std::string> m_paths{NS_DIRECTORY::DATA_DIR};
    std::string m_strLocale = "C.UTF-8";
    bool m_bPlain = false;
    bool m_bJson = false;
};

void Describe(CLI::App& app, OptionsData& options)
{
    app.add_option("path", options.m_paths,
                   "The data folder, the group file and the contact file, or one of the two")
        ->expected(1, 2)
        ->capture_default_str();
    app.add_option(
           "--locale", options.m_strLocale,
           "The locale of the telephone, by which names are equal; \"\" is that of the caller")
        ->capture_default_str();
    app.add_flag("--plain", options.m_bPlain, "Judge for a plain screen, which has no photos");
    app.add_flag("--json", options.m_bJson, "Print JSON for programs");
    app.set_version_flag("--version", "directory_check " NSDIRECTORY_VERSION);
    app.footer("Exit status: 0 no findings, 1 findings, 2 nothing could be judged or reported.");
}

// Names are equal or not by LC_CTYPE alone.
std::string SetLocale(const std::string& strName)
{
    const char* pLocale = std::setlocale(LC_CTYPE, strName.c_str());
    if (pLocale == nullptr) {
        throw std::runtime_error("this system does not have the locale " + strName);
    }
    return pLocale;
}

bool HasRoot(const pugi::xml_document& document, const char* pRoot)
{
    return !document.child(pRoot).empty();
}

// Which of the two files it is, by its root element. An export has both.
std::string RootOf(const std::string& strPath)
{
    pugi::xml_document document;
    (void)document.load_file(strPath.c_str());  // the check says how far it can be read
    const bool bGroups = HasRoot(document, NS_DIRECTORY::ELEMENT_ROOT_GROUP);
    const bool bContacts = HasRoot(document, NS_DIRECTORY::ELEMENT_ROOT_CONTACT);
    if (bGroups && bContacts) {
        throw CUnreadable(strPath + ": an export, which no start reads");
    }
    if (bGroups || bContacts) {
        return bGroups ? NS_DIRECTORY::ELEMENT_ROOT_GROUP : NS_DIRECTORY::ELEMENT_ROOT_CONTACT;
    }
    throw CUnreadable(strPath + ": neither of the two files: it has no <" +
                      NS_DIRECTORY::ELEMENT_ROOT_GROUP + "> and no <" +
                      NS_DIRECTORY::ELEMENT_ROOT_CONTACT + ">");
}

// In a folder either file may be missing, as on a new device; a file that is named must be there.
ReportData CheckFolder(const std::string& strFolder)
{
    const std::string strStart = strFolder.back() == '/' ? strFolder : strFolder + '/';
    return CDirectoryCheck().Run(strStart + NS_DIRECTORY::GROUP_FILE_NAME,
                                 strStart + NS_DIRECTORY::CONTACT_FILE_NAME);
}

ReportData Check(const std::vector<std::string>& paths)
{
    for (const std::string& strPath : paths) {
        if (KindOf(strPath) == PathKind::ABSENT) {
            throw CUnreadable(strPath + ": not there");
        }
    }
    if (paths.size() == 2) {
        return CDirectoryCheck().Run(paths[0], paths[1]);
    }
    if (KindOf(paths[0]) == PathKind::FOLDER) {
        return CheckFolder(paths[0]);
    }
    return RootOf(paths[0]) == NS_DIRECTORY::ELEMENT_ROOT_GROUP
               ? CDirectoryCheck().Run(paths[0], "")
               : CDirectoryCheck().Run("", paths[0]);
}

int Run(const OptionsData& options)
{
    const std::string strLocale = SetLocale(options.m_strLocale);
    SetPlainScreen(options.m_bPlain);
    ReportData report = Check(options.m_paths);
    report.m_strLocale = strLocale;
    if (options.m_bJson) {
        PrintJson(std::cout, report);
    } else {
        PrintText(std::cout, report);
    }
    if (!std::cout.flush()) {
        throw std::runtime_error("the report cannot be written");
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
    (void)std::signal(SIGPIPE, SIG_IGN);  // a reader that left is a report that cannot be written
    try {
        return ParseAndRun(nArguments, pArguments);
    } catch (const std::exception& error) {
        (void)std::fprintf(stderr, "directory_check: %s\n", Shown(error.what()).c_str());
        return EXIT_UNUSABLE;
    }
}
