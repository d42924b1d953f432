// The contact list and its file: order, counters, limits, what a load takes, and what editing does.

#include <functional>

#include "tests/support/directory_test.h"

using namespace NS_DIRECTORY;

namespace {

const std::vector<GroupRow> TWO_GROUPS{{"Company"}, {"Family"}};  // ids 2 and 3

class ContactTest : public DirectoryTest
{
  protected:
    static ContactGeneralItemListData Page(int nFrom, int nCount)
    {
        ContactGeneralItemListData page;
        page.m_nIndexFrom = nFrom;
        page.m_nCountToGet = nCount;
        return page;
    }

    // "name group" of each contact in order.
    static Texts Groups()
    {
        Texts groups;
        for (const auto* pos = Directory().m_listContact.begin();
             pos != Directory().m_listContact.end(); pos = pos->next) {
            groups.push_back(pos->value->m_strDisplayName.c_str() +
                             (' ' + std::to_string(pos->value->m_nGroupId)));
        }
        return groups;
    }
};

TEST_F(ContactTest, AddCountsWhatTheWalkMeets)
{
    struct Row
    {
        const char* m_pName;
        int m_nGroup, m_nResult;
    };
    // clang-format off
    for (const Row& row : std::vector<Row>{
        {"Aaron", 2, 1}, {"Aaron", 0, 1}, {"Bert", 2, 1}, {"bert", 3, 1}, {"Bert", 1, 0}, {"Dora", 2, 2},
        {"dora", 0, 3}, {"", 3, 0}}) {
        // clang-format on
        SCOPED_TRACE(std::string(row.m_pName) + ' ' + std::to_string(row.m_nGroup));
        Start(TWO_GROUPS, {{"Anna", "Company"}, {"Bob", "Family"}, {"Carl", "Company"}});
        ExpectDone(row.m_nResult, {CONTACT_FILE}, [&row] {
            return Directory().AddContactById(row.m_nGroup, Contact({row.m_pName}));
        });
        EXPECT_EQ(Directory().GetCurrentBlackCount(), row.m_nGroup == 1 ? 1 : 0);
        EXPECT_EQ(Directory().GetContactGroupId(row.m_pName),
                  *row.m_pName == '\0' ? -1 : row.m_nGroup);
    }
}

TEST_F(ContactTest, InsertFallsBackToAllContacts)
{
    Start(TWO_GROUPS, {{"Anna", "Company"}});
    for (const int nGroup : {-1, 2, 77}) {
        CContactLocalManager::ItemData item;
        item.m_strDisplayName = std::to_string(nGroup).c_str();
        item.m_nGroupId = nGroup;
        ExpectDone(nGroup == 77 ? 3 : 1, {},
                   [&item] { return Directory().MyInsertContact(item, false); });
        EXPECT_EQ(Directory().GetContactGroupId(item.m_strDisplayName), nGroup == 2 ? 2 : 0);
    }
    EXPECT_EQ(Directory().MyCGID2ID(nullptr, 0, {}, false), 0);
}

TEST_F(ContactTest, FilesByteForByte)
{
    const std::string strLong(32, 'x');
    ContactRow row{"<Zo\xC3\xAB & \"Q'>\t\n",
                   "Company",
                   std::string(14, '1'),
                   std::string(15, '2'),
                   std::string(31, '3'),
                   strLong,
                   -1,
                   strLong + "/p",
                   INT_MIN};
    ContactRow escaped = row;
    escaped.m_strName = "&lt;Zo\xC3\xAB &amp; &quot;Q'>&#09;&#10;";
    for (const bool bColorful : {true, false}) {
        g_device.m_bColorful = bColorful;
        Start(TWO_GROUPS, {});
        EXPECT_EQ(Directory().AddContact("Company", Contact(row)), 0);
        const std::string strFile = ReadFile(CONTACT_FILE);
        EXPECT_EQ(strFile, ContactFile({escaped}));
        const std::string strBefore = Memory();
        Restart();
        EXPECT_EQ(Memory(), strBefore) << "every field comes back";
        Directory().MySetContactDirty(true);
        EXPECT_EQ(ReadFile(CONTACT_FILE), strFile);
        EXPECT_EQ(Directory().ExportContactAndGroup(""), 1);
        const std::string strPhoto = bColorful ? " default_photo=\"" + strLong + "/p\"" : "";
        EXPECT_EQ(ReadFile(EXPORT_FILE),
                  "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<root_group>\n"
                  "\t<group display_name=\"All Contacts\" ring=\"\" />\n"
                  "\t<group display_name=\"Blacklist\" ring=\"\" />\n"
                  "\t<group display_name=\"Company\" ring=\"\" />\n"
                  "\t<group display_name=\"Family\" ring=\"\" />\n</root_group>\n<root_contact>\n"
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
    EXPECT_EQ(Directory().ExportContactAndGroup("other.xml"), 1);
    EXPECT_EQ(ReadFile("other.xml"),
              "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<root_group />\n<root_contact />\n");
    EXPECT_EQ(Directory().ExportContactAndGroup("no/such/folder"), 1);
}

TEST_F(ContactTest, LoadTakesWhatTheFileHolds)
{
    struct Row
    {
        const char* m_pName;
        std::string m_strFile;
        int m_nResult;
        Texts m_listGroups;
    };
    const std::string strEnd = "</root_contact>";
    // clang-format off
    for (const Row& row : std::vector<Row>{
        {"empty file", "", 0, {}}, {"not XML", "\x01\x02", 0, {}}, {"other root", "<root_group/>", 0, {}},
        {"empty root", "<root_contact/>", 1, {}},
        {"cut in the second contact", "<root_contact><contact display_name='B' group_id_name='Family'/><contact display_name='A' line='", 1, {"A 0", "B 3"}},
        {"no group, unknown group, other case", "<root_contact><contact display_name='C'/><contact display_name='a' group_id_name='Nobody'/><contact display_name='B' group_id_name='family'/>" + strEnd, 1, {"a 0", "B 0", "C 0"}},
        {"equal but for case", "<root_contact><contact display_name='bob' group_id_name='Family'/><contact display_name='Al'/><contact display_name='BOB'/><x/>" + strEnd, 0, {"Al 0", "bob 3"}},
        {"nameless twice", "<root_contact><contact/><contact display_name='A'/><contact display_name=''/>" + strEnd, 0, {" 0", "A 0"}},
        {"the first attribute of a name counts, in whatever order", "<root_contact><contact line='1' display_name='A' group_id_name='Family' group_id_name='Company' display_name='B'/>" + strEnd, 1, {"A 3"}}}) {
        // clang-format on
        SCOPED_TRACE(row.m_pName);
        Start(TWO_GROUPS, {});
        WriteFile(CONTACT_FILE, row.m_strFile);
        ExpectDone(row.m_nResult, {}, [] { return Directory().ReloadContactXml(); });
        EXPECT_EQ(Groups(), row.m_listGroups);
        EXPECT_EQ(ReadFile(CONTACT_FILE), row.m_strFile);
    }
    std::filesystem::remove(CONTACT_FILE);
    EXPECT_EQ(Directory().ReloadContactXml(), 0);
    EXPECT_EQ(Groups(), Texts{});
    EXPECT_EQ(ReadFile(CONTACT_FILE), "(no file)");
}

TEST_F(ContactTest, NumbersAndPhotosOfTheFile)
{
    Start(TWO_GROUPS, {});
    // clang-format off
    const std::vector<std::pair<const char*, int>> rows{
        {"12x", 12}, {"x", 0}, {"", 0}, {" -1", -1}, {"2147483648", INT_MAX}, {"-99999999999999999999", INT_MIN}};
    // clang-format on
    for (const auto& [pText, nNumber] : rows) {
        SCOPED_TRACE(pText);
        const std::string strNumber = "='" + std::string(pText) + "'";
        WriteFile(CONTACT_FILE, "<root_contact><contact display_name='A' name_index='x' line" +
                                    strNumber + " selected_photo" + strNumber +
                                    " default_photo='p'/></root_contact>");
        g_device.m_bColorful = true;
        EXPECT_EQ(Directory().ReloadContactXml(), 1);
        EXPECT_EQ(Directory().m_listContact.begin()->value->m_nLine, nNumber);
        EXPECT_EQ(Directory().m_listContact.begin()->value->m_nSelectedPhoto, nNumber);
        g_device.m_bColorful = false;
        EXPECT_EQ(Directory().ReloadContactXml(), 1);
        Directory().MySetContactDirty(true);
        EXPECT_EQ(ReadFile(CONTACT_FILE),
                  ContactFile({{"A", "All Contacts", "", "", "", "", nNumber}}));
    }
}

TEST_F(ContactTest, EachSideHasItsOwnLimit)
{
    std::string strFile = "<root_contact>";
    for (int n = 0; n < 1005; ++n) {
        strFile += "<contact display_name='o" + std::to_string(n) + "'/>";
    }
    for (int n = 0; n < 31; ++n) {
        strFile += "<contact display_name='b" + std::to_string(n) + "' group_id_name='Blacklist'/>";
    }
    Start(TWO_GROUPS, {});
    WriteFile(CONTACT_FILE, strFile + "</root_contact>");
    Restart();
    EXPECT_EQ(Directory().GetCurrentContactCount(), 1000);
    EXPECT_EQ(Directory().GetCurrentBlackCount(), 30);
    EXPECT_FALSE(Directory().IsContactExist("o1000")) << "the first in the file stand";
    EXPECT_FALSE(Directory().IsContactExist("b30"));
    EXPECT_EQ(Directory().MyGetContactCountByGroupId(0), 1030);
    EXPECT_EQ(Directory().MyGetContactCountByGroupId(1), 30);
    EXPECT_EQ(Directory().SetMaxContactCount(2000), 1000);
    EXPECT_EQ(Directory().SetMaxBlackCount(31), 30);
    EXPECT_EQ(Directory().ReloadContactXml(), 1);
    EXPECT_EQ(Directory().GetCurrentContactCount(), 1005);
    EXPECT_EQ(Directory().GetCurrentBlackCount(), 31);
    Restart();
    EXPECT_EQ(Directory().GetMaxContactCount(), 1000);
}

TEST_F(ContactTest, Updates)
{
    struct Row
    {
        const char* m_pName;
        const char* m_pOld;
        ContactRow m_new;
        bool m_bColorful;
        int m_nResult;
        bool m_bWrites;
    };
    const std::vector<ContactRow> start{
        {"Anna", "Company", "1", "", "", "", 0, "p", 1}, {"Bob", "Family"}, {"Carl", "Company"}};
    for (const Row& row :
         // clang-format off
         std::vector<Row>{
             {"nothing differs", "Anna", start[0], true, 1, false},
             {"number", "Carl", {"Carl", "Company", "7"}, true, 2, true},
             {"to another group", "Carl", {"Carl", "Family"}, true, 1, true},
             {"to another group, head", "Anna", {"Anna", "Family", "1", "", "", "", 0, "p", 1}, true, 0, true},
             {"to all", "Carl", {"Carl"}, true, 3, true},
             {"to the blacklist", "Bob", {"Bob", "Blacklist"}, true, 0, true},
             {"photo on colours", "Anna", {"Anna", "Company", "1", "", "", "", 0, "q", 1}, true, 1, true},
             {"selected photo on colours", "Anna", {"Anna", "Company", "1", "", "", "", 0, "p", 2}, true, 1, true},
             {"photo on plain", "Anna", {"Anna", "Company", "1", "", "", "", 0, "q", 2}, false, 1, false},
             {"every other field", "Anna", {"Anna", "Company", "1", "2", "3", "r", 4, "p", 1}, true, 1, true},
             {"letter case", "Bob", {"bOB", "Family", "5"}, true, 0, true},
             {"letter case behind", "Carl", {"cARL", "Company", "5"}, true, 1, true},
             {"empty name", "Carl", {"", "Company"}, true, 1, true},
             {"new name, other group", "Anna", {"Zoe", "Family"}, true, 1, true}}) {
        // clang-format on
        SCOPED_TRACE(row.m_pName);
        g_device.m_bColorful = true;
        Start(TWO_GROUPS, start);
        g_device.m_bColorful = row.m_bColorful;
        ExpectDone(row.m_nResult, row.m_bWrites ? Texts{CONTACT_FILE} : Texts{}, [&row] {
            return Directory().UpdateContactData(row.m_pOld, Contact(row.m_new));
        });
        ContactGeneralItemData stored;
        if (row.m_bColorful && !row.m_new.m_strName.empty()) {
            EXPECT_EQ(Directory().GetContactDataByName(&stored, row.m_new.m_strName.c_str()), 1);
            EXPECT_EQ(Text(stored), Text(Contact(row.m_new)));
        }
        EXPECT_EQ(Groups().size(), start.size());
    }
}

TEST_F(ContactTest, MovesAndRemovalsWriteOnceWhereSomethingChanged)
{
    const std::vector<ContactRow> start{
        {""}, {"Anna", "Company"}, {"Bob", "Blacklist"}, {"Carl", "Family"}};
    QZList<String> names;
    for (const char* pName : {"Nobody", "Carl", "Anna", "Carl", "anna"}) {
        names.push_back(pName);
    }
    QZList<String> bob;
    bob.push_back("Bob");
    struct Row
    {
        const char* m_pName;
        int m_nResult;
        bool m_bWrites;
        std::function<int(CContactLocalManager&)> m_call;
        Texts m_listGroups;
    };
    using Manager = CContactLocalManager;
    const Texts same{" 0", "Anna 2", "Bob 1", "Carl 3"};
    // clang-format off
    for (const Row& row : std::vector<Row>{
        {"list", 0, true, [&](Manager& m) { return m.MoveListToGroup(names, "Blacklist"); }, {" 0", "Anna 1", "Bob 1", "Carl 1"}},
        {"list there already", 0, false, [&](Manager& m) { return m.MoveListToGroup(bob, "Blacklist"); }, same},
        {"list into the last slot", 0, true, [&](Manager& m) { m.SetMaxBlackCount(3); return m.MoveListToGroup(names, "Blacklist"); }, {" 0", "Anna 1", "Bob 1", "Carl 1"}},
        {"list between ordinary groups at the limit", 0, true, [&](Manager& m) { m.SetMaxContactCount(3); return m.MoveListToGroup(names, "Family"); }, {" 0", "Anna 3", "Bob 1", "Carl 3"}},
        {"one", 0, true, [](Manager& m) { return m.MoveContactToGroup("Anna", "Family"); }, {" 0", "Anna 3", "Bob 1", "Carl 3"}},
        {"nobody", 0, false, [](Manager& m) { return m.MoveContactToGroup("anna", "Family"); }, same},
        {"the nameless one is not reached", 0, false, [](Manager& m) { return m.MoveContactToGroup("", "Family"); }, same},
        {"by id", 1, true, [](Manager& m) { return m.SetContactGroupId("Bob", 3); }, {" 0", "Anna 2", "Bob 3", "Carl 3"}},
        {"by id there already", 1, false, [](Manager& m) { return m.SetContactGroupId("Bob", 1); }, same},
        {"out of the blacklist past the limit", 1, true, [](Manager& m) { m.SetMaxContactCount(3); return m.Black2Local("Bob"); }, {" 0", "Anna 2", "Bob 0", "Carl 3"}},
        {"into the blacklist above the limit", 1, true, [](Manager& m) { m.SetMaxBlackCount(0); return m.Local2Black("Anna"); }, {" 0", "Anna 1", "Bob 1", "Carl 3"}},
        {"remove", 1, true, [](Manager& m) { return m.RemoveContact("Bob"); }, {" 0", "Anna 2", "Carl 3"}},
        {"remove the nameless one", 1, true, [](Manager& m) { return m.RemoveContact(""); }, {"Anna 2", "Bob 1", "Carl 3"}},
        {"remove list", 1, true, [&](Manager& m) { return m.RemoveContactList(names); }, {" 0", "Bob 1"}},
        {"remove empty list", 1, false, [](Manager& m) { return m.RemoveContactList({}); }, same},
        {"remove group", 1, true, [](Manager& m) { return m.RemoveAllContacts(1); }, {" 0", "Anna 2", "Carl 3"}},
        {"remove no group", 1, false, [](Manager& m) { return m.RemoveAllContacts(9); }, same},
        {"remove all", 1, true, [](Manager& m) { return m.RemoveAllContacts(0); }, {}}}) {
        // clang-format on
        SCOPED_TRACE(row.m_pName);
        Start(TWO_GROUPS, start);
        ExpectDone(row.m_nResult, row.m_bWrites ? Texts{CONTACT_FILE} : Texts{},
                   [&row] { return row.m_call(Directory()); });
        EXPECT_EQ(Groups(), row.m_listGroups);
        const std::string strMemory = Memory();
        EXPECT_EQ(Directory().ReloadContactXml(), 1);
        EXPECT_EQ(Memory(), strMemory) << "the file holds what the list holds";
    }
    EXPECT_EQ(names.size(), 5U);
}

TEST_F(ContactTest, Pages)
{
    Start(TWO_GROUPS, {{"A", "Company"}, {"B", "Blacklist"}, {"C", "Family"}, {"D", "Company"}});
    struct Row
    {
        int m_nGroup, m_nFrom, m_nCount, m_nTotal;
        Texts m_listNames;
    };
    // clang-format off
    for (const Row& row : std::vector<Row>{
        {0, 0, 9, 3, {"A", "C", "D"}}, {0, 1, INT_MAX, 3, {"C", "D"}}, {0, -2, 3, 3, {"A"}}, {0, 3, 1, 3, {}},
        {0, 0, 0, 3, {}}, {1, 0, 9, 1, {"B"}}, {2, 1, 1, 2, {"D"}}, {2, INT_MIN, -1, 2, {}}}) {
        // clang-format on
        SCOPED_TRACE(std::to_string(row.m_nGroup) + ' ' + std::to_string(row.m_nFrom));
        ContactGeneralItemListData page = Page(row.m_nFrom, row.m_nCount);
        EXPECT_EQ(Directory().GetContactListById(&page, row.m_nGroup), 1);
        EXPECT_EQ(Names(page.m_listData), row.m_listNames);
        EXPECT_EQ(page.m_nTotalCount, row.m_nTotal);
    }
    ContactGeneralItemListData page = Page(0, 1);
    for (const int nId : {-1, 4}) {
        EXPECT_EQ(Directory().GetContactListById(&page, nId), 0);
        EXPECT_EQ(Directory().GetContactListById(nullptr, 0), 0);
    }
    EXPECT_EQ(Directory().GetContactList(&page, "blacklist"), 0);
    EXPECT_EQ(Directory().GetContactList(&page, ""), 0);
    EXPECT_EQ(page.m_nTotalCount, 0) << "untouched";
    EXPECT_EQ(Directory().GetContactList(&page, "Blacklist"), 1);
    EXPECT_EQ(Directory().GetContactList(&page, "Family"), 1);
    EXPECT_EQ(Names(page.m_listData), (Texts{"B", "C"})) << "pages add up";
    // A contact of no group counts but does not come out.
    Directory().m_listContact.begin()->value->m_nGroupId = 7;
    ContactGeneralItemListData short_page = Page(0, 2);
    EXPECT_EQ(Directory().GetContactListById(&short_page, 0), 1);
    EXPECT_EQ(Names(short_page.m_listData), Texts{"C"});
    EXPECT_EQ(short_page.m_nTotalCount, 3);
    ContactGeneralItemData data = Contact({"kept", "kept"});
    EXPECT_EQ(Directory().GetContactDataByName(&data, "A"), 0);
    EXPECT_EQ(Directory().GetContactDataByName(nullptr, "C"), 0);
    EXPECT_TRUE(data.m_strGroupName == "kept");
    Directory().MySetContactDirty(true);
    EXPECT_EQ(Directory().ReloadContactXml(), 1);
    EXPECT_EQ(Groups().front(), "A 0");
}

}  // namespace
