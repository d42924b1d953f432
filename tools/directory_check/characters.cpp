#include "tools/directory_check/characters.h"

#include <utf8.h>

#include <array>
#include <cstdint>
#include <cstdio>

namespace {

constexpr std::uint32_t FIRST_PRINTABLE = 0x20;

std::string Formatted(const char* pFormat, std::uint32_t nValue)
{
    std::array<char, 16> text{};
    (void)std::snprintf(text.data(), text.size(), pFormat, nValue);
    return text.data();
}

bool IsForbiddenInXml(std::uint32_t nCode)
{
    return (nCode < FIRST_PRINTABLE && nCode != '\t' && nCode != '\n' && nCode != '\r') ||
           nCode == 0xFFFE || nCode == 0xFFFF;
}

// With the line and paragraph separators.
bool IsControl(std::uint32_t nCode)
{
    return nCode < FIRST_PRINTABLE || (nCode >= 0x7F && nCode < 0xA0) || nCode == 0x2028 ||
           nCode == 0x2029;
}

bool TurnsDirection(std::uint32_t nCode)
{
    return nCode == 0x061C || nCode == 0x200E || nCode == 0x200F ||
           (nCode >= 0x202A && nCode <= 0x202E) || (nCode >= 0x2066 && nCode <= 0x2069);
}

std::string ByteAt(std::string::const_iterator pos, const char* pFormat)
{
    return Formatted(pFormat, static_cast<unsigned char>(*pos));
}

// The character at pos, which moves past it.
std::string NextShown(std::string::const_iterator& pos)
{
    const auto begin = pos;
    const std::uint32_t nCode = utf8::unchecked::next(pos);
    const bool bEscape = IsControl(nCode) || TurnsDirection(nCode) || IsForbiddenInXml(nCode);
    return bEscape ? Formatted("\\u%04x", nCode) : std::string(begin, pos);
}

}  // namespace

std::string XmlFault(const std::string& strText)
{
    const auto broken = utf8::find_invalid(strText.begin(), strText.end());
    if (broken != strText.end()) {
        return "broken UTF-8, byte " + ByteAt(broken, "0x%02X") + ",";
    }
    for (auto pos = strText.begin(); pos != strText.end();) {
        const std::uint32_t nCode = utf8::unchecked::next(pos);
        if (IsForbiddenInXml(nCode)) {
            return "character " + Formatted("U+%04X", nCode);
        }
    }
    return {};
}

std::string Shown(const std::string& strText)
{
    std::string strShown;
    for (auto pos = strText.begin(); pos != strText.end();) {
        const auto broken = utf8::find_invalid(pos, strText.end());
        while (pos != broken) {
            strShown += NextShown(pos);
        }
        if (pos != strText.end()) {
            strShown += ByteAt(pos++, "\\x%02x");
        }
    }
    return strShown;
}
