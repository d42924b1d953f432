// CContactLocalManager: the local phone book of the telephone.
//
// It keeps groups, contacts and the blacklist in memory and mirrors each change at once to two XML
// files in the data folder, /config/data/ in a library as delivered:
//
//   contact_group_list.xml  the group file      contact_list.xml  the contact file
//
// The folder must exist; the library never makes it.
//
// Results. Mutators return a negative DIR_RET_ code where they refuse, and what is told at each
// operation where they succeed. Refusals are listed in the order in which they are tested, so the
// first one that holds is the answer. A refusal has changed nothing, in memory or on disk. "Writes"
// tells which files a call rewrites, each whole and in place, before it returns. No result tells
// whether a write worked: a full disk shows only in the file. What is in memory stays after a
// failed write, and the next write of the file brings it along. But AddGroup, a new name of a group
// and RemoveGroup read both files back once they are written: what a failed write has left of a
// file is then all that is left in memory too.
//
// Memory. If memory runs short while a file is read, the lists may hold only a part of it, and
// questions are answered from that part. If it runs short while a file is saved, the file stays as
// it was. Every mutator first makes up for both: it reads or saves the file again, and if there is
// still no memory it refuses with DIR_RET_NO_MEMORY, after DIR_RET_RELOADING and before all other
// refusals, RemoveAllContacts() too. Black2Local() and Local2Black() test it first of all. Room in
// a text or a list is another matter: without it the process ends by abort(), with both files as
// they were before or after the last write.
//
// Names are keys and are compared byte for byte, except that no two contacts, and no two user
// groups, may have names that strcasecmp finds equal. So the locale decides which names are equal
// and how both lists are ordered. LC_CTYPE must be set before the first GetInstance() and be the
// same at every start: "C.UTF-8", whatever language the screens speak. Files that were stored under
// one locale lose contacts under another: in Turkish "IRIS" and "iris" are two names, elsewhere
// one.
//
// Group ids from 2 up are given afresh by every load of the group file. AddGroup, a new name
// through UpdateGroupData, RemoveGroup and ReloadGroupXml renumber the groups: an id from before
// means another group, or none, afterwards.
//
// Pointers. The library hands out no pointer but the instance, and keeps none that it is given.
// Texts handed in hold no NUL byte.
//
// Threads. None and no locks: call from one thread at a time, the first GetInstance() included.
//
// Limits: 50 groups with the two fixed ones, 1000 ordinary contacts, 30 blacklisted contacts. They
// can be changed for the life of an instance. A lowered limit refuses new entries and costs none
// that is stored, also when a file is loaded again. But a start always goes by the limits above,
// and the next save writes only what the start took. So a host that needs higher limits sets them
// right after GetInstance() and calls ReloadGroupXml() and ReloadContactXml() before any change.

#ifndef NSDIRECTORY_DIRECTORY_CONTACT_LOCAL_MANAGER_H
#define NSDIRECTORY_DIRECTORY_CONTACT_LOCAL_MANAGER_H

#include "directory/contact_records.h"
#include "directory/export.h"
#include "directory/id_generator.h"
#include "directory/string_convert.h"  // so that this header gives the whole boundary
#include "qzstl/list_like"
#include "qzstl/string_like"

namespace NS_DIRECTORY {

class CNameSet;
class CXmlInput;
struct ContactLimits;
struct ContactPlace;
struct GroupPlace;

class NSDIRECTORY_API CContactLocalManager
{
  public:
    // A group as it lies in memory.
    struct GroupData
    {
        int m_nId = GROUP_ID_NONE;
        qz::basic_string<char> m_strDisplayName;  // the key; never empty in the list
        qz::basic_string<char> m_strRing;
        bool m_bReadOnly = false;  // carried from file to file; the id decides what is read-only

        void Reset();
    };

    // A contact as it lies in memory.
    struct ItemData
    {
        qz::basic_string<char> m_strDisplayName;  // the key
        qz::basic_string<char> m_strOfficeNumber;
        qz::basic_string<char> m_strMobileNumber;
        qz::basic_string<char> m_strOtherNumber;
        qz::basic_string<char> m_strRing;
        qz::basic_string<char> m_strNameIndex;  // written to the file, always empty
        int m_nLine = 0;
        qz::basic_string<char> m_strDefaultPhoto;
        int m_nSelectedPhoto = 0;
        int m_nGroupId = GROUP_ID_NONE;
        // The group that the file names where that group is missing after a broken group file. A
        // save writes it in place of the name of group m_nGroupId, so that the contact comes home
        // when the group does. It goes when m_nGroupId changes, and with the next load of the
        // contact file, which finds it anew.
        qz::basic_string<char> m_strKeptGroupName;
    };

