#include "sip_phone/session_description.h"

#include <cstdint>
#include <new>

namespace sip_phone {

namespace {

constexpr std::uint16_t DISCARD_PORT = 9;  // for what nobody is to send
constexpr std::uint32_t SAMPLE_RATE = 8000;

struct CodecData
{
    const char* m_pId;
    const char* m_pName;
};

constexpr CodecData CODECS[] = {{"0", "PCMU"}, {"8", "PCMA"}};

}  // namespace

CSessionDescription::CSessionDescription(const sa& address)
{
    sdp_session* pSession = nullptr;
    int nError = sdp_session_alloc(&pSession, &address);
    m_pSession.reset(pSession);
    if (nError == 0) {
        nError =
            sdp_media_add(&m_pSound, pSession, sdp_media_audio, DISCARD_PORT, sdp_proto_rtpavp);
    }
    for (const CodecData& codec : CODECS) {
        if (nError == 0) {
            nError = sdp_format_add(nullptr, m_pSound, false, codec.m_pId, codec.m_pName,
                                    SAMPLE_RATE, 1, nullptr, nullptr, nullptr, false, nullptr);
        }
    }
    if (nError != 0) {
        throw std::bad_alloc();
    }
    sdp_media_set_ldir(m_pSound, SDP_INACTIVE);
}

bool CSessionDescription::TakeOffer(mbuf* pBody)
{
    m_bOffered = mbuf_get_left(pBody) != 0;
    return !m_bOffered ||
           (sdp_decode(m_pSession.get(), pBody, true) == 0 && sdp_media_rport(m_pSound) != 0 &&
            sdp_media_rformat(m_pSound, nullptr) != nullptr);
}

RePointer<mbuf> CSessionDescription::Reply() const
{
    mbuf* pBody = nullptr;
    (void)sdp_encode(&pBody, m_pSession.get(), !m_bOffered);  // leaves null if it fails
    return RePointer<mbuf>(pBody);
}

}  // namespace sip_phone
