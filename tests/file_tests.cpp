// The files: what is written, byte for byte, and what a load takes from any file.

#include "tests/support/directory_test.h"

using namespace NS_DIRECTORY;

namespace {

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
    Start({{"Family"}}, {{"Anna"}});
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

// Elements, and whole files of them.
// clang-format off
const auto G = [](const std::string& strName) { return "<group display_name='" + strName + "'/>"; };
const auto C = [](const std::string& strName, const std::string& strGroup) {
    return "<contact display_name='" + strName + "' group_id_name='" + strGroup + "'/>"; };
const auto InGroups = [](const std::string& str) { return "<root_group>" + str + "</root_group>"; };
const auto InContacts = [](const std::string& str) { return "<root_contact>" + str + "</root_contact>"; };
// clang-format on

TEST_F(FileTest, ALoadTakesWhatTheFileHolds)
{
    const std::string strFixed = "All Contacts 0,Blacklist 1,";
    std::string strFull = strFixed;
    std::string strTooMany;
    for (int n = 2; n <= 50; ++n) {
        const std::string strName = 'g' + std::to_string(100 + n);
        strTooMany += G(strName);
        strFull += n < 50 ? strName + ' ' + std::to_string(n) + ',' : "";
    }
    struct Row
    {
        const char* m_pName;
        const char* m_pPath;
        std::string m_strFile;
        int m_nResult;
        std::string m_strEntries;
    };
    // clang-format off
    for (const Row& row : std::vector<Row>{
        {"empty file", GROUP_FILE, "", 0, ""}, {"empty file", CONTACT_FILE, "", 0, ""},
        {"not XML", GROUP_FILE, "\x7f\x45\x4c\x46 garbage", 0, ""}, {"not XML", CONTACT_FILE, "\x01\x02", 0, ""},
        {"other root", GROUP_FILE, InContacts(""), 0, ""}, {"other root", CONTACT_FILE, InGroups(""), 0, ""},
        {"empty root", GROUP_FILE, InGroups(""), 1, strFixed}, {"empty root", CONTACT_FILE, InContacts(""), 1, ""},
        {"first root counts", GROUP_FILE, InGroups("") + InGroups(G("A")), 1, strFixed},
        // The parser keeps the element that the cut went through, without the attribute.
        {"cut", GROUP_FILE, "<root_group>" + G("A") + "<group disp", 0, strFixed + "A 2,"},
        {"cut", CONTACT_FILE, "<root_contact>" + C("B", "Family") + "<contact display_name='A' line='", 1, "A 0,B 3,"},
        {"ids by the file, places by name", GROUP_FILE, InGroups(G("b") + "<x/><!-- y -->" + G("A")), 1, strFixed + "A 3,b 2,"},
        {"equal but for case", GROUP_FILE, InGroups(G("We") + G("WE") + G("Zoo")), 0, strFixed + "We 2,Zoo 4,"},
        {"equal but for case", CONTACT_FILE, InContacts(C("bo", "Family") + C("BO", "") + "<x/>"), 0, "bo 3,"},
        {"no name, empty name", GROUP_FILE, InGroups("<group/>" + G("") + G("A")), 0, strFixed + "A 4,"},
        {"no name, empty name", CONTACT_FILE, InContacts("<contact/>" + C("A", "") + C("", "")), 0, " 0,A 0,"},
        {"fixed names use no id", GROUP_FILE, InGroups(G("Blacklist") + G("blacklist")), 1, strFixed + "blacklist 2,"},
        {"group of other case", CONTACT_FILE, InContacts(C("C", "family") + C("B", "Family")), 1, "B 3,C 0,"},
        {"above the limit", GROUP_FILE, InGroups(strTooMany), 0, strFull},
        {"first of a name, in any order", CONTACT_FILE,
         InContacts("<contact group_id_name='Family' display_name='A' display_name='B'/>"), 1, "A 3,"}}) {
        // clang-format on
        SCOPED_TRACE(row.m_pPath + (": " + std::string(row.m_pName)));
        Start({{"Company"}, {"Family"}}, {{"Before"}});
        WriteFile(row.m_pPath, row.m_strFile);
        const bool bGroups = row.m_pPath == GROUP_FILE;
        ExpectDone(row.m_nResult, {}, [bGroups] {
            return bGroups ? Directory().ReloadGroupXml() : Directory().ReloadContactXml();
        });
        std::string strEntries;
        for (const std::string& strEntry : bGroups ? Groups() : Contacts()) {
            strEntries += strEntry + ',';
        }
        EXPECT_EQ(strEntries, row.m_strEntries);
    }
    std::filesystem::remove(CONTACT_FILE);
    ExpectDone(0, {}, [] { return Directory().ReloadContactXml(); });
    EXPECT_EQ(ReadFile(CONTACT_FILE), "(no file)");
}

TEST_F(FileTest, TheMarkOfAFixedGroupIsKeptAndProtectsNoOther)
{
    WriteFile(GROUP_FILE,
              "<root_group><group read_only='1' ring='r' display_name='A'/>"
              "<group display_name='B' read_only='true'/></root_group>");
    Directory().MySetGroupDirty(true);
    EXPECT_EQ(ReadFile(GROUP_FILE), GroupFile({{"A", "r", true}, {"B"}}));
    EXPECT_EQ(Directory().RemoveGroup("A"), DIR_RET_OK);
}

}  // namespace
