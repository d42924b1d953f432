#include "sip_phone/player.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <system_error>
#include <utility>

namespace sip_phone {

namespace {

constexpr std::uint64_t PAUSE_MILLISECONDS = 1000;
constexpr std::uint64_t PATIENCE_MILLISECONDS = 1000;

// How the player starts: in a group of its own, without the telephone's input, output, sockets and
// settings of signals.
class CStartForm
{
  public:
    CStartForm()
    {
        sigset_t signals;
        (void)posix_spawn_file_actions_init(&m_files);
        (void)posix_spawn_file_actions_addopen(&m_files, STDIN_FILENO, "/dev/null", O_RDWR, 0);
        (void)posix_spawn_file_actions_adddup2(&m_files, STDIN_FILENO, STDOUT_FILENO);
        (void)posix_spawn_file_actions_adddup2(&m_files, STDIN_FILENO, STDERR_FILENO);
        (void)posix_spawn_file_actions_addclosefrom_np(&m_files, STDERR_FILENO + 1);
        (void)posix_spawnattr_init(&m_attributes);
        (void)posix_spawnattr_setflags(
            &m_attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        (void)posix_spawnattr_setpgroup(&m_attributes, 0);
        (void)sigemptyset(&signals);
        (void)posix_spawnattr_setsigmask(&m_attributes, &signals);
        (void)sigaddset(&signals, SIGPIPE);
        (void)posix_spawnattr_setsigdefault(&m_attributes, &signals);
    }
    ~CStartForm()
    {
        (void)posix_spawnattr_destroy(&m_attributes);
        (void)posix_spawn_file_actions_destroy(&m_files);
    }
    CStartForm(const CStartForm&) = delete;
    CStartForm& operator=(const CStartForm&) = delete;

    // The process, or 0 with the reason in errno.
    pid_t Start(const std::vector<std::string>& words) const
    {
        std::vector<char*> arguments;
        arguments.reserve(words.size() + 1);
        for (const std::string& strWord : words) {
            arguments.push_back(const_cast<char*>(strWord.c_str()));
        }
        arguments.push_back(nullptr);
        pid_t nProcess = 0;
        errno = posix_spawnp(&nProcess, arguments[0], &m_files, &m_attributes, arguments.data(),
                             environ);
        return errno == 0 ? nProcess : 0;
    }

  private:
    posix_spawn_file_actions_t m_files{};
    posix_spawnattr_t m_attributes{};
};

}  // namespace

CPlayer::CPlayer(std::vector<std::string> command, Tell tell)
    : m_command(std::move(command)), m_tell(std::move(tell))
{}

CPlayer::~CPlayer()
{
    tmr_cancel(&m_pause);
    tmr_cancel(&m_patience);
    if (m_nProcess != 0) {
        (void)kill(-m_nProcess, SIGKILL);
        (void)waitpid(m_nProcess, nullptr, 0);
    }
}

void CPlayer::Play(const std::string& strRing)
{
    m_strWanted = strRing;
    if (m_nProcess != 0) {
        if (m_strWanted != m_strPlaying) {
            MyStop();
        }
    } else if (!tmr_isrunning(&m_pause) || m_strWanted != m_strPlaying) {
        MyStart();
    }
}

void CPlayer::Reap()
{
    siginfo_t info{};
    if (m_nProcess == 0 ||
        waitid(P_PID, static_cast<id_t>(m_nProcess), &info, WEXITED | WNOHANG | WNOWAIT) != 0 ||
        info.si_pid == 0) {
        return;
    }
    // Before the process is gone for good: until then its number is that of no other group.
    (void)kill(-m_nProcess, SIGKILL);
    (void)waitpid(m_nProcess, nullptr, 0);
    tmr_cancel(&m_patience);
    m_nProcess = 0;
    if (m_bStopped) {
        MyStart();
    } else if (info.si_code == CLD_EXITED && info.si_status == 0) {
        tmr_start(&m_pause, PAUSE_MILLISECONDS, MyPauseIsOver, this);
    } else {
        m_tell(m_command.front() + " has failed and does not play this ring.");
    }
}

void CPlayer::MyStart()
{
    tmr_cancel(&m_pause);
    m_strPlaying = m_strWanted;
    if (m_strWanted.empty() || m_command.empty()) {
        return;
    }
    std::vector<std::string> words = m_command;
    words.push_back(m_strWanted);
    m_bStopped = false;
    m_nProcess = CStartForm().Start(words);
    if (m_nProcess == 0) {
        m_tell(m_command.front() + " cannot be started: " + std::generic_category().message(errno));
    }
}

void CPlayer::MyStop()
{
    if (!m_bStopped) {
        m_bStopped = true;
        (void)kill(-m_nProcess, SIGTERM);
        tmr_start(&m_patience, PATIENCE_MILLISECONDS, MyKill, this);
    }
}

void CPlayer::MyPauseIsOver(void* pPlayer)
{
    static_cast<CPlayer*>(pPlayer)->MyStart();
}

void CPlayer::MyKill(void* pPlayer)
{
    (void)kill(-static_cast<CPlayer*>(pPlayer)->m_nProcess, SIGKILL);
}

}  // namespace sip_phone
