// The number of a caller, out of what its telephone sends, and of what a person types.

#ifndef SIP_PHONE_CALLER_NUMBER_H
#define SIP_PHONE_CALLER_NUMBER_H

#include <string>
#include <string_view>

namespace sip_phone {

// The number in the user part of a SIP address or in a tel URI: percent signs are decoded, the
// parameters and what people put between digits go. It is in the international form, whose country
// is that of the telephone if the text names none. Empty if the text is no number.
std::string ToNumber(std::string_view text, const std::string& strCountry);

}  // namespace sip_phone

#endif  // SIP_PHONE_CALLER_NUMBER_H
