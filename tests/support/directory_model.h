// A plain model of the directory for the random test: standard containers, the files as texts, and
// for each change what it must answer, keep and write. It is made to be seen to be right, not to be
// fast. Questions are asked of its records directly. That the directory takes no changes is for the
// caller to refuse, but where the operation tests something else first.

#ifndef NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_MODEL_H
#define NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_MODEL_H

#include <strings.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <map>
#include <pugixml.hpp>
#include <utility>

#include "tests/support/directory_test.h"

struct CDirectoryModel
{
    using Group = Manager::GroupData;
    using Contact = ContactGeneralItemData;
    struct Item : Contact  // with the kept group name, if any, for that of its group
    {
        int m_nGroupId = -1;
    };

    // clang-format off
    inline static const std::vector<Group> DEFAULTS = {
        {0, "All Contacts", "", true}, {1, "Blacklist", "", true},
        {2, "Company", "", false}, {3, "Family", "", false}, {4, "Friend", "", false}};
    // clang-format on

    // The disk, and the paths and bytes that were written to it.
    std::map<std::string, std::string> m_files = {};
    Texts m_writes = {};
    std::size_t m_nBytes = 0;

    std::vector<Group> m_groups = {};
    std::vector<Item> m_items = {};
    int m_nMaxGroup = 50, m_nMaxContact = 1000, m_nMaxBlack = 30;
    bool m_bReloadByHttp = false;
    int m_nLastId = -1;         // given by the generator; tells which new groups are read-only
    bool m_bKeepNames = false;  // has stood with an empty group list

    // A new instance over the files.
    int Start()
    {
        *this = CDirectoryModel{m_files, m_writes, m_nBytes};
        return LoadGroups(m_nMaxGroup), LoadContacts(m_nMaxContact, m_nMaxBlack), 1;
    }

    // Both over the files of the model.
    void StartBoth()
    {
        for (const auto& [strPath, strText] : m_files) {
            WriteFile(strPath, strText);
        }
        Start();
        DirectoryTest::Restart();
    }

    std::string Memory() const
    {
        std::string strText = Joined(m_nMaxGroup, '|', m_nMaxContact, '|', m_nMaxBlack, '|',
                                     Count(1), '|', m_bReloadByHttp, '|', m_bKeepNames, '\n');
        std::for_each(m_groups.begin(), m_groups.end(), [&](auto& g) { strText += Text(g); });
        std::for_each(m_items.begin(), m_items.end(),
                      [&](auto& c) { strText += Joined(c.m_nGroupId, "||", Text(c)); });
        return strText;
    }

    // -- Helpers ----------------------------------------------------------------------------------

    // A change that is refused ends in throwing the code, before it changes anything.
    static void Refuse(bool bHolds, int nCode) { bHolds ? throw nCode : void(); }
    // The record; where there is none, an empty one, whose id is -1.
    template <class TRecord, class TTest>
    static const TRecord& FindIf(const std::vector<TRecord>& records, TTest test)
    {
        static const TRecord NONE = {};
        const auto pos = std::find_if(records.begin(), records.end(), test);
        return pos == records.end() ? NONE : *pos;
    }
    template <class TRecord>
    static int Compare(const TRecord& record, const String& s)
    {
        return strcasecmp(record.m_strDisplayName.c_str(), s.c_str());
    }
    // Tests for FindIf, Move and Remove.
    static auto Named(const String& s)
    {
        return [s](auto& record) { return record.m_strDisplayName == s; };
    }
    static auto NamedIn(const Texts& names)
    {
        return [&](auto& c) {
            return std::count(names.begin(), names.end(), c.m_strDisplayName.c_str()) != 0;
        };
    }
    static auto In(int nId)  // 0 is for all
    {
        return [nId](auto& c) { return nId == 0 || c.m_nGroupId == nId; };
    }

    // -- Groups -----------------------------------------------------------------------------------

