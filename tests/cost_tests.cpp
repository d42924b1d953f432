// What calls cost, in counts: allocations of a lookup, heap blocks of a contact, and none that
// edits without end leave behind. NSDIRECTORY_SOAK_EDITS sets how many those are.

#include <algorithm>
#include <cstdlib>

#include "tests/support/directory_test.h"
#include "tests/support/heap_count.h"

namespace {

using NS_DIRECTORY::CContactLocalManager;

constexpr char SHORT_NUMBER[] = "03012345678901";  // 14 characters, the most that need no block
constexpr char LONG_NUMBER[] = "030123456789012";
const std::string LONG_TEXT(40, 'l');

class HeapTest : public DirectoryTest
{
  protected:
    void SetUp() override
    {
        DirectoryTest::SetUp();
        if (!IsHeapCounted()) {
            GTEST_SKIP() << "another allocator is in place";
        }
    }

    // Blocks that the directory holds with this many contacts like the row.
    static long BlocksHeld(const ContactRow& row, int nCount)
    {
        ContactRows rows(static_cast<std::size_t>(nCount), row);
        for (ContactRow& contact : rows) {
            contact.m_strName += std::to_string(&contact - rows.data());
        }
        Start({}, rows);
        const long nBefore = g_heap.m_nBlocks;
        CContactLocalManager::ReleaseInstance();
        return nBefore - g_heap.m_nBlocks;
    }
};

TEST_F(HeapTest, ALookupAllocatesForLongNumbersAndLongNamesOnly)
{
    Start({}, {{"Anna", "Blacklist", SHORT_NUMBER, LONG_NUMBER},
               {LONG_TEXT, "All Contacts", "100", LONG_TEXT}});
    const struct
    {
        const char* m_pName;
        const char* m_pNumber;
        long m_nAllocations;
    } rows[] = {{"short number, short name", SHORT_NUMBER, 0},
                {"long number, short name", LONG_NUMBER, 1},
                {"short number, long name", "100", 1},
                {"long number, long name", LONG_TEXT.c_str(), 2},
                {"short number of nobody", "200", 0},
                {"long number of nobody", "0301234567890124", 1}};
    const CContactLocalManager& book = Directory();
    for (const auto& row : rows) {
        const auto lookUp = [&] { (void)book.GetContactNameByPhoneNumber(row.m_pNumber); };
        EXPECT_EQ(AllocationsOf(lookUp), row.m_nAllocations) << row.m_pName;
    }
}

TEST_F(HeapTest, AContactTakesTwoBlocksAndOneForEachLongText)
{
    const std::string& strLong = LONG_TEXT;
    EXPECT_EQ(BlocksHeld({"Anna", "Blacklist", SHORT_NUMBER}, 7) - BlocksHeld({"Anna"}, 2), 5 * 2);
    EXPECT_EQ(BlocksHeld({strLong}, 7) - BlocksHeld({strLong}, 2), 5 * 3);
    const ContactRow allLong{strLong, "Blacklist", strLong, strLong, strLong, strLong, 0, strLong};
    EXPECT_EQ(BlocksHeld(allLong, 7) - BlocksHeld(allLong, 2), 5 * 8);
}

// Every kind of edit, in this order, and at the end no entry is left; the results.
std::vector<int> EditRound(CContactLocalManager& m)
{
    const std::string& strLong = LONG_TEXT;
    const String strKey(strLong.c_str());
    QZList<String> names = NameList({strLong});
    // clang-format off
    return {m.AddGroup(Group({strLong, "r"})), m.AddGroup(Group({"Work", strLong})),
            m.UpdateGroupData("Work", Group({"Work", strLong + "2"})), m.UpdateGroupData("Work", Group({"Job", strLong})),
            m.AddContact("Job", Contact({"Dora", "", strLong, strLong})), m.AddContactById(0, Contact({strLong})),
            m.AddBlackContact(Contact({"Ed", "", "", strLong, strLong})),
            m.UpdateContactData("Dora", Contact({"Dora", "Job", strLong + "2"})),
            m.UpdateContactData("Dora", Contact({"Zoe", strLong})),
            m.MoveListToGroup(names, "Job"), m.MoveContactToGroup("Ed", strKey), m.Local2Black("Zoe"), m.Black2Local("Zoe"),
            m.SetContactGroupId("Ed", 2), m.SetDefaultPhoto(""), m.RemoveGroup("Job"), m.RemoveContact("Zoe"),
            m.RemoveContactList(names), m.RemoveAllGroup(), m.RemoveAllContacts(0)};
    // clang-format on
}

TEST_F(DirectoryTest, AnEditWritesItsFilesAndNoByteMore)
{
    Start({{"Job"}}, {{"Ann", "Job"}});
    FileCalls contact;
    EXPECT_GE(Directory().AddContact("Job", Contact({"Bob"})), 0);
    EXPECT_EQ(contact.Written(), Texts{CONTACT_FILE});
    EXPECT_EQ(contact.BytesWritten(), ReadFile(CONTACT_FILE).size());
    FileCalls group;
    EXPECT_EQ(Directory().UpdateGroupData("Job", Group({"Work"})), 2);
    EXPECT_EQ(group.Written(), (Texts{CONTACT_FILE, GROUP_FILE}));
    EXPECT_EQ(group.BytesWritten(), ReadFile(CONTACT_FILE).size() + ReadFile(GROUP_FILE).size());
}

TEST_F(DirectoryTest, EditsWithoutEndLeaveTheHeapAsItWas)
{
    const char* pEdits = std::getenv("NSDIRECTORY_SOAK_EDITS");
    const long nEdits = pEdits == nullptr ? 2000 : std::atol(pEdits);
    Start({}, {});
    const std::string strState = State();
    g_device = FakeDevice();  // what it notes grows with the edits
    const long nBlocks = g_heap.m_nBlocks;
    for (long nDone = 0; nDone < nEdits;) {
        const std::vector<int> results = EditRound(Directory());
        ASSERT_GE(*std::min_element(results.begin(), results.end()), 0)
            << testing::PrintToString(results);
        nDone += static_cast<long>(results.size());
    }
    g_device = FakeDevice();
    EXPECT_EQ(g_heap.m_nBlocks, nBlocks);
    EXPECT_EQ(State(), strState);
}

}  // namespace
