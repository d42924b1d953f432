#include "desk_phone/session.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <iostream>
#include <stdexcept>

#include "desk_phone/commands.h"
#include "desk_phone/completion.h"
#include "desk_phone/line_reader.h"
#include "desk_phone/prompt.h"
#include "desk_phone/screen.h"

namespace desk_phone {

namespace {

constexpr char HISTORY_FILE[] = "desk_phone_history";  // in the working folder

// The signals that end the program wait while this lives, so that they cut no file that is being
// written.
class CSignalsWait
{
  public:
    CSignalsWait()
    {
        sigset_t signals;
        (void)sigemptyset(&signals);
        for (const int nSignal : {SIGINT, SIGTERM, SIGHUP}) {
            (void)sigaddset(&signals, nSignal);
        }
        (void)sigprocmask(SIG_BLOCK, &signals, &m_before);
    }
    ~CSignalsWait() { (void)sigprocmask(SIG_SETMASK, &m_before, nullptr); }

    CSignalsWait(const CSignalsWait&) = delete;
    CSignalsWait& operator=(const CSignalsWait&) = delete;

  private:
    sigset_t m_before{};
};

void RunUncut(PhoneData& phone, const std::string& strLine)
{
    const CSignalsWait wait;
    RunLine(phone, strLine);
    (void)std::cout.flush();
}

// Each line is shown before its answer, so that the output reads like a session at the prompt.
void Echo(std::string strLine)
{
    std::replace(strLine.begin(), strLine.end(), '\t', ' ');
    if (strLine.size() > MOST_LINE_BYTES || strLine.empty()) {
        PrintCut(strLine);
    } else if (strLine.front() == '#') {
        PrintText(strLine);
    } else {
        PrintText(strLine, "> ");
    }
}

}  // namespace

void RunAtPrompt(PhoneData& phone)
{
    (void)std::signal(SIGINT, SIG_IGN);  // at the prompt Ctrl-C is a key
    CPrompt prompt(HISTORY_FILE, [&phone](const std::string& strBeforeCursor) {
        return Complete(phone, strBeforeCursor);
    });
    phone.m_ask = [&prompt](const std::string& strQuestion) { return prompt.Ask(strQuestion); };
    PrintText("The telephone is on. Commands are listed by: help");
    std::string strLine;
    while (phone.m_bOn && prompt.Read(strLine)) {
        RunUncut(phone, strLine);
    }
    phone.m_ask = nullptr;
    phone.m_bFailed = false;  // a person has seen what was wrong
}

void RunStream(PhoneData& phone, std::istream& stream, const std::string& strName)
{
    std::string strLine;
    while (phone.m_bOn && std::cout && ReadFromStream(stream, strLine)) {
        Echo(strLine);
        RunUncut(phone, strLine);
    }
    if (stream.bad() || std::ferror(stdin) != 0) {  // std::cin hides its errors
        throw std::runtime_error(strName + ": cannot be read");
    }
}

}  // namespace desk_phone
