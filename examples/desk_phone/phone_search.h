// What the telephone finds contacts by besides the directory itself: words, keys, and numbers
// however they are written.

#ifndef DESK_PHONE_PHONE_SEARCH_H
#define DESK_PHONE_PHONE_SEARCH_H

#include <string>
#include <utility>

#include "search/contact_search.h"
#include "search/number_search.h"

namespace desk_phone {

class CPhoneSearch
{
  public:
    // The country is that of the telephone: two capital letters.
    CPhoneSearch(const NS_DIRECTORY::CContactLocalManager& directory, std::string strCountry)
        : m_directory(directory), m_strCountry(std::move(strCountry))
    {}

    // Reads the contacts again, if there were edits. Throws std::runtime_error for a country that
    // is none, and if there is no memory.
    void Refresh();

    void NoteEdit() { m_bOld = true; }

    // As they were at the last Refresh().
    const NS_DIRECTORY::CContactSearch& Contacts() const { return m_contacts; }

    // The number under which a caller is stored: exactly the one that calls, or else one of the
    // same line. If there is neither, the one that calls. Refreshes if it has to.
    std::string NumberOfCaller(const std::string& strNumber);

  private:
    const NS_DIRECTORY::CContactLocalManager& m_directory;
    std::string m_strCountry;
    bool m_bOld = true;
    NS_DIRECTORY::CContactSearch m_contacts;
    NS_DIRECTORY::CNumberSearch m_numbers;
};

}  // namespace desk_phone

#endif  // DESK_PHONE_PHONE_SEARCH_H
