// What a load takes of the contact elements of a file, and what it refuses: the same for the
// library and for the checker.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_CONTACT_LOAD_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_CONTACT_LOAD_H

#include "directory/internal/contact_element.h"
#include "directory/internal/limits.h"

namespace NS_DIRECTORY {

// Hears what becomes of each element.
class CContactLoadListener
{
  public:
    // In ascending order of names. DIR_RET_NO_MEMORY if there is none, else not negative.
    virtual int Take(const ItemData& item, pugi::xml_node element) = 0;

    // In the order of the file. nCode is DIR_RET_BLACK_FULL, DIR_RET_CONTACT_FULL or
    // DIR_RET_CONTACT_EXIST; present is then the element that has the name.
    virtual void Refuse(int nCode, pugi::xml_node element, pugi::xml_node present) = 0;

  protected:
    ~CContactLoadListener() = default;
};

// An element is refused if its side of the blacklist is full at its place in the file, or if an
// element that was taken before has an equal name. Returns DIR_RET_OK if all were taken,
// DIR_RET_NONE if not, DIR_RET_NO_MEMORY if memory ran short; then some elements were not heard of.
int LoadContacts(pugi::xml_node root, const GroupDataList& groups, const ContactLimits& limits,
                 bool bKeepGroupNames, CContactLoadListener& listener);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_CONTACT_LOAD_H