    int GroupCount() const { return static_cast<int>(m_groups.size()); }
    const Group& GroupNamed(const String& s) const { return FindIf(m_groups, Named(s)); }
    int GroupId(const String& s) const { return GroupNamed(s).m_nId; }
    int GroupAt(const String& s) const  // one that is there
    {
        return static_cast<int>(&GroupNamed(s) - m_groups.data());
    }
    const Group& GroupOf(int nId) const
    {
        return FindIf(m_groups, [&](auto& g) { return nId >= 0 && g.m_nId == nId; });
    }
    String GroupName(int nId) const { return GroupOf(nId).m_strDisplayName; }
    void TestName(const String& s, int nExceptId) const
    {
        const Group& alike = FindIf(m_groups, [&](auto& g) {
            return g.m_nId > 1 && g.m_nId != nExceptId && Compare(g, s) == 0;
        });
        Refuse(s.empty(), DIR_RET_INVALID);
        Refuse(alike.m_nId > 1, DIR_RET_GROUP_EXIST);
    }

    // User groups ascend behind the fixed ones; id 0 belongs to the front and id 1 to the end.
    int PlaceGroup(const Group& group)
    {
        const auto pos = std::find_if(m_groups.begin(), m_groups.end(), [&](auto& g) {
            const bool bUsers = group.m_nId > 1 && g.m_nId > 1;
            return group.m_nId == 0 || (bUsers && Compare(g, group.m_strDisplayName) > 0);
        });
        const auto placed = m_groups.insert(pos, group);
        return static_cast<int>(placed - m_groups.begin());
    }

    int LoadGroups(int nLimit)
    {
        m_files.count(GROUP_FILE) == 0 ? WriteDefaults(GROUP_FILE) : 0;
        const pugi::xml_document document = Parsed(GROUP_FILE);
        const pugi::xml_node root = document.child("root_group");
        m_bKeepNames = m_bKeepNames || !root;
        m_nLastId = root ? 1 : m_nLastId;
        m_groups.assign(DEFAULTS.begin(), DEFAULTS.begin() + (root ? 2 : 0));
        int nResult = root ? 1 : 0;
        int nId = 1;
        for (const pugi::xml_node& node : root.children("group")) {
            const String s = node.attribute("display_name").value();
            const bool bFixed = s == "All Contacts" || s == "Blacklist";
            const bool bReadOnly = String("1") == node.attribute("read_only").value();
            const Group group = {nId += !bFixed, s, node.attribute("ring").value(), bReadOnly};
            if (bFixed) {
                continue;
            }
            try {
                Refuse(GroupCount() >= nLimit, DIR_RET_GROUP_FULL);
                TestName(s, -1);
                PlaceGroup(group);
            } catch (int) {
                nResult = 0;
            }
        }
        return nResult;
    }
    // What stands needs no new slot; neither do the fixed groups.
    int ReloadGroups()
    {
        const int nMissing = (GroupId("All Contacts") < 0) + (GroupId("Blacklist") < 0);
        const CDirectoryModel before = *this;
        const int nResult = LoadGroups(std::max(m_nMaxGroup, GroupCount() + nMissing));
        for (Item& c : m_items) {
            const bool bKeeps = m_groups.empty() && c.m_strGroupName.empty();
            c.m_strGroupName = bKeeps ? before.GroupName(c.m_nGroupId) : c.m_strGroupName;
        }
        return nResult;
    }
    int SaveAndReload(int n) { return WriteGroups(), ReloadGroups(), ReloadContacts(), n; }

