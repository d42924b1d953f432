// desk_phone: a terminal program that stands in for a telephone. It starts the directory on a
// folder of its own and takes commands from a prompt, from a pipe or from a script.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "desk_phone/commands.h"
#include "desk_phone/line_reader.h"
#include "desk_phone/screen.h"
#include "desk_phone/text_width.h"
#include "directory/data_files.h"

namespace {

using desk_phone::PhoneData;
using NS_DIRECTORY::CContactLocalManager;

// The library works on a folder relative to the working directory, and does not make it.
void EnterFolder(const std::string& strFolder)
{
    std::filesystem::create_directories(std::filesystem::path(strFolder) / NS_DIRECTORY::DATA_DIR);
    std::filesystem::current_path(strFolder);
}

// The instance, and how long it took to come up; null where there is no memory for it.
CContactLocalManager* Start(double& dMilliseconds)
{
    const auto begin = std::chrono::steady_clock::now();
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    dMilliseconds =
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
    return pDirectory;
}

void RunAtPrompt(PhoneData& phone)
{
    desk_phone::PrintText("The telephone is on. Commands are listed by: help");
    std::string strLine;
    while (phone.m_bOn && desk_phone::ReadAtPrompt(strLine)) {
        desk_phone::RunLine(phone, strLine);
    }
    std::cout << (phone.m_bOn ? "\n" : "");  // what follows starts on a line of its own
}

// Each line is shown before its answer, so that the output reads like a session at the prompt.
void Echo(std::string strLine)
{
    std::replace(strLine.begin(), strLine.end(), '\t', ' ');
    if (strLine.size() > desk_phone::MOST_LINE_BYTES || strLine.empty()) {
        desk_phone::PrintCut(strLine);
    } else if (strLine.front() == '#') {
        desk_phone::PrintText(strLine);
    } else {
        desk_phone::PrintText(strLine, "> ");
    }
}

void RunStream(PhoneData& phone, std::istream& stream)
{
    std::string strLine;
    while (phone.m_bOn && desk_phone::ReadFromStream(stream, strLine)) {
        Echo(strLine);
        desk_phone::RunLine(phone, strLine);
    }
}

int Run(const std::string& strFolder, const std::string& strScript)
{
    std::ifstream script;
    if (!strScript.empty()) {
        script.open(strScript, std::ios::binary);  // its path counts from the folder left behind
    }
    EnterFolder(strFolder);
    double dMilliseconds = 0;
    CContactLocalManager* pDirectory = Start(dMilliseconds);
    if (pDirectory == nullptr) {
        std::cerr << "There is no memory for the directory.\n";
        return EXIT_FAILURE;
    }
    PhoneData phone{*pDirectory, dMilliseconds};
    if (!strScript.empty()) {
        RunStream(phone, script);
    } else if (isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0) {
        RunAtPrompt(phone);
    } else {
        RunStream(phone, std::cin);
    }
    CContactLocalManager::ReleaseInstance();
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv)
{
    // Set ahead of the directory, whose lists it orders, and always the same, so that they come up
    // in the same order on each start. Its texts are UTF-8, and so is the screen.
    (void)std::setlocale(LC_ALL, "C.UTF-8");  // without it other than ASCII shows as "?"
    try {
        CLI::App app("A terminal program that stands in for a telephone with a local phone book.");
        std::string strFolder = "desk_phone_data";
        std::string strScript;
        app.add_option("-f,--folder", strFolder, "Working folder; made where it is not there")
            ->capture_default_str();
        app.add_option("SCRIPT", strScript, "File of commands; without it they come from the input")
            ->check(CLI::ExistingFile);
        CLI11_PARSE(app, argc, argv);
        return Run(strFolder, strScript);
    } catch (const std::exception& failure) {
        (void)std::fprintf(stderr, "%s\n", failure.what());  // there is nowhere else to tell it
        return EXIT_FAILURE;
    }
}
