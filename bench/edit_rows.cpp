// Edits beside the bare saves and loads that an edit cannot do without.

#include <algorithm>
#include <fstream>
#include <memory>
#include <random>

#include "bench/bare_xml.h"
#include "bench/directory.h"
#include "bench/row.h"

using NS_DIRECTORY::CContactLocalManager;
using NameList = QZList<qz::basic_string<char>>;
using Contacts = std::vector<SampleContact>;

namespace {

constexpr double ONE_CONTACT_AIM = 1.1;
constexpr double MANY_CONTACTS_AIM = 1.5;
constexpr double GROUP_AIM = 1.5;
constexpr int PAIRS = 100;
constexpr int FULL_COUNT = 1000 + BLACK_COUNT;
constexpr char NEW_GROUP[] = "Department 150";
constexpr char RENAMED_GROUP[] = "Department 110";  // one with contacts

// Both start with the limit just not reached, and the contact is the last one.
struct LastContact
{
    explicit LastContact(CContactLocalManager& directory, const SampleContact& contact)
        : m_directory(directory),
          m_strGroup(contact.m_strGroup.c_str()),
          m_data(BoundaryRecord(contact))
    {}

    void Add() const { (void)m_directory.AddContact(m_strGroup, m_data); }
    void Remove() const { (void)m_directory.RemoveContact(m_data.m_strDisplayName); }

    CContactLocalManager& m_directory;
    qz::basic_string<char> m_strGroup;
    NS_DIRECTORY::ContactGeneralItemData m_data;
};

Pair AddLastContact()
{
    const Contacts all = SampleContacts(FULL_COUNT);
    auto& directory = StartDirectory(Contacts(all.begin(), all.end() - 1));
    const auto pLast = std::make_shared<LastContact>(directory, all.back());
    return {[pLast] { pLast->Add(); }, [all] { BareSaveContacts(BARE_CONTACT_FILE, all); },
            [pLast] { pLast->Remove(); }};
}

Pair RemoveLastContact()
{
    const Contacts all = SampleContacts(FULL_COUNT);
    const auto pLast = std::make_shared<LastContact>(StartDirectory(all), all.back());
    const Contacts rest(all.begin(), all.end() - 1);
    return {[pLast] { pLast->Remove(); }, [rest] { BareSaveContacts(BARE_CONTACT_FILE, rest); },
            [pLast] { pLast->Add(); }};
}

NS_DIRECTORY::ContactGroupData NewGroup()
{
    return {NEW_GROUP, ""};
}

Pair AddLastGroup()
{
    auto& directory = StartDirectory(SampleContacts(DIRECTORY_COUNT));
    const auto groups = SampleGroups(GROUP_COUNT + 1);
    return {[&directory] { Require(directory.AddGroup(NewGroup()) > 0, "a new group"); },
            [groups] {
                BareSaveGroups(BARE_GROUP_FILE, groups);
                BareLoadGroups(BARE_GROUP_FILE);
                BareLoadContacts(CONTACT_FILE);
            },
            [&directory] { (void)directory.RemoveGroup(NEW_GROUP); }};
}

Pair RemoveLastGroup()
{
    const Contacts contacts = SampleContacts(DIRECTORY_COUNT);
    auto& directory = StartDirectory(contacts);
    (void)directory.AddGroup(NewGroup());
    const auto groups = SampleGroups(GROUP_COUNT);
    return {[&directory] { Require(directory.RemoveGroup(NEW_GROUP) > 0, "a group less"); },
            [groups, contacts] {
                BareSaveContacts(BARE_CONTACT_FILE, contacts);
                BareSaveGroups(BARE_GROUP_FILE, groups);
                BareLoadGroups(BARE_GROUP_FILE);
                BareLoadContacts(CONTACT_FILE);
            },
            [&directory] { (void)directory.AddGroup(NewGroup()); }};
}

// To and fro, so that each call gives a new name.
Pair RenameGroup()
{
    const Contacts contacts = SampleContacts(DIRECTORY_COUNT);
    auto& directory = StartDirectory(contacts);
    const auto groups = SampleGroups(GROUP_COUNT);
    const auto pBack = std::make_shared<bool>(true);
    return {[&directory, pBack] {
                *pBack = !*pBack;
                const char* const pOld = *pBack ? NEW_GROUP : RENAMED_GROUP;
                const char* const pNew = *pBack ? RENAMED_GROUP : NEW_GROUP;
                Require(directory.UpdateGroupData(pOld, {pNew, ""}) > 0, "a renamed group");
            },
            [groups, contacts] {
                BareSaveContacts(BARE_CONTACT_FILE, contacts);
                BareSaveGroups(BARE_GROUP_FILE, groups);
                BareLoadGroups(BARE_GROUP_FILE);
                BareLoadContacts(CONTACT_FILE);
            }};
}

enum class NameOrder
{
    AS_LISTED,
    ANY
};

constexpr std::pair<NameOrder, const char*> NAME_ORDERS[] = {
    {NameOrder::AS_LISTED, "names as listed"}, {NameOrder::ANY, "names in any order"}};

struct Halves
{
    NameList m_listName;  // 500 ordinary contacts, about every second one
    Contacts m_listRest;
};

Halves Split(const Contacts& contacts, NameOrder order)
{
    Halves halves;
    std::vector<std::string> names;
    for (const SampleContact& contact : contacts) {
        if (contact.m_strGroup != "Blacklist" && names.size() < 500 &&
            names.size() <= halves.m_listRest.size()) {
            names.push_back(contact.m_strName);
        } else {
            halves.m_listRest.push_back(contact);
        }
    }
    if (order == NameOrder::ANY) {
        std::shuffle(names.begin(), names.end(), std::mt19937(1));  // NOLINT: in every run alike
    }
    for (const std::string& strName : names) {
        halves.m_listName.push_back(strName.c_str());
    }
    return halves;
}

Pair MoveMany(NameOrder order)
{
    const Contacts contacts = SampleContacts(DIRECTORY_COUNT);
    auto& directory = StartDirectory(contacts);
    const auto pNames = std::make_shared<NameList>(Split(contacts, order).m_listName);
    // To and fro, so that each call moves them all.
    const auto pForth = std::make_shared<bool>(false);
    return {[&directory, pNames, pForth] {
                *pForth = !*pForth;
                (void)directory.MoveListToGroup(*pNames,
                                                *pForth ? "Department 130" : "Department 131");
            },
            [contacts] { BareSaveContacts(BARE_CONTACT_FILE, contacts); }};
}

Pair RemoveMany(NameOrder order)
{
    const Contacts contacts = SampleContacts(DIRECTORY_COUNT);
    auto& directory = StartDirectory(contacts);
    const std::string strFile = FileText(CONTACT_FILE);
    const auto pHalves = std::make_shared<Halves>(Split(contacts, order));
    return {[&directory, pHalves] { (void)directory.RemoveContactList(pHalves->m_listName); },
            [pHalves] { BareSaveContacts(BARE_CONTACT_FILE, pHalves->m_listRest); },
            [&directory, strFile] {
                std::ofstream(CONTACT_FILE, std::ios::binary) << strFile;
                (void)directory.ReloadContactXml();
            }};
}

}  // namespace