    int AddGroup(const ContactGroupData& data)
    {
        Refuse(GroupId(data.m_strDisplayName) >= 0, DIR_RET_GROUP_EXIST);
        Refuse(GroupCount() >= m_nMaxGroup, DIR_RET_GROUP_FULL);
        const int nId = ++m_nLastId;  // taken also where the name is refused
        TestName(data.m_strDisplayName, -1);
        return PlaceAndReload(nId, data);
    }
    int PlaceAndReload(int nId, const ContactGroupData& data)
    {
        return SaveAndReload(PlaceGroup({nId, data.m_strDisplayName, data.m_strRing, nId <= 1}));
    }
    int UpdateGroup(const String& s, const ContactGroupData& data)
    {
        const int nId = GroupId(s);
        const bool bRename = !(data.m_strDisplayName == s);
        const int nOthers = GroupCount() - (nId > 1);  // a fixed group comes back
        Refuse(nId < 0, DIR_RET_INVALID);
        if (bRename) {
            Refuse(GroupId(data.m_strDisplayName) >= 0, DIR_RET_GROUP_EXIST);
            Refuse(nOthers >= m_nMaxGroup, DIR_RET_GROUP_FULL);
            TestName(data.m_strDisplayName, nId);
            Refuse(nId == 1 && Count(1) > 0 && Count(0) > m_nMaxContact, DIR_RET_CONTACT_FULL);
        }
        const auto pos = m_groups.begin() + GroupAt(s);
        const String strOldRing = std::exchange(pos->m_strRing, data.m_strRing);
        if (!bRename) {
            return strOldRing == data.m_strRing || WriteGroups(), GroupAt(s);
        }
        pos->m_strDisplayName = data.m_strDisplayName;
        WriteContacts();
        m_groups.erase(pos);
        return PlaceAndReload(nId, data);
    }
    int RemoveGroup(const String& s)
    {
        const int nId = GroupId(s);
        Refuse(nId < 0, DIR_RET_GROUP_NOT_FOUND);
        Refuse(nId <= 1, DIR_RET_GROUP_READ_ONLY);
        Move(0, In(nId));
        WriteContacts();
        m_groups.erase(m_groups.begin() + GroupAt(s));
        return SaveAndReload(1);
    }
    int RemoveAllGroups()
    {
        Refuse(GroupCount() <= 2, DIR_RET_GROUP_NOT_FOUND);
        for (; GroupCount() > 2; m_groups.erase(m_groups.begin() + 2)) {
            Move(0, In(m_groups[2].m_nId));
        }
        return WriteGroups();
    }

    // -- Contacts ---------------------------------------------------------------------------------

    const Item& Find(const String& s) const
    {
        return FindIf(m_items, [&](auto& c) { return !s.empty() && c.m_strDisplayName == s; });
    }
    const Item& FindNumber(const String& s) const
    {
        return FindIf(m_items, [&](auto& c) {
            return !s.empty() && (c.m_strMobileNumber == s || c.m_strOfficeNumber == s ||
                                  c.m_strOtherNumber == s);
        });
    }
    int GroupIdOf(const String& s) const { return Find(s).m_nGroupId; }

    // How many stand in the group, and how many of those in front of an end; 0 is for all.
    int Count(int nId) const { return CountTo(m_items.end(), nId); }
    int CountTo(std::vector<Item>::const_iterator end, int nId) const
    {
        return static_cast<int>(std::count_if(m_items.begin(), end, In(nId)));
    }

    // A slot and a free name, seen without the contact that is replaced.
    void Test(int nOrdinary, int nBlack, const Item& item, const Item* pOld = nullptr) const
    {
        const bool bBlack = item.m_nGroupId == 1;
        const auto nOthers = std::count_if(m_items.begin(), m_items.end(), [&](auto& c) {
            return &c != pOld && (c.m_nGroupId == 1) == bBlack;
        });
        const Item& alike = FindIf(
            m_items, [&](auto& c) { return &c != pOld && Compare(c, item.m_strDisplayName) == 0; });
        Refuse(bBlack && nOthers >= nBlack, DIR_RET_BLACK_FULL);
        Refuse(!bBlack && nOthers >= nOrdinary, DIR_RET_CONTACT_FULL);
        Refuse(alike.m_nGroupId >= 0, DIR_RET_CONTACT_EXIST);
    }
    // Counts those of the group up to and including the one that comes to stand behind.
    int PlaceContact(const Item& item)
    {
        const auto pos = std::find_if(m_items.begin(), m_items.end(), [&](auto& c) {
            return Compare(c, item.m_strDisplayName) > 0;
        });
        const int nResult = CountTo(pos == m_items.end() ? pos : pos + 1, item.m_nGroupId);
        m_items.insert(pos, item);
        return nResult;
    }

