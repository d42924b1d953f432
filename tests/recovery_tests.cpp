// Nothing is lost: through a broken group file, full lists and restarts.

#include "tests/support/directory_test.h"

namespace {

using RecoveryTest = DirectoryTest;

TEST_F(RecoveryTest, ContactsComeHomeAfterABrokenGroupFile)
{
    const ContactRows contacts{
        {"Anna", "Company"}, {"Bob", "Blacklist"}, {"Carl", "Family"}, {"Dora"}, {"Ed", "Company"}};
    Start({{"Company"}, {"Family"}}, contacts);
    WriteFile(GROUP_FILE, "<root_grou");
    EXPECT_EQ(Directory().ReloadGroupXml(), 0);
    Directory().MySetContactDirty(true);
    EXPECT_EQ(ReadFile(CONTACT_FILE), ContactFile(contacts)) << "names kept in time";
    Restart();
    EXPECT_EQ(Contacts(), (Texts{"Anna 0", "Bob 0", "Carl 0", "Dora 0", "Ed 0"}));
    (void)Directory().SetMaxBlackCount(0);
    (void)Directory().SetMaxGroupCount(1);
    EXPECT_EQ(Directory().AddGroup(GroupRow("Other")), 0) << "the fixed groups come on top";
    (void)Directory().SetMaxGroupCount(9);
    EXPECT_EQ(Contacts(), (Texts{"Anna 0", "Bob 1", "Carl 0", "Dora 0", "Ed 0"}));
    // Whoever keeps the group stays on the way home; a move ends it.
    EXPECT_EQ(Directory().UpdateContactData("Anna", ContactRow("Zoe")), 4);
    EXPECT_EQ(Directory().SetContactGroupId("Carl", GROUP_ID_ALL), 1);
    EXPECT_EQ(Directory().UpdateContactData("Ed", ContactRow("Fay", "Other")), 0);
    EXPECT_EQ(Directory().AddGroup(GroupRow("Family")), 2);
    EXPECT_EQ(Directory().SetContactGroupId("Carl", GROUP_ID_ALL), 1);
    EXPECT_EQ(Directory().AddGroup(GroupRow("Company")), 2);
    EXPECT_EQ(Contacts(), (Texts{"Bob 1", "Carl 0", "Dora 0", "Fay 4", "Zoe 2"}));
    // A limit that is passed refuses a new name of the blacklist, as long as that holds anybody.
    (void)Directory().SetMaxContactCount(4);
    EXPECT_EQ(Directory().UpdateGroupData("Blacklist", GroupRow("Was")), DIR_RET_CONTACT_FULL);
    (void)Directory().SetMaxContactCount(5);
    EXPECT_EQ(Directory().UpdateGroupData("Blacklist", GroupRow("Was")), 4);
    (void)Directory().SetMaxContactCount(3);
    EXPECT_EQ(Directory().UpdateGroupData("Blacklist", GroupRow("Zero")), 5);
}

TEST_F(RecoveryTest, AFullDirectoryKeepsEverybody)
{
    GroupRows groups;
    for (int n = 10; n < 58; ++n) {
        groups.emplace_back("g" + std::to_string(n));
    }
    // Those of the blacklist behind a thousand others, who stand in groups of this kind of name.
    const auto contacts = [](int nCount, const std::string& strGroup) {
        ContactRows rows;
        for (int n = 1000; n < 1000 + nCount; ++n) {
            const std::string strNumber =
                strGroup == "All Contacts" ? "" : std::to_string(10 + n % 48);
            rows.emplace_back("c" + std::to_string(n),
                              n < 2000 ? strGroup + strNumber : "Blacklist");
        }
        return rows;
    };
    ContactRows tooMany = contacts(1031, "g");  // by one for the blacklist
    tooMany.emplace_back("z", "g10");           // and by one ordinary one
    Start(groups, tooMany);
    Directory().MySetContactDirty(true);
    EXPECT_EQ(ReadFile(CONTACT_FILE), ContactFile(contacts(1030, "g")));
    EXPECT_EQ(Directory().MyGetContactCountByGroupId(GROUP_ID_ALL), 1030);
    EXPECT_EQ(Directory().AddGroup(GroupRow("more")), DIR_RET_GROUP_FULL);
    EXPECT_EQ(Directory().AddContact("g10", ContactRow("more")), DIR_RET_CONTACT_FULL);
    EXPECT_EQ(Directory().AddBlackContact(ContactRow("more")), DIR_RET_BLACK_FULL);
    // Nobody is lost over an empty group list, where all stand on one side.
    WriteFile(GROUP_FILE, "");
    Restart();
    EXPECT_EQ(Directory().GetCurrentContactCount(), 1030);
    EXPECT_EQ(Directory().AddGroup(GroupRow("g10")), 0);
    EXPECT_EQ(Directory().GetCurrentBlackCount(), 30);
    WriteFile(GROUP_FILE, GroupFile(groups));
    EXPECT_EQ(Directory().ReloadGroupXml() * Directory().ReloadContactXml(), 1);
    for (const GroupRow& row : groups) {
        const GroupRow renamed(std::string("n") + row.m_strDisplayName.c_str());
        ASSERT_GE(Directory().UpdateGroupData(row.m_strDisplayName, renamed), 0);
    }
    Restart();
    EXPECT_EQ(ReadFile(CONTACT_FILE), ContactFile(contacts(1030, "ng")));
    EXPECT_EQ(Directory().GetContactGroupId("c1000"), 2 + 1000 % 48);
    for (const GroupRow& row : groups) {
        ASSERT_EQ(Directory().RemoveGroup(String("n").append(row.m_strDisplayName.c_str())), 1);
    }
    Restart();
    EXPECT_EQ(ReadFile(GROUP_FILE) + ReadFile(CONTACT_FILE),
              GroupFile({}) + ContactFile(contacts(1030, "All Contacts")));
    EXPECT_EQ(Directory().GetCurrentContactCount(), 1000);
}

}  // namespace
