/// \file
/// CContactLocalManager: the whole interface of the library, except for one free function.

#ifndef NSDIRECTORY_DIRECTORY_CONTACT_LOCAL_MANAGER_H
#define NSDIRECTORY_DIRECTORY_CONTACT_LOCAL_MANAGER_H

#include "directory/contact_records.h"
#include "directory/export.h"
#include "directory/id_generator.h"
#include "directory/string_convert.h"  // so that this header gives the whole interface
#include "qzstl/list_like"
#include "qzstl/string_like"

namespace NS_DIRECTORY {

class CNameSet;
class CXmlInput;
struct ContactLimits;
struct GroupPlace;

/// The local phone book of the telephone: contacts, contact groups and the blacklist.
///
/// It keeps them in memory and mirrors each change at once to two XML files in the data folder,
/// /config/data/ in a library as delivered (directory/data_files.h):
///
/// - contact_group_list.xml, the group file
/// - contact_list.xml, the contact file
///
/// The folder must exist; the library never makes it.
///
/// **Results.** A mutator that refuses returns a negative DIR_RET_ code. It has then changed
/// nothing, in memory or on disk. "Refuses" lists the codes in the order in which they are tested,
/// so the first one that applies is the result. "Writes" says which files a call rewrites, each
/// whole and in place, before it returns. No result says whether a write worked: a full disk shows
/// only in the file. After a failed write the change stays in memory, and the next write of the
/// file brings it along. But AddGroup, a rename of a group and RemoveGroup read both files back
/// after they have written them: what a failed write has left of a file is then all that is left in
/// memory too. The companion in safekeeping/ finds and undoes such edits.
///
/// **Memory.** If memory runs short while a file is read, the lists may hold only a part of it, and
/// questions are answered from that part. If it runs short while a file is saved, the file stays as
/// it was. Every mutator first repairs both: it saves or reads the file again, and if there is
/// still no memory it refuses with DIR_RET_NO_MEMORY, after DIR_RET_RELOADING and before all other
/// refusals. (Local2Black and Black2Local test DIR_RET_RELOADING later. SetDefaultPhoto does not
/// test it, and refuses a null argument first.) If a text or a list gets no memory, the process
/// ends by abort(); neither file is then half of an edit.
///
/// **Names** are keys and are compared byte for byte, except that no two contacts, and no two user
/// groups, may have names that strcasecmp finds equal. So the locale decides which names are equal
/// and in which order the lists are. LC_CTYPE must be set before the first GetInstance() and be the
/// same at every start: "C.UTF-8", whatever language the screens speak. Files that were stored
/// under one locale lose contacts under another: in Turkish "IRIS" and "iris" are two names,
/// elsewhere one. Texts handed in hold no NUL byte.
///
/// **Ids.** Group ids from 2 up live in memory only. Every load of the group file gives new
/// ones: after AddGroup, a rename of a group, RemoveGroup and ReloadGroupXml an id from before
/// means another group, or none.
///
/// **Pointers.** The library hands out no pointer but the instance, and keeps none that it is
/// given.
///
/// **Threads.** The library has none, and no locks: it is called from one thread at a time, the
/// first GetInstance() included.
///
/// **Limits.** 50 groups with the two fixed ones, 1000 ordinary contacts, 30 blacklisted contacts.
/// They can be changed for the life of an instance. A lowered limit refuses new entries but keeps
/// everything that is stored, also when a file is loaded again. A start always uses the limits
/// above, and the next save writes only what the start took. So a host that needs higher limits
/// sets them right after GetInstance() and calls ReloadGroupXml() and ReloadContactXml() before any
/// change.
class NSDIRECTORY_API CContactLocalManager
{
  public:
    /// A group in memory.
    struct GroupData
    {
        int m_nId = GROUP_ID_NONE;
        qz::basic_string<char> m_strDisplayName;  ///< The key; never empty in the list.
        qz::basic_string<char> m_strRing;
        bool m_bReadOnly = false;  ///< Kept in the file; the id decides what is read-only.

        void Reset();
    };

