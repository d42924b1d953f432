// What is at a path. A file is read only if it is a regular one: a pipe or a device might never
// end.

#ifndef NSDIRECTORY_TOOLS_DIRECTORY_CHECK_INPUT_FILE_H
#define NSDIRECTORY_TOOLS_DIRECTORY_CHECK_INPUT_FILE_H

#include <stdexcept>
#include <string>

// What is there and cannot be read, or is not there and should be.
class CUnreadable : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

enum class PathKind
{
    ABSENT,
    FOLDER,
    REGULAR
};

// Throws CUnreadable for anything else, and if the system does not say what it is.
PathKind KindOf(const std::string& strPath);

// Throws CUnreadable.
std::string ReadText(const std::string& strPath);

#endif  // NSDIRECTORY_TOOLS_DIRECTORY_CHECK_INPUT_FILE_H
