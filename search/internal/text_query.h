// CTextQuery: the words that a user has typed.

#ifndef NSDIRECTORY_SEARCH_INTERNAL_TEXT_QUERY_H
#define NSDIRECTORY_SEARCH_INTERNAL_TEXT_QUERY_H

#include "search/internal/found.h"

namespace NS_DIRECTORY {

class CTextQuery
{
  public:
    // DIR_RET_OK, DIR_RET_NO_MEMORY, or DIR_RET_INVALID for too many words.
    int Parse(const char* pText);

    MatchRankType Find(const IndexEntryData& entry, FoundData& found) const;

  private:
    struct FormData
    {
        const char* m_pText = "";
        std::uint32_t m_nBytes = 0;  // 0 if there is no second form
    };

    struct QueryWordData
    {
        FormData m_forms[2];
    };

    bool MyTakeWords();
    MatchRankType MyFindInName(const IndexEntryData& entry, FoundData& found) const;
    bool MyFindWord(const IndexEntryData& entry, int nQuery, unsigned int& nTried,
                    FoundData& found) const;
    int MyOwnerOf(const WordData* pWord, const FoundData& found) const;
    static const FormData* MyFormThatBegins(const char* pText, const QueryWordData& word);

    CWordList m_forms;   // those of the words
    CWordList m_number;  // the whole text as a part of a number, if it is one
    int m_nWords = 0;
    QueryWordData m_words[SEARCH_WORDS_MAX];
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SEARCH_INTERNAL_TEXT_QUERY_H
