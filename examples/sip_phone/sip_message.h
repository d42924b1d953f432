// What the telephone reads of SIP messages and addresses.

#ifndef SIP_PHONE_SIP_MESSAGE_H
#define SIP_PHONE_SIP_MESSAGE_H

#include <re.h>

#include <string>

namespace sip_phone {

// An IP address and a port, as "192.0.2.1:5060" or "[2001:db8::1]:5060". Throws std::runtime_error
// if it is none, and for an address that means all: callers could not reach that.
sa ToAddress(const std::string& strAddress);

std::string ToText(const sa& address);

// What may hold the number of the caller: the user part of a sip or sips URI, a tel URI without its
// scheme. Empty for other schemes.
std::string CallerUser(const sip_msg& message);

// The caller's URI, or as much of it as is fit to be shown. It may hold control characters.
std::string CallerAddress(const sip_msg& message);

// Answers an INVITE that no telephone like this can take, with the reason. False for all others.
bool RefuseUnsuitable(sip& stack, const sip_msg& message);

// Answers a request that belongs to no call.
void RespondOutsideCalls(sip& stack, const sip_msg& message);

}  // namespace sip_phone

#endif  // SIP_PHONE_SIP_MESSAGE_H
