// What a telephone shows of a call that comes in.

#ifndef DESK_PHONE_CALL_WINDOW_H
#define DESK_PHONE_CALL_WINDOW_H

#include <string>

#include "directory/contact_local_manager.h"

namespace desk_phone {

// Shows who calls, and the ring or BLOCKED. strNumber is the caller's as the directory holds it,
// strCalling as it has come in. A caller without a number has an empty one, and in strCalling what
// else it calls itself.
void PrintCall(const NS_DIRECTORY::CContactLocalManager& directory, const std::string& strNumber,
               const std::string& strCalling);

}  // namespace desk_phone

#endif  // DESK_PHONE_CALL_WINDOW_H
