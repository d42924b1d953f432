#include "search/number_search.h"

#include <cstring>

#include "search/internal/contact_index.h"
#include "search/internal/line_form.h"

namespace NS_DIRECTORY {

namespace {

bool MakeWords(const char* pText, SearchFieldType eField, const char* pCountry, CWordList& words)
{
    return eField == SEARCH_FIELD_NAME || AddLineForm(pText, eField, pCountry, words);
}

// The first of the contact's numbers that is the line; null if none is.
const WordData* FindLine(const IndexEntryData& entry, const char* pLine)
{
    for (const WordData* pWord = entry.m_pBegin; pWord != entry.m_pEnd; ++pWord) {
        if (std::strcmp(entry.Form(pWord), pLine) == 0) {
            return pWord;
        }
    }
    return nullptr;
}

SearchMatchData ToMatch(const IndexEntryData& entry, const WordData& word)
{
    const unsigned int nField = word.m_nField;
    SearchMatchData match = entry.Match(static_cast<SearchFieldType>(nField));
    match.m_nPlaceCount = 1;
    match.m_places[0] = {0, static_cast<int>(std::strlen(match.m_pText))};
    return match;
}

int FindMatches(const CContactIndex& index, const char* pLine, SearchMatchData* pMatches, int nMost)
{
    int nFound = 0;
    for (int n = 0; n < index.Count(); ++n) {
        const IndexEntryData entry = index.Entry(n);
        const WordData* pWord = FindLine(entry, pLine);
        if (pWord == nullptr) {
            continue;
        }
        if (nFound < nMost) {
            pMatches[nFound] = ToMatch(entry, *pWord);
        }
        ++nFound;
    }
    return nFound;
}

}  // namespace

CNumberSearch::~CNumberSearch()
{
    delete m_pIndex;
}

int CNumberSearch::Refresh(const CContactLocalManager& directory, const char* pCountry)
{
    if (pCountry == nullptr) {
        return DIR_RET_NULL_ARGUMENT;
    }
    const int nTested =
        std::strlen(pCountry) < sizeof(m_country) ? TestCountry(pCountry) : DIR_RET_INVALID;
    if (nTested != DIR_RET_OK) {
        return nTested;
    }
    CContactIndex* pIndex = CContactIndex::Create(directory, MakeWords, pCountry);
    if (pIndex == nullptr) {
        return DIR_RET_NO_MEMORY;
    }
    delete m_pIndex;
    m_pIndex = pIndex;
    std::memcpy(m_country, pCountry, sizeof(m_country));
    return m_pIndex->Count();
}

int CNumberSearch::FindByNumber(const char* pNumber, SearchMatchData* pMatches, int nMost) const
{
    if (pNumber == nullptr || (pMatches == nullptr && nMost > 0)) {
        return DIR_RET_NULL_ARGUMENT;
    }
    if (m_pIndex == nullptr) {
        return 0;
    }
    CWordList line;
    if (!AddLineForm(pNumber, SEARCH_FIELD_OTHER_NUMBER, m_country, line)) {
        return DIR_RET_NO_MEMORY;
    }
    return line.Count() == 0 ? 0
                             : FindMatches(*m_pIndex, line.Form(*line.Words()), pMatches, nMost);
}

}  // namespace NS_DIRECTORY
