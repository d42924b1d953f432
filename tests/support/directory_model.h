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
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/support/directory_test.h"

using namespace NS_DIRECTORY;

struct CDirectoryModel
{
    using Group = CContactLocalManager::GroupData;
    using Item = CContactLocalManager::ItemData;

    inline static const std::vector<Group> DEFAULTS = {{0, "All Contacts", "", true},
                                                       {1, "Blacklist", "", true},
                                                       {2, "Company", "", false},
                                                       {3, "Family", "", false},
                                                       {4, "Friend", "", false}};
    std::vector<Group> m_groups;
    std::vector<Item> m_items;
    int m_nMaxGroup = 50, m_nMaxContact = 1000, m_nMaxBlack = 30;
    bool m_bReloadByHttp = false;
    int m_nLastId = -1;         // given by the generator; tells which new groups are read-only
    bool m_bKeepNames = false;  // has stood with an empty group list

    // The disk. A write sets the text of the file and adds its path to m_writes.
    std::map<std::string, std::string> m_files;
    Texts m_writes;

    // A new instance over the files.
    int Start()
    {
        CDirectoryModel fresh;
        fresh.m_files.swap(m_files);
        fresh.m_writes.swap(m_writes);
        *this = fresh;
        LoadGroups(m_nMaxGroup);
        LoadContacts(m_nMaxContact, m_nMaxBlack);
        return 1;
    }

    std::string Memory() const
    {
        std::ostringstream text;
        text << m_nMaxGroup << '|' << m_nMaxContact << '|' << m_nMaxBlack << '|' << Count(1) << '|'
             << m_bReloadByHttp << '|' << m_bKeepNames << '\n';
        std::for_each(m_groups.begin(), m_groups.end(), [&](auto& g) { text << Text(g); });
        std::for_each(m_items.begin(), m_items.end(), [&](auto& c) { text << Text(c); });
        return text.str();
    }

    // -- Groups -----------------------------------------------------------------------------------

    int GroupCount() const { return static_cast<int>(m_groups.size()); }
    int GroupAt(const String& s) const
    {
        const Group* g = FindIf(m_groups, [&](auto& r) { return r.m_strDisplayName == s; });
        return g == nullptr ? -1 : static_cast<int>(g - m_groups.data());
    }
    int GroupId(const String& s) const
    {
        return GroupAt(s) < 0 ? -1 : m_groups.begin()[GroupAt(s)].m_nId;
    }
    const Group* GroupOf(int nId) const
    {
        return FindIf(m_groups, [&](auto& g) { return g.m_nId == nId; });
    }
    String GroupName(int nId) const { return GroupOf(nId) ? GroupOf(nId)->m_strDisplayName : ""; }
    int TestName(const String& s, int nExceptId) const
    {
        const bool bAlike = FindIf(m_groups, [&](auto& g) {
            return g.m_nId > 1 && g.m_nId != nExceptId && Compare(g, s) == 0;
        });
        return First({{s.empty(), DIR_RET_INVALID}, {bAlike, DIR_RET_GROUP_EXIST}});
    }

    // User groups ascend behind the fixed ones; id 0 belongs to the front and id 1 to the end.
    int PlaceGroup(const Group& group)
    {
        const auto pos = std::find_if(m_groups.begin(), m_groups.end(), [&](auto& g) {
            const bool bUsers = group.m_nId > 1 && g.m_nId > 1;
            return group.m_nId == 0 || (bUsers && Compare(g, group.m_strDisplayName) > 0);
        });
        const auto nAt = pos - m_groups.begin();
        m_groups.insert(pos, group);
        return static_cast<int>(nAt);
    }

