// Signals as events of libre's loop, so that they cut nothing that is being done.

#ifndef SIP_PHONE_SIGNALS_H
#define SIP_PHONE_SIGNALS_H

#include <functional>

namespace sip_phone {

// While it lives, SIGTERM, SIGINT, SIGHUP and SIGCHLD do nothing but call take.
class CSignals
{
  public:
    // Throws std::runtime_error.
    explicit CSignals(std::function<void(int nSignal)> take);
    ~CSignals();
    CSignals(const CSignals&) = delete;
    CSignals& operator=(const CSignals&) = delete;

  private:
    static void MyRead(int nFlags, void* pSignals);

    std::function<void(int nSignal)> m_take;
    int m_nFile;
};

}  // namespace sip_phone

#endif  // SIP_PHONE_SIGNALS_H
