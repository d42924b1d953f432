/// \file
/// What the searches find: a contact, and the places of it to highlight.

#ifndef NSDIRECTORY_SEARCH_CONTACT_MATCH_H
#define NSDIRECTORY_SEARCH_CONTACT_MATCH_H

namespace NS_DIRECTORY {

/// The most words that a search takes, and so the most places of a match.
inline constexpr int SEARCH_WORDS_MAX = 8;

/// The most keys that a search takes.
inline constexpr int SEARCH_KEYS_MAX = 64;

/// The texts of a contact that are searched, in the order in which they are tried.
enum SearchFieldType
{
    SEARCH_FIELD_NAME,
    SEARCH_FIELD_OFFICE_NUMBER,
    SEARCH_FIELD_MOBILE_NUMBER,
    SEARCH_FIELD_OTHER_NUMBER
};

/// A piece of a text as the directory holds it, in bytes. It never cuts a character, nor the
/// accents after it.
struct SearchPlaceData
{
    int m_nOffset = 0;
    int m_nLength = 0;
};

/// A contact that matches. The host owns the record. The texts belong to the search that filled it
/// and are good until its next Refresh() or its end.
struct SearchMatchData
{
    const char* m_pDisplayName = nullptr;          ///< The key for the calls of the directory.
    bool m_bBlacklisted = false;                   ///< As it was at the last Refresh().
    SearchFieldType m_eField = SEARCH_FIELD_NAME;  ///< Which text matches.
    const char* m_pText = nullptr;                 ///< That text: the name or one of the numbers.
    int m_nPlaceCount = 0;                         ///< From 1 to SEARCH_WORDS_MAX.
    /// What to highlight in m_pText, in ascending order: in a name one place for each word that is
    /// searched, in a number and for keys a single one.
    SearchPlaceData m_places[SEARCH_WORDS_MAX];
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SEARCH_CONTACT_MATCH_H
