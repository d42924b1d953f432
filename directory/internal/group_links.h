// How a contact is tied to its group: by name in the files, by id in memory.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_LINKS_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_LINKS_H

#include "directory/internal/name_order.h"

namespace NS_DIRECTORY {

// Both: the first such group, or null; null also for GROUP_ID_NONE and for an empty name.
CContactLocalManager::GroupData* FindGroupById(const GroupDataList& list, int nId);
CContactLocalManager::GroupData* FindGroupByName(const GroupDataList& list,
                                                 const qz::basic_string<char>& strName);

// Gives a contact that is read from the file its group. One of no group that exists stands in "All
// Contacts". Where groups went missing with a broken group file it keeps the name, or the next save
// would lose its way home.
void ResolveGroup(const GroupDataList& list, const qz::basic_string<char>& strGroupName,
                  bool bKeepName, CContactLocalManager::ItemData& item);

// The name of the group with that id; empty where there is none. Good until the list changes.
const char* GroupNameById(const GroupDataList& list, int nId);

// What a save writes as the contact's group. Good until the list or the contact changes.
const char* GroupNameForFile(const GroupDataList& list, const CContactLocalManager::ItemData& item);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_GROUP_LINKS_H
