/// \file
/// CNumberSearch: whose line is this, however its number is written.

#ifndef NSDIRECTORY_SEARCH_NUMBER_SEARCH_H
#define NSDIRECTORY_SEARCH_NUMBER_SEARCH_H

#include "directory/contact_local_manager.h"
#include "directory/export.h"
#include "search/contact_match.h"

namespace NS_DIRECTORY {

class CContactIndex;

/// Finds contacts by a number, however it is written: "+49 555 700000", "0049555700000" and, in
/// Germany, "0555/700000" are one line. The exact lookup of the directory stays what answers calls;
/// a host asks here if that finds nobody.
///
/// It keeps a copy of the names and numbers of all contacts that the directory hands out, the
/// blacklisted ones too, as they were at the last Refresh(). The host calls that after its edits.
///
/// **What is one line.** A number that names its country, with + or the prefix for calls abroad, is
/// taken at its word. Any other is taken as one of the host's country if it has as many digits as
/// numbers there have. What is left, such as extensions of the own exchange, service codes, SIP
/// names and broken texts, is the same if its letters, digits and the signs *, # and + are.
///
/// **Memory.** Each contact takes 12 bytes, its name and numbers, and for each number 8 bytes and
/// its international form, if it is not written so: 57 bytes on average in a directory of 1030
/// contacts whose names and numbers have 34. A refresh builds the new copy before it drops the old
/// one. The first call of a process makes the tables of libphonenumber, 1.3 MB of heap, which stay.
/// This class reports that it gets no memory itself; libphonenumber, and the library's containers
/// for a page of 64 contacts, end the process if they get none.
///
/// **Threads.** Searches of one object may run at the same time, but not during its Refresh(),
/// which is also a call of the directory.
class NSDIRECTORY_API CNumberSearch
{
  public:
    /// Holds no contacts until the first Refresh().
    CNumberSearch() = default;
    ~CNumberSearch();
    CNumberSearch(const CNumberSearch&) = delete;
    CNumberSearch& operator=(const CNumberSearch&) = delete;

    /// Reads all contacts again, page by page, and brings all their numbers into one form, which
    /// takes some 10 microseconds of a workstation for each number. pCountry is the country of the
    /// telephone, two capital letters such as "DE" (ISO 3166); later searches use it too.
    /// - Returns: how many contacts it holds.
    /// - Refuses, in order: DIR_RET_NULL_ARGUMENT; DIR_RET_INVALID, there is no such country;
    ///   DIR_RET_NO_MEMORY. It then holds what it held before.
    /// - Writes: nothing.
    /// - Ids and pointers: ends the texts of all earlier matches, unless it refuses.
    int Refresh(const CContactLocalManager& directory, const char* pCountry);

    /// Finds the contacts with a number of this line, in the order of the directory, the
    /// blacklisted ones at their places among the others. The place of a match is the whole number.
    /// A text without letters, digits, *, # and + finds nothing.
    /// - Returns: how many contacts match. The first nMost of them are in pMatches, and the rest
    ///   of the array is untouched. With nMost 0 it counts only.
    /// - Refuses, in order: DIR_RET_NULL_ARGUMENT, pNumber is null, or pMatches is and nMost is
    ///   above 0; DIR_RET_NO_MEMORY. The array is untouched.
    /// - Writes: nothing.
    int FindByNumber(const char* pNumber, SearchMatchData* pMatches, int nMost) const;

  private:
    CContactIndex* m_pIndex = nullptr;  // owned; null until the first Refresh()
    char m_country[3] = {};
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SEARCH_NUMBER_SEARCH_H