void AppendEditRows(std::vector<Row>& rows)
{
    rows.push_back(
        {"AddContact, the 1000th / bare save", NO_AIM, ONE_CONTACT_AIM, PAIRS, AddLastContact});
    rows.push_back(
        {"RemoveContact / bare save", NO_AIM, ONE_CONTACT_AIM, PAIRS, RemoveLastContact});
    rows.push_back(
        {"AddGroup, the 50th / bare saves and loads", GROUP_AIM, NO_AIM, PAIRS, AddLastGroup});
    rows.push_back(
        {"RemoveGroup / bare saves and loads", GROUP_AIM, NO_AIM, PAIRS, RemoveLastGroup});
    rows.push_back({"UpdateGroupData, a new name / bare saves and loads", GROUP_AIM, GROUP_AIM,
                    PAIRS, RenameGroup});
    for (const auto& [order, pText] : NAME_ORDERS) {
        rows.push_back({std::string("MoveListToGroup, 500 ") + pText + " / bare save",
                        MANY_CONTACTS_AIM, NO_AIM, PAIRS,
                        [order = order] { return MoveMany(order); }});
        rows.push_back({std::string("RemoveContactList, 500 ") + pText + " / bare save",
                        MANY_CONTACTS_AIM, NO_AIM, PAIRS,
                        [order = order] { return RemoveMany(order); }});
    }
}
