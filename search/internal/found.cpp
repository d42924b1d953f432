#include "search/internal/found.h"

#include <algorithm>
#include <cstring>

#include "search/internal/text_fold.h"

namespace NS_DIRECTORY {

namespace {

SearchPlaceData PlaceOf(const char* pText, const FormPartData& part)
{
    const std::uint32_t nBegin = SourceBegin(pText, *part.m_pFirst, part.m_nBegin);
    const std::uint32_t nEnd = SourceEnd(pText, *part.m_pLast, part.m_nEnd);
    return {static_cast<int>(nBegin), static_cast<int>(nEnd - nBegin)};
}

}  // namespace

MatchRankType FindInNumbers(const IndexEntryData& entry, const char* pDigits, FoundData& found)
{
    for (const WordData* pWord = entry.m_pBegin; pWord != entry.m_pEnd; ++pWord) {
        const char* pForm = entry.Form(pWord);
        const char* pHit = IsName(pWord) ? nullptr : std::strstr(pForm, pDigits);
        if (pHit != nullptr) {
            const auto nBegin = static_cast<std::uint32_t>(pHit - pForm);
            const auto nEnd = nBegin + static_cast<std::uint32_t>(std::strlen(pDigits));
            found.m_parts[0] = {pWord, nBegin, pWord, nEnd};
            found.m_nParts = 1;
            return nBegin == 0 ? MATCH_BEGINS_NUMBER : MATCH_IN_NUMBER;
        }
    }
    return MATCH_NONE;
}

SearchMatchData ToMatch(const IndexEntryData& entry, const FoundData& found)
{
    const unsigned int nField = found.m_parts[0].m_pFirst->m_nField;
    SearchMatchData match = entry.Match(static_cast<SearchFieldType>(nField));
    match.m_nPlaceCount = found.m_nParts;
    for (int n = 0; n < found.m_nParts; ++n) {
        match.m_places[n] = PlaceOf(match.m_pText, found.m_parts[n]);
    }
    std::sort(match.m_places, match.m_places + found.m_nParts,
              [](const SearchPlaceData& left, const SearchPlaceData& right) {
                  return left.m_nOffset < right.m_nOffset;
              });
    return match;
}

}  // namespace NS_DIRECTORY
