// A plain model of the directory for the random test: standard containers, the files as texts, and
// for each change what it must answer, keep and write. It is made to be seen to be right, not to be
// fast. Questions are asked of its records directly. Its caller sees to it that no change is made
// while the directory takes none.

#ifndef NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_MODEL_H
#define NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_MODEL_H

#include <strings.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <map>
#include <pugixml.hpp>
#include <sstream>
#include <utility>

#include "tests/support/directory_test.h"

using namespace NS_DIRECTORY;

struct CDirectoryModel
{
    using Group = CContactLocalManager::GroupData;
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

    // The disk. A write sets the text of the file and adds its path to m_writes.
    std::map<std::string, std::string> m_files = {};
    Texts m_writes = {};

    std::vector<Group> m_groups = {};
    std::vector<Item> m_items = {};
    int m_nMaxGroup = 50, m_nMaxContact = 1000, m_nMaxBlack = 30;
    bool m_bReloadByHttp = false;
    int m_nLastId = -1;         // given by the generator; tells which new groups are read-only
    bool m_bKeepNames = false;  // has stood with an empty group list

    // A new instance over the files.
    int Start()
    {
        *this = CDirectoryModel{m_files, m_writes};
        return LoadGroups(m_nMaxGroup), LoadContacts(m_nMaxContact, m_nMaxBlack), 1;
    }

    std::string Memory() const
    {
        std::ostringstream text;
        text << m_nMaxGroup << '|' << m_nMaxContact << '|' << m_nMaxBlack << '|' << Count(1) << '|'
             << m_bReloadByHttp << '|' << m_bKeepNames << '\n';
        std::for_each(m_groups.begin(), m_groups.end(), [&](auto& g) { text << Text(g); });
        std::for_each(m_items.begin(), m_items.end(),
                      [&](auto& c) { text << c.m_nGroupId << "||" << Text(c); });
        return text.str();
    }

    // -- Helpers ----------------------------------------------------------------------------------

