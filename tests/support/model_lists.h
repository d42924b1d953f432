// The files and the two lists of the model: what a file holds, who is found, what fits, and where
// an entry goes. Made to be seen to be right, not to be fast.

#ifndef NSDIRECTORY_TESTS_SUPPORT_MODEL_LISTS_H
#define NSDIRECTORY_TESTS_SUPPORT_MODEL_LISTS_H

#include <climits>
#include <map>
#include <pugixml.hpp>
#include <utility>

#include "tests/support/directory_test.h"

#define REFUSE_IF(bHolds, nCode) \
    if (bHolds)                  \
    return nCode

struct CModelLists
{
    std::vector<Group> m_groups;
    std::vector<Item> m_items;
    int m_nMaxGroup = 50;
    int m_nMaxContact = 1000;
    int m_nMaxBlack = 30;
    int m_nLastId = -1;          // of the generator
    bool m_bKeepsNames = false;  // has been without any group

    // The disk, and what was written to it.
    std::map<std::string, std::string> m_files;
    Texts m_written;

    Entries AllEntries() const { return EntriesOf(m_groups, m_items); }

    // -- Files ------------------------------------------------------------------------------------

    std::string FileText(const std::string& strPath) const
    {
        return m_files.count(strPath) == 0 ? "(no file)" : m_files.at(strPath);
    }
    pugi::xml_document Parsed(const char* pPath) const
    {
        const std::string strText = FileText(pPath);
        pugi::xml_document document;
        document.load_buffer(strText.data(), strText.size());
        return document;
    }
    void Write(const std::string& strPath, const std::string& strRoots)
    {
        m_written.push_back(strPath);
        if (!strPath.empty()) {
            m_files[strPath] = DECLARATION + strRoots;
        }
    }
    void WriteDefaults(const std::string& strPath) { Write(strPath, GroupRoot(DEFAULTS, false)); }
    void WriteGroups() { Write(GROUP_FILE, GroupRoot(m_groups, false)); }
    void WriteContacts() { Write(CONTACT_FILE, ContactText(false)); }
    std::string ContactText(bool bExport)
    {
        std::vector<Item> items = m_items;
        for (Item& item : items) {
            item.m_strGroupName = GroupOf(item).m_strDisplayName;
            if (!bExport && !item.m_strKept.empty()) {
                item.m_strGroupName = item.m_strKept;
            }
        }
        return ContactRoot(items, bExport);
    }
    inline static const std::vector<Group> DEFAULTS{{0, "All Contacts", "", true},
                                                    {1, "Blacklist", "", true},
                                                    {2, "Company", "", false},
                                                    {3, "Family", "", false},
                                                    {4, "Friend", "", false}};

    // -- Finders, which give an empty record of the id -1 if there is none ------------------------

    template <class TList, class TTest>
    static auto& Find(TList& list, TTest test)
    {
        static typename TList::value_type s_none;
        s_none = {};
        const auto pos = std::find_if(list.begin(), list.end(), test);
        return pos == list.end() ? s_none : *pos;
    }
    Group& FindGroup(const String& strName)
    {
        return Find(m_groups, [&](auto& group) { return group.m_strDisplayName == strName; });
    }
    Group& FindGroup(int nId)
    {
        return Find(m_groups, [&](auto& group) { return group.m_nId == nId; });
    }
    Group& GroupOf(const Item& item) { return FindGroup(item.m_nGroupId); }
    Item& FindItem(const String& strName)
    {
        return Find(m_items, [&](auto& item) {
            return !strName.empty() && item.m_strDisplayName == strName;
        });
    }

    Item& FindNumber(const String& strNumber)
    {
        return Find(m_items, [&](auto& item) {
            return !strNumber.empty() &&
                   (item.m_strMobileNumber == strNumber || item.m_strOfficeNumber == strNumber ||
                    item.m_strOtherNumber == strNumber);
        });
    }

    // -- Counts and tests -------------------------------------------------------------------------

    static bool IsFixed(const Group& group) { return group.m_nId <= GROUP_ID_BLACKLIST; }
    static bool IsBlack(const Item& item) { return item.m_nGroupId == GROUP_ID_BLACKLIST; }
    int GroupCount() const { return static_cast<int>(m_groups.size()); }
    int GroupPlace(const Group& group) const { return static_cast<int>(&group - m_groups.data()); }
    int BlackCount() const { return CountIn(GROUP_ID_BLACKLIST, m_items.size()); }
    int OrdinaryCount() const { return static_cast<int>(m_items.size()) - BlackCount(); }

