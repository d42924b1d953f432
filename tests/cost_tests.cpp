// What calls cost, in counts: allocations of a lookup, heap blocks of a contact, files and bytes
// written by an edit.

#include <functional>

#include "tests/support/directory_test.h"
#include "tests/support/heap_count.h"

namespace {

using NS_DIRECTORY::CContactLocalManager;

constexpr char SHORT_NUMBER[] = "03012345678901";  // 14 characters, the most that need no block
constexpr char LONG_NUMBER[] = "030123456789012";
constexpr char LONG_TEXT[] = "a text of more than fourteen characters";

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
        std::vector<ContactRow> rows(static_cast<std::size_t>(nCount), row);
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
                {"long number, long name", LONG_TEXT, 2},
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
    const std::string strLong(LONG_TEXT);
    EXPECT_EQ(BlocksHeld({"Anna", "Blacklist", SHORT_NUMBER}, 7) - BlocksHeld({"Anna"}, 2), 5 * 2);
    EXPECT_EQ(BlocksHeld({strLong}, 7) - BlocksHeld({strLong}, 2), 5 * 3);
    const ContactRow allLong{strLong, "Blacklist", strLong, strLong, strLong, strLong, 0, strLong};
    EXPECT_EQ(BlocksHeld(allLong, 7) - BlocksHeld(allLong, 2), 5 * 8);
}

using WriteTest = DirectoryTest;

TEST_F(WriteTest, AnEditWritesTheBytesOfItsFilesOnce)
{
    QZList<String> names;
    names.push_back("Anna");
    names.push_back("Bob");
    const struct
    {
        const char* m_pName;
        Texts m_listWritten;
        std::function<void(CContactLocalManager&)> m_edit;
    } rows[] = {
        {"move two", {CONTACT_FILE}, [&](auto& book) { book.MoveListToGroup(names, "Family"); }},
        {"remove two", {CONTACT_FILE}, [&](auto& book) { book.RemoveContactList(names); }},
        {"add a group", {GROUP_FILE}, [](auto& book) { book.AddGroup(Group({"Work"})); }},
        {"remove a group", {CONTACT_FILE, GROUP_FILE}, [](auto& book) {
             book.RemoveGroup("Family");
         }}};
    for (const auto& row : rows) {
        Start({{"Family"}}, {{"Anna"}, {"Bob"}, {"Carl"}});
        const FileCalls calls;
        row.m_edit(Directory());
        EXPECT_EQ(calls.Written(), row.m_listWritten) << row.m_pName;
        std::size_t nBytes = 0;
        for (const std::string& strPath : row.m_listWritten) {
            nBytes += ReadFile(strPath).size();
        }
        EXPECT_EQ(calls.BytesWritten(), nBytes) << row.m_pName;
    }
}

}  // namespace
