// Groups: members that no public call reaches from all sides, pages, and the records' defaults.

#include "tests/support/directory_test.h"

using namespace NS_DIRECTORY;

namespace {

using GroupTest = DirectoryTest;

TEST_F(GroupTest, MembersBehindThePublicOnes)
{
    Start({{"Family"}}, {});
    CContactLocalManager& directory = Directory();
    String strName("Family");
    EXPECT_EQ(directory.MyFindGroupByDisplayName(strName), directory.MyFindGroupById(2));
    EXPECT_EQ(directory.MyAddGroup(Group({"Work"}), 7), 3) << "an id that is free";
    EXPECT_EQ(Groups(), (Texts{"All Contacts 0", "Blacklist 1", "Family 2", "Work 3"}));
    EXPECT_EQ(directory.AddContactById(2, Contact({"Anna"})), 0);
    ExpectDone(1, {}, [&] { return directory.MyUpdateAllContactGroupId(2, 2); });
    EXPECT_EQ(directory.RemoveAllContacts(2), 1);
    EXPECT_TRUE(directory.MyClearGroupList());
    EXPECT_EQ(directory.MyCreateDefaultGroup(), 1);
    EXPECT_EQ(Groups(), (Texts{"All Contacts 0", "Blacklist 1"}));
    EXPECT_EQ(directory.m_pIdGenerator->GenId(), 2);
    // A start over keeps its generator; a load can do without one.
    const CRIdGenerator* const pBefore = directory.m_pIdGenerator;
    EXPECT_TRUE(directory.MyInit());
    EXPECT_EQ(directory.m_pIdGenerator, pBefore);
    delete std::exchange(directory.m_pIdGenerator, nullptr);
    EXPECT_EQ(directory.ReloadGroupXml(), 1);
    EXPECT_EQ(directory.GetCurrentGroupCount(), 4);
    WriteFile(GROUP_FILE, "");
    EXPECT_EQ(directory.ReloadGroupXml(), 0);
    EXPECT_FALSE(directory.MyInit());
}

TEST_F(GroupTest, PagesAddUp)
{
    ContactGroupListData page;
    ContactGroupSimpleListData simple;
    page.m_nCountToGet = simple.m_nCountToGet = 2;
    EXPECT_EQ(Directory().GetGroupList(&page, true), 1);
    EXPECT_EQ(Directory().GetGroupSimpleList(&simple), 1);
    page.m_nIndexFrom = 2;
    g_device.m_nConfigValue = 1;
    EXPECT_EQ(Directory().GetGroupList(&page, true), 1);
    EXPECT_EQ(Directory().GetGroupSimpleList(&simple), 1);
    EXPECT_EQ(Names(page.m_listData), (Texts{"All Contacts", "Company", "Family", "Friend"}));
    EXPECT_EQ(Names(simple.m_listData),
              (Texts{"All Contacts", "Company", "All Contacts", "Blacklist"}));
    EXPECT_EQ(page.m_nTotalCount, 4);
    EXPECT_EQ(simple.m_nTotalCount, 5);
    EXPECT_EQ(g_device.m_listConfigAsked, Texts(2, "HistoryBlackListShowSwitch 1"));
}

TEST(IdGenerator, GoesOnFromWhatItWasSetTo)
{
    CRIdGenerator generator;
    EXPECT_EQ(generator.GenId(), 0);
    EXPECT_EQ(generator.SetBegin(1), 1);
    EXPECT_EQ(generator.GenId(), 2);
    EXPECT_EQ(generator.GenId(), 3);
    (void)generator.SetBegin(INT_MAX);
    EXPECT_LT(generator.GenId(), 0);
}

TEST(Records, AreEmptyAfterReset)
{
    CContactLocalManager::GroupData group{5, "Family", "r", true};
    group.Reset();
    EXPECT_EQ(Text(group), Text(CContactLocalManager::GroupData()));
    CallLogUpdateData log;
    const auto fields = {&log.m_strDisplayName, &log.m_strOfficeNumber, &log.m_strMobileNumber,
                         &log.m_strOtherNumber};
    for (String* pField : fields) {
        *pField = "x";
    }
    log.Reset();
    for (const String* pField : fields) {
        EXPECT_TRUE(pField->empty());
    }
}

}  // namespace
