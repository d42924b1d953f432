#include "sip_phone/telephone.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "desk_phone/results.h"
#include "desk_phone/screen.h"
#include "desk_phone/words.h"
#include "sip_phone/sip_message.h"

namespace sip_phone {

using desk_phone::PrintText;

namespace {

constexpr std::uint32_t TABLE_SIZE = 64;                // of libre's hash tables
constexpr std::size_t MOST_CALLS = 20;                  // the line is busy for any more
constexpr std::uint64_t RING_MILLISECONDS = 180'000;    // a caller may be gone without a word
constexpr std::uint64_t FAREWELL_MILLISECONDS = 2'000;  // for the other ends to confirm theirs
constexpr char CONTACT_USER[] = "sip_phone";
constexpr char SOFTWARE[] = "sip_phone/" NSDIRECTORY_VERSION;

void Require(int nError, const std::string& strWhat)
{
    if (nError != 0) {
        throw std::runtime_error(strWhat + ": " + std::generic_category().message(nError));
    }
}

}  // namespace

CTelephone::CTelephone(CPhoneBook& book, CPlayer& player, CTerminal& terminal,
                       std::string strLastRing, std::function<void()> ended)
    : m_book(book),
      m_player(player),
      m_terminal(terminal),
      m_strLastRing(std::move(strLastRing)),
      m_ended(std::move(ended))
{}

CTelephone::~CTelephone()
{
    tmr_cancel(&m_farewell);
}

std::string CTelephone::Listen(const std::string& strAddress)
{
    m_address = ToAddress(strAddress);
    sip* pSip = nullptr;
    Require(sip_alloc(&pSip, nullptr, TABLE_SIZE, TABLE_SIZE, TABLE_SIZE, SOFTWARE, MyGone, this),
            "SIP");
    m_pSip.reset(pSip);
    Require(sip_transp_add(pSip, SIP_TRANSP_UDP, &m_address), strAddress);
    Require(sip_transp_laddr(pSip, &m_address, SIP_TRANSP_UDP, &m_address), strAddress);
    Require(sip_transp_add(pSip, SIP_TRANSP_TCP, &m_address), strAddress);
    sipsess_sock* pSessions = nullptr;
    Require(sipsess_listen(&pSessions, pSip, TABLE_SIZE, MyInvite, this), "SIP");
    m_pSessions.reset(pSessions);
    // Last: what nobody takes, libre writes to the screen as strangers have sent it.
    Require(sip_listen(nullptr, pSip, true, MyOtherRequest, this), "SIP");
    Require(sip_listen(nullptr, pSip, false, MyStrayResponse, this), "SIP");
    return ToText(m_address);
}

void CTelephone::Answer(const std::string& strNumber)
{
    const CallIterator pos = MyRequire(strNumber, false);
    const RePointer<mbuf> pReply = pos->m_description.Reply();
    if (pReply == nullptr ||
        sipsess_answer(pos->m_pSession.get(), 200, "OK", pReply.get(), nullptr) != 0) {
        MyDecline(pos, "Failed", 500, "Server Internal Error");
        return;
    }
    tmr_cancel(&pos->m_patience);
    pos->m_bAnswered = true;
    PrintText("Answered: " + MyNameOf(*pos));
    MyRingOldest();
}

void CTelephone::Reject(const std::string& strNumber)
{
    MyDecline(MyRequire(strNumber, false), "Rejected", 486, "Busy Here");
}

void CTelephone::HangUp(const std::string& strNumber)
{
    MyEnd(MyRequire(strNumber, true), "Ended");
}

void CTelephone::Block(const std::string& strNumber)
{
    CallIterator pos = MyFind(strNumber, false);
    if (pos == m_calls.end()) {
        pos = MyRequire(strNumber, true);
    }
    const std::string strCaller = pos->m_strNumber;
    const std::string strName = MyNameOf(*pos);
    MyDecline(pos, "Declined", 603, "Decline");
    if (strCaller.empty()) {
        PrintText("The blacklist takes numbers, and this caller has sent none.");
        return;
    }
    desk_phone::PrintResult(m_book.Block(strCaller), "DIR_RET_OK", strName + " is blocked");
    MyDeclineBlocked();
}

void CTelephone::Stop()
{
    m_bStopped = true;
    for (const CallData& call : m_calls) {
        if (!call.m_bAnswered) {
            (void)sipsess_reject(call.m_pSession.get(), 480, "Temporarily Unavailable", nullptr);
        }
    }
    m_calls.clear();
    tmr_start(&m_farewell, FAREWELL_MILLISECONDS, MyFarewellIsOver, this);
    sip_close(m_pSip.get(), false);
}

void CTelephone::MyInvite(const sip_msg* pMessage, void* pTelephone)
{
    CTelephone& telephone = *static_cast<CTelephone*>(pTelephone);
    const std::string strNumber = telephone.m_book.Number(CallerUser(*pMessage));
    if (telephone.m_bStopped) {
        telephone.MyRespond(*pMessage, 480, "Temporarily Unavailable");
    } else if (telephone.m_book.IsBlocked(strNumber)) {
        telephone.MyRespond(*pMessage, 603, "Decline");
        telephone.MyShow(*pMessage, strNumber);
    } else if (telephone.m_calls.size() >= MOST_CALLS) {
        telephone.MyRespond(*pMessage, 486, "Busy Here");
    } else if (!RefuseUnsuitable(*telephone.m_pSip, *pMessage)) {
        telephone.MyTakeCall(*pMessage, strNumber);
    }
}

bool CTelephone::MyOtherRequest(const sip_msg* pMessage, void* pTelephone)
{
    RespondOutsideCalls(*static_cast<CTelephone*>(pTelephone)->m_pSip, *pMessage);
    return true;
}

bool CTelephone::MyStrayResponse(const sip_msg* /*pMessage*/, void* /*pTelephone*/)
{
    return true;
}

// The caller offers other sound during the call, or asks for an offer.
int CTelephone::MyNewOffer(mbuf** ppReply, const sip_msg* pMessage, void* pCall)
{
    CSessionDescription& description = static_cast<CallData*>(pCall)->m_description;
    if (!description.TakeOffer(pMessage->mb)) {
        return EPROTO;
    }
    *ppReply = description.Reply().release();
    return *ppReply == nullptr ? ENOMEM : 0;
}

// The caller has left the offer to the telephone. There is no sound to be set up by its answer.
int CTelephone::MyLateAnswer(const sip_msg* /*pMessage*/, void* /*pCall*/)
{
    return 0;
}

void CTelephone::MyClosed(int /*nError*/, const sip_msg* /*pMessage*/, void* pCall)
{
    CallData& call = *static_cast<CallData*>(pCall);
    CTelephone& telephone = call.m_telephone;
    telephone.m_terminal.Show([&telephone, &call] {
        telephone.MyEnd(telephone.MyPositionOf(call), call.m_bAnswered ? "Ended" : "Missed");
    });
}

void CTelephone::MyOutOfPatience(void* pCall)
{
    CallData& call = *static_cast<CallData*>(pCall);
    CTelephone& telephone = call.m_telephone;
    telephone.m_terminal.Show([&telephone, &call] {
        telephone.MyDecline(telephone.MyPositionOf(call), "Missed", 480, "Temporarily Unavailable");
    });
}

void CTelephone::MyFarewellIsOver(void* pTelephone)
{
    sipsess_close_all(static_cast<CTelephone*>(pTelephone)->m_pSessions.get());
}

void CTelephone::MyGone(void* pTelephone)
{
    static_cast<CTelephone*>(pTelephone)->m_ended();
}

void CTelephone::MyTakeCall(const sip_msg& message, const std::string& strNumber)
{
    CallData& call = m_calls.emplace_back(*this, m_address, strNumber);
    if (!call.m_description.TakeOffer(message.mb)) {
        m_calls.pop_back();
        MyRespond(message, 488, "Not Acceptable Here");
        return;
    }
    sipsess* pSession = nullptr;
    if (sipsess_accept(&pSession, m_pSessions.get(), &message, 180, "Ringing", CONTACT_USER,
                       "application/sdp", nullptr, nullptr, nullptr, false, MyNewOffer,
                       MyLateAnswer, nullptr, nullptr, nullptr, MyClosed, &call, nullptr) != 0) {
        m_calls.pop_back();
        MyRespond(message, 400, "Bad Request");
        return;
    }
    call.m_pSession.reset(pSession);
    tmr_start(&call.m_patience, RING_MILLISECONDS, MyOutOfPatience, &call);
    MyShow(message, strNumber);
    MyRingOldest();
}

void CTelephone::MyRespond(const sip_msg& message, std::uint16_t nStatus, const char* pReason) const
{
    (void)sip_treply(nullptr, m_pSip.get(), &message, nStatus, pReason);
}

void CTelephone::MyShow(const sip_msg& message, const std::string& strNumber) const
{
    m_terminal.Show([&] { m_book.PrintCall(strNumber, CallerAddress(message)); });
}

CTelephone::CallIterator CTelephone::MyFind(const std::string& strNumber, bool bAnswered)
{
    const std::string strWanted = m_book.Number(strNumber);
    return std::find_if(m_calls.begin(), m_calls.end(), [&](const CallData& call) {
        return call.m_bAnswered == bAnswered &&
               (strNumber.empty() || (!strWanted.empty() && call.m_strNumber == strWanted));
    });
}

CTelephone::CallIterator CTelephone::MyRequire(const std::string& strNumber, bool bAnswered)
{
    const CallIterator pos = MyFind(strNumber, bAnswered);
    if (pos == m_calls.end()) {
        throw desk_phone::CWrongInput("There is no such call.");
    }
    return pos;
}

CTelephone::CallIterator CTelephone::MyPositionOf(const CallData& call)
{
    return std::find_if(m_calls.begin(), m_calls.end(),
                        [&call](const CallData& other) { return &other == &call; });
}

void CTelephone::MyDecline(CallIterator pos, const char* pWhat, std::uint16_t nStatus,
                           const char* pReason)
{
    if (!pos->m_bAnswered) {
        (void)sipsess_reject(pos->m_pSession.get(), nStatus, pReason, nullptr);
    }
    MyEnd(pos, pos->m_bAnswered ? "Ended" : pWhat);
}

void CTelephone::MyEnd(CallIterator pos, const char* pWhat)
{
    PrintText(std::string(pWhat) + ": " + MyNameOf(*pos));
    m_calls.erase(pos);
    MyRingOldest();
}

// A caller may have called twice, and a contact has three numbers.
void CTelephone::MyDeclineBlocked()
{
    for (CallIterator pos = m_calls.begin(); pos != m_calls.end();) {
        const CallIterator posNext = std::next(pos);
        if (!pos->m_bAnswered && m_book.IsBlocked(pos->m_strNumber)) {
            MyDecline(pos, "Declined", 603, "Decline");
        }
        pos = posNext;
    }
}

void CTelephone::MyRingOldest()
{
    const CallIterator pos = MyFind("", false);
    m_player.Play(pos == m_calls.end() ? "" : MyRingOf(*pos));
}

std::string CTelephone::MyRingOf(const CallData& call) const
{
    std::error_code error;
    const std::string strRing = m_book.Ring(call.m_strNumber);
    const bool bThere = std::filesystem::is_regular_file(strRing, error);
    return std::filesystem::absolute(bThere ? strRing : m_strLastRing, error);
}

std::string CTelephone::MyNameOf(const CallData& call) const
{
    if (call.m_strNumber.empty()) {
        return "a caller without a number";
    }
    const std::string strName = m_book.Name(call.m_strNumber);
    return strName.empty() ? call.m_strNumber : strName;
}

}  // namespace sip_phone
