// The calls, and what is done with them. Everything happens in libre's event loop.

#ifndef SIP_PHONE_TELEPHONE_H
#define SIP_PHONE_TELEPHONE_H

#include <cstdint>
#include <functional>
#include <list>
#include <string>

#include "sip_phone/phone_book.h"
#include "sip_phone/player.h"
#include "sip_phone/re_pointer.h"
#include "sip_phone/session_description.h"
#include "sip_phone/terminal.h"

namespace sip_phone {

class CTelephone;

// A call that rings or has been answered.
struct CallData
{
    CallData(CTelephone& telephone, const sa& address, const std::string& strNumber)
        : m_telephone(telephone), m_description(address), m_strNumber(strNumber)
    {}
    ~CallData() { tmr_cancel(&m_patience); }
    CallData(const CallData&) = delete;
    CallData& operator=(const CallData&) = delete;

    CTelephone& m_telephone;
    CSessionDescription m_description;
    std::string m_strNumber;  // empty if the caller has sent none
    bool m_bAnswered = false;
    tmr m_patience{};               // runs while it rings
    RePointer<sipsess> m_pSession;  // given up: a BYE if the call was answered
};

class CTelephone
{
  public:
    // strLastRing is heard if the directory has no ring for a caller, or its file is not there.
    // ended is called once, after Stop().
    CTelephone(CPhoneBook& book, CPlayer& player, CTerminal& terminal, std::string strLastRing,
               std::function<void()> ended);
    ~CTelephone();
    CTelephone(const CTelephone&) = delete;
    CTelephone& operator=(const CTelephone&) = delete;

    // Takes calls at an address with its port, by UDP and TCP. Port 0 means a free one.
    // Returns the address with the port in use. Throws std::runtime_error.
    std::string Listen(const std::string& strAddress);

    // The call with this number, or the oldest one if the text is empty. Each throws
    // desk_phone::CWrongInput if there is no such call.
    void Answer(const std::string& strNumber);
    void Reject(const std::string& strNumber);
    void HangUp(const std::string& strNumber);
    // One that rings, or else one that was answered. Its caller goes into the blacklist, and
    // nobody in there rings any more.
    void Block(const std::string& strNumber);

    // Ends all calls and takes no new ones. The other ends have two seconds to confirm that.
    void Stop();

  private:
    using Calls = std::list<CallData>;
    using CallIterator = Calls::iterator;

    // What libre calls.
    static void MyInvite(const sip_msg* pMessage, void* pTelephone);
    static bool MyOtherRequest(const sip_msg* pMessage, void* pTelephone);
    static bool MyStrayResponse(const sip_msg* pMessage, void* pTelephone);
    static int MyNewOffer(mbuf** ppReply, const sip_msg* pMessage, void* pCall);
    static int MyLateAnswer(const sip_msg* pMessage, void* pCall);
    static void MyClosed(int nError, const sip_msg* pMessage, void* pCall);
    static void MyOutOfPatience(void* pCall);
    static void MyFarewellIsOver(void* pTelephone);
    static void MyGone(void* pTelephone);

    void MyTakeCall(const sip_msg& message, const std::string& strNumber);
    void MyRespond(const sip_msg& message, std::uint16_t nStatus, const char* pReason) const;
    void MyShow(const sip_msg& message, const std::string& strNumber) const;
    CallIterator MyFind(const std::string& strNumber, bool bAnswered);  // end() if there is none
    CallIterator MyRequire(const std::string& strNumber, bool bAnswered);
    CallIterator MyPositionOf(const CallData& call);
    void MyDecline(CallIterator pos, const char* pWhat, std::uint16_t nStatus, const char* pReason);
    void MyEnd(CallIterator pos, const char* pWhat);
    void MyDeclineBlocked();
    void MyRingOldest();
    std::string MyRingOf(const CallData& call) const;
    std::string MyNameOf(const CallData& call) const;

    CPhoneBook& m_book;
    CPlayer& m_player;
    CTerminal& m_terminal;
    std::string m_strLastRing;
    std::function<void()> m_ended;
    bool m_bStopped = false;
    sa m_address{};
    tmr m_farewell{};
    RePointer<sip> m_pSip;
    RePointer<sipsess_sock> m_pSessions;
    Calls m_calls;  // the oldest first
};

}  // namespace sip_phone

#endif  // SIP_PHONE_TELEPHONE_H
