// The files: what is written, byte for byte, and what a load takes from any file.

#include <climits>
#include <tuple>

#include "tests/support/directory_test.h"

namespace {

using FileTest = DirectoryTest;

TEST_F(FileTest, FirstStartWritesTheDefaultGroups)
{
    const FileCalls calls;
    EXPECT_EQ(Groups(),
              (Texts{"All Contacts 0", "Blacklist 1", "Company 2", "Family 3", "Friend 4"}));
    EXPECT_EQ(calls.Written(), Texts{GROUP_FILE});
    EXPECT_EQ(ReadFile(GROUP_FILE), GroupFile({{"Company"}, {"Family"}, {"Friend"}}));
    EXPECT_EQ(ReadFile(CONTACT_FILE), "(no file)");
    EXPECT_TRUE(Directory().MyClearGroupList());
    EXPECT_FALSE(Directory().MyInit()) << "there are no contacts to load";
}

TEST_F(FileTest, EveryFieldGoesOutByteForByteAndComesBack)
{
    const std::string strLong(32, 'x');
    const std::string strName = "<Zo\xC3\xAB & \"Q'>\t\n\r\1\x1B\x7F\xFF";
    const ContactRow row(strName, strName, std::string(14, '1'), std::string(15, '2'),
                         std::string(31, '3'), strLong, -1, strLong + "/p", INT_MIN);
    const GroupRows groups{{strName, "r", true},
                           {std::string(14, 'y'), std::string(31, 'y')},
                           {std::string(15, 'z'), strLong}};
    GroupRows all{{"All Contacts"}, {"Blacklist"}};
    all.insert(all.end(), groups.begin(), groups.end());
    for (const bool bColorful : {true, false}) {
        SCOPED_TRACE(bColorful);
        g_device.m_bColorful = bColorful;
        Start(groups, {});
        EXPECT_EQ(Directory().AddContact(strName.c_str(), row), 0);
        EXPECT_EQ(ReadFile(CONTACT_FILE), ContactFile({row}));
        const std::string strBefore = State();
        Restart();
        Directory().MySetGroupDirty(true);
        Directory().MySetContactDirty(true);
        EXPECT_EQ(State(), strBefore);
        ExpectDone(1, {EXPORT_FILE}, [] { return Directory().ExportContactAndGroup(""); });
        EXPECT_EQ(ReadFile(EXPORT_FILE),
                  DECLARATION + GroupRoot(all, true) + ContactRoot(ContactRows{row}, true));
    }
    EXPECT_EQ(Directory().ExportContactAndGroup("no/such/folder"), 1);
}

// Elements, and whole files of them.
// clang-format off
const auto G = [](const std::string& strName) { return "<group display_name='" + strName + "'/>"; };
const auto C = [](const std::string& strName, const std::string& strGroup) {
    return "<contact display_name='" + strName + "' group_id_name='" + strGroup + "'/>"; };
const auto InGroups = [](const std::string& str) { return Root("root_group", str); };
const auto InContacts = [](const std::string& str) { return Root("root_contact", str); };
// clang-format on

TEST_F(FileTest, ALoadTakesWhatTheFileHolds)
{
    std::string strFull, strTooMany;
    for (int n = 2; n <= 50; ++n) {
        const std::string strName = 'g' + std::to_string(100 + n);
        strTooMany += G(strName);
        strFull += n < 50 ? strName + ' ' + std::to_string(n) + ',' : "";
    }
    // What is wrong, the file and its text; what the load gives, and its entries behind the fixed
    // ones.
    using Row = std::tuple<const char*, const char*, std::string, int, std::string>;
    // clang-format off
    for (const auto& [pName, pPath, strFile, nResult, strExpected] : std::vector<Row>{
        {"no file", CONTACT_FILE, "", 0, ""}, {"not XML", CONTACT_FILE, "\x01\x02", 0, ""},
        {"empty root", GROUP_FILE, InGroups(""), 1, ""}, {"empty root", CONTACT_FILE, InContacts(""), 1, ""},
        {"other root", CONTACT_FILE, InGroups(""), 0, ""},
        {"first root counts", GROUP_FILE, InGroups("") + InGroups(G("A")), 1, ""},
        // The parser keeps the element that the cut went through, without the attribute.
        {"cut", GROUP_FILE, "<root_group>" + G("A") + "<group disp", 0, "A 2,"},
        {"cut", CONTACT_FILE, "<root_contact>" + C("B", "Family") + "<contact display_name='A' line='", 1, "A 0,B 3,"},
        {"ids by the file, places by name", GROUP_FILE, InGroups(G("b") + "<x/><!-- y -->" + G("A")), 1, "A 3,b 2,"},
        {"equal but for case", GROUP_FILE, InGroups(G("We") + G("WE") + G("Zoo")), 0, "We 2,Zoo 4,"},
        {"equal but for case", CONTACT_FILE, InContacts(C("bo", "Family") + C("BO", "") + "<x/>"), 0, "bo 3,"},
        {"no name, empty name", GROUP_FILE, InGroups("<group/>" + G("") + G("A")), 0, "A 4,"},
        {"fixed names use no id", GROUP_FILE, InGroups(G("Blacklist") + G("blacklist")), 1, "blacklist 2,"},
        {"above the limit", GROUP_FILE, InGroups(strTooMany), 0, strFull},
        {"white space as it stands", CONTACT_FILE, InContacts(C("a\tb\nc\rd\r\ne", "")), 1, "a b c d e 0,"},
        {"first of a name, in any order", CONTACT_FILE,
         InContacts("<contact group_id_name='Family' display_name='A' display_name='B'/>"), 1, "A 3,"}}) {
        // clang-format on
        SCOPED_TRACE(Joined(pPath, ": ", pName));
        Start({{"Company"}, {"Family"}}, {{"Before"}});
        WriteFile(pPath, strFile);
        const bool bGroups = pPath == GROUP_FILE;
        (void)(strFile.empty() && std::filesystem::remove(pPath));
        ExpectDone(nResult, {}, [bGroups] {
            return bGroups ? Directory().ReloadGroupXml() : Directory().ReloadContactXml();
        });
        std::string strEntries;
        for (const std::string& strEntry : bGroups ? Groups() : Contacts()) {
            strEntries += strEntry + ',';
        }
        EXPECT_EQ(strEntries, (bGroups ? "All Contacts 0,Blacklist 1," : "") + strExpected);
    }
    for (const char* pText : {"", "\x7f\x45\x4c\x46 garbage", "<root_contact/>"}) {
        WriteFile(GROUP_FILE, pText);
        ExpectDone(0, {}, [] { return Directory().ReloadGroupXml(); });
        EXPECT_EQ(Groups(), Texts{});
    }
    // Over an empty group list both limits hold together, and a negative one counts nothing.
    EXPECT_EQ(Directory().RemoveAllContacts(GROUP_ID_ALL), 1);
    (void)Directory().SetMaxContactCount(-1);
    (void)Directory().SetMaxBlackCount(1);
    WriteFile(CONTACT_FILE, InContacts(C("A", "") + C("B", "Blacklist")));
    ExpectDone(0, {}, [] { return Directory().ReloadContactXml(); });
    EXPECT_EQ(Contacts(), Texts{"A 0"});
}

}  // namespace