    CContactLocalManager(const CContactLocalManager&) = delete;
    CContactLocalManager& operator=(const CContactLocalManager&) = delete;

    // -- Life, limits and counts: contact_local_manager.cpp --

    // The instance, built on first use: it then reads the group file, writing the default one
    // where there is none, and the contact file. It comes up also where a file cannot be read;
    // what could not be read is missing from the lists, and the next change writes the file without
    // it. Null only where there is no memory for the object. Good until ReleaseInstance().
    static CContactLocalManager* GetInstance();

    // Frees the instance; the next GetInstance() reads the files again and sets the limits back.
    // Does nothing where there is none. Writes nothing: nothing is ever pending.
    static void ReleaseInstance();

    int GetMaxGroupCount() const;
    int GetMaxContactCount() const;
    int GetMaxBlackCount() const;

    // Each stores the new limit, unchecked, and returns the previous one. A limit at or below the
    // present count refuses every new entry; what is stored stays.
    int SetMaxGroupCount(int nMax);
    int SetMaxContactCount(int nMax);
    int SetMaxBlackCount(int nMax);

    int GetCurrentGroupCount() const;    // with the fixed groups
    int GetCurrentContactCount() const;  // without the blacklisted contacts
    int GetCurrentBlackCount() const;

    int ReloadGroupAndItemByHttp();  // does nothing and returns 0

    // True while the directory takes no changes. No operation of this library turns it on.
    bool IsReloadGroupAndItemByHttp() const;

    // -- Group queries and the group file: group_store.cpp, group_file.cpp --
    // The group list reads "All Contacts", "Blacklist", then the user groups in ascending order.
    // Positions count from 0 over all of them. Empty names find nothing.
    //
    // Where the group file has no root_group the list is empty, without the fixed groups, until a
    // load finds one; adding a group makes the directory whole again. Until then every contact that
    // is loaded stands in group 0, the blacklisted ones too: no number is blocked, no contact can
    // be added, and contacts are known by name but not handed out. From then on and until
    // ReleaseInstance(), contacts whose group is missing keep its name through saves and come home
    // when it is added. After a restart over a whole group list nothing is kept: such a contact
    // stands in "All Contacts", and the next save of the contact file writes that. So add the
    // missing groups again before the next restart.

    // True exactly when nIndex is the count of groups less one, whichever group stands there.
    bool IsBlacklistIndex(int nIndex) const;

    // The position of the group of that name; 0 also for null and for a name of no group.
    int GetGroupIndexByName(const char* pName) const;

    // 1 and the name at that position; 0, with strName untouched, where there is none.
    int GetGroupNameByIndex(int nIndex, qz::basic_string<char>& strName) const;

    // Both: the id of the group of that name, or -1.
    int GetGroupIdByGroupName(const qz::basic_string<char>& strName) const;
    int GetGIdByGName(const qz::basic_string<char>& strName) const;

    bool IsGroupExist(const qz::basic_string<char>& strName) const;

    // Empties strName where the list holds no blacklist.
    void GetBlacklistGroupName(qz::basic_string<char>& strName) const;

    // Writes the default group file to the path given, over what is there. Always 1.
    int CreateContactGroupList(const qz::basic_string<char>& strPath);

    // Always 1. Writes the group file while the group list is marked as changed, which no host
    // ever sees: from outside it writes nothing.
    int SaveGroupToXml();

    // Reads the group file again and renumbers the groups. 1, or 0 where the file has no
    // root_group, which empties the list, or an element was refused: an empty name, a name equal to
    // an earlier one, one above the limit. Groups held before take no new slot. Writes nothing
    // but a default file where none is there. Contacts still have their old ids: call
    // ReloadContactXml() at once.
    int ReloadGroupXml();

    // -- Group editing: group_editing.cpp --

    // Adds a user group and returns its position; over an empty group list that is 0, and the
    // fixed groups, made on the way, stand before it afterwards. Refusals: DIR_RET_RELOADING;
    // DIR_RET_GROUP_EXIST, the exact name is there; DIR_RET_GROUP_FULL; DIR_RET_GROUP_ID_FAIL, no
    // id to be had; DIR_RET_INVALID, the name is empty; DIR_RET_GROUP_EXIST, a user group's name
    // is equal under strcasecmp; DIR_RET_NO_MEMORY. Writes the group file once, then reads both
    // files. All ids of user groups end.
    int AddGroup(const ContactGroupData& data);

