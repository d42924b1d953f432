// The two searches by what a user types. Both look at every contact in the order of the directory,
// which takes some ten microseconds at the size of a telephone's. There is no index of words to
// keep.

#include "search/contact_search.h"

#include "search/internal/key_query.h"
#include "search/internal/text_fold.h"
#include "search/internal/text_query.h"

namespace NS_DIRECTORY {

namespace {

// What a host has asked for, and how many contacts match so far.
struct ResultData
{
    int m_nOptions;
    SearchMatchData* m_pMatches;
    int m_nMost;
    int m_nFound = 0;
};

// Adds the matches of these ranks.
template <class TQuery>
void AddMatches(const CContactIndex& index, const TQuery& query, MatchRankType eFirst,
                MatchRankType eLast, ResultData& result)
{
    const bool bWithoutBlacklist = (result.m_nOptions & SEARCH_WITHOUT_BLACKLIST) != 0;
    FoundData found;
    for (int n = 0; n < index.Count(); ++n) {
        const IndexEntryData entry = index.Entry(n);
        if (bWithoutBlacklist && entry.m_bBlacklisted) {
            continue;
        }
        const MatchRankType eRank = query.Find(entry, found);
        if (eRank < eFirst || eRank > eLast) {
            continue;
        }
        if (result.m_nFound < result.m_nMost) {
            result.m_pMatches[result.m_nFound] = ToMatch(entry, found);
        }
        ++result.m_nFound;
    }
}

template <class TQuery>
int FindMatches(const CContactIndex* pIndex, const TQuery& query, ResultData result)
{
    if (pIndex == nullptr) {
        return 0;
    }
    if ((result.m_nOptions & SEARCH_BEST_FIRST) == 0) {
        AddMatches(*pIndex, query, MATCH_BEST, MATCH_LAST, result);
        return result.m_nFound;
    }
    for (int nRank = MATCH_BEST; nRank <= MATCH_LAST; ++nRank) {
        const auto eRank = static_cast<MatchRankType>(nRank);
        AddMatches(*pIndex, query, eRank, eRank, result);
    }
    return result.m_nFound;
}

bool MakeWords(const char* pText, SearchFieldType eField, const char* /*pCountry*/,
               CWordList& words)
{
    return eField == SEARCH_FIELD_NAME ? AddNameWords(pText, eField, words)
                                       : AddNumberWord(pText, eField, words);
}

}  // namespace

CContactSearch::~CContactSearch()
{
    delete m_pIndex;
}

int CContactSearch::Refresh(const CContactLocalManager& directory)
{
    CContactIndex* pIndex = CContactIndex::Create(directory, MakeWords, nullptr);
    if (pIndex == nullptr) {
        return DIR_RET_NO_MEMORY;
    }
    delete m_pIndex;
    m_pIndex = pIndex;
    return m_pIndex->Count();
}

int CContactSearch::FindByText(const char* pText, int nOptions, SearchMatchData* pMatches,
                               int nMost) const
{
    if (pText == nullptr || (pMatches == nullptr && nMost > 0)) {
        return DIR_RET_NULL_ARGUMENT;
    }
    CTextQuery query;
    const int nParsed = query.Parse(pText);
    if (nParsed != DIR_RET_OK) {
        return nParsed;
    }
    return FindMatches(m_pIndex, query, {nOptions, pMatches, nMost});
}

int CContactSearch::FindByKeys(const char* pKeys, int nOptions, SearchMatchData* pMatches,
                               int nMost) const
{
    if (pKeys == nullptr || (pMatches == nullptr && nMost > 0)) {
        return DIR_RET_NULL_ARGUMENT;
    }
    const CKeyQuery query(pKeys);
    if (!query.IsValid()) {
        return DIR_RET_INVALID;
    }
    return FindMatches(m_pIndex, query, {nOptions, pMatches, nMost});
}

}  // namespace NS_DIRECTORY
