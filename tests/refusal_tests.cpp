// Every refusal of every mutator: its result, and that it changed nothing in memory or on disk.

#include <climits>
#include <functional>
#include <utility>

#include "tests/support/directory_test.h"

namespace {

struct RefusalRow
{
    const char* m_pName;
    int m_nResult;
    std::function<void(Manager& m)> m_prepare;  // what brings the refusal about
    int (*m_pCall)(Manager& m);
};

auto Limits(int nGroups, int nContacts, int nBlack)
{
    return [=](Manager& m) {
        m.SetMaxGroupCount(nGroups);
        m.SetMaxContactCount(nContacts);
        m.SetMaxBlackCount(nBlack);
    };
}

const auto Nothing = [](Manager&) {};
const auto Reloading = [](Manager& m) { m.m_bReloadByHttp = true; };
const auto NoGenerator = [](Manager& m) { delete std::exchange(m.m_pIdGenerator, nullptr); };
const auto NoIds = [](Manager& m) { (void)m.m_pIdGenerator->SetBegin(INT_MAX); };
const auto NoGroups = [](Manager& m) { WriteFile(GROUP_FILE, ""), m.ReloadGroupXml(); };
const auto NoUserGroups = [](Manager& m) { (void)m.RemoveAllGroup(); };

// The list is left as it was too.
int Move(Manager& m, const Texts& names, const char* pGroup)
{
    QZList<String> list = NameList(names);
    const int nResult = m.MoveListToGroup(list, pGroup);
    EXPECT_EQ(m.IsListCanMove(list, pGroup), nResult);
    EXPECT_EQ(m.MoveContactToGroup(names.front().c_str(), pGroup), nResult);
    EXPECT_EQ(list.size(), names.size());
    return nResult;
}

// A flag that is set already sets off no write.
int SetFlagsAgain(Manager& m)
{
    m.m_bGroupDirty = m.m_bContactDirty = true;
    m.MySetGroupDirty(true);
    m.MySetContactDirty(true);
    m.m_bGroupDirty = m.m_bContactDirty = false;
    return 0;
}

// Groups: All Contacts 0, Blacklist 1, Company 2, Family 3. Contacts: "" and Anna in Company, Bob
// and Carl in Blacklist, Dora in All Contacts.
// clang-format off
const std::vector<RefusalRow> REFUSALS{
    {"AddGroup reloading", -13, Reloading, [](Manager& m) { return m.AddGroup(GroupRow("")); }},
    {"AddGroup exact name before the limit", -1, Limits(4, 9, 9), [](Manager& m) { return m.AddGroup(GroupRow("Family")); }},
    {"AddGroup at the limit before the id", -9, Limits(4, 9, 9), [](Manager& m) { return m.AddGroup(GroupRow("")); }},
    {"AddGroup without generator", -3, NoGenerator, [](Manager& m) { return m.AddGroup(GroupRow("")); }},
    {"AddGroup out of ids", -3, NoIds, [](Manager& m) { return m.AddGroup(GroupRow("New")); }},
    {"AddGroup empty name", -101, Nothing, [](Manager& m) { return m.AddGroup(GroupRow("")); }},
    {"AddGroup equal but for case", -1, Nothing, [](Manager& m) { return m.AddGroup(GroupRow("fAMILY")); }},
    {"MyAddGroup id in use", -1, Nothing, [](Manager& m) { return m.MyAddGroup(GroupRow("New"), 3); }},
    {"MyAddGroup no id", -101, Nothing, [](Manager& m) { return m.MyAddGroup(GroupRow("New"), -5); }},
    {"MyCGD2GD no target", 0, Nothing, [](Manager& m) { return m.MyCGD2GD(nullptr, 2, {}); }},
    {"MyGD2CGD no target", 0, Nothing, [](Manager& m) { return m.MyGD2CGD(nullptr, {}); }},
    {"MyInsertGroup second head", -1, Nothing, [](Manager& m) { return m.MyInsertGroup({0, "All Contacts", "", true}, true); }},
    {"MyInsertGroup second end", -1, NoUserGroups, [](Manager& m) { return m.MyInsertGroup({1, "Blacklist", "", true}, true); }},
    {"MyCreateDefaultGroup where they are", 1, NoUserGroups, [](Manager& m) { return m.MyCreateDefaultGroup(); }},
    {"MyCGID2ID no target", 0, Nothing, [](Manager& m) { return m.MyCGID2ID(nullptr, 2, {}, false); }},
    {"MyCGID2ID no id", 0, Nothing, [](Manager& m) { Manager::ItemData item; return m.MyCGID2ID(&item, -1, {}, false); }},
    {"flags that are set already write nothing", 0, Nothing, SetFlagsAgain},
    {"UpdateGroupData reloading", -13, Reloading, [](Manager& m) { return m.UpdateGroupData("", GroupRow("")); }},
    {"UpdateGroupData empty name", -101, Nothing, [](Manager& m) { return m.UpdateGroupData("", GroupRow("New")); }},
    {"UpdateGroupData unknown name", -101, Nothing, [](Manager& m) { return m.UpdateGroupData("family", GroupRow("New")); }},
    {"rename exact name before the limit", -1, Limits(1, 9, 9), [](Manager& m) { return m.UpdateGroupData("Family", GroupRow("Company")); }},
    {"rename at a lowered limit before the name", -9, Limits(3, 9, 9), [](Manager& m) { return m.UpdateGroupData("Family", GroupRow("")); }},
    {"rename empty", -101, Nothing, [](Manager& m) { return m.UpdateGroupData("Family", GroupRow("")); }},
    {"rename equal but for case", -1, Nothing, [](Manager& m) { return m.UpdateGroupData("Family", GroupRow("cOMPANY")); }},
    {"rename fixed without a slot", -9, Limits(4, 9, 9), [](Manager& m) { return m.UpdateGroupData("All Contacts", GroupRow("New")); }},
    {"rename blacklist past the ordinary limit", -7, Limits(9, 4, 9), [](Manager& m) { return m.UpdateGroupData("Blacklist", GroupRow("New")); }},
    {"RemoveGroup reloading", -13, Reloading, [](Manager& m) { return m.RemoveGroup("Family"); }},
    {"RemoveGroup other case", -4, Nothing, [](Manager& m) { return m.RemoveGroup("family"); }},
    {"RemoveGroup fixed", -6, Nothing, [](Manager& m) { return m.RemoveGroup("Blacklist"); }},
    {"RemoveAllGroup reloading", -13, Reloading, [](Manager& m) { return m.RemoveAllGroup(); }},
    {"RemoveAllGroup none left", -4, NoUserGroups, [](Manager& m) { return m.RemoveAllGroup(); }},
    {"AddContact reloading", -13, Reloading, [](Manager& m) { return m.AddContact("no group", ContactRow("New")); }},
    {"AddContact other case", -4, Nothing, [](Manager& m) { return m.AddContact("company", ContactRow("New")); }},
    {"AddContactById reloading", -13, Reloading, [](Manager& m) { return m.AddContactById(9, ContactRow("New")); }},
    {"AddContactById no group", -3, Nothing, [](Manager& m) { return m.AddContactById(4, ContactRow("New")); }},
    {"AddBlackContact reloading", -13, Reloading, [](Manager& m) { return m.AddBlackContact(ContactRow("Anna")); }},
    {"AddBlackContact no groups", -3, NoGroups, [](Manager& m) { return m.AddBlackContact(ContactRow("New")); }},
    {"add to a full blacklist before the name", -8, Limits(9, 9, 2), [](Manager& m) { return m.AddContactById(1, ContactRow("Anna")); }},
    {"add to full ordinary before the name", -7, Limits(9, 3, 9), [](Manager& m) { return m.AddContact("Family", ContactRow("Anna")); }},
    {"AddBlackContact at the limit", -8, Limits(9, 9, 2), [](Manager& m) { return m.AddBlackContact(ContactRow("New")); }},
    {"add equal but for case elsewhere", -2, Nothing, [](Manager& m) { return m.AddContact("Family", ContactRow("aNNA")); }},
    {"UpdateContactData reloading", -13, Reloading, [](Manager& m) { return m.UpdateContactData("", ContactRow("", "")); }},
    {"UpdateContactData empty name", -100, Nothing, [](Manager& m) { return m.UpdateContactData("", ContactRow("x", "Family")); }},
    {"UpdateContactData unknown before the group", -5, Nothing, [](Manager& m) { return m.UpdateContactData("anna", ContactRow("x", "no group")); }},
    {"UpdateContactData no group before the name", -4, Nothing, [](Manager& m) { return m.UpdateContactData("Anna", ContactRow("Bob", "")); }},
    {"new name exact before the limits", -2, Limits(9, 0, 0), [](Manager& m) { return m.UpdateContactData("Anna", ContactRow("Bob", "Blacklist")); }},
    {"new name equal but for case", -2, Nothing, [](Manager& m) { return m.UpdateContactData("Anna", ContactRow("bOB", "Company")); }},
    {"new name into a full blacklist", -8, Limits(9, 9, 2), [](Manager& m) { return m.UpdateContactData("Anna", ContactRow("New", "Blacklist")); }},
    {"new name inside a lowered blacklist", -8, Limits(9, 9, 1), [](Manager& m) { return m.UpdateContactData("Bob", ContactRow("New", "Blacklist")); }},
    {"new name out to full ordinary", -7, Limits(9, 3, 9), [](Manager& m) { return m.UpdateContactData("Bob", ContactRow("bOB", "Family")); }},
    {"same name into a full blacklist", -8, Limits(9, 9, 2), [](Manager& m) { return m.UpdateContactData("Anna", ContactRow("Anna", "Blacklist")); }},
    {"same name out to full ordinary", -7, Limits(9, 3, 9), [](Manager& m) { return m.UpdateContactData("Bob", ContactRow("Bob", "Family")); }},
    {"RemoveContact reloading", -13, Reloading, [](Manager& m) { return m.RemoveContact("Anna"); }},
    {"RemoveContact other case", -5, Nothing, [](Manager& m) { return m.RemoveContact("anna"); }},
    {"RemoveContactList reloading", -13, Reloading, [](Manager& m) { return m.RemoveContactList(NameList({"Anna"})); }},
    {"RemoveAllContacts reloading", 0, Reloading, [](Manager& m) { return m.RemoveAllContacts(0); }},
    {"moves by name reloading", -13, Reloading, [](Manager& m) { return Move(m, {"Anna"}, "no group"); }},
    {"moves by name to no group", -4, Nothing, [](Manager& m) { return Move(m, {"Anna"}, ""); }},
    {"moves into a full blacklist", -8, Limits(9, 9, 2), [](Manager& m) { return Move(m, {"Anna", "Bob"}, "Blacklist"); }},
    {"moves one more than fits", -8, Limits(9, 9, 2), [](Manager& m) { return Move(m, {"Anna", "Dora"}, "Blacklist"); }},
    {"moves out to full ordinary", -7, Limits(9, 3, 9), [](Manager& m) { return Move(m, {"Bob"}, "Family"); }},
    {"SetContactGroupId reloading", -13, Reloading, [](Manager& m) { return m.SetContactGroupId("no contact", 9); }},
    {"SetContactGroupId no contact", -5, Nothing, [](Manager& m) { return m.SetContactGroupId("", 9); }},
    {"SetContactGroupId no group", -4, Nothing, [](Manager& m) { return m.SetContactGroupId("Anna", 4); }},
    {"Black2Local ordinary before reloading", -12, Reloading, [](Manager& m) { return m.Black2Local("Anna"); }},
    {"Black2Local no contact", -12, Nothing, [](Manager& m) { return m.Black2Local("bob"); }},
    {"Black2Local reloading", -13, Reloading, [](Manager& m) { return m.Black2Local("Bob"); }},
    {"Local2Black full before all else", -8, Limits(9, 9, 2), [](Manager& m) { return m.Local2Black("Bob"); }},
    {"Local2Black black before reloading", -10, Reloading, [](Manager& m) { return m.Local2Black("Bob"); }},
    {"Local2Black reloading", -13, Reloading, [](Manager& m) { return m.Local2Black("Anna"); }},
    {"Local2Black no contact", -5, Nothing, [](Manager& m) { return m.Local2Black("anna"); }},
    {"Local2Black no groups", -4, NoGroups, [](Manager& m) { return m.Local2Black("Anna"); }},
    {"SetDefaultPhoto null", -15, Nothing, [](Manager& m) { return m.SetDefaultPhoto(nullptr); }}};
// clang-format on

using RefusalTest = DirectoryTest;

TEST_F(RefusalTest, ChangesNothing)
{
    for (const RefusalRow& row : REFUSALS) {
        SCOPED_TRACE(row.m_pName);
        Start({{"Company"}, {"Family", "f"}}, {{"", "Company"},
                                               {"Anna", "Company", "1"},
                                               {"Bob", "Blacklist", "2"},
                                               {"Carl", "Blacklist"},
                                               {"Dora"}});
        row.m_prepare(Directory());
        ExpectRefused(row.m_nResult, [&row] { return row.m_pCall(Directory()); });
    }
}

}  // namespace