    int LoadGroups(int nLimit)
    {
        m_files.count(GROUP_FILE) == 0 ? Write(GROUP_FILE, &DEFAULTS, false) : 0;
        pugi::xml_document document;
        const pugi::xml_node root = Load(document, GROUP_FILE).child("root_group");
        m_bKeepNames = m_bKeepNames || !root;
        m_nLastId = root ? 1 : m_nLastId;
        m_groups.resize(root ? 2 : 0);
        std::copy_n(DEFAULTS.begin(), m_groups.size(), m_groups.begin());
        int nResult = root ? 1 : 0;
        int nId = 1;
        for (const pugi::xml_node& node : root.children("group")) {
            const String s = node.attribute("display_name").value();
            if (s == "All Contacts" || s == "Blacklist") {
                continue;
            }
            const bool bReadOnly = String("1") == node.attribute("read_only").value();
            const Group group = {++nId, s, node.attribute("ring").value(), bReadOnly};
            const bool bRefused = GroupCount() >= nLimit || TestName(s, -1) < 0;
            nResult = bRefused ? 0 : (PlaceGroup(group), nResult);
        }
        return nResult;
    }
    // What stands needs no new slot; neither do the fixed groups.
    int ReloadGroups()
    {
        const int nMissing = (GroupAt("All Contacts") < 0) + (GroupAt("Blacklist") < 0);
        const int nLimit = std::max(m_nMaxGroup, GroupCount() + nMissing);
        CDirectoryModel before;
        before.m_groups.swap(m_groups);
        const int nResult = LoadGroups(nLimit);
        for (Item& c : m_items) {
            const bool bKeeps = m_groups.empty() && c.m_strKeptGroupName.empty();
            c.m_strKeptGroupName = bKeeps ? before.GroupName(c.m_nGroupId) : c.m_strKeptGroupName;
        }
        return nResult;
    }
    int Reload(int nResult) { return ReloadGroups(), ReloadContacts(), nResult; }

    int AddGroup(const ContactGroupData& data)
    {
        const String& s = data.m_strDisplayName;
        const int nEarly = First({{GroupAt(s) >= 0, DIR_RET_GROUP_EXIST},
                                  {GroupCount() >= m_nMaxGroup, DIR_RET_GROUP_FULL}});
        const int nId = nEarly == 0 ? ++m_nLastId : 0;  // taken also where the name is refused
        const int nRefusal = First({{nEarly != 0, nEarly}, {true, TestName(s, -1)}});
        return nRefusal != 0 ? nRefusal : PlaceAndReload(nId, data);
    }
    int PlaceAndReload(int nId, const ContactGroupData& data)
    {
        const int nResult = PlaceGroup({nId, data.m_strDisplayName, data.m_strRing, nId <= 1});
        return WriteGroups(), Reload(nResult);
    }
    int UpdateGroup(const String& s, const ContactGroupData& data)
    {
        const int nId = GroupId(s);
        const bool bRename = !(data.m_strDisplayName == s);
        const int nOthers = GroupCount() - (nId > 1);  // a fixed group comes back
        const bool bOverflow = nId == 1 && Count(1) > 0 && Count(0) > m_nMaxContact;
        const bool bNewIsThere = GroupAt(data.m_strDisplayName) >= 0;
        const int nRefusal = First({{nId < 0, DIR_RET_INVALID},
                                    {bRename && bNewIsThere, DIR_RET_GROUP_EXIST},
                                    {bRename && nOthers >= m_nMaxGroup, DIR_RET_GROUP_FULL},
                                    {bRename, TestName(data.m_strDisplayName, nId)},
                                    {bRename && bOverflow, DIR_RET_CONTACT_FULL}});
        return nRefusal != 0 ? nRefusal : bRename ? Rename(s, data) : SetRing(GroupAt(s), data);
    }
    int SetRing(int nAt, const ContactGroupData& data)
    {
        const bool bSame = m_groups.begin()[nAt].m_strRing == data.m_strRing;
        m_groups.begin()[nAt].m_strRing = data.m_strRing;
        return bSame ? nAt : (WriteGroups(), nAt);
    }
    int Rename(const String& s, const ContactGroupData& data)
    {
        const int nAt = GroupAt(s);
        m_groups.begin()[nAt].m_strDisplayName = data.m_strDisplayName;
        WriteContacts();
        const int nId = m_groups.begin()[nAt].m_nId;
        m_groups.erase(m_groups.begin() + nAt);
        return PlaceAndReload(nId, data);
    }
    int RemoveGroup(const String& s)
    {
        const int nId = GroupId(s);
        if (nId <= 1) {
            return nId < 0 ? DIR_RET_GROUP_NOT_FOUND : DIR_RET_GROUP_READ_ONLY;
        }
        Move(0, [&](const Item& c) { return c.m_nGroupId == nId; });
        WriteContacts();
        m_groups.erase(m_groups.begin() + GroupAt(s));
        return WriteGroups(), Reload(1);
    }
    int RemoveAllGroups()
    {
        if (GroupCount() <= 2) {
            return DIR_RET_GROUP_NOT_FOUND;
        }
        for (; GroupCount() > 2; m_groups.erase(m_groups.begin() + 2)) {
            Move(0, [&](const Item& c) { return c.m_nGroupId == m_groups[2].m_nId; });
        }
        return WriteGroups();
    }

