// The program that plays rings, one process at a time.

#ifndef SIP_PHONE_PLAYER_H
#define SIP_PHONE_PLAYER_H

#include <re.h>
#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

namespace sip_phone {

// It plays a ring over and over, with a pause after each time. To stop, its process group gets
// SIGTERM, and SIGKILL a second later if it is still there. The host calls Reap() at each SIGCHLD.
class CPlayer
{
  public:
    using Tell = std::function<void(const std::string& strMessage)>;

    // The words of the command; none means that nothing is ever played. tell is called if the
    // program cannot be started or fails; what it writes itself is lost.
    CPlayer(std::vector<std::string> command, Tell tell);
    ~CPlayer();  // leaves no process behind
    CPlayer(const CPlayer&) = delete;
    CPlayer& operator=(const CPlayer&) = delete;

    // The path of the ring to be heard from now on; an empty one for silence.
    void Play(const std::string& strRing);

    void Reap();

    bool IsRunning() const { return m_nProcess != 0; }

  private:
    void MyStart();
    void MyStop();
    static void MyPauseIsOver(void* pPlayer);
    static void MyKill(void* pPlayer);

    std::vector<std::string> m_command;
    Tell m_tell;
    std::string m_strWanted;
    std::string m_strPlaying;
    pid_t m_nProcess = 0;  // and its group; 0 if there is none
    bool m_bStopped = false;
    tmr m_pause{};
    tmr m_patience{};
};

}  // namespace sip_phone

#endif  // SIP_PHONE_PLAYER_H
