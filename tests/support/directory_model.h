// A plain model of the directory: what each public operation answers, changes and writes, on the
// files and lists of model_lists.h. Most questions are left to the scenarios, and so is a directory
// that takes no changes.

#ifndef NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_MODEL_H
#define NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_MODEL_H

#include "tests/support/model_lists.h"

struct CDirectoryModel : CModelLists
{
    using List = QZList<String>;

    // A new instance over the same files.
    void Restart()
    {
        const CModelLists old = std::exchange(*this, CDirectoryModel());
        m_files = old.m_files;
        m_written = old.m_written;
        LoadGroups(m_nMaxGroup);
        ReloadContactXml();
    }

    int SetMaxGroupCount(int nMax) { return std::exchange(m_nMaxGroup, nMax); }
    int SetMaxContactCount(int nMax) { return std::exchange(m_nMaxContact, nMax); }
    int SetMaxBlackCount(int nMax) { return std::exchange(m_nMaxBlack, nMax); }

    // -- Groups -----------------------------------------------------------------------------------

    bool IsGroupExist(const String& strName) { return FindGroup(strName).m_nId >= 0; }
    int CreateContactGroupList(const String& strPath)
    {
        WriteDefaults(strPath.c_str());
        return DIR_RET_OK;
    }
    // What is held needs no new slot, nor does a fixed group that is missing.
    int ReloadGroupXml()
    {
        const int nMissing =
            (IsGroupExist("All Contacts") ? 0 : 1) + (IsGroupExist("Blacklist") ? 0 : 1);
        CModelLists before = *this;
        const int nResult = LoadGroups(std::max(m_nMaxGroup, GroupCount() + nMissing));
        for (Item& item : m_items) {
            if (m_groups.empty() && item.m_strKept.empty()) {
                item.m_strKept = before.GroupOf(item).m_strDisplayName;
            }
        }
        return nResult;
    }
    void WriteGroupsAndReload()
    {
        WriteGroups();
        ReloadGroupXml();
        ReloadContactXml();
    }
    int AddGroup(const ContactGroupData& data)
    {
        REFUSE_IF(IsGroupExist(data.m_strDisplayName), DIR_RET_GROUP_EXIST);
        REFUSE_IF(GroupCount() >= m_nMaxGroup, DIR_RET_GROUP_FULL);
        const int nId = ++m_nLastId;  // used up even if the name is refused
        const int nTest = TestGroupName(data.m_strDisplayName, -1);
        REFUSE_IF(nTest < 0, nTest);
        const int nPlace =
            InsertGroup({nId, data.m_strDisplayName, data.m_strRing, nId <= GROUP_ID_BLACKLIST});
        WriteGroupsAndReload();
        return nPlace;
    }
    int UpdateGroupData(const String& strName, const ContactGroupData& data)
    {
        Group& group = FindGroup(strName);
        REFUSE_IF(group.m_nId < 0, DIR_RET_INVALID);
        if (!(data.m_strDisplayName == strName)) {
            return RenameGroup(group, data);
        }
        const String strOldRing = std::exchange(group.m_strRing, data.m_strRing);
        if (!(strOldRing == data.m_strRing)) {
            WriteGroups();
        }
        return GroupPlace(group);
    }
    int RenameGroup(Group& group, const ContactGroupData& data)
    {
        REFUSE_IF(IsGroupExist(data.m_strDisplayName), DIR_RET_GROUP_EXIST);
        const int nOthers = GroupCount() - (IsFixed(group) ? 0 : 1);  // a fixed group comes back
        REFUSE_IF(nOthers >= m_nMaxGroup, DIR_RET_GROUP_FULL);
        const int nTest = TestGroupName(data.m_strDisplayName, group.m_nId);
        REFUSE_IF(nTest < 0, nTest);
        const bool bFreesBlack = group.m_nId == GROUP_ID_BLACKLIST && BlackCount() > 0;
        const int nAll = OrdinaryCount() + BlackCount();
        REFUSE_IF(bFreesBlack && nAll > m_nMaxContact, DIR_RET_CONTACT_FULL);
        group = {group.m_nId, data.m_strDisplayName, data.m_strRing, IsFixed(group)};
        WriteContacts();
        const Group renamed = group;
        m_groups.erase(m_groups.begin() + GroupPlace(group));
        const int nPlace = InsertGroup(renamed);
        WriteGroupsAndReload();
        return nPlace;
    }
    int RemoveGroup(const String& strName)
    {
        const Group& group = FindGroup(strName);
        REFUSE_IF(group.m_nId < 0, DIR_RET_GROUP_NOT_FOUND);
        REFUSE_IF(IsFixed(group), DIR_RET_GROUP_READ_ONLY);
        MoveAll(group.m_nId);
        WriteContacts();  // once more, even if it was empty
        m_groups.erase(m_groups.begin() + GroupPlace(group));
        WriteGroupsAndReload();
        return DIR_RET_OK;
    }
    int RemoveAllGroup()
    {
        REFUSE_IF(GroupCount() <= 2, DIR_RET_GROUP_NOT_FOUND);
        for (; GroupCount() > 2; m_groups.erase(m_groups.begin() + 2)) {
            MoveAll(m_groups[2].m_nId);
        }
        WriteGroups();
        return DIR_RET_OK;
    }

