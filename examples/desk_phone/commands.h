// The commands of the telephone: one table, and the way from a line of input to a command.

#ifndef DESK_PHONE_COMMANDS_H
#define DESK_PHONE_COMMANDS_H

#include <string>

#include "desk_phone/phone.h"

namespace desk_phone {

// What a word of a line is to be.
enum class Expected
{
    NOTHING,  // anything
    COMMANDS,
    GROUPS,
    NAMES,
    NAMES_AND_GROUPS,
    FIELDS
};

Words CommandNames();

// The next word after these.
Expected ExpectedAfter(const Words& words);

// Does what the line says. Wrong input is answered with one line and does nothing.
void RunLine(PhoneData& phone, const std::string& strLine);

}  // namespace desk_phone

#endif  // DESK_PHONE_COMMANDS_H