    /// A contact in memory.
    struct ItemData
    {
        qz::basic_string<char> m_strDisplayName;  ///< The key.
        qz::basic_string<char> m_strOfficeNumber;
        qz::basic_string<char> m_strMobileNumber;
        qz::basic_string<char> m_strOtherNumber;
        qz::basic_string<char> m_strRing;
        qz::basic_string<char> m_strNameIndex;  ///< Written to the file, always empty.
        int m_nLine = 0;
        qz::basic_string<char> m_strDefaultPhoto;
        int m_nSelectedPhoto = 0;
        int m_nGroupId = GROUP_ID_NONE;
        /// The group that the file names, if that group is missing (internal/missing_groups.h). A
        /// save writes it in place of the name of group m_nGroupId.
        qz::basic_string<char> m_strKeptGroupName;
    };

    CContactLocalManager(const CContactLocalManager&) = delete;
    CContactLocalManager& operator=(const CContactLocalManager&) = delete;

    /// \name Life, limits and counts: contact_local_manager.cpp, limits.cpp
    /// \{

    /// The instance, built on first use. It comes up even if a file cannot be read: what could not
    /// be read is missing from the lists, and the next change writes the file without it.
    /// - Returns: the instance, good until ReleaseInstance(); null if there is no memory for it.
    /// - Writes: the default group file if there is none. Then it reads both files.
    static CContactLocalManager* GetInstance();

    /// Frees the instance, if there is one. The next GetInstance() reads the files again and sets
    /// the limits back.
    /// - Writes: nothing; no change is ever pending.
    static void ReleaseInstance();

    int GetMaxGroupCount() const;    ///< With the fixed groups.
    int GetMaxContactCount() const;  ///< Without the blacklisted contacts.
    int GetMaxBlackCount() const;

    /// The three setters take any value. A limit at or below the present count refuses every new
    /// entry and keeps what is stored.
    /// - Returns: the previous limit.
    int SetMaxGroupCount(int nMax);
    int SetMaxContactCount(int nMax);  ///< As SetMaxGroupCount(), for ordinary contacts.
    int SetMaxBlackCount(int nMax);    ///< As SetMaxGroupCount(), for blacklisted contacts.

    int GetCurrentGroupCount() const;    ///< With the fixed groups.
    int GetCurrentContactCount() const;  ///< Without the blacklisted contacts.
    int GetCurrentBlackCount() const;

    /// Does nothing.
    /// - Returns: 0.
    int ReloadGroupAndItemByHttp();

    /// - Returns: true while the directory takes no changes. No operation turns this on.
    bool IsReloadGroupAndItemByHttp() const;
    /// \}

    /// \name Group queries and the group file: group_store.cpp, group_file.cpp
    /// The group list reads "All Contacts", "Blacklist", then the user groups in ascending order.
    /// Positions count from 0 over all of them. An empty name finds nothing.
    ///
    /// If the group file has no root_group, the list is empty, without the fixed groups, until a
    /// load finds one; adding a group makes the directory whole again. Until then every contact
    /// that is loaded is in group 0, the blacklisted ones too: no number is blocked, no contact can
    /// be added, and contacts are known by name but not handed out. From then on and until
    /// ReleaseInstance(), contacts whose group is missing keep its name through saves and regain
    /// the group when it is added. After a restart over a whole group list nothing is kept: such a
    /// contact is in "All Contacts", and the next save of the contact file writes that. So add the
    /// missing groups again before the next restart.
    /// \{

    /// - Returns: true exactly if nIndex is the count of groups less one, whatever group is there.
    bool IsBlacklistIndex(int nIndex) const;

    /// - Returns: the position of the group; 0 also for null and for a name of no group.
    int GetGroupIndexByName(const char* pName) const;

    /// - Returns: 1 and the name at that position; 0, with strName untouched, if there is none.
    int GetGroupNameByIndex(int nIndex, qz::basic_string<char>& strName) const;

    /// - Returns: the id of the group of that name, or -1.
    int GetGroupIdByGroupName(const qz::basic_string<char>& strName) const;
    int GetGIdByGName(const qz::basic_string<char>& strName) const;  ///< The same.

    /// - Returns: true if a group has exactly that name.
    bool IsGroupExist(const qz::basic_string<char>& strName) const;