    // Contacts of the group among the first ones; "All Contacts" counts every one.
    int CountIn(int nGroupId, std::size_t nFirst) const
    {
        int nCount = 0;
        for (std::size_t n = 0; n < nFirst; ++n) {
            if (nGroupId == GROUP_ID_ALL || m_items[n].m_nGroupId == nGroupId) {
                ++nCount;
            }
        }
        return nCount;
    }
    template <class TRecord>
    static int Compare(const TRecord& record, const String& strName)
    {
        return strcasecmp(record.m_strDisplayName.c_str(), strName.c_str());
    }
    int TestGroupName(const String& strName, int nExceptId)
    {
        REFUSE_IF(strName.empty(), DIR_RET_INVALID);
        const Group& alike = Find(m_groups, [&](auto& group) {
            return !IsFixed(group) && group.m_nId != nExceptId && Compare(group, strName) == 0;
        });
        return alike.m_nId < 0 ? DIR_RET_OK : DIR_RET_GROUP_EXIST;
    }
    int TestItemName(const String& strName, const Item* pExcept = nullptr)
    {
        const Item& alike = Find(
            m_items, [&](auto& item) { return &item != pExcept && Compare(item, strName) == 0; });
        return alike.m_nGroupId < 0 ? DIR_RET_OK : DIR_RET_CONTACT_EXIST;
    }
    // For so many more on that side of the blacklist.
    int TestRoom(int nGroupId, long long nMore) const
    {
        if (nGroupId == GROUP_ID_BLACKLIST) {
            return BlackCount() + nMore > m_nMaxBlack ? DIR_RET_BLACK_FULL : DIR_RET_OK;
        }
        return OrdinaryCount() + nMore > m_nMaxContact ? DIR_RET_CONTACT_FULL : DIR_RET_OK;
    }

    // -- The ordered inserts ----------------------------------------------------------------------

    // User groups ascend after the fixed ones. Over an empty list the generator gives the fixed ids
    // too: 0 goes to the front, 1 to the end. Returns the place.
    int InsertGroup(const Group& group)
    {
        const auto isBehind = [&](const Group& other) {
            if (IsFixed(group) || IsFixed(other)) {
                return group.m_nId == GROUP_ID_ALL;
            }
            return Compare(other, group.m_strDisplayName) > 0;
        };
        const auto pos = std::find_if(m_groups.begin(), m_groups.end(), isBehind);
        return GroupPlace(*m_groups.insert(pos, group));
    }
    // Returns how many of its group are before it, and one more if the next one is of the group.
    int InsertItem(const Item& item)
    {
        const auto pos = std::find_if(m_items.begin(), m_items.end(), [&](const Item& other) {
            return Compare(other, item.m_strDisplayName) > 0;
        });
        const auto nBefore = static_cast<std::size_t>(pos - m_items.begin());
        const int nCount = CountIn(item.m_nGroupId, std::min(nBefore + 1, m_items.size()));
        m_items.insert(pos, item);
        return nCount;
    }

    // -- Loads ------------------------------------------------------------------------------------

    int LoadGroups(int nLimit)
    {
        if (m_files.count(GROUP_FILE) == 0) {
            WriteDefaults(GROUP_FILE);
        }
        const pugi::xml_document document = Parsed(GROUP_FILE);
        const pugi::xml_node root = document.child("root_group");
        m_groups.clear();
        if (!root) {
            m_bKeepsNames = true;
            return DIR_RET_NONE;
        }
        m_groups = {DEFAULTS[0], DEFAULTS[1]};
        m_nLastId = GROUP_ID_BLACKLIST;
        int nNextId = 2;
        int nResult = DIR_RET_OK;
        for (const pugi::xml_node& node : root.children("group")) {
            const String strName = node.attribute("display_name").value();
            if (strName == "All Contacts" || strName == "Blacklist") {
                continue;
            }
            const int nId = nNextId++;  // used up even if the group is refused
            if (GroupCount() >= nLimit || TestGroupName(strName, -1) < 0) {
                nResult = DIR_RET_NONE;
                continue;
            }
            const bool bReadOnly = String("1") == node.attribute("read_only").value();
            InsertGroup({nId, strName, node.attribute("ring").value(), bReadOnly});
        }
        return nResult;
    }
    int LoadContacts()
    {
        const pugi::xml_document document = Parsed(CONTACT_FILE);
        const pugi::xml_node root = document.child("root_contact");
        m_items.clear();
        int nResult = root ? DIR_RET_OK : DIR_RET_NONE;
        for (const pugi::xml_node& node : root.children("contact")) {
            const Item item = Resolved(ReadContact(node));
            if (TestRoom(item.m_nGroupId, 1) < 0 || TestItemName(item.m_strDisplayName) < 0) {
                nResult = DIR_RET_NONE;
            } else {
                InsertItem(item);
            }
        }
        return nResult;
    }
    static Contact ReadContact(const pugi::xml_node& node)
    {
        Contact data;
        for (const Field& field : Fields()) {
            const char* pValue = node.attribute(field.m_pAttribute).value();
            if (field.m_pText != nullptr) {
                data.*field.m_pText = pValue;
            } else {
                const long nValue = std::strtol(pValue, nullptr, 10);
                data.*field.m_pNumber =
                    static_cast<int>(std::clamp<long>(nValue, INT_MIN, INT_MAX));
            }
        }
        return Crossed(data, {});
    }
    // A contact of no group goes to "All Contacts".
    Item Resolved(const Contact& data)
    {
        const int nId = FindGroup(data.m_strGroupName).m_nId;
        if (nId >= 0) {
            return {data, nId, ""};
        }
        return {data, GROUP_ID_ALL, m_bKeepsNames ? data.m_strGroupName : ""};
    }
    // Photos come in and go out on a colour screen only.
    static Contact Crossed(Contact data, const Contact& before)
    {
        if (!g_device.m_bColorful) {
            data.m_strDefaultPhoto = before.m_strDefaultPhoto;
            data.m_nSelectedPhoto = before.m_nSelectedPhoto;
        }
        return data;
    }
};

#endif  // NSDIRECTORY_TESTS_SUPPORT_MODEL_LISTS_H