    // -- Contacts ---------------------------------------------------------------------------------

    const Item* Find(const String& s) const
    {
        return FindIf(m_items, [&](auto& c) { return !s.empty() && c.m_strDisplayName == s; });
    }
    const Item* FindNumber(const String& s) const
    {
        return FindIf(m_items, [&](auto& c) {
            return !s.empty() && (c.m_strMobileNumber == s || c.m_strOfficeNumber == s ||
                                  c.m_strOtherNumber == s);
        });
    }
    int GroupIdOf(const String& s) const { return Find(s) ? Find(s)->m_nGroupId : -1; }

    // How many stand in the group, and how many of those in front of an end; 0 is for all.
    int Count(int nId) const { return CountTo(m_items.end(), nId); }
    int CountTo(std::vector<Item>::const_iterator end, int nId) const
    {
        const auto bIn = [&](auto& c) { return nId == 0 || c.m_nGroupId == nId; };
        return static_cast<int>(std::count_if(m_items.begin(), end, bIn));
    }

    // A slot and a free name, seen without the contact that is replaced.
    int Test(int nOrdinary, int nBlack, const Item& item, const Item* pOld) const
    {
        const bool bBlack = item.m_nGroupId == 1;
        int nOthers = 0;
        bool bAlike = false;
        for (const Item& c : m_items) {
            nOthers += &c != pOld && (c.m_nGroupId == 1) == bBlack;
            bAlike = bAlike || (&c != pOld && Compare(c, item.m_strDisplayName) == 0);
        }
        return First({{bBlack && nOthers >= nBlack, DIR_RET_BLACK_FULL},
                      {!bBlack && nOthers >= nOrdinary, DIR_RET_CONTACT_FULL},
                      {bAlike, DIR_RET_CONTACT_EXIST}});
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
        const pugi::xml_node root = Load(document, CONTACT_FILE).child("root_contact");
        int nResult = root ? 1 : 0;
        for (const pugi::xml_node& node : root.children("contact")) {
            Item item;
            for (const auto& [pName, pText, pNumber] : Attributes()) {
                const char* p = node.attribute(pName).value();
                const long n = std::clamp<long>(std::strtol(p, nullptr, 10), INT_MIN, INT_MAX);
                pText ? void(item.*pText = p) : void(item.*pNumber = static_cast<int>(n));
            }
            const int nId = GroupId(item.m_strKeptGroupName);
            item.m_nGroupId = std::max(nId, 0);
            item.m_strKeptGroupName = m_bKeepNames && nId < 0 ? item.m_strKeptGroupName : "";
            nResult = Test(nOrdinary, nBlack, item, nullptr) ? 0 : (PlaceContact(item), nResult);
        }
        return nResult;
    }
    // What stands needs no new slot, on the side where it stands or where its group comes back.
    int ReloadContacts()
    {
        const auto nBlack = std::count_if(m_items.begin(), m_items.end(), [](auto& c) {
            return c.m_nGroupId == 1 || c.m_strKeptGroupName == "Blacklist";
        });
        const int nOrdinary = std::max(m_nMaxContact, Count(0) - Count(1));
        m_items.clear();
        return LoadContacts(nOrdinary, std::max(m_nMaxBlack, static_cast<int>(nBlack)));
    }

