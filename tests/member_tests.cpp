// Private members, called with what no public call hands them. The static library has them; the
// shared one does not export them.

#include <climits>
#include <functional>
#include <utility>

#include "tests/support/directory_test.h"

namespace {

using MemberTest = DirectoryTest;

TEST_F(MemberTest, RefusalsChangeAndWriteNothing)
{
    const GroupRow all("All Contacts"), black("Blacklist");
    const struct
    {
        const char* m_pName;
        int m_nResult;
        std::function<int(Manager& m)> m_call;
    } rows[] = {
        {"a group with an id in use", -1, [](auto& m) { return m.MyAddGroup(GroupRow("New"), 1); }},
        {"a group with no id", -101, [](auto& m) { return m.MyAddGroup(GroupRow("New"), -5); }},
        {"a group out of ids", -3,
         [](auto& m) {
             EXPECT_EQ(m.m_pIdGenerator->SetBegin(INT_MAX), INT_MAX);
             return m.AddGroup(GroupRow("New"));
         }},
        {"a group without generator", -3,
         [](auto& m) {
             delete std::exchange(m.m_pIdGenerator, nullptr);
             return m.AddGroup(GroupRow("New"));
         }},
        {"no group to fill", 0, [](auto& m) { return m.MyCGD2GD(nullptr, 2, {}); }},
        {"no record to fill", 0, [](auto& m) { return m.MyGD2CGD(nullptr, {}); }},
        {"no contact to fill", 0, [](auto& m) { return m.MyCGID2ID(nullptr, 2, {}, false); }},
        {"a contact of no group", 0,
         [](auto& m) {
             Manager::ItemData item;
             return m.MyCGID2ID(&item, -1, {}, false);
         }},
        {"a second head", -1, [&](auto& m) { return m.MyInsertGroup(all, true); }},
        {"a second end", -1, [&](auto& m) { return m.MyInsertGroup(black, true); }},
        {"fixed groups that are there", 1, [](auto& m) { return m.MyCreateDefaultGroup(); }},
        {"a move of a group into itself", 1,
         [](auto& m) { return m.MyUpdateAllContactGroupId(1, 1); }},
        {"flags that are set", 0,
         [](auto& m) {
             m.m_bGroupDirty = m.m_bContactDirty = true;
             m.MySetGroupDirty(true);
             m.MySetContactDirty(true);
             return static_cast<int>(m.m_bGroupDirty = m.m_bContactDirty = false);
         }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.m_pName);
        Start({}, {{"Anna", "Blacklist"}});
        WriteFile(GROUP_FILE, "as before");
        WriteFile(CONTACT_FILE, "as before");
        const std::string strBefore = State();
        EXPECT_EQ(row.m_call(Directory()), row.m_nResult);
        EXPECT_EQ(State(), strBefore);
        ExpectSound();
    }
}

TEST_F(MemberTest, AnInsertTakesTheIdThatItIsGiven)
{
    Start({{"Family"}}, {{"Anna", "Family"}, {"Carl"}});
    for (const auto& [nGroup, nPlace] : {std::pair{-1, 1}, {2, 1}, {77, 3}}) {
        Manager::ItemData item;
        item.m_strDisplayName = std::to_string(nGroup).c_str();
        item.m_nGroupId = nGroup;
        EXPECT_EQ(Directory().MyInsertContact(item, false), nPlace);
    }
    EXPECT_EQ(Contacts(), (Texts{"-1 0", "2 2", "77 0", "Anna 2", "Carl 0"}));
    EXPECT_EQ(Directory().MyGetContactCountByGroupId(2), 2);
    EXPECT_EQ(Directory().MyGetContactCountByGroupId(GROUP_ID_ALL), 5);
    EXPECT_EQ(Directory().MyAddGroup(GroupRow("Work"), 7), 3);
    String strName("Work");
    EXPECT_EQ(Directory().MyFindGroupByDisplayName(strName), Directory().MyFindGroupById(3));
    EXPECT_EQ(Directory().MyUpdateInPlace(*Directory().m_listContact.begin()->value, 0, {}), 1);
}

TEST_F(MemberTest, AClearedDirectoryBeginsAgain)
{
    Start({{"Family"}}, {{"Anna", "Blacklist"}});
    Manager& directory = Directory();
    const CRIdGenerator* const pGenerator = directory.m_pIdGenerator;
    directory.m_nBlackCount = 7;  // wrong on purpose
    EXPECT_TRUE(directory.MyClearContactList() && directory.MyClearGroupList());
    EXPECT_EQ(directory.m_nBlackCount, 0);
    EXPECT_EQ(directory.MyCreateDefaultGroup(), 1);
    EXPECT_EQ(Groups(), (Texts{"All Contacts 0", "Blacklist 1"}));
    EXPECT_EQ(directory.m_pIdGenerator->GenId(), 2);
    EXPECT_TRUE(directory.MyClearGroupList() && directory.MyInit());
    EXPECT_EQ(directory.m_pIdGenerator, pGenerator);
    WriteFile(GROUP_FILE, "");
    EXPECT_TRUE(directory.MyClearContactList() && directory.MyClearGroupList());
    EXPECT_FALSE(directory.MyInit());
    delete std::exchange(directory.m_pIdGenerator, nullptr);
    std::filesystem::remove(GROUP_FILE);
    EXPECT_EQ(directory.ReloadGroupXml(), 1) << "a load can do without a generator";
    EXPECT_EQ(directory.GetCurrentGroupCount(), 5);
}

}  // namespace
