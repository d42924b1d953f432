// Texts without case and accents, by libunistring, and the way back from there to the text.
//
// A character is folded by decomposing it for compatibility, then to capitals, then by full case
// folding. By way of the capitals the dotless i is an i. Accents go, digits of all scripts become
// those of ASCII, and a letter that is named after another one "with" something, such as the l with
// stroke, becomes that one. The length changes: ß folds to ss, é of two bytes to e of one.
//
// Letters with two dots, and ø, æ and œ, are also written with an e. A word that has any of them
// gets a second form, spelled so: "Müller" has the forms "muller" and "mueller".

#ifndef NSDIRECTORY_SEARCH_INTERNAL_TEXT_FOLD_H
#define NSDIRECTORY_SEARCH_INTERNAL_TEXT_FOLD_H

#include "search/internal/word_list.h"

namespace NS_DIRECTORY {

// Both add the words of a text, which ends in NUL and may be broken. False if there is no memory.
//
// Words of a name are runs of letters and digits, and single ideographs. Two forms of a word come
// one after the other.
bool AddNameWords(const char* pText, SearchFieldType eField, CWordList& words);
// A number is one word of its letters, digits and the signs + * #, or none.
bool AddNumberWord(const char* pText, SearchFieldType eField, CWordList& words);

// The way back, for a word of the text: where the character begins that holds byte nAt of its form,
// and where the first nBytes of the form end, with the accents that follow.
std::uint32_t SourceBegin(const char* pText, const WordData& word, std::uint32_t nAt);
std::uint32_t SourceEnd(const char* pText, const WordData& word, std::uint32_t nBytes);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SEARCH_INTERNAL_TEXT_FOLD_H
