#include "sip_phone/signals.h"

#include <re.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <stdexcept>
#include <utility>

namespace sip_phone {

namespace {

sigset_t Taken()
{
    sigset_t signals;
    (void)sigemptyset(&signals);
    for (const int nSignal : {SIGTERM, SIGINT, SIGHUP, SIGCHLD}) {
        (void)sigaddset(&signals, nSignal);
    }
    return signals;
}

}  // namespace

CSignals::CSignals(std::function<void(int nSignal)> take) : m_take(std::move(take))
{
    const sigset_t signals = Taken();
    (void)sigprocmask(SIG_BLOCK, &signals, nullptr);
    m_nFile = signalfd(-1, &signals, SFD_CLOEXEC);
    if (m_nFile < 0 || fd_listen(m_nFile, FD_READ, MyRead, this) != 0) {
        throw std::runtime_error("signals cannot be read");
    }
}

CSignals::~CSignals()
{
    fd_close(m_nFile);
    (void)close(m_nFile);
}

void CSignals::MyRead(int /*nFlags*/, void* pSignals)
{
    const CSignals& signals = *static_cast<CSignals*>(pSignals);
    signalfd_siginfo info{};
    if (read(signals.m_nFile, &info, sizeof(info)) == static_cast<ssize_t>(sizeof(info))) {
        signals.m_take(static_cast<int>(info.ssi_signo));
    }
}

}  // namespace sip_phone
