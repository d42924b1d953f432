// Every refusal of every mutator: its result, and that it changed nothing in memory or on disk.

#include <functional>

#include "tests/support/directory_test.h"

using namespace NS_DIRECTORY;

namespace {

using Manager = CContactLocalManager;

using Preparation = std::function<void(Manager& m)>;

struct RefusalRow
{
    const char* m_pName;
    int m_nResult;
    Preparation m_prepare;  // what brings the refusal about
    int (*m_pCall)(Manager& m);
};

Preparation Limits(int nGroups, int nContacts, int nBlack)
{
    return [=](Manager& m) {
        (void)m.SetMaxGroupCount(nGroups);
        (void)m.SetMaxContactCount(nContacts);
        (void)m.SetMaxBlackCount(nBlack);
    };
}

const auto Nothing = [](Manager&) {};
const auto Reloading = [](Manager& m) { m.m_bReloadByHttp = true; };
const auto NoGenerator = [](Manager& m) { delete std::exchange(m.m_pIdGenerator, nullptr); };
const auto NoIds = [](Manager& m) { (void)m.m_pIdGenerator->SetBegin(INT_MAX); };
const auto NoUserGroups = [](Manager& m) { (void)m.RemoveAllGroup(); };
// The limit of ordinary contacts is reached, and there is one blacklisted contact.
const auto OneIsBlack = [](Manager& m) { (void)m.RemoveContact("Carl"), m.SetMaxContactCount(3); };

int Rename(Manager& m, const char* pName, const char* pNew)
{
    return m.UpdateGroupData(pName, Group({pNew}));
}

int Update(Manager& m, const char* pName, const char* pNew, const char* pGroup)
{
    return m.UpdateContactData(pName, Contact({pNew, pGroup, "9"}));
}

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
    {"AddGroup reloading", -13, Reloading, [](Manager& m) { return m.AddGroup(Group({""})); }},
    {"AddGroup exact name before the limit", -1, Limits(4, 9, 9), [](Manager& m) { return m.AddGroup(Group({"Family"})); }},
    {"AddGroup fixed name", -1, Nothing, [](Manager& m) { return m.AddGroup(Group({"Blacklist"})); }},
    {"AddGroup at the limit before the id", -9, Limits(4, 9, 9), [](Manager& m) { return m.AddGroup(Group({""})); }},
    {"AddGroup without generator", -3, NoGenerator, [](Manager& m) { return m.AddGroup(Group({""})); }},
    {"AddGroup out of ids", -3, NoIds, [](Manager& m) { return m.AddGroup(Group({"New"})); }},
    {"AddGroup empty name", -101, Nothing, [](Manager& m) { return m.AddGroup(Group({""})); }},
    {"AddGroup equal but for case", -1, Nothing, [](Manager& m) { return m.AddGroup(Group({"fAMILY"})); }},
    {"MyAddGroup id in use", -1, Nothing, [](Manager& m) { return m.MyAddGroup(Group({"New"}), 3); }},
    {"MyAddGroup no id", -101, Nothing, [](Manager& m) { return m.MyAddGroup(Group({"New"}), -5); }},
    {"MyCGD2GD no target", 0, Nothing, [](Manager& m) { return m.MyCGD2GD(nullptr, 2, {}); }},
    {"MyGD2CGD no target", 0, Nothing, [](Manager& m) { return m.MyGD2CGD(nullptr, {}); }},
    {"MyInsertGroup second head", -1, Nothing, [](Manager& m) { return m.MyInsertGroup({0, "All Contacts", "", true}, true); }},
    {"MyInsertGroup second end", -1, NoUserGroups, [](Manager& m) { return m.MyInsertGroup({1, "Blacklist", "", true}, true); }},
    {"MyCreateDefaultGroup where they are", 1, NoUserGroups, [](Manager& m) { return m.MyCreateDefaultGroup(); }},
    {"MyCGID2ID no target", 0, Nothing, [](Manager& m) { return m.MyCGID2ID(nullptr, 2, {}, false); }},
    {"MyCGID2ID no id", 0, Nothing, [](Manager& m) { Manager::ItemData item; return m.MyCGID2ID(&item, -1, {}, false); }},
    {"flags that are set already write nothing", 0, Nothing, SetFlagsAgain},
    {"UpdateGroupData reloading", -13, Reloading, [](Manager& m) { return Rename(m, "", ""); }},
    {"UpdateGroupData empty name", -101, Nothing, [](Manager& m) { return Rename(m, "", "New"); }},
    {"UpdateGroupData unknown name", -101, Nothing, [](Manager& m) { return Rename(m, "family", "New"); }},
    {"rename exact name before the limit", -1, Limits(1, 9, 9), [](Manager& m) { return Rename(m, "Family", "Company"); }},
    {"rename at a lowered limit before the name", -9, Limits(3, 9, 9), [](Manager& m) { return Rename(m, "Family", ""); }},
    {"rename empty", -101, Nothing, [](Manager& m) { return Rename(m, "Family", ""); }},
    {"rename equal but for case", -1, Nothing, [](Manager& m) { return Rename(m, "Family", "cOMPANY"); }},
    {"rename fixed equal but for case", -1, Limits(9, 4, 9), [](Manager& m) { return Rename(m, "Blacklist", "cOMPANY"); }},
    {"rename fixed without a slot", -9, Limits(4, 9, 9), [](Manager& m) { return Rename(m, "All Contacts", "New"); }},
    {"rename blacklist past the ordinary limit", -7, Limits(9, 4, 9), [](Manager& m) { return Rename(m, "Blacklist", "New"); }},
    {"rename blacklist of one to full ordinary", -7, OneIsBlack, [](Manager& m) { return Rename(m, "Blacklist", "New"); }},
    {"RemoveGroup reloading", -13, Reloading, [](Manager& m) { return m.RemoveGroup("Family"); }},
    {"RemoveGroup empty", -4, Nothing, [](Manager& m) { return m.RemoveGroup(""); }},
    {"RemoveGroup other case", -4, Nothing, [](Manager& m) { return m.RemoveGroup("family"); }},
    {"RemoveGroup fixed", -6, Nothing, [](Manager& m) { return m.RemoveGroup("Blacklist"); }},
    {"RemoveAllGroup reloading", -13, Reloading, [](Manager& m) { return m.RemoveAllGroup(); }},
    {"RemoveAllGroup none left", -4, NoUserGroups, [](Manager& m) { return m.RemoveAllGroup(); }},
    {"AddContact reloading", -13, Reloading, [](Manager& m) { return m.AddContact("no group", Contact({"New"})); }},
    {"AddContact other case", -4, Nothing, [](Manager& m) { return m.AddContact("company", Contact({"New"})); }},
    {"AddContact no group", -4, Nothing, [](Manager& m) { return m.AddContact("", Contact({"New"})); }},
    {"AddContactById reloading", -13, Reloading, [](Manager& m) { return m.AddContactById(9, Contact({"New"})); }},
    {"AddContactById no group", -3, Nothing, [](Manager& m) { return m.AddContactById(4, Contact({"New"})); }},
    {"AddContactById no id", -3, Nothing, [](Manager& m) { return m.AddContactById(-1, Contact({"New"})); }},
    {"add to a full blacklist before the name", -8, Limits(9, 9, 2), [](Manager& m) { return m.AddContactById(1, Contact({"Anna"})); }},
    {"add to full ordinary before the name", -7, Limits(9, 3, 9), [](Manager& m) { return m.AddContact("Family", Contact({"Anna"})); }},
    {"AddBlackContact at the limit", -8, Limits(9, 9, 2), [](Manager& m) { return m.AddBlackContact(Contact({"New"})); }},
    {"add equal but for case elsewhere", -2, Nothing, [](Manager& m) { return m.AddContact("Family", Contact({"aNNA"})); }},
    {"add a second nameless one", -2, Nothing, [](Manager& m) { return m.AddContact("Family", Contact({""})); }},
    {"UpdateContactData reloading", -13, Reloading, [](Manager& m) { return Update(m, "", "", ""); }},
    {"UpdateContactData empty name", -100, Nothing, [](Manager& m) { return Update(m, "", "x", "Family"); }},
    {"UpdateContactData unknown before the group", -5, Nothing, [](Manager& m) { return Update(m, "anna", "x", "no group"); }},
    {"UpdateContactData no group before the name", -4, Nothing, [](Manager& m) { return Update(m, "Anna", "Bob", ""); }},
    {"new name exact before the limits", -2, Limits(9, 0, 0), [](Manager& m) { return Update(m, "Anna", "Bob", "Blacklist"); }},
    {"new name equal but for case", -2, Nothing, [](Manager& m) { return Update(m, "Anna", "bOB", "Company"); }},
    {"new name empty where one is", -2, Nothing, [](Manager& m) { return Update(m, "Anna", "", "Company"); }},
    {"new name into a full blacklist", -8, Limits(9, 9, 2), [](Manager& m) { return Update(m, "Anna", "New", "Blacklist"); }},
    {"new name inside a lowered blacklist", -8, Limits(9, 9, 1), [](Manager& m) { return Update(m, "Bob", "New", "Blacklist"); }},
    {"new name out to full ordinary", -7, Limits(9, 3, 9), [](Manager& m) { return Update(m, "Bob", "bOB", "Family"); }},
    {"new name inside lowered ordinary", -7, Limits(9, 2, 9), [](Manager& m) { return Update(m, "Anna", "New", "Company"); }},
    {"same name into a full blacklist", -8, Limits(9, 9, 2), [](Manager& m) { return Update(m, "Anna", "Anna", "Blacklist"); }},
    {"same name out to full ordinary", -7, Limits(9, 3, 9), [](Manager& m) { return Update(m, "Bob", "Bob", "Family"); }},
    {"RemoveContact reloading", -13, Reloading, [](Manager& m) { return m.RemoveContact("Anna"); }},
    {"RemoveContact other case", -5, Nothing, [](Manager& m) { return m.RemoveContact("anna"); }},
    {"RemoveContactList reloading", -13, Reloading, [](Manager& m) { return m.RemoveContactList(NameList({"Anna"})); }},
    {"RemoveAllContacts reloading", 0, Reloading, [](Manager& m) { return m.RemoveAllContacts(0); }},
    {"moves by name reloading", -13, Reloading, [](Manager& m) { return Move(m, {"Anna"}, "no group"); }},
    {"moves by name to no group", -4, Nothing, [](Manager& m) { return Move(m, {"Anna"}, ""); }},
    {"moves into a full blacklist", -8, Limits(9, 9, 2), [](Manager& m) { return Move(m, {"Anna", "Bob"}, "Blacklist"); }},
    {"moves one more than fits", -8, Limits(9, 9, 2), [](Manager& m) { return Move(m, {"Anna", "Dora"}, "Blacklist"); }},
    {"moves out to full ordinary", -7, Limits(9, 3, 9), [](Manager& m) { return Move(m, {"Bob"}, "Family"); }},
    {"moves that need no slot above the limit", -7, Limits(9, 2, 9), [](Manager& m) { return Move(m, {"Anna"}, "Family"); }},
    {"moves with the lowest limit", -8, Limits(9, 9, INT_MIN), [](Manager& m) { return Move(m, {"Bob"}, "Blacklist"); }},
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
    {"SetDefaultPhoto null", -15, Nothing, [](Manager& m) { return m.SetDefaultPhoto(nullptr); }}};
// clang-format on

using RefusalTest = DirectoryTest;

TEST_F(RefusalTest, ChangesNothing)
{
    const ContactRows contacts{{"", "Company"},
                               {"Anna", "Company", "1"},
                               {"Bob", "Blacklist", "2"},
                               {"Carl", "Blacklist"},
                               {"Dora"}};
    for (const RefusalRow& row : REFUSALS) {
        SCOPED_TRACE(row.m_pName);
        Start({{"Company"}, {"Family", "f"}}, contacts);
        row.m_prepare(Directory());
        ExpectRefused(row.m_nResult, [&row] { return row.m_pCall(Directory()); });
    }
}

}  // namespace
