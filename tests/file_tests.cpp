// The files: what is written, byte for byte, and what a load takes from any file.

#include "tests/support/directory_test.h"

using namespace NS_DIRECTORY;

namespace {

const GroupRows TWO_GROUPS{{"Company"}, {"Family"}};  // ids 2 and 3
const std::string DECLARATION = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";

class FileTest : public DirectoryTest
{
  protected:
    static void ExpectExport(const char* pPath, const char* pWritten, const std::string& strBody)
    {
        ExpectDone(1, {pWritten}, [=] { return Directory().ExportContactAndGroup(pPath); });
        EXPECT_EQ(ReadFile(pWritten), DECLARATION + strBody);
    }
};

TEST_F(FileTest, FirstStartWritesTheDefaultGroups)
{
    const GroupRows defaults{{"Company"}, {"Family"}, {"Friend"}};
    const FileCalls calls;
    EXPECT_EQ(Groups(),
              (Texts{"All Contacts 0", "Blacklist 1", "Company 2", "Family 3", "Friend 4"}));
    EXPECT_EQ(calls.Written(), Texts{GROUP_FILE});
    EXPECT_EQ(ReadFile(GROUP_FILE), GroupFile(defaults));
    EXPECT_EQ(ReadFile(CONTACT_FILE), "(no file)");
    Directory().MySetGroupDirty(true);
    EXPECT_EQ(ReadFile(GROUP_FILE), GroupFile(defaults));
}

TEST_F(FileTest, ASaveWritesWhatIsMarked)
{
    Start(TWO_GROUPS, {{"Anna"}});
    const std::string strBefore = State();
    ExpectDone(1, {}, [] { return Directory().SaveGroupToXml() * Directory().SaveContactToXml(); });
    Directory().m_bGroupDirty = Directory().m_bContactDirty = true;
    ExpectDone(1, {GROUP_FILE, CONTACT_FILE},
               [] { return Directory().SaveGroupToXml() * Directory().SaveContactToXml(); });
    EXPECT_EQ(State(), strBefore);
}

TEST_F(FileTest, EveryFieldGoesOutByteForByteAndComesBack)
{
    const std::string strLong(32, 'x');
    // clang-format off
    ContactRow row{"<Zo\xC3\xAB & \"Q'>\t\n", "Company", std::string(14, '1'), std::string(15, '2'), std::string(31, '3'),
                   strLong, -1, strLong + "/p", INT_MIN};
    // clang-format on
    ContactRow escaped = row;
    escaped.m_strName = "&lt;Zo\xC3\xAB &amp; &quot;Q'>&#09;&#10;";
    for (const bool bColorful : {true, false}) {
        SCOPED_TRACE(bColorful);
        g_device.m_bColorful = bColorful;
        Start({{"Company", "r"}}, {});
        EXPECT_EQ(Directory().AddContact("Company", Contact(row)), 0);
        EXPECT_EQ(ReadFile(CONTACT_FILE), ContactFile({escaped}));
        const std::string strBefore = State();
        Restart();
        Directory().MySetContactDirty(true);
        EXPECT_EQ(State(), strBefore);
        const std::string strPhoto = bColorful ? " default_photo=\"" + strLong + "/p\"" : "";
        ExpectExport(
            "", EXPORT_FILE,
            "<root_group>\n\t<group display_name=\"All Contacts\" ring=\"\" />\n"
            "\t<group display_name=\"Blacklist\" ring=\"\" />\n"
            "\t<group display_name=\"Company\" ring=\"r\" />\n</root_group>\n<root_contact>\n"
            "\t<contact display_name=\"" +
                escaped.m_strName +
                "\" office_number=\"222222222222222\" mobile_number=\"11111111111111\" "
                "other_number=\"" +
                row.m_strOther + "\" ring=\"" + strLong + "\" group_id_name=\"Company\"" +
                strPhoto + " />\n</root_contact>\n");
    }
    EXPECT_EQ(Directory().RemoveAllContacts(0), 1);
    EXPECT_EQ(ReadFile(CONTACT_FILE), ContactFile({}));
    WriteFile(GROUP_FILE, "");
    EXPECT_EQ(Directory().ReloadGroupXml(), 0);
    ExpectExport("other.xml", "other.xml", "<root_group />\n<root_contact />\n");
    EXPECT_EQ(Directory().ExportContactAndGroup("no/such/folder"), 1);
}

struct LoadRow
{
    const char* m_pName;
    std::string m_strFile;
    int m_nResult;
    Texts m_listEntries;  // without the fixed groups
};

std::string Elements(int nCount, const std::string& strBefore, const std::string& strBehind)
{
    std::string strElements;
    for (int n = 0; n < nCount; ++n) {
        strElements += strBefore + std::to_string(1000 + n) + strBehind;
    }
    return strElements;
}

TEST_F(FileTest, GroupsOfWhatIsInTheFile)
{
    const auto root = [](const std::string& str) { return "<root_group>" + str + "</root_group>"; };
    Texts full;
    for (int n = 2; n < 50; ++n) {
        full.push_back('g' + std::to_string(998 + n) + ' ' + std::to_string(n));
    }
    // clang-format off
    for (const LoadRow& row : std::vector<LoadRow>{
        {"empty file", "", 0, {}}, {"not XML", "\x7f\x45\x4c\x46 garbage", 0, {}},
        {"other root", "<root_contact/>", 0, {}}, {"empty root", "<root_group/>", 1, {}},
        {"first root counts", "<root_group/><root_group><group display_name='A'/></root_group>", 1, {}},
        // The parser keeps the element that the cut went through, without a name.
        {"cut in the second group", "<root_group><group display_name='A'/><group disp", 0, {"A 2"}},
        {"ids by the file, places by name", root("<group display_name='b'/><x/><!-- y --><group display_name='A'/>"), 1, {"A 3", "b 2"}},
        {"equal but for case", root("<group display_name='We'/><group display_name='WE'/><group display_name='Zoo'/>"), 0, {"We 2", "Zoo 4"}},
        {"no name, empty name", root("<group/><group display_name=''/><group display_name='A'/>"), 0, {"A 4"}},
        {"fixed names use no id", root("<group display_name='Blacklist' ring='x'/><group display_name='blacklist'/>"), 1, {"blacklist 2"}},
        {"above the limit", root(Elements(49, "<group display_name='g", "'/>")), 0, full}}) {
        // clang-format on
        SCOPED_TRACE(row.m_pName);
        WriteFile(GROUP_FILE, row.m_strFile);
        Restart();
        const bool bRoot = row.m_strFile.find("<root_group") == 0;
        Texts expected = bRoot ? Texts{"All Contacts 0", "Blacklist 1"} : Texts{};
        expected.insert(expected.end(), row.m_listEntries.begin(), row.m_listEntries.end());
        EXPECT_EQ(Groups(), expected);
        ExpectDone(row.m_nResult, {}, [] { return Directory().ReloadGroupXml(); });
        EXPECT_EQ(Groups(), expected);
    }
    // The mark of a fixed group comes from the file as it stands, and protects no other.
    WriteFile(GROUP_FILE, root("<group read_only='1' ring='r' display_name='A'/>"
                               "<group display_name='B' read_only='true'/>"));
    EXPECT_EQ(Directory().ReloadGroupXml(), 1);
    Directory().MySetGroupDirty(true);
    EXPECT_EQ(ReadFile(GROUP_FILE), GroupFile({{"A", "r", true}, {"B"}}));
    EXPECT_EQ(Directory().RemoveGroup("A"), DIR_RET_OK);
}

TEST_F(FileTest, ContactsOfWhatIsInTheFile)
{
    const auto root = [](const std::string& str) {
        return "<root_contact>" + str + "</root_contact>";
    };
    // clang-format off
    for (const LoadRow& row : std::vector<LoadRow>{
        {"empty file", "", 0, {}}, {"not XML", "\x01\x02", 0, {}},
        {"other root", "<root_group/>", 0, {}}, {"empty root", "<root_contact/>", 1, {}},
        {"cut in the second contact", "<root_contact><contact display_name='B' group_id_name='Family'/><contact display_name='A' line='", 1, {"A 0", "B 3"}},
        {"no group, other case", root("<contact display_name='C'/><contact display_name='B' group_id_name='family'/>"), 1, {"B 0", "C 0"}},
        {"equal but for case", root("<contact display_name='bo' group_id_name='Family'/><contact display_name='BO'/><x/>"), 0, {"bo 3"}},
        {"nameless twice", root("<contact/><contact display_name='A'/><contact display_name=''/>"), 0, {" 0", "A 0"}},
        {"the first of a name counts, in whatever order", root("<contact line='1' display_name='A' group_id_name='Family' group_id_name='Company' display_name='B'/>"), 1, {"A 3"}}}) {
        // clang-format on
        SCOPED_TRACE(row.m_pName);
        Start(TWO_GROUPS, {{"Before"}});
        WriteFile(CONTACT_FILE, row.m_strFile);
        ExpectDone(row.m_nResult, {}, [] { return Directory().ReloadContactXml(); });
        EXPECT_EQ(Contacts(), row.m_listEntries);
    }
    std::filesystem::remove(CONTACT_FILE);
    ExpectDone(0, {}, [] { return Directory().ReloadContactXml(); });
    EXPECT_EQ(Contacts(), Texts{});
    EXPECT_EQ(ReadFile(CONTACT_FILE), "(no file)");
}

TEST_F(FileTest, EachSideOfTheContactsHasItsOwnLimit)
{
    Start(TWO_GROUPS, {});
    WriteFile(CONTACT_FILE,
              "<root_contact>" + Elements(1005, "<contact display_name='o", "'/>") +
                  Elements(31, "<contact display_name='b", "' group_id_name='Blacklist'/>") +
                  "</root_contact>");
    Restart();
    EXPECT_EQ(Directory().GetCurrentContactCount(), 1000);
    EXPECT_EQ(Directory().GetCurrentBlackCount(), 30);
    EXPECT_FALSE(Directory().IsContactExist("o2000")) << "the first in the file stand";
    EXPECT_FALSE(Directory().IsContactExist("b1030"));
    EXPECT_EQ(Directory().MyGetContactCountByGroupId(0), 1030);
    EXPECT_EQ(Directory().SetMaxContactCount(2000), 1000);
    EXPECT_EQ(Directory().SetMaxBlackCount(31), 30);
    EXPECT_EQ(Directory().ReloadContactXml(), 1);
    EXPECT_EQ(Directory().GetCurrentContactCount(), 1005);
    EXPECT_EQ(Directory().GetCurrentBlackCount(), 31);
}

}  // namespace