    static Item FromBoundary(const ContactGeneralItemData& d, int nId)
    {
        Item item;
        item.m_strDisplayName = d.m_strDisplayName;
        item.m_strOfficeNumber = d.m_strOfficeNumber;
        item.m_strMobileNumber = d.m_strMobileNumber;
        item.m_strOtherNumber = d.m_strOtherNumber;
        item.m_strRing = d.m_strRing;
        item.m_nLine = d.m_nLine;
        item.m_nGroupId = nId;
        item.m_strDefaultPhoto = g_device.m_bColorful ? d.m_strDefaultPhoto : "";
        item.m_nSelectedPhoto = g_device.m_bColorful ? d.m_nSelectedPhoto : 0;
        return item;
    }
    // The contact as it crosses the boundary into such a record; empty where its group is missing.
    std::string Shown(const Item& c, const ContactGeneralItemData& before) const
    {
        const bool bPhoto = g_device.m_bColorful;
        const ContactGeneralItemData shown = {
            c.m_strDisplayName,
            GroupName(c.m_nGroupId),
            c.m_strOfficeNumber,
            c.m_strMobileNumber,
            c.m_strOtherNumber,
            bPhoto ? c.m_strDefaultPhoto : before.m_strDefaultPhoto,
            c.m_strRing,
            c.m_nLine,
            bPhoto ? c.m_nSelectedPhoto : before.m_nSelectedPhoto};
        return GroupOf(c.m_nGroupId) ? Text(shown) : "";
    }
    int Add(int nId, const ContactGeneralItemData& d)
    {
        const Item item = FromBoundary(d, nId);
        const int nRefusal = First({{!GroupOf(nId), DIR_RET_GROUP_ID_FAIL},
                                    {true, Test(m_nMaxContact, m_nMaxBlack, item, nullptr)}});
        return nRefusal != 0 ? nRefusal : WriteContacts(PlaceContact(item));
    }
    int Update(const String& s, const ContactGeneralItemData& d)
    {
        const int nId = GroupId(d.m_strGroupName);
        const Item* pOld = Find(s);
        const bool bRename = !(d.m_strDisplayName == s);
        const bool bNeedsRoom = bRename || (pOld && (pOld->m_nGroupId == 1) != (nId == 1));
        Item item = FromBoundary(d, nId);
        const int nRefusal = First({{s.empty(), DIR_RET_EMPTY_KEY},
                                    {!pOld, DIR_RET_CONTACT_NOT_FOUND},
                                    {nId < 0, DIR_RET_GROUP_NOT_FOUND},
                                    {bRename && Find(d.m_strDisplayName), DIR_RET_CONTACT_EXIST},
                                    {bNeedsRoom, Test(m_nMaxContact, m_nMaxBlack, item, pOld)}});
        if (nRefusal != 0) {
            return nRefusal;
        }
        const auto pos = m_items.begin() + (pOld - m_items.data());
        item.m_strKeptGroupName = pos->m_nGroupId == nId ? pos->m_strKeptGroupName : "";
        if (bRename) {
            m_items.erase(pos);
            return WriteContacts(PlaceContact(item));
        }
        if (!g_device.m_bColorful) {
            item.m_strDefaultPhoto = pos->m_strDefaultPhoto;
            item.m_nSelectedPhoto = pos->m_nSelectedPhoto;
        }
        const int nResult = CountTo(pos + 1, nId);
        return Text(std::exchange(*pos, item)) == Text(item) ? nResult : WriteContacts(nResult);
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
                c.m_strKeptGroupName.clear();
                bAny = true;
            }
        }
        return bAny && WriteContacts();
    }
    int TestMove(const Texts& names, const String& strGroup) const
    {
        const int nId = GroupId(strGroup);
        const auto nNeeded = std::count_if(m_items.begin(), m_items.end(), [&](auto& c) {
            return IsIn(names, c) && (c.m_nGroupId == 1) != (nId == 1);
        });
        const long long nFree =
            nId == 1 ? m_nMaxBlack - 0LL - Count(1) : m_nMaxContact - 0LL - Count(0) + Count(1);
        return First({{nId < 0, DIR_RET_GROUP_NOT_FOUND},
                      {nFree < nNeeded, nId == 1 ? DIR_RET_BLACK_FULL : DIR_RET_CONTACT_FULL}});
    }
    int MoveNamed(const Texts& names, const String& strGroup)
    {
        const int nRefusal = TestMove(names, strGroup);
        const auto bIn = [&](auto& c) { return IsIn(names, c); };
        return nRefusal != 0 ? nRefusal : (Move(GroupId(strGroup), bIn), 0);
    }
    int SetGroup(const String& s, int nId)
    {
        const int nRefusal = First({{m_bReloadByHttp, DIR_RET_RELOADING},
                                    {!Find(s), DIR_RET_CONTACT_NOT_FOUND},
                                    {!GroupOf(nId), DIR_RET_GROUP_NOT_FOUND}});
        const auto bNamed = [&](auto& c) { return c.m_strDisplayName == s; };
        return nRefusal != 0 ? nRefusal : (Move(nId, bNamed), 1);
    }
    String Ring(const Item* c) const
    {
        const Group* g = c ? GroupOf(c->m_nGroupId) : nullptr;
        const bool bOwn = c && !c->m_strRing.empty() && m_files.count(c->m_strRing.c_str()) != 0;
        return bOwn ? c->m_strRing : g ? g->m_strRing : "";
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

    // The attributes of a contact in their order. The name of its group passes through the field
    // of the kept one.
    using Row = std::tuple<const char*, String Item::*, int Item::*>;
    static std::vector<Row> Attributes()
    {
        std::vector<Row> rows = {{"display_name", &Item::m_strDisplayName, nullptr},
                                 {"office_number", &Item::m_strOfficeNumber, nullptr},
                                 {"mobile_number", &Item::m_strMobileNumber, nullptr},
                                 {"other_number", &Item::m_strOtherNumber, nullptr},
                                 {"line", nullptr, &Item::m_nLine},
                                 {"ring", &Item::m_strRing, nullptr},
                                 {"group_id_name", &Item::m_strKeptGroupName, nullptr},
                                 {"default_photo", &Item::m_strDefaultPhoto, nullptr},
                                 {"selected_photo", nullptr, &Item::m_nSelectedPhoto}};
        rows.resize(g_device.m_bColorful ? 9 : 7);
        return rows;
    }
    const pugi::xml_document& Load(pugi::xml_document& document, const char* pPath) const
    {
        document.load_string(m_files.count(pPath) == 0 ? "" : m_files.at(pPath).c_str());
        return document;
    }
    // A file with the groups, where they are given, and the contacts; with both it is the export.
    int Write(const std::string& strPath, const std::vector<Group>* pGroups, bool bContacts)
    {
        pugi::xml_document document;
        pugi::xml_node declaration = document.append_child(pugi::node_declaration);
        declaration.append_attribute("version") = "1.0";
        declaration.append_attribute("encoding") = "utf-8";
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
            const bool bKept = !bExport && !item.m_strKeptGroupName.empty();
            item.m_strKeptGroupName = bKept ? item.m_strKeptGroupName : GroupName(item.m_nGroupId);
            pugi::xml_node node = root.append_child("contact");
            for (const auto& [pName, pText, pNumber] : Attributes()) {
                pText ? bool(node.append_attribute(pName) = (item.*pText).c_str())
                      : bExport || (node.append_attribute(pName) = item.*pNumber);
            }
            bExport || (node.append_attribute("name_index") = "");
        }
    }

    // -- Helpers ----------------------------------------------------------------------------------

    // The code of the first test that holds; 0 where none does.
    static int First(std::initializer_list<std::pair<bool, int>> tests)
    {
        const auto pos = std::find_if(tests.begin(), tests.end(),
                                      [](auto& t) { return t.first && t.second != 0; });
        return pos == tests.end() ? 0 : pos->second;
    }
    template <class TRecord>
    static int Compare(const TRecord& record, const String& s)
    {
        return strcasecmp(record.m_strDisplayName.c_str(), s.c_str());
    }
    template <class TRecord, class TTest>
    static const TRecord* FindIf(const std::vector<TRecord>& records, TTest test)
    {
        const auto pos = std::find_if(records.begin(), records.end(), test);
        return pos == records.end() ? nullptr : &*pos;
    }
    static bool IsIn(const Texts& names, const Item& c)
    {
        return std::count(names.begin(), names.end(), c.m_strDisplayName.c_str()) != 0;
    }
};

#endif  // NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_MODEL_H
