// Where a new name goes in the two ordered lists, and what refuses it.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_NAME_ORDER_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_NAME_ORDER_H

#include "directory/internal/records.h"

namespace NS_DIRECTORY {

// The place in front of which the new entry goes, and what the insert answers. Where that is a
// refusal because of the name, the place is the entry that bears it; where it is another refusal,
// there is none.
struct GroupPlace
{
    GroupDataList::ListIterator m_itPlace;
    int m_nResult;
};

struct ContactPlace
{
    ItemDataList::ListIterator m_itPlace;
    int m_nResult;
};

// Refusals: DIR_RET_INVALID, the name is empty; DIR_RET_INVALID, the limit is reached;
// DIR_RET_GROUP_EXIST. pRenamed, if not null, is a record of the list that counts for nothing,
// since it gives way to the new one. The result is a position.
GroupPlace FindGroupPlace(const GroupDataList& list, const GroupData& group, int nLimit,
                          const GroupData* pRenamed);

// Refusal: DIR_RET_CONTACT_EXIST. pRenamed as above. The result counts the contacts of the
// record's group, or all for GROUP_ID_ALL, that the walk met, the one that ended it included.
ContactPlace FindContactPlace(const ItemDataList& list, const ItemData& item,
                              const ItemData* pRenamed);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_NAME_ORDER_H
