/// \file
/// CContactSearch: contacts by what a user types, after each key pressed.

#ifndef NSDIRECTORY_SEARCH_CONTACT_SEARCH_H
#define NSDIRECTORY_SEARCH_CONTACT_SEARCH_H

#include "directory/contact_local_manager.h"
#include "directory/export.h"
#include "search/contact_match.h"

namespace NS_DIRECTORY {

class CContactIndex;

/// How a search lists what it finds; to be combined by |. SEARCH_PLAIN lists the contacts in the
/// order of the directory, the blacklisted ones at their places among the others.
inline constexpr int SEARCH_PLAIN = 0;
/// First matches at the beginning of a name, then those in its other words, then numbers that begin
/// with what is searched, then numbers that have it inside; each in the order of the directory.
inline constexpr int SEARCH_BEST_FIRST = 1;
/// Leaves the blacklisted contacts out.
inline constexpr int SEARCH_WITHOUT_BLACKLIST = 2;

/// Finds contacts by words of their names, by parts of their numbers and by the keys of a
/// telephone.
///
/// It keeps a copy of the names and numbers of all contacts that the directory hands out, the
/// blacklisted ones too, as they were at the last Refresh(). The host calls that after its edits.
/// Until then the results are of the time before: a display name may be of no contact any more.
///
/// **Letters** match without regard to case and accents: "mul" finds "Müller", "strasse" finds
/// "Straße", "lukasz" finds "Łukasz", and it does not matter whether an accent is a character of
/// its own. Letters with two dots, and ø, æ and œ, may be spelled with an e: "muel" finds "Müller",
/// and "mül" finds "Mueller". A word is a run of letters and digits; an ideograph is a word of its
/// own. Bytes that are not UTF-8 match nothing and end a word. The locale has no part in it.
///
/// **Memory.** Each contact takes 12 bytes, its name and numbers twice, and 8 bytes for each of
/// their words: 98 bytes on average in a directory of 1030 contacts whose names and numbers
/// have 34. A refresh builds the new copy before it drops the old one. A search takes some bytes
/// for the text searched, and gives them back. While a refresh reads the directory, a page of 64
/// contacts is held in the library's containers, which end the process if there is no memory for
/// it.
///
/// **Threads.** Searches of one object may run at the same time, but not during its Refresh(),
/// which is also a call of the directory.
class NSDIRECTORY_API CContactSearch
{
  public:
    /// Holds no contacts until the first Refresh().
    CContactSearch() = default;
    ~CContactSearch();
    CContactSearch(const CContactSearch&) = delete;
    CContactSearch& operator=(const CContactSearch&) = delete;

    /// Reads all contacts again, page by page.
    /// - Returns: how many contacts it holds.
    /// - Refuses: DIR_RET_NO_MEMORY. It then holds what it held before.
    /// - Writes: nothing.
    /// - Ids and pointers: ends the texts of all earlier matches, unless it refuses.
    int Refresh(const CContactLocalManager& directory);

    /// Finds the contacts whose name has, for each word of pText, a word of its own that begins
    /// with it, in any order. If the name does not match, it finds the first of the contact's
    /// numbers that contains pText. Only letters, digits, *, # and + are compared.
    /// A text that has none of these finds nothing.
    /// - Returns: how many contacts match. The first nMost of them are in pMatches, and the
    ///   rest of the array is untouched. With nMost 0 it counts only.
    /// - Refuses, in order: DIR_RET_NULL_ARGUMENT, pText is null, or pMatches is and nMost is above
    ///   0; DIR_RET_NO_MEMORY; DIR_RET_INVALID, more than SEARCH_WORDS_MAX words. The array is
    ///   untouched.
    /// - Writes: nothing.
    int FindByText(const char* pText, int nOptions, SearchMatchData* pMatches, int nMost) const;

    /// Finds the contacts by keys pressed, one for each letter or digit of a name from the
    /// beginning of one of its words on. 2 to 9 are for their letters, Latin, Greek and Cyrillic; 0
    /// or 1, pressed once, is for what separates two words; any is for its digit. Letters
    /// of other alphabets are on no key. If the name does not match, it finds the first of the
    /// contact's numbers that contains the keys, as FindByText() does; *, # and + are for numbers
    /// only. No keys find nothing.
    /// - Returns: as FindByText().
    /// - Refuses, in order: DIR_RET_NULL_ARGUMENT, as FindByText(); DIR_RET_INVALID, a character
    ///   other than 0 to 9, *, # and +, or more than SEARCH_KEYS_MAX of them. The array is
    ///   untouched.
    /// - Writes: nothing.
    int FindByKeys(const char* pKeys, int nOptions, SearchMatchData* pMatches, int nMost) const;

  private:
    CContactIndex* m_pIndex = nullptr;  // owned; null until the first Refresh()
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SEARCH_CONTACT_SEARCH_H
