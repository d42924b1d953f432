// From the lines of input to the commands, until the telephone is switched off.

#ifndef DESK_PHONE_SESSION_H
#define DESK_PHONE_SESSION_H

#include <istream>
#include <string>

#include "desk_phone/phone.h"

namespace desk_phone {

void RunAtPrompt(PhoneData& phone);

// Ends early if the output fails. Throws std::runtime_error, with the name, if the stream does.
void RunStream(PhoneData& phone, std::istream& stream, const std::string& strName);

}  // namespace desk_phone

#endif  // DESK_PHONE_SESSION_H
