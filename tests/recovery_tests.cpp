// Nothing is lost: through a broken group file, lowered limits, full lists and restarts.

#include "tests/support/directory_test.h"

using namespace NS_DIRECTORY;

namespace {

class RecoveryTest : public DirectoryTest
{
  protected:
    static void AddGroup(const char* pName) { EXPECT_GE(Directory().AddGroup(Group({pName})), 0); }
};

const GroupRows GROUPS{{"Company"}, {"Family"}};
const ContactRows CONTACTS{
    {"Anna", "Company"}, {"Bob", "Blacklist"}, {"Carl", "Family"}, {"Dora"}, {"Emil", "Blacklist"}};

TEST_F(RecoveryTest, ContactsComeHomeAfterABrokenGroupFile)
{
    for (const bool bAtStart : {true, false}) {
        SCOPED_TRACE(bAtStart ? "broken at the start" : "broken under contacts in memory");
        Start(GROUPS, CONTACTS);
        WriteFile(GROUP_FILE, "<root_grou");
        if (bAtStart) {
            Restart();
        } else {
            EXPECT_EQ(Directory().ReloadGroupXml(), 0);
            Directory().MySetContactDirty(true);
            EXPECT_EQ(ReadFile(CONTACT_FILE), ContactFile(CONTACTS)) << "names kept in time";
            EXPECT_EQ(Directory().ReloadContactXml(), 1);
        }
        EXPECT_EQ(Groups(), Texts{});
        EXPECT_EQ(Directory().GetCurrentContactCount(), 5) << "all stand in group 0";
        EXPECT_EQ(Directory().RemoveContact("Emil"), 1);
        (void)Directory().SetMaxBlackCount(0);
        AddGroup("Other");
        EXPECT_EQ(Contacts(), (Texts{"Anna 0", "Bob 1", "Carl 0", "Dora 0"}));
        // Edits that leave a contact where it stands leave it on its way home; a move does not.
        EXPECT_EQ(Directory().MoveContactToGroup("Anna", "All Contacts"), 0);
        EXPECT_EQ(Directory().SetContactGroupId("Anna", GROUP_ID_ALL), 1);
        EXPECT_EQ(Directory().UpdateContactData("Anna", Contact({"Anna", "All Contacts", "1"})), 1);
        EXPECT_EQ(Directory().UpdateContactData("Anna", Contact({"Zoe", "All Contacts", "1"})), 3);
        EXPECT_EQ(
            ReadFile(CONTACT_FILE),
            ContactFile(
                {{"Bob", "Blacklist"}, {"Carl", "Family"}, {"Dora"}, {"Zoe", "Company", "1"}}));
        AddGroup("Family");
        EXPECT_EQ(Directory().SetContactGroupId("Carl", GROUP_ID_ALL), 1);
        AddGroup("Company");
        EXPECT_EQ(Contacts(), (Texts{"Bob 1", "Carl 0", "Dora 0", "Zoe 2"}));
        EXPECT_TRUE(Directory().MyFindContact("Zoe")->m_strKeptGroupName.empty());
    }
    // A restart over a whole group list keeps nothing.
    Start({}, CONTACTS);
    Directory().MySetContactDirty(true);
    EXPECT_EQ(
        ReadFile(CONTACT_FILE),
        ContactFile({{"Anna"}, {"Bob", "Blacklist"}, {"Carl"}, {"Dora"}, {"Emil", "Blacklist"}}));
}

TEST_F(RecoveryTest, AGroupAddedToAnEmptyListMakesTheDirectoryWhole)
{
    WriteFile(GROUP_FILE, "");
    (void)Directory().SetMaxGroupCount(1);
    ExpectDone(0, {GROUP_FILE}, [] { return Directory().AddGroup(Group({"New"})); });
    EXPECT_EQ(Groups(), (Texts{"All Contacts 0", "Blacklist 1", "New 2"})) << "past the limit";
    EXPECT_TRUE(Directory().MyFindGroupById(2)->m_bReadOnly)
        << "the generator stood before its start";
}

TEST_F(RecoveryTest, LoweredLimitsCostNothingThatIsStored)
{
    Start(GROUPS, CONTACTS);
    for (const int nLimit : {1, 0, INT_MIN}) {
        (void)Directory().SetMaxGroupCount(nLimit);
        (void)Directory().SetMaxContactCount(nLimit);
        (void)Directory().SetMaxBlackCount(nLimit);
        const std::string strBefore = State();
        EXPECT_EQ(Directory().ReloadGroupXml(), 1);
        EXPECT_EQ(Directory().ReloadContactXml(), 1);
        EXPECT_EQ(State(), strBefore);
        // What came into the file since meets the limit as it was set.
        WriteFile(GROUP_FILE, GroupFile({{"Company"}, {"Family"}, {"New"}}));
        EXPECT_EQ(Directory().ReloadGroupXml(), 0);
        EXPECT_EQ(Directory().GetCurrentGroupCount(), 4);
        WriteFile(GROUP_FILE, GroupFile(GROUPS));
    }
    EXPECT_EQ(Directory().RemoveGroup("Company"), 1);
    EXPECT_EQ(Contacts(), (Texts{"Anna 0", "Bob 1", "Carl 2", "Dora 0", "Emil 1"}));
}

TEST_F(RecoveryTest, AFullDirectoryKeepsEverybody)
{
    GroupRows groups;
    for (int n = 10; n < 58; ++n) {
        groups.push_back({"g" + std::to_string(n)});
    }
    ContactRows contacts;
    for (std::size_t n = 1000; n < 2030; ++n) {
        contacts.push_back(
            {"c" + std::to_string(n), n < 2000 ? groups[n % 48].m_strName : "Blacklist"});
    }
    Start(groups, contacts);
    EXPECT_EQ(Directory().AddGroup(Group({"more"})), DIR_RET_GROUP_FULL);
    EXPECT_EQ(Directory().AddContact("g10", Contact({"more"})), DIR_RET_CONTACT_FULL);
    EXPECT_EQ(Directory().AddBlackContact(Contact({"more"})), DIR_RET_BLACK_FULL);
    // Nobody is lost over an empty group list, where all stand on one side.
    WriteFile(GROUP_FILE, "");
    Restart();
    EXPECT_EQ(Directory().GetCurrentContactCount(), 1030);
    AddGroup("g10");
    EXPECT_EQ(Directory().GetCurrentBlackCount(), 30);
    WriteFile(GROUP_FILE, GroupFile(groups));
    EXPECT_EQ(Directory().ReloadGroupXml(), 1);
    EXPECT_EQ(Directory().ReloadContactXml(), 1);
    for (const GroupRow& row : groups) {
        const ContactGroupData renamed = Group({'n' + row.m_strName});
        ASSERT_GE(Directory().UpdateGroupData(row.m_strName.c_str(), renamed), 0) << row.m_strName;
    }
    Restart();
    for (ContactRow& row : contacts) {
        row.m_strGroup.insert(0, row.m_strGroup == "Blacklist" ? "" : "n");
    }
    EXPECT_EQ(ReadFile(CONTACT_FILE), ContactFile(contacts));
    EXPECT_EQ(Directory().GetContactGroupId("c1000"), 2 + 1000 % 48);
    for (ContactRow& row : contacts) {
        row.m_strGroup = row.m_strGroup == "Blacklist" ? row.m_strGroup : "All Contacts";
    }
    for (const GroupRow& row : groups) {
        ASSERT_EQ(Directory().RemoveGroup(('n' + row.m_strName).c_str()), 1) << row.m_strName;
    }
    Restart();
    EXPECT_EQ(ReadFile(GROUP_FILE), GroupFile({}));
    EXPECT_EQ(ReadFile(CONTACT_FILE), ContactFile(contacts));
    EXPECT_EQ(Directory().GetCurrentContactCount(), 1000);
}

}  // namespace