    // -- Contacts ---------------------------------------------------------------------------------

    bool IsContactExist(const String& strName) { return FindItem(strName).m_nGroupId >= 0; }
    String GetContactNameByPhoneNumber(const char* p) { return FindNumber(p).m_strDisplayName; }
    bool IsBlackContactNumber(const char* pNumber) { return IsBlack(FindNumber(pNumber)); }

    // What is held needs no new slot, nor does who returns to the blacklist. Without groups all
    // stand on one side, and both limits are one.
    int ReloadContactXml()
    {
        const int nBlack =
            static_cast<int>(std::count_if(m_items.begin(), m_items.end(), [](auto& c) {
                return IsBlack(c) || c.m_strKept == "Blacklist";
            }));
        const CModelLists before = *this;
        m_nMaxContact = std::max(m_nMaxContact, OrdinaryCount());
        m_nMaxBlack = std::max(m_nMaxBlack, nBlack);
        if (m_groups.empty()) {
            const long long nBoth = std::max(m_nMaxContact, 0) + 0LL + std::max(m_nMaxBlack, 0);
            m_nMaxContact = static_cast<int>(std::min<long long>(nBoth, INT_MAX));
        }
        const int nResult = LoadContacts();
        m_nMaxContact = before.m_nMaxContact;
        m_nMaxBlack = before.m_nMaxBlack;
        return nResult;
    }
    int AddContact(const String& strGroup, const Contact& data)
    {
        const int nId = FindGroup(strGroup).m_nId;
        return nId < 0 ? DIR_RET_GROUP_NOT_FOUND : AddContactById(nId, data);
    }
    int AddBlackContact(const Contact& data) { return AddContactById(GROUP_ID_BLACKLIST, data); }
    int AddContactById(int nId, const Contact& data)
    {
        REFUSE_IF(FindGroup(nId).m_nId < 0, DIR_RET_GROUP_ID_FAIL);
        const int nRoom = TestRoom(nId, 1);
        return nRoom < 0 ? nRoom : Put({Crossed(data, {}), nId, ""}, nullptr);
    }
    // Puts the contact into its place, and takes out the one that it replaces.
    int Put(const Item& item, const Item* pOld)
    {
        const int nTest = TestItemName(item.m_strDisplayName, pOld);
        REFUSE_IF(nTest < 0, nTest);
        if (pOld != nullptr) {
            m_items.erase(m_items.begin() + (pOld - m_items.data()));
        }
        const int nCount = InsertItem(item);
        WriteContacts();
        return nCount;
    }
    int UpdateContactData(const String& strName, const Contact& data)
    {
        Item& item = FindItem(strName);
        const int nId = FindGroup(data.m_strGroupName).m_nId;
        const bool bRename = !(data.m_strDisplayName == strName);
        REFUSE_IF(strName.empty(), DIR_RET_EMPTY_KEY);
        REFUSE_IF(item.m_nGroupId < 0, DIR_RET_CONTACT_NOT_FOUND);
        REFUSE_IF(nId < 0, DIR_RET_GROUP_NOT_FOUND);
        REFUSE_IF(bRename && IsContactExist(data.m_strDisplayName), DIR_RET_CONTACT_EXIST);
        const bool bCrosses = IsBlack(item) != (nId == GROUP_ID_BLACKLIST);
        const int nRoom = TestRoom(nId, bCrosses ? 1 : 0);
        REFUSE_IF(nRoom < 0 && (bRename || bCrosses), nRoom);
        const String strKept = item.m_nGroupId == nId ? item.m_strKept : "";
        if (bRename) {
            return Put({Crossed(data, {}), nId, strKept}, &item);
        }
        return Replace(item, {Crossed(data, item), nId, strKept});
    }
    int Replace(Item& old, const Item& item)
    {
        const int nCount =
            CountIn(item.m_nGroupId, static_cast<std::size_t>(&old - m_items.data()) + 1);
        const Entries before = AllEntries();
        old = item;
        if (!Changes(before, AllEntries()).empty()) {
            WriteContacts();
        }
        return nCount;
    }

    // -- Removing and moving ----------------------------------------------------------------------

