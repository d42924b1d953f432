// The group list and its file: what a start makes of it, who is found, and what editing does.

#include "tests/support/directory_test.h"

using namespace NS_DIRECTORY;

namespace {

const std::vector<GroupRow> DEFAULT_GROUPS{{"Company"}, {"Family"}, {"Friend"}};

class GroupTest : public DirectoryTest
{
  protected:
    // "name id" of each group in order.
    static Texts Ids()
    {
        Texts ids;
        for (const auto* pos = Directory().m_listGroup.begin();
             pos != Directory().m_listGroup.end(); pos = pos->next) {
            ids.push_back(pos->value->m_strDisplayName.c_str() +
                          (' ' + std::to_string(pos->value->m_nId)));
        }
        return ids;
    }
};

TEST_F(GroupTest, FirstStartWritesTheDefaultFile)
{
    const FileCalls calls;
    EXPECT_EQ(Ids(), (Texts{"All Contacts 0", "Blacklist 1", "Company 2", "Family 3", "Friend 4"}));
    EXPECT_EQ(ReadFile(GROUP_FILE), GroupFile(DEFAULT_GROUPS));
    EXPECT_EQ(ReadFile(CONTACT_FILE), "(no file)");
    EXPECT_EQ(calls.Written(), Texts{GROUP_FILE});
    EXPECT_EQ(Directory().GetCurrentGroupCount(), 5);
    EXPECT_EQ(CContactLocalManager::GetInstance(), &Directory());
    EXPECT_EQ(Directory().ReloadGroupAndItemByHttp(), 0);
    EXPECT_FALSE(Directory().IsReloadGroupAndItemByHttp());
    Directory().MySetGroupDirty(true);
    EXPECT_EQ(ReadFile(GROUP_FILE), GroupFile(DEFAULT_GROUPS));
}

struct LoadRow
{
    const char* m_pName;
    std::string m_strFile;
    int m_nResult;
    Texts m_listIds;
};

std::string Groups(const char* pElements)
{
    return std::string("<root_group>") + pElements + "</root_group>";
}

TEST_F(GroupTest, LoadTakesWhatTheFileHolds)
{
    const Texts fixed{"All Contacts 0", "Blacklist 1"};
    std::string strTooMany;
    Texts full = fixed;
    for (int n = 2; n < 51; ++n) {
        const std::string strName = "G" + std::to_string(100 + n);
        strTooMany += "<group display_name='" + strName + "'/>";
        full.push_back(strName + ' ' + std::to_string(n));
    }
    full.pop_back();
    // clang-format off
    const std::vector<LoadRow> rows{
        {"empty file", "", 0, {}}, {"not XML", "\x7f\x45\x4c\x46 garbage", 0, {}},
        {"other root", "<root_contact/>", 0, {}}, {"empty root", "<root_group/>", 1, fixed},
        {"first root counts", "<root_group/><root_group><group display_name='A'/></root_group>", 1, fixed},
        // The parser keeps the element that the cut went through, without a name.
        {"cut in the second group", "<root_group><group display_name='A'/><group disp", 0, {"All Contacts 0", "Blacklist 1", "A 2"}},
        {"file order gives ids, names give places", Groups("<group display_name='b'/><x/><!-- y --><group display_name='A'/>"), 1, {"All Contacts 0", "Blacklist 1", "A 3", "b 2"}},
        {"equal but for case", Groups("<group display_name='Work'/><group display_name='WORK'/><group display_name='Zoo'/>"), 0, {"All Contacts 0", "Blacklist 1", "Work 2", "Zoo 4"}},
        {"no name, empty name", Groups("<group/><group display_name=''/><group display_name='A'/>"), 0, {"All Contacts 0", "Blacklist 1", "A 4"}},
        {"fixed names use no id", Groups("<group display_name='Blacklist' ring='x'/><group display_name='blacklist'/>"), 1, {"All Contacts 0", "Blacklist 1", "blacklist 2"}},
        {"above the limit", Groups(strTooMany.c_str()), 0, full}};
    // clang-format on
    for (const LoadRow& row : rows) {
        SCOPED_TRACE(row.m_pName);
        WriteFile(GROUP_FILE, row.m_strFile);
        Restart();
        ExpectDone(row.m_nResult, {}, [] { return Directory().ReloadGroupXml(); });
        EXPECT_EQ(Ids(), row.m_listIds);
        EXPECT_EQ(ReadFile(GROUP_FILE), row.m_strFile);
    }
}

TEST_F(GroupTest, ReadOnlyMarkAndRingComeFromTheFileAsTheyStand)
{
    WriteFile(GROUP_FILE, Groups("<group read_only='1' ring='r' display_name='A'/>"
                                 "<group display_name='B' read_only='true'/>"
                                 "<group display_name='All Contacts' ring='x'/>"));
    CContactLocalManager& directory = Directory();
    directory.MySetGroupDirty(true);
    EXPECT_EQ(ReadFile(GROUP_FILE), GroupFile({{"A", "r", true}, {"B"}}));
    EXPECT_EQ(directory.RemoveGroup("A"), DIR_RET_OK) << "only the fixed groups are protected";
}

TEST_F(GroupTest, Finders)
{
    CContactLocalManager& directory = Directory();
    String strName("kept");
    for (const int nIndex : {-1, 5}) {
        EXPECT_EQ(directory.GetGroupNameByIndex(nIndex, strName), 0);
        EXPECT_TRUE(strName == "kept");
    }
    EXPECT_EQ(directory.GetGroupNameByIndex(1, strName), 1);
    EXPECT_TRUE(strName == "Blacklist");
    EXPECT_EQ(directory.MyFindGroupByDisplayName(strName), directory.MyFindGroupById(1));
    // clang-format off
    const std::vector<std::pair<const char*, int>> rows{
        {nullptr, 0}, {"", 0}, {"all contacts", 0}, {"Blacklist", 1}, {"Friend", 4}};
    // clang-format on
    for (const auto& [pName, nIndex] : rows) {
        SCOPED_TRACE(pName == nullptr ? "null" : pName);
        EXPECT_EQ(directory.GetGroupIndexByName(pName), nIndex);
        const int nId = nIndex > 0 ? nIndex : -1;
        EXPECT_EQ(directory.GetGroupIdByGroupName(pName), nId);
        EXPECT_EQ(directory.GetGIdByGName(pName), nId);
        EXPECT_EQ(directory.IsGroupExist(pName), nIndex > 0);
    }
    EXPECT_TRUE(directory.IsBlacklistIndex(4));
    EXPECT_FALSE(directory.IsBlacklistIndex(1));
    WriteFile(GROUP_FILE, "");
    EXPECT_EQ(directory.ReloadGroupXml(), 0);
    directory.GetBlacklistGroupName(strName);
    EXPECT_TRUE(strName.empty());
    EXPECT_TRUE(directory.IsBlacklistIndex(-1));
}

TEST_F(GroupTest, Pages)
{
    struct Row
    {
        int m_nFrom, m_nCount;
        Texts m_listNames;
    };
    // clang-format off
    const std::vector<Row> rows{
        {0, 2, {"All Contacts", "Company"}}, {2, INT_MAX, {"Family", "Friend"}}, {-2, 3, {"All Contacts"}},
        {0, 0, {}}, {-1, 1, {}}, {4, 9, {}}, {1, -1, {}}};
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(std::to_string(row.m_nFrom) + " " + std::to_string(row.m_nCount));
        ContactGroupListData list;
        ContactGroupSimpleListData simple;
        list.m_nIndexFrom = simple.m_nIndexFrom = row.m_nFrom;
        list.m_nCountToGet = simple.m_nCountToGet = row.m_nCount;
        EXPECT_EQ(Directory().GetGroupList(&list, true), 1);
        EXPECT_EQ(Directory().GetGroupSimpleList(&simple), 1);
        EXPECT_EQ(Names(list.m_listData), row.m_listNames);
        EXPECT_EQ(Names(simple.m_listData), row.m_listNames);
        EXPECT_EQ(list.m_nTotalCount, 4);
        EXPECT_EQ(simple.m_nTotalCount, 4);
    }
    g_device.m_nConfigValue = 1;
    g_device.m_listConfigAsked.clear();
    ContactGroupSimpleListData shown;
    shown.m_nCountToGet = 2;
    EXPECT_EQ(Directory().GetGroupSimpleList(&shown), 1);
    EXPECT_EQ(Directory().GetGroupSimpleList(&shown), 1);
    EXPECT_EQ(Names(shown.m_listData),
              (Texts{"All Contacts", "Blacklist", "All Contacts", "Blacklist"}));
    EXPECT_EQ(shown.m_listData.begin()->next->value.m_nId, GROUP_ID_BLACKLIST);
    EXPECT_EQ(shown.m_nTotalCount, 5);
    EXPECT_EQ(g_device.m_listConfigAsked, Texts(2, "HistoryBlackListShowSwitch 1"));
    EXPECT_EQ(Directory().GetGroupSimpleList(nullptr), 0);
    EXPECT_EQ(Directory().GetGroupList(nullptr, false), 0);
    ContactGroupData group;
    EXPECT_EQ(Directory().GetGroupDataByID(&group, GROUP_ID_BLACKLIST), 1);
    for (const int nId : {-1, 5}) {
        EXPECT_EQ(Directory().GetGroupDataByID(&group, nId), 0);
    }
    EXPECT_TRUE(group.m_strDisplayName == "Blacklist");
    EXPECT_EQ(Directory().GetGroupDataByID(nullptr, 0), 0);
}

