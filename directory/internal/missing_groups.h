// Contacts whose group is missing.
//
// The contact file names each contact's group, and a load turns the name into an id. If the group
// file was lost or broken, there are no groups, and every contact is put in group 0. The next save
// would then write the name of group 0, or none, for all of them. So an instance that has once
// had an empty group list keeps, in each such contact, the name that the file had:
//
//   keep     before a reload drops the group list, each contact notes the name of its group
//   resolve  a load notes the name from the file if no group has it
//   write    a save writes the noted name in place of the name of the contact's group
//
// So the contact regains its group when that is added again. The noted name goes when the contact
// changes its group. An instance that has always had its groups keeps nothing: there, a contact
// whose group is missing is one whose group was taken out of the file by hand.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_MISSING_GROUPS_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_MISSING_GROUPS_H

#include "directory/internal/records.h"

namespace NS_DIRECTORY {

// For a reload that is about to drop the groups.
void KeepGroupNames(const ItemDataList& contacts, const GroupDataList& groups);

// Gives a contact that is read from the file its group: that of the name, or "All Contacts".
void ResolveGroup(const GroupDataList& groups, const char* pGroupName, bool bKeepName,
                  ItemData& item);

// What a save writes as the contact's group. Good until the list or the contact changes.
const char* GroupNameForFile(const GroupDataList& groups, const ItemData& item);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_MISSING_GROUPS_H
