// What the two ends of a call say of their sound (SDP). This telephone has none to send or to hear:
// it agrees on a codec and keeps the line silent ("inactive"), so that the call goes on.

#ifndef SIP_PHONE_SESSION_DESCRIPTION_H
#define SIP_PHONE_SESSION_DESCRIPTION_H

#include "sip_phone/re_pointer.h"

namespace sip_phone {

class CSessionDescription
{
  public:
    // Throws std::bad_alloc.
    explicit CSessionDescription(const sa& address);

    // What the caller offers; none in an empty body, which leaves the offer to the telephone. False
    // if it is broken, and if it has no sound in G.711.
    bool TakeOffer(mbuf* pBody);

    // The answer to the last offer, or an offer if there was none; null if there is no memory.
    RePointer<mbuf> Reply() const;

  private:
    RePointer<sdp_session> m_pSession;
    sdp_media* m_pSound = nullptr;  // owned by the session
    bool m_bOffered = false;
};

}  // namespace sip_phone

#endif  // SIP_PHONE_SESSION_DESCRIPTION_H
