// What a load takes of the contact elements of a file, and what it refuses: the same for the
// library and for the checker.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_CONTACT_LOAD_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_CONTACT_LOAD_H

#include "directory/internal/limits.h"
#include "directory/internal/xml_file.h"

namespace NS_DIRECTORY {

// Keeps what is taken, and is notified of what is refused, and why. It owns the list and its
// records.
class CContactLoadListener
{
  public:
    // In the order of the file. The record is the listener's from now on, and not in the list yet.
    virtual void Take(ItemData* pItem, pugi::xml_node element) = 0;

    // Puts a record that was taken at the end of the list.
    virtual void Append(ItemData* pItem) = 0;

    // Empties the list. Its records stay, to be appended in another order.
    virtual void Clear() = 0;

    // In the order of the file. nCode is DIR_RET_BLACK_FULL, DIR_RET_CONTACT_FULL or
    // DIR_RET_CONTACT_EXIST. pPresent is a record with an equal name that was taken before, or
    // null.
    virtual void Refuse(int nCode, pugi::xml_node element, const ItemData* pPresent) = 0;

  protected:
    ~CContactLoadListener() = default;
};

struct ContactLoadData
{
    const GroupDataList& m_groups;
    const ItemDataList& m_list;  // of the listener, and empty at first
    ContactLimits m_limits;
    bool m_bKeepGroupNames;
};

// An element is refused if its side of the blacklist is full at its place in the file, or if an
// element that was taken before has an equal name. The list is in ascending order of names then.
// Returns DIR_RET_OK if all were taken, DIR_RET_NONE if not, DIR_RET_NO_MEMORY if memory ran short;
// the list then holds a part of the elements.
int LoadContacts(pugi::xml_node root, const ContactLoadData& data, CContactLoadListener& listener);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_CONTACT_LOAD_H
