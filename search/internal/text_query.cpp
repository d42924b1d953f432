#include "search/internal/text_query.h"

#include <cstring>

#include "search/internal/text_fold.h"

namespace NS_DIRECTORY {

int CTextQuery::Parse(const char* pText)
{
    if (!AddNameWords(pText, SEARCH_FIELD_NAME, m_forms) ||
        !AddNumberWord(pText, SEARCH_FIELD_OTHER_NUMBER, m_number)) {
        return DIR_RET_NO_MEMORY;
    }
    return MyTakeWords() ? DIR_RET_OK : DIR_RET_INVALID;
}

MatchRankType CTextQuery::Find(const IndexEntryData& entry, FoundData& found) const
{
    const MatchRankType eRank = m_nWords == 0 ? MATCH_NONE : MyFindInName(entry, found);
    if (eRank != MATCH_NONE || m_number.Count() == 0) {
        return eRank;
    }
    return FindInNumbers(entry, m_number.Form(*m_number.Words()), found);
}

// False if there are too many.
bool CTextQuery::MyTakeWords()
{
    const WordData* pEnd = m_forms.Words() + m_forms.Count();
    for (const WordData* pForm = m_forms.Words(); pForm != pEnd; ++pForm) {
        const bool bSecond = pForm->m_nSpelled != 0;
        if (!bSecond && m_nWords == SEARCH_WORDS_MAX) {
            return false;
        }
        m_nWords += bSecond ? 0 : 1;
        const char* pText = m_forms.Form(*pForm);
        const auto nBytes = static_cast<std::uint32_t>(std::strlen(pText));
        m_words[m_nWords - 1].m_forms[bSecond ? 1 : 0] = {pText, nBytes};
    }
    return true;
}

// Each word of the query takes a word of the name for itself.
MatchRankType CTextQuery::MyFindInName(const IndexEntryData& entry, FoundData& found) const
{
    for (int n = 0; n < m_nWords; ++n) {
        found.m_parts[n].m_pFirst = nullptr;
    }
    for (int n = 0; n < m_nWords; ++n) {
        unsigned int nTried = 0;
        if (!MyFindWord(entry, n, nTried, found)) {
            return MATCH_NONE;
        }
    }
    found.m_nParts = m_nWords;
    return MyOwnerOf(entry.m_pBegin, found) == m_nWords ? MATCH_IN_NAME : MATCH_BEGINS_NAME;
}

// If another word of the query has the word of the name already, that one looks for a new one.
// nTried has a bit for each that has looked.
bool CTextQuery::MyFindWord(const IndexEntryData& entry, int nQuery, unsigned int& nTried,
                            FoundData& found) const
{
    nTried |= 1U << nQuery;
    for (const WordData* pWord = entry.m_pBegin; pWord != entry.m_pEnd && IsName(pWord); ++pWord) {
        const FormData* pForm = MyFormThatBegins(entry.Form(pWord), m_words[nQuery]);
        if (pForm == nullptr) {
            continue;
        }
        const int nOwner = MyOwnerOf(pWord, found);
        if (nOwner == m_nWords ||
            ((nTried >> nOwner & 1U) == 0 && MyFindWord(entry, nOwner, nTried, found))) {
            found.m_parts[nQuery] = {pWord, 0, pWord, pForm->m_nBytes};
            return true;
        }
    }
    return false;
}

// The word of the query that has this word of the name; m_nWords if none has.
int CTextQuery::MyOwnerOf(const WordData* pWord, const FoundData& found) const
{
    int nOwner = 0;
    while (nOwner != m_nWords && !IsSameWord(found.m_parts[nOwner].m_pFirst, pWord)) {
        ++nOwner;
    }
    return nOwner;
}

// The form of the word that the text begins with; null if there is none.
const CTextQuery::FormData* CTextQuery::MyFormThatBegins(const char* pText,
                                                         const QueryWordData& word)
{
    for (const FormData& form : word.m_forms) {
        if (*pText == *form.m_pText && form.m_nBytes != 0 &&
            std::strncmp(pText, form.m_pText, form.m_nBytes) == 0) {
            return &form;
        }
    }
    return nullptr;
}

}  // namespace NS_DIRECTORY
