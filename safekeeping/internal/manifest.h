// The manifest: what the two copies hold. It is written last and makes them a pair.

#ifndef NSDIRECTORY_SAFEKEEPING_INTERNAL_MANIFEST_H
#define NSDIRECTORY_SAFEKEEPING_INTERNAL_MANIFEST_H

#include "safekeeping/internal/folder.h"

namespace NS_DIRECTORY {

// The two files, in the order of every array of them.
inline constexpr int SAFE_GROUPS = 0;
inline constexpr int SAFE_CONTACTS = 1;
inline constexpr int SAFE_FILE_COUNT = 2;

// Of each file only presence, size and checksum are written down.
struct ManifestData
{
    FileData m_arrFile[SAFE_FILE_COUNT];
};

enum class ManifestState
{
    THERE,
    MISSING,  // there is none, or it is not whole
    UNREADABLE
};

ManifestState ReadManifest(const CFolder& folder, const char* pName, ManifestData& manifest);

// As CFolder::Write.
bool WriteManifest(const CFolder& folder, const char* pName, const ManifestData& manifest);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SAFEKEEPING_INTERNAL_MANIFEST_H