TEST_F(GroupTest, EditsRenumberAndWriteInOrder)
{
    Start(DEFAULT_GROUPS, {{"Anna", "Family"}, {"Bob", "Blacklist"}});
    CContactLocalManager& directory = Directory();
    ExpectDone(3, {GROUP_FILE}, [&] { return directory.AddGroup(Group({"Delta", "d"})); });
    EXPECT_EQ(directory.GetContactGroupId("Anna"), 4);
    ExpectDone(2, {CONTACT_FILE, GROUP_FILE}, [&] {
        return directory.UpdateGroupData("Family", Group({"Ahnen", "a"}));
    });
    EXPECT_EQ(directory.GetContactGroupId("Anna"), 2);
    ExpectDone(2, {CONTACT_FILE, GROUP_FILE}, [&] {
        return directory.UpdateGroupData("Ahnen", Group({"AHNEN", "a"}));
    });
    ExpectDone(2, {}, [&] { return directory.UpdateGroupData("AHNEN", Group({"AHNEN", "a"})); });
    ExpectDone(1, {GROUP_FILE}, [&] {
        return directory.UpdateGroupData("Blacklist", Group({"Blacklist", "b"}));
    });
    EXPECT_EQ(ReadFile(CONTACT_FILE), ContactFile({{"Anna", "AHNEN"}, {"Bob", "Blacklist"}}));
    ExpectDone(1, {CONTACT_FILE, GROUP_FILE}, [&] { return directory.RemoveGroup("Company"); });
    ExpectDone(1, {CONTACT_FILE, CONTACT_FILE, GROUP_FILE},
               [&] { return directory.RemoveGroup("AHNEN"); });
    EXPECT_EQ(directory.GetContactGroupId("Anna"), GROUP_ID_ALL);
    EXPECT_EQ(Ids(), (Texts{"All Contacts 0", "Blacklist 1", "Delta 2", "Friend 3"}));
    EXPECT_EQ(directory.SetContactGroupId("Anna", 3), 1);
    ExpectDone(1, {CONTACT_FILE, GROUP_FILE}, [&] { return directory.RemoveAllGroup(); });
    EXPECT_EQ(directory.AddGroup(Group({"all contacts"})), 2) << "an ordinary name";
    EXPECT_EQ(directory.GetCurrentBlackCount(), 1);
}

