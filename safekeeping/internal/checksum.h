// CRC-32 of a content, not inverted at its end, by which the manifest knows it again. It is a
// dozen lines; a library for it would have to be on every device.

#ifndef NSDIRECTORY_SAFEKEEPING_INTERNAL_CHECKSUM_H
#define NSDIRECTORY_SAFEKEEPING_INTERNAL_CHECKSUM_H

#include <cstddef>
#include <cstdint>

namespace NS_DIRECTORY {

inline constexpr std::uint32_t CHECKSUM_BEGIN = 0xFFFFFFFF;

struct ChecksumTable
{
    constexpr ChecksumTable() : m_arrValue()
    {
        constexpr std::uint32_t POLYNOMIAL = 0xEDB88320;  // bits reversed: the lowest goes first
        for (std::uint32_t nByte = 0; nByte < 256; ++nByte) {
            std::uint32_t nValue = nByte;
            for (int nBit = 0; nBit < 8; ++nBit) {
                nValue = (nValue >> 1) ^ ((nValue & 1) != 0 ? POLYNOMIAL : 0);
            }
            m_arrValue[nByte] = nValue;
        }
    }

    std::uint32_t m_arrValue[256];
};

inline constexpr ChecksumTable CHECKSUM_TABLE;

// Goes on from the checksum of what comes before, which is CHECKSUM_BEGIN for nothing.
inline std::uint32_t AddToChecksum(std::uint32_t nChecksum, const char* pBytes, std::size_t nSize)
{
    for (const char* pEnd = pBytes + nSize; pBytes != pEnd; ++pBytes) {
        const auto nByte = static_cast<unsigned char>(*pBytes);
        nChecksum = (nChecksum >> 8) ^ CHECKSUM_TABLE.m_arrValue[(nChecksum ^ nByte) & 0xFF];
    }
    return nChecksum;
}

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SAFEKEEPING_INTERNAL_CHECKSUM_H
