// Nothing is lost: through a broken group file, lowered limits, full lists and restarts.

#include "tests/support/directory_test.h"

using namespace NS_DIRECTORY;

namespace {

class RecoveryTest : public DirectoryTest
{
  protected:
    // "name group" of each contact, by the group's name.
    static Texts Homes()
    {
        Texts homes;
        for (const auto* pos = Directory().m_listContact.begin();
             pos != Directory().m_listContact.end(); pos = pos->next) {
            homes.push_back(pos->value->m_strDisplayName.c_str() +
                            (' ' + GroupOf(pos->value->m_nGroupId)));
        }
        return homes;
    }

    static std::string GroupOf(int nId) { return Directory().MyGId2Name(nId).c_str(); }

    static void AddGroup(const char* pName) { EXPECT_GE(Directory().AddGroup(Group({pName})), 0); }
};

const std::vector<GroupRow> GROUPS{{"Company"}, {"Family"}};
const std::vector<ContactRow> CONTACTS{
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
            EXPECT_EQ(ReadFile(CONTACT_FILE), ContactFile(CONTACTS))
                << "the names were kept in time";
            EXPECT_EQ(Directory().ReloadContactXml(), 1);
        }
        EXPECT_EQ(Directory().GetCurrentContactCount(), 5) << "all stand in group 0";
        EXPECT_EQ(Directory().GetCurrentGroupCount(), 0);
        EXPECT_EQ(Directory().RemoveContact("Emil"), 1);
        (void)Directory().SetMaxBlackCount(0);
        AddGroup("Other");
        EXPECT_EQ(Homes(), (Texts{"Anna All Contacts", "Bob Blacklist", "Carl All Contacts",
                                  "Dora All Contacts"}));
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
        EXPECT_EQ(Homes(), (Texts{"Bob Blacklist", "Carl All Contacts", "Dora All Contacts",
                                  "Zoe Company"}));
        EXPECT_TRUE(Directory().MyFindContact("Zoe")->m_strKeptGroupName.empty());
    }
    // A restart over a whole group list keeps nothing.
    Start({}, CONTACTS);
    Directory().MySetContactDirty(true);
    EXPECT_EQ(Directory().GetContactGroupId("Anna"), GROUP_ID_ALL);
    EXPECT_NE(ReadFile(CONTACT_FILE).find("\"Anna\""), std::string::npos);
    EXPECT_EQ(ReadFile(CONTACT_FILE).find("Company"), std::string::npos);
}

TEST_F(RecoveryTest, AGroupAddedToAnEmptyListMakesTheDirectoryWhole)
{
    WriteFile(GROUP_FILE, "");
    (void)Directory().SetMaxGroupCount(1);
    ExpectDone(0, {GROUP_FILE}, [] { return Directory().AddGroup(Group({"New"})); });
    EXPECT_EQ(Directory().GetCurrentGroupCount(), 3) << "the fixed groups took no slot";
    EXPECT_EQ(Directory().MyFindGroupByDisplayName("New")->m_nId, 2);
    EXPECT_TRUE(Directory().MyFindGroupByDisplayName("New")->m_bReadOnly)
        << "the generator stood before its start";
    EXPECT_EQ(Directory().GetMaxGroupCount(), 1);
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
    ExpectDone(1, {CONTACT_FILE, CONTACT_FILE, GROUP_FILE},
               [] { return Directory().RemoveGroup("Company"); });
    EXPECT_EQ(Homes(), (Texts{"Anna All Contacts", "Bob Blacklist", "Carl Family",
                              "Dora All Contacts", "Emil Blacklist"}));
}

TEST_F(RecoveryTest, AFullDirectoryKeepsEverybody)
{
    std::vector<GroupRow> groups;
    for (int n = 10; n < 58; ++n) {
        groups.push_back({"g" + std::to_string(n)});
    }
    std::vector<ContactRow> contacts;
    for (int n = 1000; n < 2030; ++n) {
        contacts.push_back(
            {"c" + std::to_string(n),
             n < 2000 ? groups[static_cast<size_t>(n % 48)].m_strName : "Blacklist"});
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
        ASSERT_GE(Directory().UpdateGroupData(row.m_strName.c_str(), Group({'n' + row.m_strName})),
                  0)
            << row.m_strName;
    }
    Restart();
    for (ContactRow& row : contacts) {
        const std::string strHome =
            row.m_strGroup == "Blacklist" ? row.m_strGroup : 'n' + row.m_strGroup;
        ASSERT_EQ(GroupOf(Directory().GetContactGroupId(row.m_strName.c_str())), strHome)
            << row.m_strName;
        row.m_strGroup = strHome == "Blacklist" ? strHome : "All Contacts";
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