    int LoadContacts(int nOrdinary, int nBlack)
    {
        const long long nBoth = std::max(nOrdinary, 0) + 0LL + std::max(nBlack, 0);
        nOrdinary = m_groups.empty() ? static_cast<int>(std::min(nBoth, INT_MAX + 0LL)) : nOrdinary;
        const pugi::xml_document document = Parsed(CONTACT_FILE);
        const pugi::xml_node root = document.child("root_contact");
        int nResult = root ? 1 : 0;
        for (const pugi::xml_node& node : root.children("contact")) {
            Item item = {};
            for (const auto& [pName, pText, pNumber] : Fields()) {
                const char* p = node.attribute(pName).value();
                const long n = std::clamp<long>(std::strtol(p, nullptr, 10), INT_MIN, INT_MAX);
                pText ? void(item.*pText = p) : void(item.*pNumber = static_cast<int>(n));
            }
            const int nId = GroupId(item.m_strGroupName);
            item.m_nGroupId = std::max(nId, 0);
            item.m_strGroupName = m_bKeepNames && nId < 0 ? item.m_strGroupName : "";
            try {
                Test(nOrdinary, nBlack, item);
                PlaceContact(item);
            } catch (int) {
                nResult = 0;
            }
        }
        return nResult;
    }
    // What stands needs no new slot, on the side where it stands or where its group comes back.
    int ReloadContacts()
    {
        const auto nBlack = std::count_if(m_items.begin(), m_items.end(), [](auto& c) {
            return c.m_nGroupId == 1 || c.m_strGroupName == "Blacklist";
        });
        const int nOrdinary = std::max(m_nMaxContact, Count(0) - Count(1));
        m_items.clear();
        return LoadContacts(nOrdinary, std::max(m_nMaxBlack, static_cast<int>(nBlack)));
    }

    // A record that crosses the boundary; photos do so on a colour screen only.
    static Contact Crossed(const Contact& from, const Contact& before, const String& strGroupName)
    {
        Contact to = from;
        to.m_strGroupName = strGroupName;
        to.m_strDefaultPhoto = (g_device.m_bColorful ? from : before).m_strDefaultPhoto;
        to.m_nSelectedPhoto = (g_device.m_bColorful ? from : before).m_nSelectedPhoto;
        return to;
    }
    bool HasGroup(const Item& c) const { return GroupOf(c.m_nGroupId).m_nId >= 0; }
    Contact Shown(const Item& c, const Contact& before) const
    {
        return HasGroup(c) ? Crossed(c, before, GroupName(c.m_nGroupId)) : before;
    }
    int Add(int nId, const Contact& d)
    {
        const Item item = {Crossed(d, {}, ""), nId};
        Refuse(GroupOf(nId).m_nId < 0, DIR_RET_GROUP_ID_FAIL);
        Test(m_nMaxContact, m_nMaxBlack, item);
        return WriteContacts(PlaceContact(item));
    }
    int Update(const String& s, const Contact& d)
    {
        const int nId = GroupId(d.m_strGroupName);
        const Item& old = Find(s);
        const bool bRename = !(d.m_strDisplayName == s);
        const bool bNeedsRoom = bRename || (old.m_nGroupId == 1) != (nId == 1);
        Refuse(s.empty(), DIR_RET_EMPTY_KEY);
        Refuse(old.m_nGroupId < 0, DIR_RET_CONTACT_NOT_FOUND);
        Refuse(nId < 0, DIR_RET_GROUP_NOT_FOUND);
        Refuse(bRename && Find(d.m_strDisplayName).m_nGroupId >= 0, DIR_RET_CONTACT_EXIST);
        if (bNeedsRoom) {
            Test(m_nMaxContact, m_nMaxBlack, {d, nId}, &old);
        }
        const auto pos = m_items.begin() + (&old - m_items.data());
        const String strKept = pos->m_nGroupId == nId ? pos->m_strGroupName : "";
        const Item item = {Crossed(d, bRename ? Contact() : *pos, strKept), nId};
        if (bRename) {
            m_items.erase(pos);
            return WriteContacts(PlaceContact(item));
        }
        const int nResult = CountTo(pos + 1, nId);
        const Item before = std::exchange(*pos, item);
        const bool bSame = before.m_nGroupId == nId && Text(before) == Text(item);
        return bSame ? nResult : WriteContacts(nResult);
    }