    /// Sets strName to the name of the blacklist; to the empty text if the list holds none.
    void GetBlacklistGroupName(qz::basic_string<char>& strName) const;

    /// - Returns: 1, always.
    /// - Writes: the default group file to the path given, over what is there.
    int CreateContactGroupList(const qz::basic_string<char>& strPath);

    /// Called from outside it has nothing to save.
    /// - Returns: 1, always.
    int SaveGroupToXml();

    /// Reads the group file again. Groups that were held before take no new slot. Contacts keep
    /// their old ids, so call ReloadContactXml() at once.
    /// - Returns: 1; 0 if the file has no root_group, which empties the list, if an element was
    ///   refused (no name, a name equal to an earlier one, above the limit), or if memory ran
    ///   short.
    /// - Writes: the default group file if there is none.
    /// - Ids: all ids of user groups end.
    int ReloadGroupXml();
    /// \}

    /// \name Group editing: group_editing.cpp
    /// \{

    /// Adds a user group.
    /// - Returns: its position; 0 over an empty group list, though the fixed groups, which the call
    ///   restores, are before it afterwards.
    /// - Refuses, in order:
    ///   1. DIR_RET_RELOADING
    ///   2. DIR_RET_NO_MEMORY, from an earlier shortage
    ///   3. DIR_RET_GROUP_EXIST, the exact name exists
    ///   4. DIR_RET_GROUP_FULL
    ///   5. DIR_RET_GROUP_ID_FAIL, no id is free
    ///   6. DIR_RET_INVALID, the name is empty
    ///   7. DIR_RET_GROUP_EXIST, a user group's name is equal under strcasecmp
    ///   8. DIR_RET_NO_MEMORY
    /// - Writes: the group file. Then it reads both files.
    /// - Ids: all ids of user groups end.
    int AddGroup(const ContactGroupData& data);

    /// Gives the group strName the ring and the name of data. A rename takes the contacts along,
    /// except those that keep the name of a missing group. A fixed group that is renamed comes back
    /// beside the renamed one, which is a user group from then on: contacts of a renamed blacklist
    /// are no longer blocked. The ring of a fixed group is lost at the next load.
    /// - Returns: the position of the group, counted before a renamed fixed group comes back.
    /// - Refuses, in order:
    ///   1. DIR_RET_RELOADING
    ///   2. DIR_RET_NO_MEMORY, from an earlier shortage
    ///   3. DIR_RET_INVALID, strName is empty
    ///   4. DIR_RET_INVALID, there is no group strName
    /// - A rename also refuses, in order:
    ///   1. DIR_RET_GROUP_EXIST, the exact name exists
    ///   2. DIR_RET_GROUP_FULL, the other groups reach the limit, or a fixed group is renamed and
    ///      there is no slot for the one that comes back
    ///   3. DIR_RET_INVALID, the new name is empty
    ///   4. DIR_RET_GROUP_EXIST, another user group's name is equal under strcasecmp
    ///   5. DIR_RET_CONTACT_FULL, "Blacklist" is renamed and its contacts do not all fit under the
    ///      limit of ordinary ones
    ///   6. DIR_RET_NO_MEMORY
    /// - Writes: with the same name, the group file if the ring differs, else nothing. A rename
    ///   writes the contact file, then the group file; then it reads both.
    /// - Ids: a rename ends all ids of user groups.
    int UpdateGroupData(const qz::basic_string<char>& strName, const ContactGroupData& data);

    /// Removes a user group. Its contacts go to "All Contacts".
    /// - Returns: 1.
    /// - Refuses, in order:
    ///   1. DIR_RET_RELOADING
    ///   2. DIR_RET_NO_MEMORY, from an earlier shortage
    ///   3. DIR_RET_GROUP_NOT_FOUND
    ///   4. DIR_RET_GROUP_READ_ONLY, a fixed group
    /// - Writes: the contact file, twice if the group held contacts, then the group file. Then it
    ///   reads both.
    /// - Ids: all ids of user groups end.
    int RemoveGroup(const qz::basic_string<char>& strName);

