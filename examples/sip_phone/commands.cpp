#include "sip_phone/commands.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "desk_phone/line_reader.h"
#include "desk_phone/screen.h"
#include "desk_phone/text_width.h"
#include "desk_phone/words.h"

namespace sip_phone {

namespace {

using desk_phone::CWrongInput;
using desk_phone::Words;

struct CommandData
{
    const char* m_pName;
    const char* m_pHelp;
    void (CTelephone::*m_pRun)(const std::string& strNumber);
};

constexpr CommandData COMMANDS[] = {
    {"answer", "Takes the call that rings.", &CTelephone::Answer},
    {"reject", "Turns away the call that rings: the line is busy.", &CTelephone::Reject},
    {"block", "Turns away the caller for good: this call, and all calls to come.",
     &CTelephone::Block},
    {"hangup", "Ends the call that was answered.", &CTelephone::HangUp},
};

void Help()
{
    std::vector<std::pair<std::string, std::string>> pairs;
    for (const CommandData& command : COMMANDS) {
        pairs.emplace_back(std::string(command.m_pName) + " [NUMBER]", command.m_pHelp);
    }
    pairs.emplace_back("quit", "Ends all calls and the program, as the end of input does.");
    desk_phone::PrintPairs(pairs);
    desk_phone::PrintText("Of several calls NUMBER chooses one; without it the oldest is meant.");
}

std::string JoinedFrom(Words::const_iterator pos, const Words& words)
{
    std::string strText;
    for (; pos != words.end(); ++pos) {
        strText += *pos;
    }
    return strText;
}

void RunWords(CommandsData& commands, const Words& words)
{
    if (words.front() == "help") {
        Help();
        return;
    }
    if (words.front() == "quit") {
        commands.m_quit();
        return;
    }
    const auto* pCommand = std::find_if(
        std::begin(COMMANDS), std::end(COMMANDS),
        [&words](const CommandData& command) { return words.front() == command.m_pName; });
    if (pCommand == std::end(COMMANDS)) {
        throw CWrongInput("There is no command " + words.front() +
                          ". Commands are listed by: help");
    }
    // A number may be written in groups of digits.
    (commands.m_telephone.*pCommand->m_pRun)(JoinedFrom(words.begin() + 1, words));
}

}  // namespace

void RunLine(CommandsData& commands, const std::string& strLine)
{
    try {
        if (strLine.size() > desk_phone::MOST_LINE_BYTES || !desk_phone::IsPlainText(strLine)) {
            throw CWrongInput("The line is too long or no plain UTF-8 text, and is passed over.");
        }
        const Words words = desk_phone::SplitWords(strLine);
        if (!words.empty() && words.front().front() != '#') {
            RunWords(commands, words);
        }
    } catch (const CWrongInput& wrong) {
        desk_phone::PrintText(wrong.what());
        commands.m_bFailed = true;
    }
}

}  // namespace sip_phone