    template <class TTest>
    bool Remove(TTest test)
    {
        const auto end = std::remove_if(m_items.begin(), m_items.end(), test);
        const bool bAny = end != m_items.end();
        m_items.erase(end, m_items.end());
        return bAny && WriteContacts();
    }
    template <class TTest>
    bool Move(int nId, TTest test)
    {
        bool bAny = false;
        for (Item& c : m_items) {
            if (c.m_nGroupId != nId && test(c)) {
                c.m_nGroupId = nId;
                c.m_strGroupName.clear();
                bAny = true;
            }
        }
        return bAny && WriteContacts();
    }
    int TestMove(const Texts& names, const String& strGroup) const
    {
        const int nId = GroupId(strGroup);
        const auto nNeeded = std::count_if(m_items.begin(), m_items.end(), [&](auto& c) {
            return NamedIn(names)(c) && (c.m_nGroupId == 1) != (nId == 1);
        });
        const long long nFree =
            nId == 1 ? m_nMaxBlack - 0LL - Count(1) : m_nMaxContact - 0LL - Count(0) + Count(1);
        Refuse(nId < 0, DIR_RET_GROUP_NOT_FOUND);
        Refuse(nFree < nNeeded, nId == 1 ? DIR_RET_BLACK_FULL : DIR_RET_CONTACT_FULL);
        return 0;
    }
    int MoveNamed(const Texts& names, const String& strGroup)
    {
        return TestMove(names, strGroup), Move(GroupId(strGroup), NamedIn(names)), 0;
    }
    int SetGroup(const String& s, int nId)
    {
        Refuse(m_bReloadByHttp, DIR_RET_RELOADING);
        Refuse(Find(s).m_nGroupId < 0, DIR_RET_CONTACT_NOT_FOUND);
        Refuse(GroupOf(nId).m_nId < 0, DIR_RET_GROUP_NOT_FOUND);
        return Move(nId, Named(s)), 1;
    }
    String Ring(const Item& c) const
    {
        const bool bOwn = !c.m_strRing.empty() && m_files.count(c.m_strRing.c_str()) != 0;
        return bOwn ? c.m_strRing : GroupOf(c.m_nGroupId).m_strRing;
    }
    int SetDefaultPhoto(const String& strPhoto)
    {
        for (Item& c : m_items) {
            const bool bUses = c.m_strDefaultPhoto == strPhoto;
            c.m_strDefaultPhoto = bUses ? "Default:default_contact_image.png" : c.m_strDefaultPhoto;
        }
        return WriteContacts(0);
    }

    // -- Files ------------------------------------------------------------------------------------

    std::string FileText(const char* pPath) const
    {
        return m_files.count(pPath) == 0 ? "(no file)" : m_files.at(pPath);
    }
    pugi::xml_document Parsed(const char* pPath) const
    {
        const std::string strText = FileText(pPath);
        pugi::xml_document document;
        document.load_buffer(strText.data(), strText.size());
        return document;
    }
    int Write(const std::string& strPath, const std::string& strRoots)
    {
        m_writes.push_back(strPath);
        if (!strPath.empty()) {
            m_files[strPath] = DECLARATION + strRoots;
            m_nBytes += m_files[strPath].size();
        }
        return 1;
    }
    std::string Contacts(bool bExport) const
    {
        std::vector<Item> items = m_items;
        for (Item& c : items) {
            const bool bKept = !bExport && !c.m_strGroupName.empty();
            c.m_strGroupName = bKept ? c.m_strGroupName : GroupName(c.m_nGroupId);
        }
        return ContactRoot(items, bExport);
    }
    int WriteDefaults(const std::string& strPath)
    {
        return Write(strPath, GroupRoot(DEFAULTS, false));
    }
    int WriteGroups() { return Write(GROUP_FILE, GroupRoot(m_groups, false)); }
    int WriteContacts(int nResult = 1) { return Write(CONTACT_FILE, Contacts(false)) * nResult; }
    int Export(const std::string& strPath)
    {
        return Write(strPath, GroupRoot(m_groups, true) + Contacts(true));
    }
};

#endif  // NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_MODEL_H
