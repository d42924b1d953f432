// CContactIndex: what a search keeps of the contacts: their texts as they are, and the words that
// are searched in them.
//
//   texts    name 0 office 0 mobile 0 other 0 form 0 form 0 | name 0 office 0 ...
//   words    form, field and place of each, those of the name first, then those of the numbers
//   entries  for each contact where its texts begin and which words are its own
//
// A form that is equal to the text is kept once.

#ifndef NSDIRECTORY_SEARCH_INTERNAL_CONTACT_INDEX_H
#define NSDIRECTORY_SEARCH_INTERNAL_CONTACT_INDEX_H

#include "directory/contact_local_manager.h"
#include "search/internal/word_list.h"

namespace NS_DIRECTORY {

// A contact of the index. Good as long as the index.
struct IndexEntryData
{
    const CWordList& m_words;
    std::uint32_t m_nTexts;
    const WordData* m_pBegin;
    const WordData* m_pEnd;
    bool m_bBlacklisted;

    const char* Form(const WordData* pWord) const { return m_words.Form(*pWord); }
    const char* Text(SearchFieldType eField) const;

    // A match of that text, without places.
    SearchMatchData Match(SearchFieldType eField) const;
};

class CContactIndex
{
  public:
    // Makes the words of one text. False if there is no memory.
    using MakeWords = bool (*)(const char* pText, SearchFieldType eField, const char* pCountry,
                               CWordList& words);

    // Null if there is no memory. pCountry goes to makeWords.
    static CContactIndex* Create(const CContactLocalManager& directory, MakeWords makeWords,
                                 const char* pCountry);

    int Count() const { return static_cast<int>(m_entries.Count()) - 1; }
    IndexEntryData Entry(int nAt) const;

  private:
    struct EntryData
    {
        std::uint32_t m_nTexts;
        std::uint32_t m_nFirstWord : 31;
        std::uint32_t m_nBlacklisted : 1;
    };

    bool MyFill(const CContactLocalManager& directory, MakeWords makeWords, const char* pCountry);
    bool MyAddContact(const ContactGeneralItemData& contact, MakeWords makeWords,
                      const char* pCountry);
    bool MyBeginEntry(bool bBlacklisted);

    CWordList m_words;
    CGrowingArray<EntryData> m_entries;  // one more than there are contacts: it ends the last one
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SEARCH_INTERNAL_CONTACT_INDEX_H
