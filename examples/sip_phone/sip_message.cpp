#include "sip_phone/sip_message.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace sip_phone {

namespace {

constexpr std::size_t MOST_SHOWN_BYTES = 160;
constexpr char ALLOWED[] = "INVITE, ACK, CANCEL, BYE, OPTIONS";

std::string ToText(const pl& text)
{
    return text.p == nullptr ? "" : std::string(text.p, text.l);
}

}  // namespace

sa ToAddress(const std::string& strAddress)
{
    const std::size_t nColon = strAddress.rfind(':');
    std::string strHost = strAddress.substr(0, nColon);
    if (strHost.size() > 1 && strHost.front() == '[' && strHost.back() == ']') {
        strHost = strHost.substr(1, strHost.size() - 2);
    }
    const std::string strPort = nColon == std::string::npos ? "" : strAddress.substr(nColon + 1);
    std::uint16_t nPort = 0;
    const char* pEnd = strPort.data() + strPort.size();
    const std::from_chars_result result = std::from_chars(strPort.data(), pEnd, nPort);
    sa address{};
    if (result.ec != std::errc() || result.ptr != pEnd ||
        sa_set_str(&address, strHost.c_str(), nPort) != 0) {
        throw std::runtime_error(strAddress + " is no address with a port, as 192.0.2.1:5060");
    }
    if (sa_is_any(&address)) {
        throw std::runtime_error(strAddress + " is no address that callers could reach");
    }
    return address;
}

std::string ToText(const sa& address)
{
    char text[64] = "";
    (void)re_snprintf(text, sizeof(text), "%J", &address);
    return text;
}

std::string CallerUser(const sip_msg& message)
{
    const uri& caller = message.from.uri;
    if (pl_strcasecmp(&caller.scheme, "tel") == 0) {
        return ToText(caller.host);
    }
    const bool bSip =
        pl_strcasecmp(&caller.scheme, "sip") == 0 || pl_strcasecmp(&caller.scheme, "sips") == 0;
    return bSip ? ToText(caller.user) : "";
}

std::string CallerAddress(const sip_msg& message)
{
    return ToText(message.from.auri).substr(0, MOST_SHOWN_BYTES);
}

bool RefuseUnsuitable(sip& stack, const sip_msg& message)
{
    const sip_hdr* pRequired = sip_msg_hdr(&message, SIP_HDR_REQUIRE);
    if (pRequired != nullptr) {
        (void)sip_treplyf(nullptr, nullptr, &stack, &message, false, 420, "Bad Extension",
                          "Unsupported: %r\r\nContent-Length: 0\r\n\r\n", &pRequired->val);
        return true;
    }
    if (mbuf_get_left(message.mb) != 0 && !msg_ctype_cmp(&message.ctyp, "application", "sdp")) {
        (void)sip_treplyf(nullptr, nullptr, &stack, &message, false, 415, "Unsupported Media Type",
                          "Accept: application/sdp\r\nContent-Length: 0\r\n\r\n");
        return true;
    }
    return false;
}

void RespondOutsideCalls(sip& stack, const sip_msg& message)
{
    if (pl_strcmp(&message.met, "CANCEL") == 0) {
        (void)sip_reply(&stack, &message, 481, "Transaction Does Not Exist");
        return;
    }
    const bool bAsked = pl_strcmp(&message.met, "OPTIONS") == 0;
    (void)sip_replyf(&stack, &message, bAsked ? 200 : 405, bAsked ? "OK" : "Method Not Allowed",
                     "Allow: %s\r\nAccept: application/sdp\r\nContent-Length: 0\r\n\r\n", ALLOWED);
}

}  // namespace sip_phone