    /// Removes all user groups. Their contacts go to "All Contacts".
    /// - Returns: 1.
    /// - Refuses, in order: DIR_RET_RELOADING; DIR_RET_NO_MEMORY, from an earlier shortage;
    ///   DIR_RET_GROUP_NOT_FOUND, there is none.
    /// - Writes: the contact file once for each group that held contacts, then the group file.
    /// - Ids: only the fixed ids are left.
    int RemoveAllGroup();
    /// \}

    /// \name Group listing: group_listing.cpp
    /// If the blacklist is hidden, the indexes of a page are not the positions of the group list.
    /// \{

    /// A page of names and ids, with the blacklist if the configuration shows it.
    /// - Returns: 1; 0 for null. The total is -1 over an empty group list if the blacklist is
    ///   hidden.
    int GetGroupSimpleList(ContactGroupSimpleListData* pList) const;

    /// A page of names and rings, without the blacklist, whatever bWithBlacklist says.
    /// - Returns: 1; 0 for null. The total is -1 over an empty group list.
    int GetGroupList(ContactGroupListData* pList, bool bWithBlacklist) const;

    /// - Returns: 1 and the group; 0, with pData untouched, for null and for an id of no group.
    int GetGroupDataByID(ContactGroupData* pData, int nId) const;
    /// \}

    /// \name Contact queries and the contact file: contact_store.cpp, contact_file.cpp
    /// One list holds the contacts of all groups in ascending order of names. An empty name finds
    /// nothing, though one contact may have an empty name.
    /// \{

    /// - Returns: true if a contact has exactly that name.
    bool IsContactExist(const qz::basic_string<char>& strName) const;

    /// - Returns: the id of the contact's group; -1 if there is no such contact.
    int GetContactGroupId(const qz::basic_string<char>& strName) const;

    /// Called from outside it has nothing to save.
    /// - Returns: 1, always.
    int SaveContactToXml();

    /// Reads the contact file again. Contacts that were held before take no new slot.
    /// - Returns: 1; 0 if there is no file or no root_contact in it (both empty the list), if an
    ///   element was refused (a name equal to an earlier one, above its limit), or if memory ran
    ///   short.
    /// - Writes: nothing.
    int ReloadContactXml();
    /// \}

    /// \name Adding and updating contacts: contact_entry.cpp
    /// Photos are taken on colour screens only. Ids stay.
    /// \{

    /// Adds a contact to the group of that name. data.m_strGroupName is not read.
    /// - Returns: how many contacts of the group are before the new one, and one more if the next
    ///   contact in the list is of the group too; for "All Contacts" every contact counts.
    /// - Refuses, in order:
    ///   1. DIR_RET_RELOADING
    ///   2. DIR_RET_NO_MEMORY, from an earlier shortage
    ///   3. DIR_RET_GROUP_NOT_FOUND
    ///   4. DIR_RET_BLACK_FULL for the blacklist, DIR_RET_CONTACT_FULL for any other group
    ///   5. DIR_RET_CONTACT_EXIST, a contact's name is equal under strcasecmp, in any group
    ///   6. DIR_RET_NO_MEMORY
    /// - Writes: the contact file.
    int AddContact(const qz::basic_string<char>& strGroupName, const ContactGeneralItemData& data);

    /// As AddContact(), by the id of the group. An id of no group is refused with
    /// DIR_RET_GROUP_ID_FAIL in place of DIR_RET_GROUP_NOT_FOUND.
    int AddContactById(int nGroupId, const ContactGeneralItemData& data);

    /// As AddContactById() with the id of the blacklist.
    int AddBlackContact(const ContactGeneralItemData& data);

