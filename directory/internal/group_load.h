// What a load makes of the group elements of a file: the same for the library and for the checker.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_LOAD_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_LOAD_H

#include "directory/internal/group_place.h"
#include "directory/internal/xml_file.h"

namespace NS_DIRECTORY {

// Is notified of the fixed groups, which come first and have no element, and then of each element
// in the order of the file.
class CGroupLoadListener
{
  public:
    // Puts a copy of the group into the list. DIR_RET_NO_MEMORY if there is none, else not
    // negative.
    virtual int Take(const GroupPlace& place, const GroupData& group, pugi::xml_node element) = 0;

    virtual void Refuse(const GroupPlace& place, const GroupData& group,
                        pugi::xml_node element) = 0;

    // An element of a fixed group: nothing of it is taken.
    virtual void PassOver(pugi::xml_node element) = 0;

  protected:
    ~CGroupLoadListener() = default;
};

// list is the one to which the listener adds, empty at first. Returns DIR_RET_OK if all elements
// were taken or passed over, DIR_RET_NONE if not, DIR_RET_NO_MEMORY if memory ran short.
int LoadGroups(pugi::xml_node root, const GroupDataList& list, int nLimit,
               CGroupLoadListener& listener);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_LOAD_H