    // The code of the first test that holds; 0 where none does.
    static int First(std::initializer_list<std::pair<bool, int>> tests)
    {
        const auto pos = std::find_if(tests.begin(), tests.end(),
                                      [](auto& t) { return t.first && t.second != 0; });
        return pos == tests.end() ? 0 : pos->second;
    }
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
    int TestName(const String& s, int nExceptId) const
    {
        const Group& alike = FindIf(m_groups, [&](auto& g) {
            return g.m_nId > 1 && g.m_nId != nExceptId && Compare(g, s) == 0;
        });
        return First({{s.empty(), DIR_RET_INVALID}, {alike.m_nId > 1, DIR_RET_GROUP_EXIST}});
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
        m_files.count(GROUP_FILE) == 0 ? Write(GROUP_FILE, &DEFAULTS, false) : 0;
        pugi::xml_document document;
        document.load_string(FileText(GROUP_FILE).c_str());
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
            const bool bRefused = GroupCount() >= nLimit || TestName(s, -1) < 0;
            nResult = bFixed ? nResult : bRefused ? 0 : (PlaceGroup(group), nResult);
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
        const int nEarly = First({{GroupId(data.m_strDisplayName) >= 0, DIR_RET_GROUP_EXIST},
                                  {GroupCount() >= m_nMaxGroup, DIR_RET_GROUP_FULL}});
        const int nId = nEarly == 0 ? ++m_nLastId : 0;  // taken also where the name is refused
        const int nRefusal = First({{true, nEarly}, {true, TestName(data.m_strDisplayName, -1)}});
        return nRefusal != 0 ? nRefusal : PlaceAndReload(nId, data);
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
        const bool bOverflow = nId == 1 && Count(1) > 0 && Count(0) > m_nMaxContact;
        const int nRefusal =
            First({{nId < 0, DIR_RET_INVALID},
                   {bRename && GroupId(data.m_strDisplayName) >= 0, DIR_RET_GROUP_EXIST},
                   {bRename && nOthers >= m_nMaxGroup, DIR_RET_GROUP_FULL},
                   {bRename, TestName(data.m_strDisplayName, nId)},
                   {bRename && bOverflow, DIR_RET_CONTACT_FULL}});
        if (nRefusal != 0) {
            return nRefusal;
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
        if (nId <= 1) {
            return nId < 0 ? DIR_RET_GROUP_NOT_FOUND : DIR_RET_GROUP_READ_ONLY;
        }
        Move(0, In(nId));
        WriteContacts();
        m_groups.erase(m_groups.begin() + GroupAt(s));
        return SaveAndReload(1);
    }
    int RemoveAllGroups()
    {
        if (GroupCount() <= 2) {
            return DIR_RET_GROUP_NOT_FOUND;
        }
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
    int Test(int nOrdinary, int nBlack, const Item& item, const Item* pOld = nullptr) const
    {
        const bool bBlack = item.m_nGroupId == 1;
        const auto nOthers = std::count_if(m_items.begin(), m_items.end(), [&](auto& c) {
            return &c != pOld && (c.m_nGroupId == 1) == bBlack;
        });
        const Item& alike = FindIf(
            m_items, [&](auto& c) { return &c != pOld && Compare(c, item.m_strDisplayName) == 0; });
        return First({{bBlack && nOthers >= nBlack, DIR_RET_BLACK_FULL},
                      {!bBlack && nOthers >= nOrdinary, DIR_RET_CONTACT_FULL},
                      {alike.m_nGroupId >= 0, DIR_RET_CONTACT_EXIST}});
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
        pugi::xml_document document;
        document.load_string(FileText(CONTACT_FILE).c_str());
        const pugi::xml_node root = document.child("root_contact");
        int nResult = root ? 1 : 0;
        for (const pugi::xml_node& node : root.children("contact")) {
            Item item = {};
            for (const Field& field : Fields()) {
                const char* p = node.attribute(field.m_pName).value();
                const long n = std::clamp<long>(std::strtol(p, nullptr, 10), INT_MIN, INT_MAX);
                field.m_pText ? void(item.*field.m_pText = p)
                              : void(item.*field.m_pNumber = static_cast<int>(n));
            }
            const int nId = GroupId(item.m_strGroupName);
            item.m_nGroupId = std::max(nId, 0);
            item.m_strGroupName = m_bKeepNames && nId < 0 ? item.m_strGroupName : "";
            nResult = Test(nOrdinary, nBlack, item) ? 0 : (PlaceContact(item), nResult);
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
    Contact Shown(const Item& c, const Contact& before) const
    {
        return Crossed(c, before, GroupName(c.m_nGroupId));
    }
    int Add(int nId, const Contact& d)
    {
        const Item item = {Crossed(d, {}, ""), nId};
        const int nRefusal = First({{GroupOf(nId).m_nId < 0, DIR_RET_GROUP_ID_FAIL},
                                    {true, Test(m_nMaxContact, m_nMaxBlack, item)}});
        return nRefusal != 0 ? nRefusal : WriteContacts(PlaceContact(item));
    }
    int Update(const String& s, const Contact& d)
    {
        const int nId = GroupId(d.m_strGroupName);
        const Item& old = Find(s);
        const bool bRename = !(d.m_strDisplayName == s);
        const bool bNeedsRoom = bRename || (old.m_nGroupId == 1) != (nId == 1);
        const int nRefusal =
            First({{s.empty(), DIR_RET_EMPTY_KEY},
                   {old.m_nGroupId < 0, DIR_RET_CONTACT_NOT_FOUND},
                   {nId < 0, DIR_RET_GROUP_NOT_FOUND},
                   {bRename && Find(d.m_strDisplayName).m_nGroupId >= 0, DIR_RET_CONTACT_EXIST},
                   {bNeedsRoom, Test(m_nMaxContact, m_nMaxBlack, {d, nId}, &old)}});
        if (nRefusal != 0) {
            return nRefusal;
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
        return First({{nId < 0, DIR_RET_GROUP_NOT_FOUND},
                      {nFree < nNeeded, nId == 1 ? DIR_RET_BLACK_FULL : DIR_RET_CONTACT_FULL}});
    }
    int MoveNamed(const Texts& names, const String& strGroup)
    {
        const int nRefusal = TestMove(names, strGroup);
        return nRefusal != 0 ? nRefusal : (Move(GroupId(strGroup), NamedIn(names)), 0);
    }
    int SetGroup(const String& s, int nId)
    {
        const int nRefusal = First({{m_bReloadByHttp, DIR_RET_RELOADING},
                                    {Find(s).m_nGroupId < 0, DIR_RET_CONTACT_NOT_FOUND},
                                    {GroupOf(nId).m_nId < 0, DIR_RET_GROUP_NOT_FOUND}});
        return nRefusal != 0 ? nRefusal : (Move(nId, Named(s)), 1);
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

    // The attributes of a contact in their order.
    struct Field
    {
        const char* m_pName;
        String Contact::*m_pText;
        int Contact::*m_pNumber = nullptr;
    };
    static std::vector<Field> Fields()
    {
        // clang-format off
        std::vector<Field> fields = {
            {"display_name", &Contact::m_strDisplayName}, {"office_number", &Contact::m_strOfficeNumber},
            {"mobile_number", &Contact::m_strMobileNumber}, {"other_number", &Contact::m_strOtherNumber},
            {"line", nullptr, &Contact::m_nLine}, {"ring", &Contact::m_strRing},
            {"group_id_name", &Contact::m_strGroupName},
            {"default_photo", &Contact::m_strDefaultPhoto}, {"selected_photo", nullptr, &Contact::m_nSelectedPhoto}};
        // clang-format on
        fields.resize(g_device.m_bColorful ? 9 : 7);
        return fields;
    }
    std::string FileText(const char* pPath) const
    {
        return m_files.count(pPath) == 0 ? "(no file)" : m_files.at(pPath);
    }
    // A file with the groups, where they are given, and the contacts; with both it is the export.
    int Write(const std::string& strPath, const std::vector<Group>* pGroups, bool bContacts)
    {
        pugi::xml_document document;
        document.load_string("<?xml version=\"1.0\" encoding=\"utf-8\"?>", pugi::parse_declaration);
        pGroups ? PutGroups(document.append_child("root_group"), *pGroups, bContacts) : void();
        bContacts ? PutContacts(document.append_child("root_contact"), pGroups) : void();
        std::ostringstream text;
        document.save(text, "\t", pugi::format_indent);
        m_files[strPath] = text.str();
        m_writes.push_back(strPath);
        return 1;
    }
    int WriteGroups() { return Write(GROUP_FILE, &m_groups, false); }
    int WriteContacts(int nResult = 1) { return Write(CONTACT_FILE, nullptr, true) * nResult; }
    static void PutGroups(pugi::xml_node root, const std::vector<Group>& groups, bool bExport)
    {
        for (const Group& g : groups) {
            pugi::xml_node node = root.append_child("group");
            node.append_attribute("display_name") = g.m_strDisplayName.c_str();
            node.append_attribute("ring") = g.m_strRing.c_str();
            bExport || (node.append_attribute("read_only") = g.m_bReadOnly ? "1" : "0");
        }
    }
    void PutContacts(pugi::xml_node root, bool bExport) const
    {
        for (Item item : m_items) {
            const bool bKept = !bExport && !item.m_strGroupName.empty();
            item.m_strGroupName = bKept ? item.m_strGroupName : GroupName(item.m_nGroupId);
            pugi::xml_node node = root.append_child("contact");
            for (const auto& [pName, pText, pNumber] : Fields()) {
                pText ? bool(node.append_attribute(pName) = (item.*pText).c_str())
                      : bExport || (node.append_attribute(pName) = item.*pNumber);
            }
            bExport || (node.append_attribute("name_index") = "");
        }
    }
};

#endif  // NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_MODEL_H
