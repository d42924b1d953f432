// How a telephone comes up: its folder, its directory, and the guard of its edits.

#ifndef DESK_PHONE_START_H
#define DESK_PHONE_START_H

#include <string>

#include "directory/contact_local_manager.h"
#include "safekeeping/safe_copy.h"

namespace desk_phone {

// Makes the folder if it is not there, with that of the data and that of the copies in it, and
// works in it from now on. Throws std::runtime_error.
void EnterFolder(const std::string& strFolder, const std::string& strCopyFolder);

// Puts the copies back if an edit was cut, and starts the directory. Says what was wrong. The time
// that the start of the directory has taken is in milliseconds. Throws std::runtime_error if it
// cannot start.
NS_DIRECTORY::CContactLocalManager& StartGuarded(NS_DIRECTORY::CSafeCopy& safe,
                                                 double& dMilliseconds);

}  // namespace desk_phone

#endif  // DESK_PHONE_START_H