    /// Gives the contact strName the values of data; data.m_strGroupName names its group. A rename
    /// makes a new record, so on plain screens the photo is lost.
    /// - Returns: with the same name, how many contacts of the target group, or of all for "All
    ///   Contacts", are before and at the contact, counted before the change. For a rename, what
    ///   AddContact() returns.
    /// - Refuses, in order:
    ///   1. DIR_RET_RELOADING
    ///   2. DIR_RET_NO_MEMORY, from an earlier shortage
    ///   3. DIR_RET_EMPTY_KEY, strName is empty
    ///   4. DIR_RET_CONTACT_NOT_FOUND
    ///   5. DIR_RET_GROUP_NOT_FOUND
    ///   6. DIR_RET_CONTACT_EXIST, another contact has exactly the new name
    /// - With the same name it also refuses: DIR_RET_BLACK_FULL for a move into the blacklist,
    ///   DIR_RET_CONTACT_FULL for one out of it.
    /// - A rename also refuses, in order:
    ///   1. DIR_RET_BLACK_FULL or DIR_RET_CONTACT_FULL, the others of the target's side reach the
    ///      limit
    ///   2. DIR_RET_CONTACT_EXIST, another contact's name is equal under strcasecmp
    ///   3. DIR_RET_NO_MEMORY
    /// - Writes: the contact file; nothing if the name is the same and no value differs.
    int UpdateContactData(const qz::basic_string<char>& strName,
                          const ContactGeneralItemData& data);
    /// \}

    /// \name Removing contacts: contact_removal.cpp
    /// The files of rings and photos are not touched. Ids stay.
    /// \{

    /// Removes one contact. An empty name removes the contact without a name.
    /// - Returns: 1.
    /// - Refuses, in order: DIR_RET_RELOADING; DIR_RET_NO_MEMORY, from an earlier shortage;
    ///   DIR_RET_CONTACT_NOT_FOUND.
    /// - Writes: the contact file.
    int RemoveContact(const qz::basic_string<char>& strName);

    /// Removes the named contacts that exist.
    /// - Returns: 1, even if none does.
    /// - Refuses, in order: DIR_RET_RELOADING; DIR_RET_NO_MEMORY, from an earlier shortage.
    /// - Writes: the contact file if a contact was removed, else nothing.
    int RemoveContactList(const QZList<qz::basic_string<char>>& listName);

    /// Removes the contacts of a group. GROUP_ID_ALL removes every contact, blacklisted ones too.
    /// - Returns: 1, even if there was none; 0, not a code, while the directory takes no changes.
    /// - Refuses: DIR_RET_NO_MEMORY, from an earlier shortage.
    /// - Writes: the contact file if a contact was removed, else nothing.
    int RemoveAllContacts(int nGroupId);
    /// \}

    /// \name Moving contacts and the blacklist: contact_moves.cpp
    /// A move changes the contact's group and nothing else. In the three calls by group name,
    /// contacts that cross the border of the blacklist need a free slot on the other side; a name
    /// of no contact needs none and is no failure there. Ids stay.
    /// \{

    /// Tests whether the named contacts fit into the group. listName stays as it was.
    /// - Returns: 0 if they do.
    /// - Refuses, in order: DIR_RET_RELOADING; DIR_RET_GROUP_NOT_FOUND; DIR_RET_BLACK_FULL for the
    ///   blacklist or DIR_RET_CONTACT_FULL for any other group, even if no slot is needed but the
    ///   count is above the limit.
    /// - Writes: nothing.
    int IsListCanMove(QZList<qz::basic_string<char>>& listName,
                      const qz::basic_string<char>& strGroupName);

    /// Moves the named contacts, all or none. listName stays as it was.
    /// - Returns: 0.
    /// - Refuses: as IsListCanMove(), with DIR_RET_NO_MEMORY from an earlier shortage after
    ///   DIR_RET_RELOADING.
    /// - Writes: the contact file if a contact moved, else nothing.
    int MoveListToGroup(QZList<qz::basic_string<char>>& listName,
                        const qz::basic_string<char>& strGroupName);

    /// As MoveListToGroup() for one contact. An empty name moves nothing.
    int MoveContactToGroup(const qz::basic_string<char>& strName,
                           const qz::basic_string<char>& strGroupName);

    /// Moves one contact and tests no limit.
    /// - Returns: 1.
    /// - Refuses, in order:
    ///   1. DIR_RET_RELOADING
    ///   2. DIR_RET_NO_MEMORY, from an earlier shortage
    ///   3. DIR_RET_CONTACT_NOT_FOUND
    ///   4. DIR_RET_GROUP_NOT_FOUND
    /// - Writes: the contact file if the contact moved, else nothing.
    int SetContactGroupId(const qz::basic_string<char>& strName, int nGroupId);

