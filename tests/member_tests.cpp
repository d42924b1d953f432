// What no scenario reaches: members in states that no public call brings about, what the device is
// asked, and texts that hold a NUL.

#include <climits>
#include <utility>

#include "tests/support/scenario.h"

namespace {

struct MemberTest : DirectoryTest
{
    // The result of an operation that writes nothing.
    template <class Operation>
    static void ExpectQuiet(int nResult, Operation operation)
    {
        const FileCalls calls;
        EXPECT_EQ(operation(Directory()), nResult);
        EXPECT_EQ(calls.Written(), Texts{});
        ExpectSound();
    }
};

TEST_F(MemberTest, RefusalsThatNoPublicCallMeets)
{
    const auto nothing = [](Manager&) {};
    const auto noGenerator = [](Manager& m) { delete std::exchange(m.m_pIdGenerator, nullptr); };
    const auto noIds = [](Manager& m) { (void)m.m_pIdGenerator->SetBegin(INT_MAX); };
    const auto noUserGroups = [](Manager& m) { (void)m.RemoveAllGroup(); };
    const Manager::GroupData all{0, "All Contacts", "", true}, black{1, "Blacklist", "", true};
    Manager::ItemData item;
    const struct
    {
        const char* m_pName;
        int m_nResult;
        std::function<void(Manager& m)> m_prepare;
        std::function<int(Manager& m)> m_call;
    } rows[] = {
        {"AddGroup without generator", -3, noGenerator, [](auto& m) { return m.AddGroup({}); }},
        {"AddGroup out of ids", -3, noIds, [](auto& m) { return m.AddGroup(GroupRow("New")); }},
        {"id in use", -1, nothing, [](auto& m) { return m.MyAddGroup(GroupRow("New"), 3); }},
        {"no id", -101, nothing, [](auto& m) { return m.MyAddGroup(GroupRow("New"), -5); }},
        {"no group to fill", 0, nothing, [](auto& m) { return m.MyCGD2GD(nullptr, 2, {}); }},
        {"no record to fill", 0, nothing, [](auto& m) { return m.MyGD2CGD(nullptr, {}); }},
        {"second head", -1, nothing, [&](auto& m) { return m.MyInsertGroup(all, true); }},
        {"second end", -1, noUserGroups, [&](auto& m) { return m.MyInsertGroup(black, true); }},
        {"they are there", 1, noUserGroups, [](auto& m) { return m.MyCreateDefaultGroup(); }},
        {"no contact to fill", 0, nothing,
         [](auto& m) { return m.MyCGID2ID(nullptr, 2, {}, false); }},
        {"no group", 0, nothing, [&](auto& m) { return m.MyCGID2ID(&item, -1, {}, false); }},
        {"set flags write nothing", 0,
         [](Manager& m) { m.m_bGroupDirty = m.m_bContactDirty = true; },
         [](auto& m) {
             m.MySetGroupDirty(true);
             m.MySetContactDirty(true);
             return static_cast<int>(m.m_bGroupDirty = m.m_bContactDirty = false);
         }}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.m_pName);
        Start({{"Company"}, {"Family"}}, {{"Anna", "Company"}});
        row.m_prepare(Directory());
        const Entries before = AllEntries();
        ExpectQuiet(row.m_nResult, row.m_call);
        EXPECT_EQ(Changes(before, AllEntries()), Texts{});
    }
}

