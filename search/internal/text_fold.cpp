#include "search/internal/text_fold.h"

#include <unicase.h>
#include <unictype.h>
#include <uniname.h>
#include <uninorm.h>
#include <unistr.h>

#include <algorithm>

namespace NS_DIRECTORY {

namespace {

// The longest decomposition of a character has 18 code points, the longest form 30 bytes.
constexpr std::size_t CODES_MAX = 64;
constexpr std::size_t FORM_MAX = 64;

constexpr ucs4_t DIAERESIS = 0x0308;

enum CharacterType
{
    CHARACTER_END,
    CHARACTER_LETTERS,    // letters or digits, several of them for some characters
    CHARACTER_IDEOGRAPH,  // a word of its own
    CHARACTER_SIGN,       // part of numbers, and not of names
    CHARACTER_ACCENT,     // part of the character before it
    CHARACTER_GAP         // everything else, each byte that is not UTF-8 too
};

struct CharacterData
{
    CharacterType m_eType = CHARACTER_GAP;
    std::uint32_t m_nSourceBytes = 1;
    bool m_bWithE = false;  // the second form has an e after the first one
    std::uint32_t m_nFormBytes = 0;
    char m_form[FORM_MAX + 1] = {};  // with room for the e

    std::uint32_t Bytes(bool bSpelled) const
    {
        return m_nFormBytes + (bSpelled && m_bWithE ? 1 : 0);
    }
};

// Code points in a buffer that libunistring works in.
struct CodesData
{
    std::size_t m_nCount = CODES_MAX;
    ucs4_t m_codes[CODES_MAX];
};

// A result that does not fit into its buffer would be elsewhere. It is left out.
bool IsInBuffer(CodesData& codes, ucs4_t* pResult)
{
    if (pResult == codes.m_codes) {
        return true;
    }
    std::free(pResult);
    return false;
}

bool Fold(ucs4_t nCode, CodesData& folded)
{
    CodesData codes;
    CodesData capitals;
    return IsInBuffer(codes,
                      u32_normalize(UNINORM_NFKD, &nCode, 1, codes.m_codes, &codes.m_nCount)) &&
           IsInBuffer(capitals, u32_toupper(codes.m_codes, codes.m_nCount, nullptr, nullptr,
                                            capitals.m_codes, &capitals.m_nCount)) &&
           IsInBuffer(folded, u32_casefold(capitals.m_codes, capitals.m_nCount, nullptr, nullptr,
                                           folded.m_codes, &folded.m_nCount));
}

// The letter that this one is named after: LATIN SMALL LETTER L WITH STROKE after the one without.
ucs4_t BaseLetter(ucs4_t nCode)
{
    char name[UNINAME_MAX];
    if (nCode < 0x80 || unicode_character_name(nCode, name) == nullptr) {
        return nCode;
    }
    char* pWith = std::strstr(name, " WITH ");
    if (pWith == nullptr) {
        return nCode;
    }
    *pWith = '\0';
    const ucs4_t nBase = unicode_name_character(name);
    return nBase == UNINAME_INVALID ? nCode : nBase;
}

void AppendLetter(CharacterData& character, ucs4_t nCode)
{
    auto* pEnd = reinterpret_cast<uint8_t*>(character.m_form) + character.m_nFormBytes;
    const auto nRoom = static_cast<std::ptrdiff_t>(FORM_MAX - character.m_nFormBytes);
    const int nBytes = u8_uctomb(pEnd, nCode, nRoom);
    character.m_nFormBytes += nBytes > 0 ? static_cast<std::uint32_t>(nBytes) : 0;
}

// Letters that others spell with an e, without it.
ucs4_t WithoutE(ucs4_t nCode)
{
    switch (nCode) {
        case 0x00E6:  // æ
            return 'a';
        case 0x0153:  // œ
        case 0x00F8:  // ø
            return 'o';
        default:
            return nCode;
    }
}

// Adds what a search sees of a code point that is folded already.
void AppendFolded(CharacterData& character, ucs4_t nCode)
{
    const ucs4_t nPlain = WithoutE(nCode);
    character.m_bWithE = character.m_bWithE || nPlain != nCode || nCode == DIAERESIS;
    const int nDigit = uc_decimal_value(nPlain);
    if (nDigit >= 0) {
        AppendLetter(character, static_cast<ucs4_t>('0' + nDigit));
    } else if (uc_combining_class(nPlain) == 0 && uc_is_property_alphabetic(nPlain)) {
        AppendLetter(character, BaseLetter(nPlain));
    }
}

bool IsAccent(ucs4_t nCode)
{
    return uc_combining_class(nCode) != 0 || uc_is_general_category(nCode, UC_CATEGORY_M) ||
           uc_is_property_default_ignorable_code_point(nCode);
}

CharacterData FoldCode(ucs4_t nCode)
{
    CharacterData character;
    CodesData codes;
    if (Fold(nCode, codes)) {
        for (std::size_t n = 0; n < codes.m_nCount; ++n) {
            AppendFolded(character, codes.m_codes[n]);
        }
    }
    if (character.m_nFormBytes == 0) {
        character.m_eType = IsAccent(nCode) ? CHARACTER_ACCENT : CHARACTER_GAP;
    } else {
        character.m_eType =
            uc_is_property_ideographic(nCode) ? CHARACTER_IDEOGRAPH : CHARACTER_LETTERS;
    }
    return character;
}

// Most characters are of this kind, and need no tables.
CharacterData FoldAscii(char cByte)
{
    CharacterData character;
    const bool bCapital = cByte >= 'A' && cByte <= 'Z';
    character.m_form[0] = bCapital ? static_cast<char>(cByte - 'A' + 'a') : cByte;
    if (bCapital || (cByte >= 'a' && cByte <= 'z') || (cByte >= '0' && cByte <= '9')) {
        character.m_eType = CHARACTER_LETTERS;
    } else if (cByte == '+' || cByte == '*' || cByte == '#') {
        character.m_eType = CHARACTER_SIGN;
    }
    character.m_nFormBytes = character.m_eType == CHARACTER_GAP ? 0 : 1;
    return character;
}

// The first character of a text, which NUL ends.
CharacterData FoldFirst(const char* pText)
{
    ucs4_t nCode = 0;
    const int nBytes = u8_strmbtouc(&nCode, reinterpret_cast<const uint8_t*>(pText));
    if (nBytes == 1) {
        return FoldAscii(*pText);
    }
    CharacterData character;
    if (nBytes > 1) {
        character = FoldCode(nCode);
        character.m_nSourceBytes = static_cast<std::uint32_t>(nBytes);
    } else if (nBytes == 0) {
        character.m_eType = CHARACTER_END;
        character.m_nSourceBytes = 0;
    }
    return character;
}

// A piece of a text that becomes a word.
struct PieceData
{
    std::uint32_t m_nBegin;
    std::uint32_t m_nEnd;
    bool m_bWithE;  // there is a second form
};

bool Continues(CharacterType eFirst, CharacterType eNext)
{
    return eNext == CHARACTER_ACCENT || (eFirst == CHARACTER_LETTERS && eNext == CHARACTER_LETTERS);
}

// The first word of a name from nAt on; of no length if there is none.
PieceData NextWord(const char* pText, std::uint32_t nAt)
{
    CharacterData character = FoldFirst(pText + nAt);
    for (; character.m_eType >= CHARACTER_SIGN; character = FoldFirst(pText + nAt)) {
        nAt += character.m_nSourceBytes;
    }
    const CharacterType eFirst = character.m_eType;
    PieceData piece{nAt, nAt, false};
    if (eFirst == CHARACTER_END) {
        return piece;
    }
    do {
        piece.m_nEnd += character.m_nSourceBytes;
        piece.m_bWithE = piece.m_bWithE || character.m_bWithE;
        character = FoldFirst(pText + piece.m_nEnd);
    } while (Continues(eFirst, character.m_eType));
    return piece;
}

bool AddForm(const char* pText, const PieceData& piece, SearchFieldType eField, bool bSpelled,
             CWordList& words)
{
    if (!words.BeginWord(eField, piece.m_nBegin, bSpelled)) {
        return false;
    }
    CharacterData character;
    for (std::uint32_t nAt = piece.m_nBegin; nAt < piece.m_nEnd; nAt += character.m_nSourceBytes) {
        character = FoldFirst(pText + nAt);
        character.m_form[character.m_nFormBytes] = 'e';
        if (!words.AddToWord(character.m_form, character.Bytes(bSpelled))) {
            return false;
        }
    }
    return words.EndWord();
}

}  // namespace

bool AddNameWords(const char* pText, SearchFieldType eField, CWordList& words)
{
    for (PieceData piece = NextWord(pText, 0); piece.m_nBegin != piece.m_nEnd;
         piece = NextWord(pText, piece.m_nEnd)) {
        if (!AddForm(pText, piece, eField, false, words) ||
            (piece.m_bWithE && !AddForm(pText, piece, eField, true, words))) {
            return false;
        }
    }
    return true;
}

bool AddNumberWord(const char* pText, SearchFieldType eField, CWordList& words)
{
    CharacterData character = FoldFirst(pText);
    std::uint32_t nBegin = 0;
    for (; character.m_eType >= CHARACTER_ACCENT; character = FoldFirst(pText + nBegin)) {
        nBegin += character.m_nSourceBytes;
    }
    const PieceData piece{nBegin, static_cast<std::uint32_t>(std::strlen(pText)), false};
    return piece.m_nBegin == piece.m_nEnd || AddForm(pText, piece, eField, false, words);
}

std::uint32_t SourceBegin(const char* pText, const WordData& word, std::uint32_t nAt)
{
    std::uint32_t nSource = word.m_nSource;
    CharacterData character = FoldFirst(pText + nSource);
    for (; character.m_eType != CHARACTER_END && character.Bytes(word.m_nSpelled != 0) <= nAt;
         character = FoldFirst(pText + nSource)) {
        nAt -= character.Bytes(word.m_nSpelled != 0);
        nSource += character.m_nSourceBytes;
    }
    return nSource;
}

std::uint32_t SourceEnd(const char* pText, const WordData& word, std::uint32_t nBytes)
{
    std::uint32_t nSource = word.m_nSource;
    CharacterData character = FoldFirst(pText + nSource);
    while (character.m_eType != CHARACTER_END &&
           (nBytes != 0 || character.m_eType == CHARACTER_ACCENT)) {
        nBytes -= std::min(nBytes, character.Bytes(word.m_nSpelled != 0));
        nSource += character.m_nSourceBytes;
        character = FoldFirst(pText + nSource);
    }
    return nSource;
}

}  // namespace NS_DIRECTORY
