/// \file
/// The two files of the directory and the folder in which they lie: the same for the library, for
/// hosts, companions and tools.

#ifndef NSDIRECTORY_DIRECTORY_DATA_FILES_H
#define NSDIRECTORY_DIRECTORY_DATA_FILES_H

/// The folder, with a slash at its end. A build for workstation use sets a relative one, and then
/// for everything that includes this header alike.
#ifndef NSDIRECTORY_DATA_DIR
#define NSDIRECTORY_DATA_DIR "/config/data/"
#endif

namespace NS_DIRECTORY {

inline constexpr char DATA_DIR[] = NSDIRECTORY_DATA_DIR;
static_assert(DATA_DIR[sizeof(DATA_DIR) - 2] == '/', "file names follow the folder at once");

inline constexpr char GROUP_FILE_PATH[] = NSDIRECTORY_DATA_DIR "contact_group_list.xml";
inline constexpr char CONTACT_FILE_PATH[] = NSDIRECTORY_DATA_DIR "contact_list.xml";
/// What an export to an empty path writes.
inline constexpr char EXPORT_FILE_PATH[] = NSDIRECTORY_DATA_DIR "contact_xported.xml";

/// The same without the folder.
inline constexpr const char* GROUP_FILE_NAME = GROUP_FILE_PATH + sizeof(DATA_DIR) - 1;
inline constexpr const char* CONTACT_FILE_NAME = CONTACT_FILE_PATH + sizeof(DATA_DIR) - 1;

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_DATA_FILES_H