TEST_F(MemberTest, GroupsBehindThePublicCalls)
{
    Start({{"Family"}}, {});
    Manager& directory = Directory();
    String strName("Family");
    EXPECT_EQ(directory.MyFindGroupByDisplayName(strName), directory.MyFindGroupById(2));
    EXPECT_EQ(directory.MyAddGroup(GroupRow("Work"), 7), 3) << "an id that is free";
    EXPECT_EQ(Groups(), (Texts{"All Contacts 0", "Blacklist 1", "Family 2", "Work 3"}));
    EXPECT_EQ(directory.AddContactById(2, ContactRow("Anna")), 0);
    EXPECT_EQ(directory.AddContactById(0, ContactRow("Bob")), 1);
    EXPECT_EQ(directory.MyGetContactCountByGroupId(2), 1);
    EXPECT_EQ(directory.MyGetContactCountByGroupId(0), 2);
    ExpectQuiet(1, [](Manager& m) { return m.MyUpdateAllContactGroupId(2, 2); });
    directory.m_nBlackCount = 7;  // wrong on purpose
    EXPECT_TRUE(directory.MyClearContactList() && directory.MyClearGroupList());
    EXPECT_EQ(directory.m_nBlackCount, 0);
    EXPECT_EQ(directory.MyCreateDefaultGroup(), 1);
    EXPECT_EQ(Groups(), (Texts{"All Contacts 0", "Blacklist 1"}));
    EXPECT_EQ(directory.m_pIdGenerator->GenId(), 2);
    // A start over keeps its generator; a load can do without one.
    const CRIdGenerator* const pBefore = directory.m_pIdGenerator;
    EXPECT_TRUE(directory.MyClearContactList() && directory.MyClearGroupList());
    EXPECT_TRUE(directory.MyInit());
    EXPECT_EQ(directory.m_pIdGenerator, pBefore);
    delete std::exchange(directory.m_pIdGenerator, nullptr);
    EXPECT_EQ(directory.ReloadGroupXml(), 1);
    EXPECT_EQ(directory.GetCurrentGroupCount(), 4);
    WriteFile(GROUP_FILE, "");
    EXPECT_EQ(directory.ReloadGroupXml(), 0);
    EXPECT_TRUE(directory.MyClearContactList());
    EXPECT_FALSE(directory.MyInit());
}

TEST_F(MemberTest, AContactOfNoGroupGoesToAllContacts)
{
    Start({{"Family"}}, {{"Anna", "Family", "1"}, {"Carl"}});
    const std::pair<int, int> rows[] = {{-1, 1}, {2, 1}, {77, 3}};  // group and result
    for (const auto& [nGroup, nResult] : rows) {
        Manager::ItemData item;
        item.m_strDisplayName = std::to_string(nGroup).c_str();
        item.m_nGroupId = nGroup;
        ExpectQuiet(nResult, [&item](Manager& m) { return m.MyInsertContact(item, false); });
    }
    EXPECT_EQ(Contacts(), (Texts{"-1 0", "2 2", "77 0", "Anna 2", "Carl 0"}));
}

TEST_F(MemberTest, ResultsThatHardlyAnybodyTakes)
{
    Manager::ItemData item;
    ContactGeneralItemData data;
    EXPECT_EQ(Directory().MyCGID2ID(&item, GROUP_ID_ALL, data, false), DIR_RET_OK);
    EXPECT_EQ(Directory().MyUpdateInPlace(item, GROUP_ID_ALL, data), DIR_RET_OK);
    Directory().m_bGroupDirty = Directory().m_bContactDirty = true;
    EXPECT_EQ(Directory().SaveGroupToXml() + Directory().SaveContactToXml(), 2);
    EXPECT_EQ(CRIdGenerator().SetBegin(7), 7);
}

TEST_F(MemberTest, WhatTheDeviceIsAsked)
{
    Start({{"Family", "family.wav"}}, {{"Bob", "Family", "100", "", "", "gone.wav"}});
    EXPECT_STREQ(Directory().GetContactRingByNumber("100", "").c_str(), "family.wav");
    EXPECT_EQ(g_device.m_listFilesAsked.back(), "gone.wav") << "the group's file is not asked for";
    ContactGroupSimpleListData page;
    EXPECT_EQ(Directory().GetGroupSimpleList(&page), 1);
    EXPECT_EQ(g_device.m_listConfigAsked, Texts{"HistoryBlackListShowSwitch 1"});
}

