// The fields of a contact as a person types and reads them.

#ifndef DESK_PHONE_CONTACT_FIELDS_H
#define DESK_PHONE_CONTACT_FIELDS_H

#include <cstddef>

#include "desk_phone/words.h"
#include "directory/contact_records.h"

namespace desk_phone {

// Takes the words from nFrom on, each in the form FIELD=VALUE, into the contact.
void TakeFields(const Words& words, std::size_t nFrom,
                NS_DIRECTORY::ContactGeneralItemData& contact);

// The number that a list shows for a contact: the first that it has.
std::string FirstNumber(const NS_DIRECTORY::ContactGeneralItemData& contact);

void PrintContact(const NS_DIRECTORY::ContactGeneralItemData& contact);

}  // namespace desk_phone

#endif  // DESK_PHONE_CONTACT_FIELDS_H
