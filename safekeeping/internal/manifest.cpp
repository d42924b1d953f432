// The manifest as text: a line for each file, and a checksum of these lines. A text
// that differs from what would be written is no manifest.

#include "safekeeping/internal/manifest.h"

#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace NS_DIRECTORY {
namespace {

constexpr std::size_t MOST_TEXT = 256;
constexpr char TITLE[] = "safe copy 1\n";
constexpr const char* FILE_TITLES[SAFE_FILE_COUNT] = {"groups", "contacts"};
constexpr int DECIMAL = 10;
constexpr int HEXADECIMAL = 16;

// MOST_TEXT is always enough: titles are short and numbers have an end.
std::size_t ToText(const ManifestData& manifest, char (&arrText)[MOST_TEXT])
{
    int nSize = std::snprintf(arrText, MOST_TEXT, "%s", TITLE);
    for (int n = 0; n < SAFE_FILE_COUNT; ++n) {
        const FileData& file = manifest.m_arrFile[n];
        nSize += std::snprintf(arrText + nSize, MOST_TEXT - static_cast<std::size_t>(nSize),
                               "%s %d %llu %08" PRIx32 "\n", FILE_TITLES[n],
                               file.m_bPresent ? 1 : 0, file.m_nSize, file.m_nChecksum);
    }
    const std::uint32_t nChecksum =
        AddToChecksum(CHECKSUM_BEGIN, arrText, static_cast<std::size_t>(nSize));
    nSize += std::snprintf(arrText + nSize, MOST_TEXT - static_cast<std::size_t>(nSize),
                           "checksum %08" PRIx32 "\n", nChecksum);
    return static_cast<std::size_t>(nSize);
}

// Reads the three numbers after the title of each line. Wrong ones are found when the text is made
// from them again.
void TakeNumbers(const char* pText, ManifestData& manifest)
{
    for (int n = 0; n < SAFE_FILE_COUNT; ++n) {
        FileData& file = manifest.m_arrFile[n];
        const char* pLine = std::strstr(pText, FILE_TITLES[n]);
        if (pLine == nullptr) {
            return;
        }
        char* pNext = nullptr;
        file.m_bPresent = std::strtol(pLine + std::strlen(FILE_TITLES[n]), &pNext, DECIMAL) == 1;
        file.m_nSize = std::strtoull(pNext, &pNext, DECIMAL);
        file.m_nChecksum = static_cast<std::uint32_t>(std::strtoul(pNext, nullptr, HEXADECIMAL));
    }
}

}  // namespace

ManifestState ReadManifest(const CFolder& folder, const char* pName, ManifestData& manifest)
{
    manifest = ManifestData();
    char* pText = nullptr;
    std::size_t nSize = 0;
    if (!folder.ReadText(pName, &pText, nSize)) {
        return ManifestState::UNREADABLE;
    }
    if (pText == nullptr) {
        return ManifestState::MISSING;
    }
    pText[nSize] = '\0';
    TakeNumbers(pText, manifest);
    char arrText[MOST_TEXT];
    const bool bSame =
        ToText(manifest, arrText) == nSize && std::memcmp(arrText, pText, nSize) == 0;
    std::free(pText);
    return bSame ? ManifestState::THERE : ManifestState::MISSING;
}

bool WriteManifest(const CFolder& folder, const char* pName, const ManifestData& manifest)
{
    char arrText[MOST_TEXT];
    return folder.Write(pName, arrText, ToText(manifest, arrText));
}

}  // namespace NS_DIRECTORY
