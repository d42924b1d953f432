// Every refusal of every mutator: its result, and that it changed nothing in memory or on disk.

#include <functional>

#include "tests/support/directory_test.h"

using namespace NS_DIRECTORY;

namespace {

using Call = std::function<int(CContactLocalManager&)>;

struct RefusalRow
{
    const char* m_pName;
    int m_nResult;
    Call m_call;
    Call m_prepare = nullptr;  // what brings the refusal about
};

Call Limits(int nGroups, int nContacts, int nBlack)
{
    return [=](CContactLocalManager& directory) {
        (void)directory.SetMaxGroupCount(nGroups);
        (void)directory.SetMaxContactCount(nContacts);
        return directory.SetMaxBlackCount(nBlack);
    };
}

int Reloading(CContactLocalManager& directory)
{
    return directory.m_bReloadByHttp = true;
}

int NoGenerator(CContactLocalManager& directory)
{
    delete directory.m_pIdGenerator;
    directory.m_pIdGenerator = nullptr;
    return 0;
}

Call AddGroup(const GroupRow& row)
{
    return [=](CContactLocalManager& directory) { return directory.AddGroup(Group(row)); };
}

Call RenameGroup(const char* pName, const char* pNew)
{
    return [=](CContactLocalManager& directory) {
        return directory.UpdateGroupData(pName, Group({pNew}));
    };
}

Call Add(const char* pGroup, const char* pName)
{
    return [=](CContactLocalManager& directory) {
        return directory.AddContact(pGroup, Contact({pName}));
    };
}

Call Update(const char* pName, const char* pNew, const char* pGroup)
{
    return [=](CContactLocalManager& directory) {
        return directory.UpdateContactData(pName, Contact({pNew, pGroup, "9"}));
    };
}

// The list is left as it was too.
Call MoveList(const Texts& names, const char* pGroup)
{
    return [=](CContactLocalManager& directory) {
        QZList<String> list;
        for (const std::string& strName : names) {
            list.push_back(strName.c_str());
        }
        const int nResult = directory.MoveListToGroup(list, pGroup);
        EXPECT_EQ(directory.IsListCanMove(list, pGroup), nResult);
        EXPECT_EQ(directory.MoveContactToGroup(names.front().c_str(), pGroup), nResult);
        EXPECT_EQ(list.size(), names.size());
        return nResult;
    };
}

Call Of(int (CContactLocalManager::*pOperation)(const String&), const char* pName)
{
    return [=](CContactLocalManager& directory) { return (directory.*pOperation)(pName); };
}

int RemoveAllGroup(CContactLocalManager& directory)
{
    return directory.RemoveAllGroup();
}

int RemoveEveryContact(CContactLocalManager& directory)
{
    return directory.RemoveAllContacts(0);
}

int RemoveNamed(CContactLocalManager& directory)
{
    return directory.RemoveContactList(QZList<String>());
}

Call SetGroup(const char* pName, int nId)
{
    return [=](CContactLocalManager& directory) { return directory.SetContactGroupId(pName, nId); };
}

Call AddById(int nId, const char* pName)
{
    return [=](CContactLocalManager& directory) {
        return directory.AddContactById(nId, Contact({pName}));
    };
}

// Groups: All Contacts 0, Blacklist 1, Company 2, Family 3. Contacts: "" and Anna in Company, Bob
// and Carl in Blacklist, Dora in All Contacts.
// clang-format off
const std::vector<RefusalRow> REFUSALS{
    {"AddGroup reloading", -13, AddGroup({""}), Reloading},
    {"AddGroup exact name before the limit", -1, AddGroup({"Family"}), Limits(4, 9, 9)},
    {"AddGroup fixed name", -1, AddGroup({"Blacklist"})},
    {"AddGroup at the limit before the id", -9, AddGroup({""}), Limits(4, 9, 9)},
    {"AddGroup without generator", -3, AddGroup({""}), NoGenerator},
    {"AddGroup out of ids", -3, AddGroup({"New"}),
     [](CContactLocalManager& directory) { return directory.m_pIdGenerator->SetBegin(INT_MAX); }},
    {"AddGroup empty name", -101, AddGroup({""})},
    {"AddGroup equal but for case", -1, AddGroup({"fAMILY"})},
    {"MyAddGroup id in use", -1, [](CContactLocalManager& directory) { return directory.MyAddGroup(Group({"New"}), 3); }},
    {"MyAddGroup no id", -101, [](CContactLocalManager& directory) { return directory.MyAddGroup(Group({"New"}), -5); }},
    {"MyCGD2GD no target", 0, [](CContactLocalManager& directory) { return directory.MyCGD2GD(nullptr, 2, {}); }},
    {"MyGD2CGD no target", 0, [](CContactLocalManager& directory) { return directory.MyGD2CGD(nullptr, {}); }},
    {"MyInsertGroup a second head", -1,
     [](CContactLocalManager& directory) { return directory.MyInsertGroup({0, "All Contacts", "", true}, true); }},
    {"MyCreateDefaultGroup where they are", 1,
     [](CContactLocalManager& directory) { return directory.MyCreateDefaultGroup(); }, RemoveAllGroup},
    {"MyCGID2ID no target", 0,
     [](CContactLocalManager& directory) { return directory.MyCGID2ID(nullptr, 2, {}, false); }},
    {"MyCGID2ID no id", 0,
     [](CContactLocalManager& directory) {
         CContactLocalManager::ItemData item;
         return directory.MyCGID2ID(&item, -1, {}, false);
     }},
    {"flags that are set already write nothing", 0,
     [](CContactLocalManager& directory) {
         directory.m_bGroupDirty = directory.m_bContactDirty = true;
         directory.MySetGroupDirty(true);
         directory.MySetContactDirty(true);
         directory.m_bGroupDirty = directory.m_bContactDirty = false;
         return 0;
     }},
    {"UpdateGroupData reloading", -13, RenameGroup("", ""), Reloading},
    {"UpdateGroupData empty name", -101, RenameGroup("", "New")},
    {"UpdateGroupData unknown name", -101, RenameGroup("family", "New")},
    {"rename exact name before the limit", -1, RenameGroup("Family", "Company"), Limits(1, 9, 9)},
    {"rename at a lowered limit before the name", -9, RenameGroup("Family", ""), Limits(3, 9, 9)},
    {"rename empty", -101, RenameGroup("Family", "")},
    {"rename equal but for case", -1, RenameGroup("Family", "cOMPANY")},
    {"rename fixed equal but for case", -1, RenameGroup("Blacklist", "cOMPANY"), Limits(9, 4, 9)},
    {"rename fixed without a slot", -9, RenameGroup("All Contacts", "New"), Limits(4, 9, 9)},
    {"rename blacklist past the ordinary limit", -7, RenameGroup("Blacklist", "New"),
     Limits(9, 4, 9)},
    {"RemoveGroup reloading", -13, Of(&CContactLocalManager::RemoveGroup, "Family"), Reloading},
    {"RemoveGroup empty", -4, Of(&CContactLocalManager::RemoveGroup, "")},
    {"RemoveGroup other case", -4, Of(&CContactLocalManager::RemoveGroup, "family")},
    {"RemoveGroup fixed", -6, Of(&CContactLocalManager::RemoveGroup, "Blacklist")},
    {"RemoveAllGroup reloading", -13, RemoveAllGroup, Reloading},
    {"RemoveAllGroup none left", -4, RemoveAllGroup, RemoveAllGroup},
    {"AddContact reloading", -13, Add("no group", "New"), Reloading},
    {"AddContact other case", -4, Add("company", "New")},
    {"AddContact no group", -4, Add("", "New")},
    {"AddContactById reloading", -13, AddById(9, "New"), Reloading},
    {"AddContactById no group", -3, AddById(4, "New")},
    {"AddContactById no id", -3, AddById(-1, "New")},
    {"add to a full blacklist before the name", -8, AddById(1, "Anna"), Limits(9, 9, 2)},
    {"add to full ordinary contacts before the name", -7, Add("Family", "Anna"), Limits(9, 3, 9)},
    {"AddBlackContact at the limit", -8,
     [](CContactLocalManager& directory) { return directory.AddBlackContact(Contact({"New"})); },
     Limits(9, 9, 2)},
    {"add equal but for case in another group", -2, Add("Family", "aNNA")},
    {"add a second nameless one", -2, Add("Family", "")},
    {"UpdateContactData reloading", -13, Update("", "", ""), Reloading},
    {"UpdateContactData empty name", -100, Update("", "x", "Family")},
    {"UpdateContactData unknown before the group", -5, Update("anna", "x", "no group")},
    {"UpdateContactData no group before the name", -4, Update("Anna", "Bob", "")},
    {"new name exact before the limits", -2, Update("Anna", "Bob", "Blacklist"), Limits(9, 0, 0)},
    {"new name equal but for case", -2, Update("Anna", "bOB", "Company")},
    {"new name empty where one is", -2, Update("Anna", "", "Company")},
    {"new name into a full blacklist", -8, Update("Anna", "New", "Blacklist"), Limits(9, 9, 2)},
    {"new name inside a lowered blacklist", -8, Update("Bob", "New", "Blacklist"), Limits(9, 9, 1)},
    {"new name out to full ordinary contacts", -7, Update("Bob", "bOB", "Family"), Limits(9, 3, 9)},
    {"new name inside lowered ordinary contacts", -7, Update("Anna", "New", "Company"),
     Limits(9, 2, 9)},
    {"same name into a full blacklist", -8, Update("Anna", "Anna", "Blacklist"), Limits(9, 9, 2)},
    {"same name out to full ordinary contacts", -7, Update("Bob", "Bob", "Family"),
     Limits(9, 3, 9)},
    {"RemoveContact reloading", -13, Of(&CContactLocalManager::RemoveContact, "Anna"), Reloading},
    {"RemoveContact other case", -5, Of(&CContactLocalManager::RemoveContact, "anna")},
    {"RemoveContactList reloading", -13, RemoveNamed, Reloading},
    {"RemoveAllContacts reloading", 0, RemoveEveryContact, Reloading},
    {"moves by name reloading", -13, MoveList({"Anna"}, "no group"), Reloading},
    {"moves by name to no group", -4, MoveList({"Anna"}, "")},
    {"moves into a full blacklist", -8, MoveList({"Anna", "Bob"}, "Blacklist"), Limits(9, 9, 2)},
    {"moves one more than fits", -8, MoveList({"Anna", "Dora"}, "Blacklist"), Limits(9, 9, 2)},
    {"moves out to full ordinary contacts", -7, MoveList({"Bob"}, "Family"), Limits(9, 3, 9)},
    {"moves that need no slot above the limit", -7, MoveList({"Anna"}, "Family"), Limits(9, 2, 9)},
    {"moves with the lowest limit", -8, MoveList({"Bob"}, "Blacklist"), Limits(9, 9, INT_MIN)},
    {"SetContactGroupId reloading", -13, SetGroup("no contact", 9), Reloading},
    {"SetContactGroupId no contact", -5, SetGroup("", 9)},
    {"SetContactGroupId no group", -4, SetGroup("Anna", 4)},
    {"Black2Local ordinary before reloading", -12, Of(&CContactLocalManager::Black2Local, "Anna"),
     Reloading},
    {"Black2Local no contact", -12, Of(&CContactLocalManager::Black2Local, "bob")},
    {"Black2Local reloading", -13, Of(&CContactLocalManager::Black2Local, "Bob"), Reloading},
    {"Local2Black full before all else", -8, Of(&CContactLocalManager::Local2Black, "Bob"),
     Limits(9, 9, 2)},
    {"Local2Black black before reloading", -10, Of(&CContactLocalManager::Local2Black, "Bob"),
     Reloading},
    {"Local2Black reloading", -13, Of(&CContactLocalManager::Local2Black, "Anna"), Reloading},
    {"Local2Black no contact", -5, Of(&CContactLocalManager::Local2Black, "anna")},
    {"SetDefaultPhoto null", -15,
     [](CContactLocalManager& directory) { return directory.SetDefaultPhoto(nullptr); }},
};
// clang-format on

class RefusalTest : public DirectoryTest
{};

TEST_F(RefusalTest, ChangesNothing)
{
    for (const RefusalRow& row : REFUSALS) {
        SCOPED_TRACE(row.m_pName);
        Start({{"Company"}, {"Family", "f"}}, {{"", "Company"},
                                               {"Anna", "Company", "1"},
                                               {"Bob", "Blacklist", "2"},
                                               {"Carl", "Blacklist"},
                                               {"Dora"}});
        if (row.m_prepare != nullptr) {
            (void)row.m_prepare(Directory());
        }
        ExpectRefused(row.m_nResult, [&row] { return row.m_call(Directory()); });
    }
}

}  // namespace
