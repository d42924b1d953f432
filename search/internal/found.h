// What a search has found of a contact: pieces of its words, and how good a match they are.

#ifndef NSDIRECTORY_SEARCH_INTERNAL_FOUND_H
#define NSDIRECTORY_SEARCH_INTERNAL_FOUND_H

#include "search/internal/contact_index.h"

namespace NS_DIRECTORY {

// From byte m_nBegin in the form of the first word to before byte m_nEnd in that of the last.
struct FormPartData
{
    const WordData* m_pFirst;
    std::uint32_t m_nBegin;
    const WordData* m_pLast;
    std::uint32_t m_nEnd;
};

// The parts are of one text of the contact.
struct FoundData
{
    int m_nParts = 0;
    FormPartData m_parts[SEARCH_WORDS_MAX] = {};
};

// The best first.
enum MatchRankType
{
    MATCH_NONE,
    MATCH_BEGINS_NAME,
    MATCH_IN_NAME,
    MATCH_BEGINS_NUMBER,
    MATCH_IN_NUMBER,
    MATCH_BEST = MATCH_BEGINS_NAME,
    MATCH_LAST = MATCH_IN_NUMBER
};

inline bool IsName(const WordData* pWord)
{
    return pWord->m_nField == SEARCH_FIELD_NAME;
}

// Whether these are forms of one word. Null is no word.
inline bool IsSameWord(const WordData* pLeft, const WordData* pRight)
{
    return pLeft != nullptr && pLeft->m_nField == pRight->m_nField &&
           pLeft->m_nSource == pRight->m_nSource;
}

// Finds the first of the contact's numbers that contains the digits.
MatchRankType FindInNumbers(const IndexEntryData& entry, const char* pDigits, FoundData& found);

// The match with its places, as the host gets it.
SearchMatchData ToMatch(const IndexEntryData& entry, const FoundData& found);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SEARCH_INTERNAL_FOUND_H