    /// Takes a contact out of the blacklist, into "All Contacts", and tests no limit.
    /// - Returns: 1.
    /// - Refuses, in order: DIR_RET_NO_MEMORY, from an earlier shortage; DIR_RET_NOT_BLACK, also
    ///   for a name of no contact; DIR_RET_RELOADING.
    /// - Writes: the contact file.
    int Black2Local(const qz::basic_string<char>& strName);

    /// Puts a contact into the blacklist.
    /// - Returns: 1.
    /// - Refuses, in order:
    ///   1. DIR_RET_NO_MEMORY, from an earlier shortage
    ///   2. DIR_RET_BLACK_FULL, the count equals the limit
    ///   3. DIR_RET_ALREADY_BLACK
    ///   4. DIR_RET_RELOADING
    ///   5. DIR_RET_CONTACT_NOT_FOUND
    ///   6. DIR_RET_GROUP_NOT_FOUND, the group list is empty
    /// - Writes: the contact file.
    int Local2Black(const qz::basic_string<char>& strName);
    /// \}

    /// \name Contact listing and reading: contact_reading.cpp
    /// A contact whose group is missing counts but is not handed out.
    /// \{

    /// On plain screens the photo fields of pData are untouched.
    /// - Returns: 1 and the contact; 0, with pData untouched, if there is no such contact, pData is
    ///   null or the contact's group is missing.
    int GetContactDataByName(ContactGeneralItemData* pData,
                             const qz::basic_string<char>& strName) const;

    /// A page of the group's contacts. "All Contacts" lists all but the blacklisted ones.
    /// - Returns: 1; 0, with pList untouched, for null and for a group that does not exist.
    int GetContactList(ContactGeneralItemListData* pList,
                       const qz::basic_string<char>& strGroupName) const;
    int GetContactListById(ContactGeneralItemListData* pList, int nGroupId) const;  ///< The same.
    /// \}

    /// \name Lookup by number: number_lookup.cpp
    /// A number matches one of a contact's three numbers byte for byte, nothing else: hosts bring
    /// numbers into one form before they store and ask. Of several contacts with the number the
    /// first in the list is the answer. Null and empty numbers match nothing.
    /// \{

    /// - Returns: the contact's display name; empty if there is none.
    qz::basic_string<char> GetContactNameByPhoneNumber(const char* pNumber) const;

    /// - Returns: true if the contact found by the number is blacklisted.
    bool IsBlackContactNumber(const char* pNumber) const;

    /// - Returns: 1 and the contact; 0, with pData untouched, for null pointers, if there is no
    ///   such contact and if its group is missing.
    int GetContactDataByNumber(ContactGeneralItemData* pData, const char* pNumber) const;

    /// The same by display name and, only if no contact has that, by number.
    int GetContactData(ContactGeneralItemData* pData, const qz::basic_string<char>& strName,
                       const qz::basic_string<char>& strNumber) const;
    /// \}

    /// \name Rings and photos: ring_and_photo.cpp
    /// \{

    /// The ring to play for a number. pSecond has no effect.
    /// - Returns: the contact's ring if its file exists, else that of its group, whose file is not
    ///   tested; empty if there is neither.
    qz::basic_string<char> GetContactRingByNumber(const char* pNumber, const char* pSecond) const;

    /// - Returns: the name, not the ring, of the contact's group; empty if either is missing.
    qz::basic_string<char> GetGroupRingByContact(const qz::basic_string<char>& strName) const;

    /// Gives every contact with exactly this photo the default image. It works even while the
    /// directory takes no changes.
    /// - Returns: 0, even if no contact has it.
    /// - Refuses, in order: DIR_RET_NULL_ARGUMENT; DIR_RET_NO_MEMORY, from an earlier shortage.
    /// - Writes: the contact file in every case.
    int SetDefaultPhoto(const char* pPhoto);
    /// \}

    /// \name Export: export_file.cpp
    /// \{