    // Gives the group strName the ring and the name of data and returns its position. Refusals:
    // DIR_RET_RELOADING; DIR_RET_INVALID, strName is empty; DIR_RET_INVALID, no group of that name.
    // With the same name, the ring is set: writes the group file once where it differs, else
    // nothing; ids stay. The ring of a fixed group does not outlive the next load.
    // With a new name there are further refusals: DIR_RET_GROUP_EXIST, the exact name is there;
    // DIR_RET_GROUP_FULL, the other groups reach the limit, or a fixed group is renamed and no slot
    // is left for the one that comes back in its place; DIR_RET_INVALID, the new name is empty;
    // DIR_RET_GROUP_EXIST, another user group's name is equal under strcasecmp;
    // DIR_RET_CONTACT_FULL, "Blacklist" is renamed and its contacts do not all fit under the limit
    // of ordinary ones. Writes the contact file, then the group file, then reads both. All ids of
    // user groups end. The contacts go with the name, all but those that keep the name of a missing
    // group. A fixed group comes back beside the renamed one, which is a user group from now on:
    // contacts of a renamed blacklist are no longer blocked. The position returned is the one that
    // the renamed group had before the fixed one came back.
    int UpdateGroupData(const qz::basic_string<char>& strName, const ContactGroupData& data);

    // Removes a user group; its contacts go to "All Contacts". 1. Refusals: DIR_RET_RELOADING;
    // DIR_RET_GROUP_NOT_FOUND; DIR_RET_GROUP_READ_ONLY, a fixed group. Writes the contact file,
    // twice where the group held contacts, then the group file, then reads both. All ids of user
    // groups end.
    int RemoveGroup(const qz::basic_string<char>& strName);

    // Removes all user groups; their contacts go to "All Contacts". 1. Refusals: DIR_RET_RELOADING;
    // DIR_RET_GROUP_NOT_FOUND, there is none. Writes the contact file once for each group that held
    // contacts, then the group file. Only the fixed ids are left.
    int RemoveAllGroup();

    // -- Group listing: group_listing.cpp --

    // Where the blacklist is hidden the indexes of a page are not the positions of the group list.

    // A page of names and ids, with the blacklist where the configuration shows it. 1, or 0 for
    // null. The total is -1 over an empty group list with the blacklist hidden.
    int GetGroupSimpleList(ContactGroupSimpleListData* pList) const;

    // A page of names and rings, without the blacklist, whatever bWithBlacklist says. 1, or 0 for
    // null. The total is -1 over an empty group list.
    int GetGroupList(ContactGroupListData* pList, bool bWithBlacklist) const;

    // 1 and the group; 0, with pData untouched, for null and for an id of no group.
    int GetGroupDataByID(ContactGroupData* pData, int nId) const;

    // -- Contact queries and the contact file: contact_store.cpp, contact_file.cpp --
    // One list holds the contacts of all groups in ascending order of names. Empty names find
    // nothing, though one contact may have an empty name.

    bool IsContactExist(const qz::basic_string<char>& strName) const;

    // The id of the contact's group; -1 where there is no such contact.
    int GetContactGroupId(const qz::basic_string<char>& strName) const;

    // Always 1. As SaveGroupToXml(): from outside it writes nothing.
    int SaveContactToXml();

    // Reads the contact file again. 1, or 0 where there is no file or the file has no root_contact,
    // which both empty the list, or an element was refused: a name equal to an earlier one, one
    // above its limit. Contacts held before take no new slot. Writes nothing. Group ids stay.
    int ReloadContactXml();

    // -- Adding and updating contacts: contact_entry.cpp --
    // The adds return how many contacts of the group stand before the new one, and one more where
    // the one behind it is of the group too; for "All Contacts" every contact counts. Photos are
    // taken on colour screens only, data.m_strGroupName is not read. Each writes the contact file
    // once; ids stay.

    // Refusals: DIR_RET_RELOADING; DIR_RET_GROUP_NOT_FOUND; then those of AddContactById.
    int AddContact(const qz::basic_string<char>& strGroupName, const ContactGeneralItemData& data);

    // Refusals: DIR_RET_RELOADING; DIR_RET_GROUP_ID_FAIL, no group of that id; DIR_RET_BLACK_FULL
    // for the blacklist, DIR_RET_CONTACT_FULL for any other group; DIR_RET_CONTACT_EXIST, a
    // contact's name is equal under strcasecmp, in whichever group; DIR_RET_NO_MEMORY.
    int AddContactById(int nGroupId, const ContactGeneralItemData& data);

    // AddContactById with the id of the blacklist.
    int AddBlackContact(const ContactGeneralItemData& data);

