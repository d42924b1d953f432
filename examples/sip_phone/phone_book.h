// The directory as the telephone asks it: by the number of a caller, however it is written.

#ifndef SIP_PHONE_PHONE_BOOK_H
#define SIP_PHONE_PHONE_BOOK_H

#include <string>

#include "desk_phone/phone_search.h"
#include "directory/contact_local_manager.h"
#include "safekeeping/safe_copy.h"

namespace sip_phone {

class CPhoneBook
{
  public:
    // strCountry is the telephone's country: two capital letters. Throws std::runtime_error for
    // a country that is none, and if there is no memory, as all of these do.
    CPhoneBook(NS_DIRECTORY::CContactLocalManager& directory, NS_DIRECTORY::CSafeCopy& safe,
               const std::string& strCountry);

    // The number in a text that a caller or a person at the prompt has sent, in the international
    // form; empty if there is none. The others take such a number; an empty one is that of nobody.
    std::string Number(const std::string& strText) const;

    bool IsBlocked(const std::string& strNumber);
    std::string Name(const std::string& strNumber);  // empty if there is no such contact
    std::string Ring(const std::string& strNumber);  // empty if the directory has none
    void PrintCall(const std::string& strNumber, const std::string& strAddress);

    // Puts the contact with this number into the blacklist, or else a new one that is called after
    // it. The result is that of the edit.
    int Block(const std::string& strNumber);

  private:
    std::string MyStored(const std::string& strNumber);

    NS_DIRECTORY::CContactLocalManager& m_directory;
    NS_DIRECTORY::CSafeCopy& m_safe;
    std::string m_strCountry;
    desk_phone::CPhoneSearch m_search;
};

}  // namespace sip_phone

#endif  // SIP_PHONE_PHONE_BOOK_H