    /// Exports groups and contacts into one file. If the path is a pipe whose reader has left,
    /// SIGPIPE ends the process unless the host ignores that signal.
    /// - Returns: 1, always.
    /// - Writes: the file at the path, over what is there; contact_xported.xml in the data folder
    ///   if the path is empty. The two files stay as they are, unless the path is one of theirs.
    int ExportContactAndGroup(qz::basic_string<char> strPath);
    /// \}

  private:
    using GroupIterator = QZList<GroupData*>::ListIterator;
    using ItemIterator = QZList<ItemData*>::ListIterator;

    // Life: contact_local_manager.cpp.
    CContactLocalManager();
    ~CContactLocalManager();
    bool MyInit();
    bool MyFinal();
    bool MyClearContactList();
    bool MyClearGroupList();

    // Group store: group_store.cpp. Pointers into the list are good until it changes.
    GroupData* MyFindGroupById(int nId) const;
    bool MyIsGroupReadOnly(int nId) const;
    GroupData* MyFindGroupByDisplayName(const qz::basic_string<char>& strName) const;
    GroupData* MyFindGroupByDisplayName(qz::basic_string<char>& strName) const;
    int MyGName2Id(const qz::basic_string<char>& strName) const;
    qz::basic_string<char> MyGId2Name(int nId) const;
    GroupData* MyFindGDataByIndex(int nIndex) const;
    // The position of a copy of data, put in its place, or a refusal.
    int MyInsertGroup(const GroupData& data, bool bSave);
    // Puts a copy there and returns the place's result, or DIR_RET_NO_MEMORY.
    int MyLinkGroup(const GroupPlace& place, const GroupData& data);
    // Frees the record, then the node, and returns the next position.
    GroupIterator MyEraseGroup(GroupIterator pos);

    // Group file: group_file.cpp.
    int MyCreateDefaultGroup();  // part of the interface: the library itself never calls it
    void MyResetGenerator();
    int MyLoadGroupFromXmlFile(const qz::basic_string<char>& strFileName);
    void MyEnsureGroupFile();
    int MyFillGroupList(const CXmlInput& file, int nLimit);
    void MySetGroupDirty(bool bDirty);

    // Group editing: group_editing.cpp.
    int MyAddGroup(const ContactGroupData& data, int nId);
    void MyReloadAfterEdit();
    // end() if no group has the name.
    GroupIterator MyFindGroupPosition(const qz::basic_string<char>& strName, int& nPosition) const;
    int MyRenameGroup(GroupIterator pos, const ContactGroupData& data);
    int MyTestRename(const GroupData& group, const ContactGroupData& data) const;
    int MyCGD2GD(GroupData* pGroup, int nId, const ContactGroupData& data) const;
    int MyUpdateAllContactGroupId(int nOldId, int nNewId);

    // Group listing: group_listing.cpp.
    int MyGD2CGD(ContactGroupData* pData, const GroupData& group) const;

    // Contact store: contact_store.cpp. The only functions that change m_nBlackCount. Pointers into
    // the list are good until it changes.
    ItemData* MyFindContact(const qz::basic_string<char>& strName) const;
    // end() if no contact has the name; an empty name is compared like any other.
    ItemIterator MyFindContactPosition(const qz::basic_string<char>& strName) const;
    int MyGetContactCountByGroupId(int nGroupId) const;  // as MyCreateDefaultGroup()
    // Both: what an add returns, or DIR_RET_BLACK_FULL, DIR_RET_CONTACT_FULL,
    // DIR_RET_CONTACT_EXIST or DIR_RET_NO_MEMORY.
    int MyInsertContactNoCheckGroup(const ItemData& data, bool bSave);
    int MyInsertContact(const ItemData& data, bool bSave);  // as MyCreateDefaultGroup()
    // The same, with a save, for a record that takes the place of the one at posOld.
    int MyReplaceContact(ItemIterator posOld, const ItemData& data);
    // Puts a copy into its place and returns what an add does, DIR_RET_CONTACT_EXIST or
    // DIR_RET_NO_MEMORY. pReplaced, if not null, is a record that is about to go.
    int MyPlaceContact(const ItemData& data, const ItemData* pReplaced);
    void MyLinkContact(ItemIterator pos, ItemData* pItem);
    void MyUnlinkContacts();  // all; the records stay
    ItemIterator MyEraseContact(ItemIterator pos);
    bool MyChangeContactGroup(ItemData& item, int nGroupId);  // false: it is there already

