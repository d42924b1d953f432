// desk_phone: a terminal program that stands in for a telephone. It starts the directory on a
// folder of its own and takes commands from a prompt, from a pipe or from a script. Safe copies
// guard all its edits.
//
// Exit status: 1 if a line of a script or a pipe was wrong or the disk did not take an edit, 2 if
// the program cannot start, a script cannot be read or the output cannot be written.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <iostream>

#include "desk_phone/session.h"
#include "desk_phone/start.h"
#include "safekeeping/safe_copy.h"

namespace {

using desk_phone::PhoneData;
using NS_DIRECTORY::CContactLocalManager;
using NS_DIRECTORY::CSafeCopy;

constexpr int EXIT_WRONG_LINE = 1;
constexpr int EXIT_UNUSABLE = 2;

// A path counts from the folder in which the program was started.
std::ifstream OpenScript(const std::string& strPath)
{
    std::ifstream script(strPath, std::ios::binary);
    (void)script.peek();  // a folder can be opened, but not read
    if (!script.is_open() || script.bad()) {
        throw std::runtime_error(strPath + ": cannot be read");
    }
    return script;
}

void RunInput(PhoneData& phone, std::ifstream& script, const std::string& strScript)
{
    if (!strScript.empty()) {
        desk_phone::RunStream(phone, script, strScript);
    } else if (isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0) {
        desk_phone::RunAtPrompt(phone);
    } else {
        desk_phone::RunStream(phone, std::cin, "standard input");
    }
    if (!std::cout.flush()) {
        throw std::runtime_error("the output cannot be written");
    }
}

struct OptionsData
{
    std::string m_strFolder = "desk_phone_data";
    std::string m_strSafeCopy = "copies";  // counts from that folder
    std::string m_strCountry = "DE";
    std::string m_strScript;
};

int Run(const OptionsData& options)
{
    const std::string& strScript = options.m_strScript;
    std::ifstream script;
    if (!strScript.empty()) {
        script = OpenScript(strScript);
    }
    desk_phone::EnterFolder(options.m_strFolder, options.m_strSafeCopy);
    CSafeCopy safe(options.m_strSafeCopy.c_str());
    double dMilliseconds = 0;
    CContactLocalManager& directory = desk_phone::StartGuarded(safe, dMilliseconds);
    PhoneData phone{
        directory, safe, options.m_strSafeCopy, {directory, options.m_strCountry}, dMilliseconds};
    phone.m_search.Refresh();
    RunInput(phone, script, strScript);
    CContactLocalManager::ReleaseInstance();
    return phone.m_bFailed ? EXIT_WRONG_LINE : EXIT_SUCCESS;
}

int ParseAndRun(int nArguments, char** pArguments)
{
    CLI::App app("A terminal program that stands in for a telephone with a local phone book.");
    OptionsData options;
    app.add_option("-f,--folder", options.m_strFolder, "Working folder; made if it is not there")
        ->capture_default_str();
    app.add_option(
           "--safe-copy", options.m_strSafeCopy,
           "Folder of the copies that guard every edit, below the working folder; made if it "
           "is not there")
        ->capture_default_str();
    app.add_option("--country", options.m_strCountry,
                   "Where the telephone stands, as two capital letters: so it knows callers whose "
                   "number is stored in another form")
        ->capture_default_str();
    app.add_option("SCRIPT", options.m_strScript,
                   "File of commands; without it they come from the input");
    app.set_version_flag("--version", "desk_phone " NSDIRECTORY_VERSION);
    app.footer(
        "Exit status: 1 a line of a script was wrong or the disk did not take an edit, 2 the "
        "program cannot start, a script cannot be read, or the output cannot be written.");
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
    // Set ahead of the directory, whose lists it orders, and always the same, so that they come up
    // in the same order on each start. Its texts are UTF-8, and so is the screen.
    (void)std::setlocale(LC_ALL, "C.UTF-8");  // without it other than ASCII shows as "?"
    // A reader that has left is an output that cannot be written, and no reason to die in a save.
    (void)std::signal(SIGPIPE, SIG_IGN);
    try {
        return ParseAndRun(nArguments, pArguments);
    } catch (const std::exception& failure) {
        (void)std::fprintf(stderr, "desk_phone: %s\n", failure.what());
        return EXIT_UNUSABLE;
    }
}
