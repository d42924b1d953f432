// Contacts: members behind the public ones, pages, and what a call is asked about.

#include "tests/support/directory_test.h"

using namespace NS_DIRECTORY;

namespace {

class ContactTest : public DirectoryTest
{
  protected:
    void SetUp() override
    {
        DirectoryTest::SetUp();
        Start({{"Family", "family.wav"}}, {{"Anna", "Blacklist", "", "100"},
                                           {"Bob", "Family", "", "", "123456789012345", "gone.wav"},
                                           {"Carl", "All Contacts", "123456789012345"}});
    }
};

TEST_F(ContactTest, InsertFallsBackToAllContacts)
{
    const std::pair<int, int> rows[] = {{-1, 1}, {2, 0}, {77, 3}};  // group and result
    for (const auto& [nGroup, nResult] : rows) {
        CContactLocalManager::ItemData item;
        item.m_strDisplayName = std::to_string(nGroup).c_str();
        item.m_nGroupId = nGroup;
        ExpectDone(nResult, {}, [&item] { return Directory().MyInsertContact(item, false); });
    }
    EXPECT_EQ(Contacts(), (Texts{"-1 0", "2 2", "77 0", "Anna 1", "Bob 2", "Carl 0"}));
}

TEST_F(ContactTest, PagesAddUpAndLeaveOutWhoHasNoGroup)
{
    ContactGeneralItemListData page;
    page.m_nCountToGet = 2;
    EXPECT_EQ(Directory().GetContactList(&page, "Blacklist"), 1);
    EXPECT_EQ(Directory().GetContactListById(&page, 2), 1);
    EXPECT_EQ(Names(page.m_listData), (Texts{"Anna", "Bob"}));
    Directory().MyFindContact("Bob")->m_nGroupId = 9;
    EXPECT_EQ(Directory().GetContactListById(&page, 0), 1);
    EXPECT_EQ(Names(page.m_listData), (Texts{"Anna", "Bob", "Carl"}));
    EXPECT_EQ(page.m_nTotalCount, 2) << "it counts";
    ContactGeneralItemData data = Contact({"kept"});
    EXPECT_EQ(Directory().GetContactDataByName(&data, "Bob"), 0);
    EXPECT_STREQ(data.m_strDisplayName.c_str(), "kept");
    EXPECT_STREQ(Directory().GetContactRingByNumber("123456789012345", "").c_str(), "");
    EXPECT_STREQ(Directory().GetGroupRingByContact("Bob").c_str(), "");
}

TEST_F(ContactTest, AnUpdateWritesWhereAFieldDiffers)
{
    struct Row
    {
        const char* m_pName;
        ContactRow m_new;
        bool m_bOnColors, m_bOnPlain;  // which screens write
    };
    // clang-format off
    for (const Row& row : std::vector<Row>{
        {"nothing", {"Anna", "Family", "1", "2", "3", "r", 4, "p", 5}, false, false},
        {"mobile", {"Anna", "Family", "x", "2", "3", "r", 4, "p", 5}, true, true},
        {"office", {"Anna", "Family", "1", "x", "3", "r", 4, "p", 5}, true, true},
        {"other", {"Anna", "Family", "1", "2", "x", "r", 4, "p", 5}, true, true},
        {"ring", {"Anna", "Family", "1", "2", "3", "x", 4, "p", 5}, true, true},
        {"line", {"Anna", "Family", "1", "2", "3", "r", 0, "p", 5}, true, true},
        {"photo", {"Anna", "Family", "1", "2", "3", "r", 4, "x", 5}, true, false},
        {"selected photo", {"Anna", "Family", "1", "2", "3", "r", 4, "p", 0}, true, false}}) {
        // clang-format on
        for (const bool bColorful : {true, false}) {
            SCOPED_TRACE(row.m_pName + std::string(bColorful ? " on colors" : " on plain"));
            g_device.m_bColorful = true;
            Start({{"Family"}}, {{"Anna", "Family", "1", "2", "3", "r", 4, "p", 5}});
            g_device.m_bColorful = bColorful;
            const bool bWrites = bColorful ? row.m_bOnColors : row.m_bOnPlain;
            ExpectDone(1, bWrites ? Texts{CONTACT_FILE} : Texts{}, [&row] {
                return Directory().UpdateContactData("Anna", Contact(row.m_new));
            });
            ContactGeneralItemData stored = Contact({"", "", "", "", "", "", 0, "kept", 9});
            EXPECT_EQ(Directory().GetContactDataByName(&stored, "Anna"), 1);
            ContactRow expected = row.m_new;
            expected.m_strPhoto = bColorful ? expected.m_strPhoto : "kept";
            expected.m_nSelectedPhoto = bColorful ? expected.m_nSelectedPhoto : 9;
            EXPECT_EQ(Text(stored), Text(Contact(expected)));
        }
    }
}

TEST_F(ContactTest, AskedByNumber)
{
    EXPECT_STREQ(Directory().GetContactRingByNumber("123456789012345", "").c_str(), "family.wav");
    EXPECT_EQ(g_device.m_listFilesAsked.back(), "gone.wav") << "the group's file is not asked for";
    EXPECT_STREQ(Directory().GetContactNameByPhoneNumber("123456789012346").c_str(), "");
    String strNumber("100");
    strNumber.append("\0x", 2);
    ContactGeneralItemData data;
    EXPECT_EQ(Directory().GetContactData(&data, "anna", strNumber), 1) << "up to its first NUL";
    EXPECT_EQ(Text(data), Text(Contact({"Anna", "Blacklist", "", "100"})));
}

TEST(StringConvert, WorksOnBytes)
{
    const auto text = [](const char* pBegin, const char* pBehindNul) {
        return String(pBegin).append("\0", 1).append(pBehindNul);
    };
    const String strText = text("aBc1\xC3\xA9", "Zz");
    const auto convert = [](const String& str, int nType) {
        return commonAPI_StringConvert(str, static_cast<StringConvertType>(nType));
    };
    EXPECT_TRUE(convert(strText, STRING_CONVERT_TO_LOWER) == text("abc1\xC3\xA9", "zz"));
    EXPECT_TRUE(convert(strText, STRING_CONVERT_TO_UPPER) == text("ABC1\xC3\xA9", "ZZ"));
    EXPECT_TRUE(convert(strText, 0) == strText && convert(strText, 3) == strText);
    EXPECT_TRUE(convert("", STRING_CONVERT_TO_UPPER).empty());
}

}  // namespace
