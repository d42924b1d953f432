// Who is calling: the answers to a number, rings, photos and text case.

#include "tests/support/directory_test.h"

using namespace NS_DIRECTORY;

namespace {

class LookupTest : public DirectoryTest
{
  protected:
    void SetUp() override
    {
        DirectoryTest::SetUp();
        WriteFile("there.wav", "");
        Start({{"Family", "family.wav"}, {"Friend"}},
              {{"Anna", "Blacklist", "100", "+49 30", "abc", "there.wav"},
               {"Bob", "Family", "123456789012345", "100", "200", "gone.wav"},
               {"Carl", "Friend", "200", "", "300", "gone.wav", 1, "p", 2},
               {"Dora", "All Contacts", "400", "", "", "", 0, "P"}});
    }
};

TEST_F(LookupTest, ANumberFindsTheFirstContactThatHoldsItByteForByte)
{
    struct Row
    {
        const char* m_pNumber;
        const char* m_pName;
        bool m_bBlack;
        const char* m_pRing;
    };
    const CContactLocalManager& directory = Directory();
    // clang-format off
    for (const Row& row : std::vector<Row>{
        {nullptr, "", false, ""}, {"", "", false, ""}, {"100", "Anna", true, "there.wav"},
        {"+49 30", "Anna", true, "there.wav"}, {"ABC", "", false, ""}, {"10", "", false, ""}, {"1000", "", false, ""},
        {"123456789012345", "Bob", false, "family.wav"}, {"123456789012346", "", false, ""},
        {"200", "Bob", false, "family.wav"}, {"300", "Carl", false, ""}, {"400", "Dora", false, ""}}) {
        // clang-format on
        SCOPED_TRACE(row.m_pNumber == nullptr ? "null" : row.m_pNumber);
        EXPECT_STREQ(directory.GetContactNameByPhoneNumber(row.m_pNumber).c_str(), row.m_pName);
        EXPECT_EQ(directory.IsBlackContactNumber(row.m_pNumber), row.m_bBlack);
        EXPECT_STREQ(directory.GetContactRingByNumber(row.m_pNumber, nullptr).c_str(), row.m_pRing);
        EXPECT_STREQ(directory.GetContactRingByNumber(row.m_pNumber, "300").c_str(), row.m_pRing);
        ContactGeneralItemData data = Contact({"kept"});
        const bool bFound = *row.m_pName != '\0';
        EXPECT_EQ(directory.GetContactDataByNumber(&data, row.m_pNumber), bFound ? 1 : 0);
        EXPECT_STREQ(data.m_strDisplayName.c_str(), bFound ? row.m_pName : "kept");
        EXPECT_EQ(directory.GetContactDataByNumber(nullptr, row.m_pNumber), 0);
    }
    EXPECT_EQ(Directory().AddContact("Family", Contact({"Aaron", "", "", "", "200"})), 0);
    EXPECT_STREQ(directory.GetContactNameByPhoneNumber("200").c_str(), "Aaron")
        << "it stands first now";
}

TEST_F(LookupTest, NameBeforeNumber)
{
    ContactGeneralItemData data;
    const CContactLocalManager& directory = Directory();
    EXPECT_EQ(directory.GetContactData(&data, "Carl", "100"), 1);
    EXPECT_EQ(Text(data),
              Text(Contact({"Carl", "Friend", "200", "", "300", "gone.wav", 1, "p", 2})));
    String strNumber("100");
    strNumber.append("\0x", 2);
    EXPECT_EQ(directory.GetContactData(&data, "carl", strNumber), 1);
    EXPECT_TRUE(data.m_strDisplayName == "Anna");
    EXPECT_EQ(directory.GetContactData(&data, "", ""), 0);
    EXPECT_EQ(directory.GetContactData(nullptr, "Carl", ""), 0);
    g_device.m_bColorful = false;
    EXPECT_EQ(directory.GetContactDataByName(&data, "Carl"), 1);
    EXPECT_TRUE(data.m_strDefaultPhoto.empty()) << "Anna's, since plain screens leave photos alone";
    EXPECT_EQ(directory.GetContactDataByName(&data, "carl"), 0);
}

TEST_F(LookupTest, TheGroupAnswersWhereTheContactHasNoRing)
{
    EXPECT_STREQ(Directory().GetGroupRingByContact("Bob").c_str(), "Family")
        << "the name, not the ring";
    EXPECT_STREQ(Directory().GetGroupRingByContact("bob").c_str(), "");
    EXPECT_EQ(g_device.m_listFilesAsked.back(), CONTACT_FILE);
    (void)Directory().GetContactRingByNumber("123456789012345", "");
    EXPECT_EQ(g_device.m_listFilesAsked.back(), "gone.wav") << "the group's file is not asked for";
    for (auto* pos = Directory().m_listContact.begin(); pos != Directory().m_listContact.end();
         pos = pos->next) {
        pos->value->m_nGroupId = pos->value->m_nGroupId == 1 ? 1 : 9;
    }
    EXPECT_STREQ(Directory().GetContactRingByNumber("200", nullptr).c_str(), "");
    EXPECT_STREQ(Directory().GetGroupRingByContact("Bob").c_str(), "");
    EXPECT_STREQ(Directory().GetContactNameByPhoneNumber("200").c_str(), "Bob");
    ContactGeneralItemData data;
    EXPECT_EQ(Directory().GetContactDataByNumber(&data, "200"), 0);
    (void)Directory().ReloadContactXml();
}

TEST_F(LookupTest, DefaultPhoto)
{
    const std::string strDefault = "Default:default_contact_image.png";
    const auto photos = [] {
        std::string strPhotos;
        for (const auto* pos = Directory().m_listContact.begin();
             pos != Directory().m_listContact.end(); pos = pos->next) {
            strPhotos += pos->value->m_strDefaultPhoto.c_str() + std::string("|");
        }
        return strPhotos;
    };
    Directory().m_bReloadByHttp = true;
    ExpectDone(0, {CONTACT_FILE}, [] { return Directory().SetDefaultPhoto("nobody's"); });
    EXPECT_EQ(photos(), "||p|P|");
    ExpectDone(0, {CONTACT_FILE}, [] { return Directory().SetDefaultPhoto("p"); });
    EXPECT_EQ(photos(), "||" + strDefault + "|P|");
    ExpectDone(0, {CONTACT_FILE}, [] { return Directory().SetDefaultPhoto(""); });
    EXPECT_EQ(photos(), strDefault + '|' + strDefault + '|' + strDefault + "|P|");
}

TEST(StringConvert, WorksOnBytes)
{
    String strText("aBc1\xC3\xA9");
    strText.append("\0Z", 2);
    String strLower("abc1\xC3\xA9");
    strLower.append("\0z", 2);
    String strUpper("ABC1\xC3\xA9");
    strUpper.append("\0Z", 2);
    EXPECT_TRUE(commonAPI_StringConvert(strText, STRING_CONVERT_TO_LOWER) == strLower);
    EXPECT_TRUE(commonAPI_StringConvert(strText, STRING_CONVERT_TO_UPPER) == strUpper);
    for (const int nOther : {0, 3}) {
        EXPECT_TRUE(commonAPI_StringConvert(strText, static_cast<StringConvertType>(nOther)) ==
                    strText);
    }
    EXPECT_TRUE(commonAPI_StringConvert("", STRING_CONVERT_TO_UPPER).empty());
}

}  // namespace