    // Gives the contact strName the values of data, its group by data.m_strGroupName. Refusals:
    // DIR_RET_RELOADING; DIR_RET_EMPTY_KEY, strName is empty; DIR_RET_CONTACT_NOT_FOUND;
    // DIR_RET_GROUP_NOT_FOUND; DIR_RET_CONTACT_EXIST, another contact has the new name.
    // With the same name: DIR_RET_BLACK_FULL for a move into the blacklist, DIR_RET_CONTACT_FULL
    // for one out of it. Returns how many contacts of the target group, or of all for
    // "All Contacts", stand before and at the contact, counted ahead of the change. Writes the
    // contact file once where a value differs, else nothing. With a new name the contact is put in
    // afresh: DIR_RET_BLACK_FULL or DIR_RET_CONTACT_FULL, the others of the target's side reach the
    // limit; DIR_RET_CONTACT_EXIST, another contact's name is equal under strcasecmp;
    // DIR_RET_NO_MEMORY. Returns what an add returns. Writes the contact file once. On plain
    // screens its photo is lost. Ids stay.
    int UpdateContactData(const qz::basic_string<char>& strName,
                          const ContactGeneralItemData& data);

    // -- Removing contacts: contact_removal.cpp --
    // Rings and photos are paths: the files that they name are not touched. Ids stay.

    // 1. Refusals: DIR_RET_RELOADING; DIR_RET_CONTACT_NOT_FOUND. An empty name removes the contact
    // of the empty name. Writes the contact file once.
    int RemoveContact(const qz::basic_string<char>& strName);

    // Removes those named that are there. 1, also where none is. Refusals: DIR_RET_RELOADING.
    // Writes the contact file once where a contact went, else nothing.
    int RemoveContactList(const QZList<qz::basic_string<char>>& listName);

    // Removes the contacts of a group; GROUP_ID_ALL removes every contact, the blacklisted ones
    // too. 1, also where none went; 0, not a code, while the directory takes no changes. Writes
    // the contact file once where a contact went, else nothing.
    int RemoveAllContacts(int nGroupId);

    // -- Moving contacts and the blacklist: contact_moves.cpp --
    // A move changes the contact's group and nothing else. In the three by group name, contacts
    // that cross the border of the blacklist need a free slot on the other side; names of no
    // contact need none and are no failure there. Each writes the contact file once where a contact
    // moved, else nothing. Ids stay.

    // 0 where the named contacts fit into the group. Refusals: DIR_RET_RELOADING;
    // DIR_RET_GROUP_NOT_FOUND; DIR_RET_BLACK_FULL for the blacklist, DIR_RET_CONTACT_FULL for any
    // other group, also where no slot is needed but the count is above the limit. Writes nothing.
    // listName stays as it was.
    int IsListCanMove(QZList<qz::basic_string<char>>& listName,
                      const qz::basic_string<char>& strGroupName);

    // 0, all named contacts moved. Refusals: those of IsListCanMove, none moved. listName stays.
    int MoveListToGroup(QZList<qz::basic_string<char>>& listName,
                        const qz::basic_string<char>& strGroupName);

    // 0, also where the name is empty or of no contact. Refusals: those of IsListCanMove.
    int MoveContactToGroup(const qz::basic_string<char>& strName,
                           const qz::basic_string<char>& strGroupName);

    // 1. It tests no limit. Refusals: DIR_RET_RELOADING; DIR_RET_CONTACT_NOT_FOUND;
    // DIR_RET_GROUP_NOT_FOUND.
    int SetContactGroupId(const qz::basic_string<char>& strName, int nGroupId);

    // Takes a contact out of the blacklist, into "All Contacts". 1. It tests no limit. Refusals:
    // DIR_RET_NOT_BLACK, also for a name of no contact; then those of SetContactGroupId.
    int Black2Local(const qz::basic_string<char>& strName);

    // Puts a contact into the blacklist. 1. Refusals: DIR_RET_BLACK_FULL, the count equals the
    // limit; DIR_RET_ALREADY_BLACK; then those of SetContactGroupId.
    int Local2Black(const qz::basic_string<char>& strName);

    // -- Contact listing and reading: contact_reading.cpp --
    // A contact whose group is missing counts but is not handed out.

    // 1 and the contact; 0, with pData untouched, where there is no such contact, pData is null or
    // the contact's group is missing. On plain screens the photo fields of pData are untouched.
    int GetContactDataByName(ContactGeneralItemData* pData,
                             const qz::basic_string<char>& strName) const;

