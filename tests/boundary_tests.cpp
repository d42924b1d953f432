// What a scenario cannot show: what the device is asked, texts that hold a NUL, empty records, and
// errno.

#include <cerrno>

#include "tests/support/directory_test.h"

namespace {

using BoundaryTest = DirectoryTest;

TEST_F(BoundaryTest, TheDeviceIsAskedForOneRingAndOneSwitch)
{
    Start({{"Family", "family.wav"}}, {{"Bob", "Family", "100", "", "", "gone.wav"}});
    EXPECT_STREQ(Directory().GetContactRingByNumber("100", "").c_str(), "family.wav");
    EXPECT_STREQ(g_device.m_szFileAsked, "gone.wav") << "the group's file is not asked for";
    EXPECT_EQ(Directory().ReloadContactXml(), 1);
    EXPECT_STREQ(g_device.m_szFileAsked, CONTACT_FILE);
    ContactGroupSimpleListData page;
    EXPECT_EQ(Directory().GetGroupSimpleList(&page), 1);
    EXPECT_STREQ(g_device.m_szConfigAsked, "HistoryBlackListShowSwitch 1");
}

TEST_F(BoundaryTest, ErrnoStaysAsItWasIfNothingFails)
{
    Start({{"Family"}}, {{"Anna", "Family"}});
    errno = EDOM;
    EXPECT_EQ(Directory().ReloadGroupXml() + Directory().ReloadContactXml(), 2);
    EXPECT_EQ(errno, EDOM);
}

TEST_F(BoundaryTest, ANulEndsANumberButNoConversion)
{
    const auto text = [](const char* pBefore, const char* pAfter) {
        return String(pBefore).append("\0", 1).append(pAfter);
    };
    Start({}, {{"Anna", "Blacklist", "100"}});
    Contact data;
    EXPECT_EQ(Directory().GetContactData(&data, "", text("100", "x")), 1);
    const String strText = text("aBc1\xC3\xA9", "Zz");
    const auto convert = [&](int nType) {
        return commonAPI_StringConvert(strText, static_cast<StringConvertType>(nType));
    };
    EXPECT_TRUE(convert(STRING_CONVERT_TO_LOWER) == text("abc1\xC3\xA9", "zz"));
    EXPECT_TRUE(convert(STRING_CONVERT_TO_UPPER) == text("ABC1\xC3\xA9", "ZZ"));
    EXPECT_TRUE(convert(0) == strText && convert(3) == strText);
}

TEST(Records, AreEmptyAtFirstAndAfterReset)
{
    Manager::GroupData group{5, "Family", "r", true};
    group.Reset();
    EXPECT_EQ(EntryOf(group).Text(), EntryOf(Manager::GroupData()).Text());
    CallLogUpdateData log{"x", "x", "x", "x"};
    log.Reset();
    EXPECT_TRUE(log.m_strDisplayName.empty() && log.m_strOfficeNumber.empty());
    EXPECT_TRUE(log.m_strMobileNumber.empty() && log.m_strOtherNumber.empty());
    EXPECT_EQ(Manager::ItemData().m_nGroupId, GROUP_ID_NONE);
    EXPECT_EQ(EntryOf(ItemOf({})).Text(), "contact name=\"\"");
    const auto sum = [](auto p) { return p.m_nIndexFrom + p.m_nCountToGet + p.m_nTotalCount; };
    EXPECT_EQ(sum(ContactGroupSimpleListData()) + sum(ContactGroupListData()) +
                  sum(ContactGeneralItemListData()) + ContactGeneralItemListData().m_nHostData,
              0);
}

}  // namespace
