#include "search/internal/key_query.h"

#include <cstring>

#include "search/internal/key_pad.h"

namespace NS_DIRECTORY {

namespace {

bool TypesFromNextWord(const char* pKeys, const IndexEntryData& entry, const WordData* pWord,
                       FormPartData& part);

// Whether the keys type the name from this form of a word on. The part receives where they end.
bool Types(const char* pKeys, const IndexEntryData& entry, const WordData* pWord,
           FormPartData& part)
{
    const char* pForm = entry.Form(pWord);
    const char* pAt = pForm;
    for (; *pKeys != '\0' && *pAt != '\0'; ++pKeys) {
        if (TakeKey(pAt) != *pKeys) {
            return false;
        }
    }
    part.m_pLast = pWord;
    part.m_nEnd = static_cast<std::uint32_t>(pAt - pForm);
    const bool bGap = *pKeys == '0' || *pKeys == '1';
    return *pKeys == '\0' || (bGap && TypesFromNextWord(pKeys + 1, entry, pWord, part));
}

// The same for any form of the next word.
bool TypesFromNextWord(const char* pKeys, const IndexEntryData& entry, const WordData* pWord,
                       FormPartData& part)
{
    const WordData* pNext = pWord + 1;
    if (pNext != entry.m_pEnd && IsSameWord(pNext, pWord)) {
        ++pNext;
    }
    for (const WordData* pForm = pNext;
         pForm != entry.m_pEnd && IsName(pForm) && IsSameWord(pForm, pNext); ++pForm) {
        if (Types(pKeys, entry, pForm, part)) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool CKeyQuery::IsValid() const
{
    const std::size_t nKeys = std::strspn(m_pKeys, "0123456789*#+");
    return m_pKeys[nKeys] == '\0' && nKeys <= SEARCH_KEYS_MAX;
}

MatchRankType CKeyQuery::Find(const IndexEntryData& entry, FoundData& found) const
{
    if (*m_pKeys == '\0') {
        return MATCH_NONE;
    }
    for (const WordData* pWord = entry.m_pBegin; pWord != entry.m_pEnd && IsName(pWord); ++pWord) {
        found.m_parts[0] = {pWord, 0, pWord, 0};
        if (Types(m_pKeys, entry, pWord, found.m_parts[0])) {
            found.m_nParts = 1;
            return IsSameWord(pWord, entry.m_pBegin) ? MATCH_BEGINS_NAME : MATCH_IN_NAME;
        }
    }
    return FindInNumbers(entry, m_pKeys, found);
}

}  // namespace NS_DIRECTORY