TEST_F(MemberTest, AShortNumberInTheLongForm)
{
    const ContactRow longNumbers("Anna", "All Contacts", "111111111111111", "222222222222222",
                                 "333333333333333");
    const ContactRow shortNumbers("Anna", "All Contacts", "1111", "22222", "333333");
    Start({}, {longNumbers, {"Carl", "All Contacts", "44444"}});
    EXPECT_EQ(Directory().UpdateContactData("Anna", shortNumbers), 1);
    String strAsked("444444444444444");
    for (const char* const pNumber : {"1111", "22222", "333333", "44444"}) {
        strAsked = pNumber;  // it stays in the long form
        String strShort(pNumber);
        for (const String* const pAsked : {&strAsked, &strShort}) {
            const Manager::ItemData* const pFound = Directory().MyFindContactByNumber(*pAsked, {});
            ASSERT_NE(pFound, nullptr) << pNumber;
            EXPECT_STREQ(pFound->m_strDisplayName.c_str(), *pNumber == '4' ? "Carl" : "Anna");
        }
    }
}

// Numbers that pass every quick test of a lookup but the last one.
TEST_F(MemberTest, NumbersThatAreNearlyEqual)
{
    Start({}, {{"Anna", "All Contacts", "111111112345678", "222222222222222"}});
    EXPECT_EQ(Directory().UpdateContactData(
                  "Anna", ContactRow("Anna", "All Contacts", "111111112345678", "1111")),
              1);
    // Its characters read as the size of a long number.
    EXPECT_EQ(Directory().AddContact("All Contacts", ContactRow("Bob", "", "abc\x0f", "12345678")),
              1);
    for (const char* pNumber : {"1112", "abc", "12345679", "211111112345678", "111111112345679"}) {
        EXPECT_STREQ(Directory().GetContactNameByPhoneNumber(pNumber).c_str(), "") << pNumber;
    }
    EXPECT_STREQ(Directory().GetContactNameByPhoneNumber("111111112345678").c_str(), "Anna");
}

TEST_F(MemberTest, TextsThatHoldANul)
{
    const auto text = [](const char* pBegin, const char* pBehindNul) {
        return String(pBegin).append("\0", 1).append(pBehindNul);
    };
    Start({}, {{"Anna", "Blacklist", "100"}});
    ContactGeneralItemData data;
    EXPECT_EQ(Directory().GetContactData(&data, "", text("100", "x")), 1) << "up to the NUL";
    const String strText = text("aBc1\xC3\xA9", "Zz");
    const auto convert = [](const String& str, int nType) {
        return commonAPI_StringConvert(str, static_cast<StringConvertType>(nType));
    };
    EXPECT_TRUE(convert(strText, STRING_CONVERT_TO_LOWER) == text("abc1\xC3\xA9", "zz"));
    EXPECT_TRUE(convert(strText, STRING_CONVERT_TO_UPPER) == text("ABC1\xC3\xA9", "ZZ"));
    EXPECT_TRUE(convert(strText, 0) == strText && convert(strText, 3) == strText);
}

TEST(Records, AreEmptyAtFirstAndAfterReset)
{
    Manager::GroupData group{5, "Family", "r", true};
    group.Reset();
    EXPECT_EQ(EntryOf(group).Text(), EntryOf(Manager::GroupData()).Text());
    CallLogUpdateData log;
    log.m_strDisplayName = log.m_strOfficeNumber = log.m_strMobileNumber = log.m_strOtherNumber =
        "x";
    log.Reset();
    EXPECT_TRUE(log.m_strDisplayName.empty() && log.m_strOfficeNumber.empty());
    EXPECT_TRUE(log.m_strMobileNumber.empty() && log.m_strOtherNumber.empty());
    const Manager::ItemData item;
    EXPECT_EQ(item.m_nGroupId, GROUP_ID_NONE);
    EXPECT_EQ(EntryOf(ItemOf(item)).Text(), "contact name=\"\"");
    const auto sum = [](auto p) { return p.m_nIndexFrom + p.m_nCountToGet + p.m_nTotalCount; };
    EXPECT_EQ(sum(ContactGroupSimpleListData()) + sum(ContactGroupListData()) +
                  sum(ContactGeneralItemListData()) + ContactGeneralItemListData().m_nHostData,
              0);
}

}  // namespace
