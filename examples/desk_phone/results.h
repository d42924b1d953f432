// Results of the directory, shown by name and meaning.

#ifndef DESK_PHONE_RESULTS_H
#define DESK_PHONE_RESULTS_H

#include <string>

namespace desk_phone {

// Shows a result: a refusal by the name of its code and what it means, a success by the name that
// the operation gives it and what came of it.
void PrintResult(int nResult, const std::string& strSuccessName, const std::string& strSuccess);

// True if the guard answers in place of the directory: the edit did not reach the disk.
bool IsOfGuard(int nResult);

}  // namespace desk_phone

#endif  // DESK_PHONE_RESULTS_H
