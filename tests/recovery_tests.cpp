// Nothing is lost: through a broken group file, full lists and restarts.

#include "tests/support/directory_test.h"

using namespace NS_DIRECTORY;

namespace {

using RecoveryTest = DirectoryTest;

const ContactRows CONTACTS{
    {"Anna", "Company"}, {"Bob", "Blacklist"}, {"Carl", "Family"}, {"Dora"}, {"Emil", "Blacklist"}};

TEST_F(RecoveryTest, ContactsComeHomeAfterABrokenGroupFile)
{
    for (const bool bAtStart : {true, false}) {
        SCOPED_TRACE(bAtStart ? "broken at the start" : "broken under contacts in memory");
        Start({{"Company"}, {"Family"}}, CONTACTS);
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
        EXPECT_EQ(Directory().AddGroup(Group({"Other"})), 0);
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
        EXPECT_EQ(Directory().AddGroup(Group({"Family"})), 2);
        EXPECT_EQ(Directory().SetContactGroupId("Carl", GROUP_ID_ALL), 1);
        EXPECT_EQ(Directory().AddGroup(Group({"Company"})), 2);
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

TEST_F(RecoveryTest, AFullDirectoryKeepsEverybody)
{
    GroupRows groups;
    for (int n = 10; n < 58; ++n) {
        groups.push_back({"g" + std::to_string(n)});
    }
    ContactRows contacts;
    for (std::size_t n = 1000; n < 2032; ++n) {
        const bool bBlack = n >= 2000 && n <= 2030;
        contacts.push_back(
            {"c" + std::to_string(n), bBlack ? "Blacklist" : groups[n % 48].m_strName});
    }
    Start(groups, contacts);
    contacts.resize(1030);  // the last is one too many, as is the one before it for the blacklist
    Directory().MySetContactDirty(true);
    EXPECT_EQ(ReadFile(CONTACT_FILE), ContactFile(contacts));
    EXPECT_EQ(Directory().MyGetContactCountByGroupId(GROUP_ID_ALL), 1030);
    EXPECT_EQ(Directory().AddGroup(Group({"more"})), DIR_RET_GROUP_FULL);
    EXPECT_EQ(Directory().AddContact("g10", Contact({"more"})), DIR_RET_CONTACT_FULL);
    EXPECT_EQ(Directory().AddBlackContact(Contact({"more"})), DIR_RET_BLACK_FULL);
    // Nobody is lost over an empty group list, where all stand on one side.
    WriteFile(GROUP_FILE, "");
    Restart();
    EXPECT_EQ(Directory().GetCurrentContactCount(), 1030);
    EXPECT_EQ(Directory().AddGroup(Group({"g10"})), 0);
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