    // Contact file: contact_file.cpp.
    void MySetContactDirty(bool bDirty);
    int MyLoadContactFromXmlFile(const qz::basic_string<char>& strFileName);
    int MyFillContactList(const CXmlInput& file, const ContactLimits& limits);

    // Limits: limits.cpp.
    ContactLimits MyContactLimits() const;
    ContactLimits MyContactLimitsForReload() const;  // what the list holds takes no new slot
    int MyGroupLimitForReload() const;
    int MyCountOfSide(int nGroupId) const;  // of the blacklist, or of all ordinary contacts
    int MyTestContactLimit(int nGroupId, int nNeeded) const;

    // Memory shortage: memory_shortage.cpp. Both: DIR_RET_OK, or what refuses a change now,
    // DIR_RET_RELOADING or DIR_RET_NO_MEMORY.
    int MyTestChange();
    int MyCatchUp();
    // The same for a call by the id of a group, which is brought up to date.
    int MyTestChange(int& nGroupId);
    int MyCatchUp(int& nGroupId);
    void MySetGroupUnread(bool bUnread, int nRoom);
    void MySetContactUnread(bool bUnread, const ContactLimits& room);

    // Contact entry: contact_entry.cpp.
    int MyAddToGroup(int nGroupId, const ContactGeneralItemData& data);
    int MyCGID2ID(ItemData* pItem, int nGroupId, const ContactGeneralItemData& data,
                  bool bUnused) const;
    ItemIterator MyFindAndCount(const qz::basic_string<char>& strName, int nGroupId,
                                int& nCounter) const;
    int MyRenameContact(ItemIterator pos, int nGroupId, const ContactGeneralItemData& data);
    int MyUpdateInPlace(ItemData& item, int nGroupId, const ContactGeneralItemData& data);

    // Contact moves: contact_moves.cpp.
    int MyTestMove(const CNameSet& names, int nTargetId) const;

    // Contact reading: contact_reading.cpp.
    int MyID2CGID(ContactGeneralItemData* pData, const ItemData& item) const;

    // Number lookup: number_lookup.cpp.
    ItemData* MyFindContactByNumber(const qz::basic_string<char>& strNumber,
                                    const qz::basic_string<char>& strSecond) const;

    // The lists own their records, which are freed when they leave the list: the record first,
    // then the node. No value on a list is null. Order: the fixed groups, then the user groups,
    // ascending under strcasecmp and unique; the contacts ascending under strcasecmp and unique.
    QZList<GroupData*> m_listGroup;
    QZList<ItemData*> m_listContact;
    CRIdGenerator* m_pIdGenerator = nullptr;  // owned; at 1 after a load with a root

    // Any int; reached when the count is at or above it.
    int m_nMaxGroupCount = -1;
    int m_nMaxContactCount = -1;
    int m_nMaxBlackCount = -1;

    // Always the number of contacts whose m_nGroupId is GROUP_ID_BLACKLIST.
    int m_nBlackCount = 0;

    // True only during a save of the file: setting one writes the file, and the save clears it.
    bool m_bGroupDirty = false;
    bool m_bContactDirty = false;

    bool m_bReloadByHttp = false;

    // What a shortage of memory has left undone. A file is unread if the list may hold a part of it
    // only, or, for the contacts, if their groups are unread; it is unsaved if it is older than
    // the list. No save happens while its file is unread, no edit reloads while a file is unsaved.
    bool m_bGroupUnread = false;
    bool m_bContactUnread = false;
    bool m_bGroupUnsaved = false;
    bool m_bContactUnsaved = false;
    // The room of the read that failed, which the next read has at least; 0 if none has failed.
    int m_nGroupRoom = 0;
    int m_nContactRoom = 0;
    int m_nBlackRoom = 0;

    // True once this instance has had an empty group list: from then on contacts keep the names of
    // missing groups.
    bool m_bKeepGroupNames = false;

    static CContactLocalManager* m_pInst;
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_CONTACT_LOCAL_MANAGER_H