    // A page of the group's contacts; "All Contacts" lists all but the blacklisted ones. 1, or 0,
    // with pList untouched, for null and for a group that is not there.
    int GetContactList(ContactGeneralItemListData* pList,
                       const qz::basic_string<char>& strGroupName) const;
    int GetContactListById(ContactGeneralItemListData* pList, int nGroupId) const;

    // -- Lookup by number: number_lookup.cpp --
    // A number matches one of a contact's three numbers byte for byte, nothing else: hosts
    // normalise numbers before they store and ask. Of several contacts with the number the first in
    // the list answers. Null and empty numbers match nothing. One walk of the list for a number.

    // The contact's display name; empty where there is none.
    qz::basic_string<char> GetContactNameByPhoneNumber(const char* pNumber) const;

    // True where the contact that answers to the number is blacklisted.
    bool IsBlackContactNumber(const char* pNumber) const;

    // 1 and the contact; 0, with pData untouched, for null pointers, for no such contact and for
    // one whose group is missing.
    int GetContactDataByNumber(ContactGeneralItemData* pData, const char* pNumber) const;

    // The same, by display name first and, where no contact bears it, by number.
    int GetContactData(ContactGeneralItemData* pData, const qz::basic_string<char>& strName,
                       const qz::basic_string<char>& strNumber) const;

    // -- Rings and photos: ring_and_photo.cpp --

    // The ring to play for a number: the contact's where its file exists, else that of its group,
    // whose file is not tested; empty where there is neither. pSecond has no effect.
    qz::basic_string<char> GetContactRingByNumber(const char* pNumber, const char* pSecond) const;

    // The name, not the ring, of the contact's group; empty where either is missing.
    qz::basic_string<char> GetGroupRingByContact(const qz::basic_string<char>& strName) const;

    // Gives every contact with exactly this photo the default image. 0, also where none has it.
    // Refusals: DIR_RET_NULL_ARGUMENT. It works also while the directory takes no changes. Writes
    // the contact file once in every case. Ids stay.
    int SetDefaultPhoto(const char* pPhoto);

    // -- Export: export_file.cpp --

    // Writes groups and contacts into one file at the path, over what is there; an empty path
    // means contact_xported.xml in the data folder. Always 1. The two files stay as they
    // are, unless the path is one of theirs. If the path is a pipe whose reader has left, SIGPIPE
    // ends the process, unless the host ignores that signal.
    int ExportContactAndGroup(qz::basic_string<char> strPath);

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
    // Frees the record, then the node, and returns the position behind it.
    GroupIterator MyEraseGroup(GroupIterator pos);

    // Group file: group_file.cpp.
    int MyCreateDefaultGroup();
    void MyResetGenerator();
    int MyLoadGroupFromXmlFile(const qz::basic_string<char>& strFileName);
    void MyEnsureGroupFile();
    int MyFillGroupList(const CXmlInput& file, int nLimit);
    void MySetGroupDirty(bool bDirty);

    // Group editing: group_editing.cpp.
    int MyAddGroup(const ContactGroupData& data, int nId);
    void MyReloadAfterEdit();
    // end() where no group bears the name.
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
    int MyGetContactCountByGroupId(int nGroupId) const;
    // Both: what an add returns, or DIR_RET_BLACK_FULL, DIR_RET_CONTACT_FULL,
    // DIR_RET_CONTACT_EXIST or DIR_RET_NO_MEMORY.
    int MyInsertContactNoCheckGroup(const ItemData& data, bool bSave);
    int MyInsertContact(const ItemData& data, bool bSave);
    // The same, with a save, for a record that takes the place of the one at posOld.
    int MyReplaceContact(ItemIterator posOld, const ItemData& data);
    // Puts a copy there and returns the place's result, or DIR_RET_NO_MEMORY.
    int MyLinkContact(const ContactPlace& place, const ItemData& data);
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
    // only, or, for the contacts, if their groups are unread; it is unsaved if it is behind the
    // list. No save happens while its file is unread, no edit reloads while a file is unsaved.
    bool m_bGroupUnread = false;
    bool m_bContactUnread = false;
    bool m_bGroupUnsaved = false;
    bool m_bContactUnsaved = false;
    // The room of the read that failed, which the next read has at least; 0 if none has failed.
    int m_nGroupRoom = 0;
    int m_nContactRoom = 0;
    int m_nBlackRoom = 0;

    // True once this instance has stood with an empty group list: from then on contacts keep the
    // names of missing groups.
    bool m_bKeepGroupNames = false;

    static CContactLocalManager* m_pInst;
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_CONTACT_LOCAL_MANAGER_H