    // Removes those for whom the test holds. True if there was one.
    template <class TTest>
    bool Remove(TTest test)
    {
        const auto end = std::remove_if(m_items.begin(), m_items.end(), test);
        const bool bAny = end != m_items.end();
        m_items.erase(end, m_items.end());
        if (bAny) {
            WriteContacts();
        }
        return bAny;
    }
    int RemoveContact(const String& strName)
    {
        const bool bAny = Remove([&](auto& item) { return item.m_strDisplayName == strName; });
        return bAny ? DIR_RET_OK : DIR_RET_CONTACT_NOT_FOUND;
    }
    int RemoveContactList(const List& names)
    {
        Remove([&](auto& item) { return IsNamed(names, item); });
        return DIR_RET_OK;
    }
    int RemoveAllContacts(int nId)
    {
        Remove([&](auto& item) { return nId == GROUP_ID_ALL || item.m_nGroupId == nId; });
        return DIR_RET_OK;
    }
    static bool IsNamed(const List& names, const Item& item)
    {
        const Texts texts = TextsOf(names, [](auto& str) { return str.c_str(); });
        return std::count(texts.begin(), texts.end(), item.m_strDisplayName.c_str()) != 0;
    }
    // Moves those for whom the test holds.
    template <class TTest>
    void Move(int nId, TTest test)
    {
        bool bMoved = false;
        for (Item& item : m_items) {
            if (item.m_nGroupId != nId && test(item)) {
                item.m_nGroupId = nId;
                item.m_strKept.clear();
                bMoved = true;
            }
        }
        if (bMoved) {
            WriteContacts();
        }
    }
    void MoveAll(int nFromId)
    {
        Move(GROUP_ID_ALL, [&](auto& item) { return item.m_nGroupId == nFromId; });
    }
    int IsListCanMove(List& names, const String& strGroup)
    {
        const int nId = FindGroup(strGroup).m_nId;
        REFUSE_IF(nId < 0, DIR_RET_GROUP_NOT_FOUND);
        const auto nCrossing = std::count_if(m_items.begin(), m_items.end(), [&](auto& item) {
            return IsNamed(names, item) && IsBlack(item) != (nId == GROUP_ID_BLACKLIST);
        });
        const int nRoom = TestRoom(nId, nCrossing);
        return nRoom < 0 ? nRoom : DIR_RET_OK_ZERO;
    }
    int MoveListToGroup(List& names, const String& strGroup)
    {
        const int nTest = IsListCanMove(names, strGroup);
        if (nTest == DIR_RET_OK_ZERO) {
            const int nId = FindGroup(strGroup).m_nId;
            Move(nId, [&](auto& item) { return IsNamed(names, item); });
        }
        return nTest;
    }
    int MoveContactToGroup(const String& strName, const String& strGroup)
    {
        List names = NameList({strName.c_str()});
        // The empty name counts in the test, but moves no contact.
        return strName.empty() ? IsListCanMove(names, strGroup) : MoveListToGroup(names, strGroup);
    }
    int SetContactGroupId(const String& strName, int nId)
    {
        REFUSE_IF(!IsContactExist(strName), DIR_RET_CONTACT_NOT_FOUND);
        REFUSE_IF(FindGroup(nId).m_nId < 0, DIR_RET_GROUP_NOT_FOUND);
        Move(nId, [&](auto& item) { return item.m_strDisplayName == strName; });
        return DIR_RET_OK;
    }
    int Black2Local(const String& strName)
    {
        return IsBlack(FindItem(strName)) ? SetContactGroupId(strName, GROUP_ID_ALL)
                                          : DIR_RET_NOT_BLACK;
    }
    int Local2Black(const String& strName)
    {
        REFUSE_IF(BlackCount() == m_nMaxBlack, DIR_RET_BLACK_FULL);
        return IsBlack(FindItem(strName)) ? DIR_RET_ALREADY_BLACK
                                          : SetContactGroupId(strName, GROUP_ID_BLACKLIST);
    }

    // -- Photos and export ------------------------------------------------------------------------

    int SetDefaultPhoto(const char* pPhoto)
    {
        REFUSE_IF(pPhoto == nullptr, DIR_RET_NULL_ARGUMENT);
        for (Item& item : m_items) {
            if (item.m_strDefaultPhoto == pPhoto) {
                item.m_strDefaultPhoto = "Default:default_contact_image.png";
            }
        }
        WriteContacts();
        return DIR_RET_OK_ZERO;
    }
    int ExportContactAndGroup(const String& strPath)
    {
        Write(strPath.empty() ? EXPORT_FILE : strPath.c_str(),
              GroupRoot(m_groups, true) + ContactText(true));
        return DIR_RET_OK;
    }
};

#endif  // NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_MODEL_H
