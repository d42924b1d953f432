// The place of a new group in the ordered list, and what refuses it.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_PLACE_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_PLACE_H

#include "directory/internal/records.h"

namespace NS_DIRECTORY {

// The new group goes in front of m_itPlace, and m_nResult is its position or a refusal. If its name
// is refused because of another group, that group is at m_itPlace; for other refusals it is the
// end.
struct GroupPlace
{
    GroupDataList::ListIterator m_itPlace;
    int m_nResult;
};

// Refuses, in order: DIR_RET_INVALID, the name is empty; DIR_RET_INVALID, the limit is reached;
// DIR_RET_GROUP_EXIST. pRenamed, if not null, is a group of the list that does not count: it is
// about to take the new name.
GroupPlace FindGroupPlace(const GroupDataList& list, const GroupData& group, int nLimit,
                          const GroupData* pRenamed);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_PLACE_H
