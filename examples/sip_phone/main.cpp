// sip_phone: a telephone in a terminal that takes real calls. It registers nowhere: callers know
// its address. Who they are, whether they may ring and with which sound, it asks the directory.
//
// Exit status: 1 if a line of a pipe was wrong, 2 if the program cannot start or the output cannot
// be written.

#include <re.h>
#include <re_dbg.h>

#include <CLI/CLI.hpp>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <filesystem>

#include "desk_phone/screen.h"
#include "desk_phone/start.h"
#include "desk_phone/words.h"
#include "sip_phone/commands.h"
#include "sip_phone/signals.h"

namespace {

using NS_DIRECTORY::CContactLocalManager;
using NS_DIRECTORY::CSafeCopy;

constexpr int EXIT_WRONG_LINE = 1;
constexpr int EXIT_UNUSABLE = 2;

struct OptionsData
{
    std::string m_strListen;
    std::string m_strFolder;
    std::string m_strPlayer;
    std::string m_strCountry = "DE";
    std::string m_strSafeCopy = "copies";  // counts from that folder
};

// libre and its event loop, for as long as this lives.
class CEventLoop
{
  public:
    CEventLoop()
    {
        // Of what it has to say in between nothing is for a person: it would quote strangers.
        dbg_init(DBG_EMERG, DBG_NONE);
        // Unlike the default this takes files and /dev/null for input.
        if (libre_init() != 0 || poll_method_set(METHOD_POLL) != 0) {
            throw std::runtime_error("the event loop cannot be set up");
        }
    }
    ~CEventLoop()
    {
        (void)fd_setsize(0);
        libre_close();
    }
    CEventLoop(const CEventLoop&) = delete;
    CEventLoop& operator=(const CEventLoop&) = delete;
};

// The parts of the telephone, put together.
class CSipPhone
{
  public:
    CSipPhone(CContactLocalManager& directory, CSafeCopy& safe, const OptionsData& options,
              const std::string& strLastRing)
        : m_book(directory, safe, options.m_strCountry),
          m_player(desk_phone::SplitWords(options.m_strPlayer),
                   [this](const std::string& strMessage) { MyTell(strMessage); }),
          m_terminal([this](const std::string& strLine) { RunLine(m_commands, strLine); },
                     [this] { MyStop(); }),
          m_telephone(m_book, m_player, m_terminal, strLastRing, [this] { MyEnd(true); }),
          m_commands{m_telephone, [this] { MyStop(); }},
          m_signals([this](int nSignal) { MyTake(nSignal); })
    {
        desk_phone::PrintText("Calls are taken at " + m_telephone.Listen(options.m_strListen));
        m_terminal.Open();
    }

    int Run()
    {
        if (!m_bOver && re_main(nullptr) != 0) {
            throw std::runtime_error("the event loop has failed");
        }
        if (m_terminal.IsOutputBroken()) {
            throw std::runtime_error("the output cannot be written");
        }
        // A person has seen what was wrong.
        return m_commands.m_bFailed && !m_terminal.IsPerson() ? EXIT_WRONG_LINE : EXIT_SUCCESS;
    }

  private:
    void MyTell(const std::string& strMessage)
    {
        m_terminal.Show([&strMessage] { desk_phone::PrintText(strMessage); });
    }

    void MyTake(int nSignal)
    {
        if (nSignal == SIGCHLD) {
            m_player.Reap();
            MyEnd(false);
        } else {
            MyStop();
        }
    }

    void MyStop()
    {
        if (!m_bStopped) {
            m_bStopped = true;
            m_terminal.Close();
            m_player.Play("");
            m_telephone.Stop();
        }
    }

    // It is over when the other ends of the calls know of it, and no player is left.
    void MyEnd(bool bCallsAreOver)
    {
        m_bCallsAreOver = m_bCallsAreOver || bCallsAreOver;
        m_bOver = m_bCallsAreOver && !m_player.IsRunning();
        if (m_bOver) {
            re_cancel();
        }
    }

    sip_phone::CPhoneBook m_book;
    sip_phone::CPlayer m_player;
    sip_phone::CTerminal m_terminal;
    sip_phone::CTelephone m_telephone;
    sip_phone::CommandsData m_commands;
    sip_phone::CSignals m_signals;
    bool m_bStopped = false;
    bool m_bCallsAreOver = false;
    bool m_bOver = false;
};

// A ring that is there whatever the folder of the telephone holds.
std::string LastRing()
{
    const auto program = std::filesystem::read_symlink("/proc/self/exe");
    return (program.parent_path() / SIP_PHONE_RING).lexically_normal();
}

int Run(const OptionsData& options)
{
    const std::string strLastRing = LastRing();
    desk_phone::EnterFolder(options.m_strFolder, options.m_strSafeCopy);
    CSafeCopy safe(options.m_strSafeCopy.c_str());
    double dMilliseconds = 0;
    CContactLocalManager& directory = desk_phone::StartGuarded(safe, dMilliseconds);
    const CEventLoop loop;
    const int nStatus = CSipPhone(directory, safe, options, strLastRing).Run();
    CContactLocalManager::ReleaseInstance();
    return nStatus;
}

int ParseAndRun(int nArguments, char** pArguments)
{
    CLI::App app("A telephone in a terminal that takes real calls by SIP.");
    OptionsData options;
    app.add_option("--listen", options.m_strListen,
                   "Address and port at which calls are taken; port 0 is a free one")
        ->required();
    app.add_option("-f,--folder", options.m_strFolder, "Working folder; made if it is not there")
        ->required();
    app.add_option(
        "--player", options.m_strPlayer,
        "Program that plays a ring, which gets the path as its last argument; without it "
        "nothing is heard");
    app.add_option("--country", options.m_strCountry,
                   "Where the telephone stands, as two capital letters: so it knows callers whose "
                   "number is stored in another form")
        ->capture_default_str();
    app.add_option(
           "--safe-copy", options.m_strSafeCopy,
           "Folder of the copies that guard every edit, below the working folder; made if it "
           "is not there")
        ->capture_default_str();
    app.set_version_flag("--version", "sip_phone " NSDIRECTORY_VERSION);
    app.footer(
        "Exit status: 1 a line of a pipe was wrong, 2 the program cannot start, or the output "
        "cannot "
        "be written.");
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
    // Before the directory, whose lists it orders. Its texts are UTF-8, and so is the screen.
    (void)std::setlocale(LC_ALL, "C.UTF-8");
    // A reader that has left is an output that cannot be written, and no reason to die in a save.
    (void)std::signal(SIGPIPE, SIG_IGN);
    try {
        return ParseAndRun(nArguments, pArguments);
    } catch (const std::exception& failure) {
        (void)std::fprintf(stderr, "sip_phone: %s\n", failure.what());
        return EXIT_UNUSABLE;
    }
}