TEST_F(GroupTest, RenamedFixedGroupsComeBackBesideTheirContacts)
{
    Start({{"Mid"}}, {{"Anna", "All Contacts"}, {"Bob", "Blacklist"}});
    ExpectDone(0, {CONTACT_FILE, GROUP_FILE},
               [] { return Directory().UpdateGroupData("All Contacts", Group({"Zett"})); });
    ExpectDone(3, {CONTACT_FILE, GROUP_FILE},
               [] { return Directory().UpdateGroupData("Blacklist", Group({"Aha"})); });
    EXPECT_EQ(Ids(), (Texts{"All Contacts 0", "Blacklist 1", "Aha 4", "Mid 2", "Zett 3"}));
    EXPECT_EQ(Directory().GetCurrentBlackCount(), 0);
    EXPECT_EQ(ReadFile(CONTACT_FILE), ContactFile({{"Anna", "Zett"}, {"Bob", "Aha"}}));
    Directory().MySetGroupDirty(true);
    EXPECT_EQ(ReadFile(GROUP_FILE), GroupFile({{"Aha", "", true}, {"Mid"}, {"Zett", "", true}}));
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

TEST_F(GroupTest, AGeneratorIsKeptAndCanBeMissing)
{
    Start({}, {});
    CRIdGenerator*& pGenerator = Directory().m_pIdGenerator;
    const CRIdGenerator* const pBefore = pGenerator;
    EXPECT_TRUE(Directory().MyInit());
    EXPECT_EQ(pGenerator, pBefore);
    delete pGenerator;
    pGenerator = nullptr;
    EXPECT_EQ(Directory().ReloadGroupXml(), 1);
    EXPECT_EQ(Names(Directory().m_listGroup), (Texts{"All Contacts", "Blacklist"}));
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
