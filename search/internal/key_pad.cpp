#include "search/internal/key_pad.h"

#include <unistr.h>

#include <cstring>

namespace NS_DIRECTORY {

namespace {

// A run of letters and the key of each. Latin and Greek as in ITU-T E.161, Cyrillic in the order of
// its alphabet as in ETSI ES 202 130. Letters that fold to others do not occur.
struct KeyRunData
{
    ucs4_t m_nFirst;
    const char* m_pKeys;
};

constexpr KeyRunData KEY_RUNS[] = {
    {'0', "0123456789"},
    {'a', "22233344455566677778889999"},
    {0x03B1, "2223334445556667777888999"},         // alpha to omega, with the final sigma
    {0x0430, "22223333444455556666777788889999"},  // а to я
    {0x0450, "3332334444564467"},                  // ѐ to џ, those of other countries
    {0x00E6, "2"},                                 // ae
    {0x00F0, "3"},                                 // eth
    {0x00FE, "8"},                                 // thorn
    {0x014B, "6"},                                 // eng
    {0x0153, "6"},                                 // oe
};

}  // namespace

char TakeKey(const char*& pForm)
{
    ucs4_t nCode = 0;
    pForm += u8_strmbtouc(&nCode, reinterpret_cast<const uint8_t*>(pForm));
    for (const KeyRunData& run : KEY_RUNS) {
        if (nCode >= run.m_nFirst && nCode - run.m_nFirst < std::strlen(run.m_pKeys)) {
            return run.m_pKeys[nCode - run.m_nFirst];
        }
    }
    return NO_KEY;
}

}  // namespace NS_DIRECTORY
