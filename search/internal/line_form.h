// One form for all ways to write the number of a line, by libphonenumber.

#ifndef NSDIRECTORY_SEARCH_INTERNAL_LINE_FORM_H
#define NSDIRECTORY_SEARCH_INTERNAL_LINE_FORM_H

#include "search/internal/word_list.h"

namespace NS_DIRECTORY {

// DIR_RET_OK, DIR_RET_INVALID for a country that is none, or DIR_RET_NO_MEMORY.
int TestCountry(const char* pCountry);

// Adds the form of a number as a word, or none for a text without letters, digits and signs. False
// if there is no memory.
bool AddLineForm(const char* pNumber, SearchFieldType eField, const char* pCountry,
                 CWordList& words);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SEARCH_INTERNAL_LINE_FORM_H
