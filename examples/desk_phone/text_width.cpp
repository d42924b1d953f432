#include "desk_phone/text_width.h"

#include <wchar.h>

#include <algorithm>

namespace desk_phone {

namespace {

constexpr char ELLIPSIS[] = "…";
constexpr char MARK[] = "\uFFFD";

constexpr wchar_t JOINER = 0x200D;
constexpr wchar_t EMOJI_SELECTOR = 0xFE0F;
constexpr std::size_t EMOJI_WIDTH = 2;

// What one character takes on the screen; marks above and below a letter take nothing.
struct GlyphData
{
    std::string m_strBytes;
    std::size_t m_nWidth;
    bool m_bPlain;
    wchar_t m_nCharacter;
};

using Glyphs = std::vector<GlyphData>;

bool TurnsDirection(wchar_t n)
{
    return n == 0x061C || n == 0x200E || n == 0x200F || (n >= 0x202A && n <= 0x202E) ||
           (n >= 0x2066 && n <= 0x2069);
}

bool IsSkinTone(wchar_t n)
{
    return n >= 0x1F3FB && n <= 0x1F3FF;
}

// The first character of a text that is not empty, and in nUsed its bytes.
GlyphData FirstGlyph(const char* pText, std::size_t nLeft, std::size_t& nUsed)
{
    std::mbstate_t state{};
    wchar_t nCharacter = 0;
    nUsed = mbrtowc(&nCharacter, pText, nLeft, &state);
    const bool bDecoded = nUsed != 0 && nUsed <= nLeft;  // both error results are above any length
    const int nWidth = bDecoded ? wcwidth(nCharacter) : -1;
    if (nWidth < 0) {
        nUsed = bDecoded ? nUsed : 1;
        return {MARK, 1, false, 0};
    }
    if (TurnsDirection(nCharacter)) {
        return {MARK, 1, true, nCharacter};
    }
    return {std::string(pText, nUsed), static_cast<std::size_t>(nWidth), true, nCharacter};
}

Glyphs Decode(const std::string& strText)
{
    Glyphs glyphs;
    std::size_t nUsed = 0;
    for (std::size_t n = 0; n < strText.size(); n += nUsed) {
        glyphs.push_back(FirstGlyph(strText.c_str() + n, strText.size() - n, nUsed));
    }
    return glyphs;
}

// Without what makes one emoji of several characters. Some terminals follow it and others do not,
// so that a text with it is wider in one than in the other.
Glyphs ToGlyphs(const std::string& strText)
{
    Glyphs glyphs;
    const Glyphs all = Decode(strText);
    bool bInEmoji = false;
    for (std::size_t n = 0; n < all.size(); ++n) {
        const wchar_t nCharacter = all[n].m_nCharacter;
        const bool bBeforeEmoji = n + 1 < all.size() && all[n + 1].m_nWidth == EMOJI_WIDTH;
        const bool bLeftOut = nCharacter == EMOJI_SELECTOR ||
                              (nCharacter == JOINER && (bInEmoji || bBeforeEmoji)) ||
                              (IsSkinTone(nCharacter) && bInEmoji);
        if (!bLeftOut) {
            glyphs.push_back(all[n]);
        }
        bInEmoji = bLeftOut || all[n].m_nWidth == EMOJI_WIDTH;
    }
    return glyphs;
}

std::size_t Width(const Glyphs& glyphs)
{
    std::size_t nWidth = 0;
    for (const GlyphData& glyph : glyphs) {
        nWidth += glyph.m_nWidth;
    }
    return nWidth;
}

std::string Join(const Glyphs& glyphs, std::size_t nFrom, std::size_t nEnd)
{
    std::string strText;
    for (std::size_t n = nFrom; n < nEnd; ++n) {
        strText += glyphs[n].m_strBytes;
    }
    return strText;
}

// The end of what fits from nFrom on.
std::size_t FittingEnd(const Glyphs& glyphs, std::size_t nFrom, std::size_t nWidth)
{
    std::size_t nEnd = nFrom;
    for (; nEnd < glyphs.size() && glyphs[nEnd].m_nWidth <= nWidth; ++nEnd) {
        nWidth -= glyphs[nEnd].m_nWidth;
    }
    return nEnd;
}

bool IsBlank(const GlyphData& glyph)
{
    return glyph.m_strBytes == " ";
}

// The end of a line from nFrom on: the last blank that lets it fit, else as much as fits.
std::size_t LineEnd(const Glyphs& glyphs, std::size_t nFrom, std::size_t nWidth)
{
    const std::size_t nEnd = FittingEnd(glyphs, nFrom, nWidth);
    if (nEnd == glyphs.size()) {
        return nEnd;
    }
    for (std::size_t n = nEnd; n > nFrom; --n) {
        if (IsBlank(glyphs[n])) {
            return n;
        }
    }
    return std::max(nEnd, nFrom + 1);  // a character wider than the screen must not stop it
}

}  // namespace

bool IsPlainText(const std::string& strText)
{
    const Glyphs glyphs = ToGlyphs(strText);
    return std::all_of(glyphs.begin(), glyphs.end(),
                       [](const GlyphData& glyph) { return glyph.m_bPlain; });
}

std::size_t Width(const std::string& strText)
{
    return Width(ToGlyphs(strText));
}

std::string Cut(const std::string& strText, std::size_t nWidth)
{
    const Glyphs glyphs = ToGlyphs(strText);
    if (Width(glyphs) <= nWidth) {
        return Join(glyphs, 0, glyphs.size());
    }
    return nWidth == 0 ? "" : Join(glyphs, 0, FittingEnd(glyphs, 0, nWidth - 1)) + ELLIPSIS;
}

std::string Fit(const std::string& strText, std::size_t nWidth, bool bRight)
{
    const std::string strCut = Cut(strText, nWidth);
    const std::string strBlanks(nWidth - Width(strCut), ' ');
    return bRight ? strBlanks + strCut : strCut + strBlanks;
}

std::vector<std::string> Wrap(const std::string& strText, std::size_t nWidth)
{
    const Glyphs glyphs = ToGlyphs(strText);
    std::vector<std::string> lines;
    std::size_t nFrom = 0;
    do {
        const std::size_t nEnd = LineEnd(glyphs, nFrom, nWidth);
        lines.push_back(Join(glyphs, nFrom, nEnd));
        nFrom = nEnd < glyphs.size() && IsBlank(glyphs[nEnd]) ? nEnd + 1 : nEnd;
    } while (nFrom < glyphs.size());
    return lines;
}

}  // namespace desk_phone
