// CWordList: what is searched in texts, and what is searched for: words in a form in which they
// match byte for byte, each with its place in the text that it was made of.

#ifndef NSDIRECTORY_SEARCH_INTERNAL_WORD_LIST_H
#define NSDIRECTORY_SEARCH_INTERNAL_WORD_LIST_H

#include "search/contact_match.h"
#include "search/internal/growing_array.h"

namespace NS_DIRECTORY {

struct WordData
{
    std::uint32_t m_nForm;         // where the word's form begins in the list's texts
    std::uint32_t m_nSource : 29;  // where the word begins in its own text
    std::uint32_t m_nSpelled : 1;  // whether this is the word's second form; see text_fold.h
    std::uint32_t m_nField : 2;    // which text that is, a SearchFieldType
};

static_assert(sizeof(WordData) == 8, "there is one for each word of each contact");

class CWordList
{
  public:
    std::uint32_t Count() const { return m_words.Count(); }
    const WordData* Words() const { return m_words.Begin(); }
    const char* Text(std::uint32_t nAt) const { return m_texts.Begin() + nAt; }
    std::uint32_t TextEnd() const { return m_texts.Count(); }  // where the next text goes
    const char* Form(const WordData& word) const { return Text(word.m_nForm); }

    // All of these: false if there is no memory. What was added is then of no use.

    // A text that is no word. nAt receives its place for Text().
    bool AddText(const char* pText, std::uint32_t& nAt);

    // A word is begun, gets its form in as many pieces as it has, and is ended.
    bool BeginWord(SearchFieldType eField, std::uint32_t nSource, bool bSpelled);
    bool AddToWord(const char* pPiece, std::uint32_t nBytes);
    bool EndWord();

    // Lets the last word use the text at nAt if that is its form, instead of one of its own.
    void ShareForm(std::uint32_t nAt);

    void GiveBackSpareRoom();

  private:
    CGrowingArray<char> m_texts;
    CGrowingArray<WordData> m_words;
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SEARCH_INTERNAL_WORD_LIST_H
