// What each edit of tests/scenarios/every_edit.txt leaves if a call of the system fails under it,
// the disk is full, memory ends or the process dies. And files that are cut anywhere.
//
// NSDIRECTORY_SOAK_EDITS sets how many edits must leave the heap as it was.

#include <csignal>
#include <set>

#include "bench/heap_count.h"
#include "directory/internal/name_set.h"
#include "tests/support/scenario.h"

namespace {

const CallData START{"Start", R"(group name="Company"
group name="Family"
contact name="Anna" group="Family" mobile="1"
contact name="Bob" group="Blacklist"
contact name="Carl" group="Family"
)"};
// In this order each still finds what it works on.
const Calls EDITS{
    {R"(AddGroup name="Delta")"},
    {R"(UpdateGroupData group="Family" name="Family" ring="too long for a String itself")"},
    {R"(UpdateGroupData group="Company" name="too long for a String itself")"},
    {R"(AddContact group="Family" name="too long for a String itself" other="1")"},
    {R"(AddContactById id="2" name="New")"},
    {R"(AddBlackContact name="Ned")"},
    {R"(Black2Local contact="Bob")"},
    {R"(UpdateContactData contact="Bob" name="Bob" group="Family" mobile="9")"},
    {R"(UpdateContactData contact="Carl" name="Zoe" group="Family")"},
    {R"(MoveListToGroup contacts="Anna,Carl" group="Blacklist")"},
    {R"(MoveContactToGroup contact="Anna" group="All Contacts")"},
    {R"(SetContactGroupId contact="Anna" id="2")"},
    {R"(Local2Black contact="Anna")"},
    {R"(SetDefaultPhoto photo="")"},
    {R"(RemoveGroup group="Family")"},
    {R"(RemoveAllGroup)"},
    {R"(RemoveContact contact="Bob")"},
    {R"(RemoveContactList contacts="Anna,Carl")"},
    {R"(RemoveAllContacts id="0")"}};

class FaultTest : public DirectoryTest
{
  protected:
    static Texts ReadFiles() { return {ReadFile(GROUP_FILE), ReadFile(CONTACT_FILE)}; }
    // The edit with one fault; false when it no longer makes that many calls.
    static bool RunWithFault(const CallData& edit, FileCalls::Kind kind, int nCall)
    {
        MakeAlone(START);
        const Texts before = ReadFiles();
        const FileCalls whole;
        const Texts result = MakeAlone(edit);
        const bool bReloads =
            whole.Count(FileCalls::OPEN) > static_cast<int>(whole.Written().size());
        const Texts after = ReadFiles();
        MakeAlone(START);
        int nReached = 0;
        {
            FileCalls calls;
            calls.Fail(kind, nCall);
            EXPECT_EQ(MakeAlone(edit), result) << "no result depends on the disk";
            nReached = calls.Count(kind);
        }
        const Texts now = ReadFiles();
        for (const std::size_t n : {0U, 1U}) {
            // A failed write cuts a file short.
            const bool bCut = kind == FileCalls::WRITE && after[n].find(now[n]) == 0;
            EXPECT_TRUE(now[n] == before[n] || now[n] == after[n] || bCut) << now[n];
        }
        ExpectSound();
        const Entries entries = AllEntries();
        const Texts groups = Names(Directory().m_listGroup);
        Directory().m_bGroupDirty = Directory().m_bContactDirty = true;
        EXPECT_EQ(Directory().SaveGroupToXml() + Directory().SaveContactToXml(), 2);
        EXPECT_TRUE(bReloads || ReadFiles() == after) << "the next save writes all";
        EXPECT_EQ(Directory().ReloadContactXml(), 1);
        EXPECT_EQ(Changes(entries, AllEntries()), Texts{});
        EXPECT_EQ(Directory().ReloadGroupXml(), 1);
        EXPECT_TRUE(groups.empty() || Names(Directory().m_listGroup) == groups);
        return nReached >= nCall;
    }
};

TEST_F(FaultTest, EveryCallOfTheSystemFailsInTurn)
{
    std::set<int> reached;
    for (const CallData& edit : EDITS) {
        for (int nKind = 0; nKind < FileCalls::XML_MEMORY; ++nKind) {  // memory has its own tests
            for (int nCall = 1; !HasFailure(); ++nCall) {
                SCOPED_TRACE(Joined(edit.m_strLine, ": kind ", nKind, " call ", nCall));
                if (!RunWithFault(edit, static_cast<FileCalls::Kind>(nKind), nCall)) {
                    break;
                }
                reached.insert(nKind);
            }
        }
    }
    EXPECT_EQ(reached.size(), FileCalls::XML_MEMORY) << "some kind of call goes past the watch";
}

TEST_F(FaultTest, FullDiskAndMissingFolder)
{
    for (const CallData& edit : EDITS) {
        Texts results;
        for (const std::string& strFault : Texts{"none", "full disk", "no folder"}) {
            SCOPED_TRACE(edit.m_strLine + ", " + strFault);
            MakeAlone(START);
            std::filesystem::copy("config", "kept", std::filesystem::copy_options::recursive);
            if (strFault == "full disk") {  // a device on which every write finds no room
                for (const char* pPath : {GROUP_FILE, CONTACT_FILE}) {
                    std::filesystem::remove(pPath);
                    std::filesystem::create_symlink("/dev/full", pPath);
                }
            } else if (strFault == "no folder") {
                std::filesystem::remove_all("config");
            }
            results.push_back(MakeAlone(edit)[0]);
            EXPECT_EQ(results.back(), results.front()) << "no result depends on the disk";
            ExpectSound();
            std::filesystem::remove_all("config");
            std::filesystem::rename("kept", "config");
        }
    }
}

TEST_F(FaultTest, NoMemoryForARecordRefusesTheEntry)
{
    int nRefused = 0;
    for (const CallData& edit : EDITS) {
        for (const std::size_t nSize : {sizeof(Manager::GroupData), sizeof(Manager::ItemData)}) {
            SCOPED_TRACE(edit.m_strLine);
            MakeAlone(START);
            const Entries before = AllEntries();
            FileCalls::s_nFailingRecord = nSize;
            const FileCalls calls;
            if (MakeAlone(edit)[0] == "DIR_RET_NO_MEMORY") {
                EXPECT_EQ(Changes(before, AllEntries()), Texts{});
                EXPECT_EQ(calls.Written(), Texts{});
                ++nRefused;
            }
            FileCalls::s_nFailingRecord = 0;
        }
    }
    EXPECT_EQ(nRefused, 5) << "a new group, and contacts that are new or have a new name";
    Manager::ReleaseInstance();
    FileCalls::s_nFailingRecord = sizeof(Manager);
    EXPECT_EQ(Manager::GetInstance(), nullptr);
}

TEST_F(FaultTest, ADocumentWithoutAllItsMemoryReplacesNoFile)
{
    // The second of the XML library's pages begins in the middle of something else each time.
    for (std::size_t nShift = 0; nShift < 1000; nShift += 8) {
        SCOPED_TRACE(nShift);
        ContactRows rows{{"a", "", std::string(nShift, '1')}};
        for (int n = 100; n < 200; ++n) {
            rows.emplace_back("c" + std::to_string(n));
        }
        Start({}, rows);
        FileCalls calls;
        calls.Fail(FileCalls::XML_MEMORY, 2);
        EXPECT_EQ(Directory().RemoveContact("c199"), DIR_RET_OK);
        EXPECT_EQ(calls.Written(), Texts{});
    }
}

TEST(MemoryDeathTest, EndsTheProcessInAContainer)
{
    if (!IsHeapCounted()) {
        GTEST_SKIP() << "another allocator is in place";
    }
    const auto grow = [](std::size_t nLargest, unsigned int nCapacity) {
        String str("longer than fourteen");
        g_heap.m_nLargest = nLargest;
        str.__grow_by_and_replace(nCapacity, 1, 0, 0, 0, 1, "x");
    };
    const auto aborted = testing::KilledBySignal(SIGABRT);
    const QZList<String> list;
    EXPECT_EXIT((g_heap.m_nLargest = 0, CNameSet(list)), aborted, "");
    EXPECT_EXIT((FileCalls::s_nFailingRecord = sizeof(QZListNode<String>), QZList<String>()),
                aborted, "");
    EXPECT_EXIT(grow(63, 31), aborted, "") << "twice the capacity";
    EXPECT_EXIT(grow(0xFFFFFFED, 0x7FFFFFE7), aborted, "") << "the maximum size";
}

TEST_F(FaultTest, EditsWithoutEndLeaveTheHeapAsItWas)
{
    const char* pEdits = std::getenv("NSDIRECTORY_SOAK_EDITS");
    const long nEdits = pEdits == nullptr ? 2000 : std::atol(pEdits);
    MakeAlone(START);
    const Entries before = AllEntries();
    const Texts files = ReadFiles();
    g_device = FakeDevice();
    const long nBlocks = g_heap.m_nBlocks;
    for (long nDone = 0; nDone < nEdits; nDone += static_cast<long>(EDITS.size())) {
        for (const CallData& edit : EDITS) {
            ASSERT_NE(MakeAlone(edit)[0][0], 'D') << edit.m_strLine;
        }
        WriteFile(GROUP_FILE, files[0]);
        WriteFile(CONTACT_FILE, files[1]);
        ASSERT_EQ(Directory().ReloadGroupXml() + Directory().ReloadContactXml(), 2);
        g_device = FakeDevice();  // what it notes grows with the edits
    }
    EXPECT_EQ(g_heap.m_nBlocks, nBlocks);
    EXPECT_EQ(Changes(before, AllEntries()), Texts{});
}

TEST_F(FaultTest, FilesCutAtEveryByte)
{
    MakeAlone(START);
    const Texts whole = ReadFiles();
    for (std::size_t nLength = 0; nLength <= whole[1].size(); ++nLength) {
        const std::string strFailure =
            FailureOf({{"WriteFile file=\"group\"", whole[0].substr(0, nLength)},
                       {"WriteFile file=\"contact\"", whole[1].substr(0, nLength)},
                       {"Restart"}});
        ASSERT_EQ(strFailure, "") << nLength;
    }
}

// What a process leaves that dies in the middle of a write: the other file is whole.
TEST_F(FaultTest, OneFileIsWholeAtEveryWrite)
{
    CallData start = START;
    start.m_strFile += R"(contact name="c" group="Family" many="300")";  // several writes a file
    MakeAlone(start);
    std::size_t nWrites = 0;
    for (const CallData& edit : EDITS) {
        SCOPED_TRACE(edit.m_strLine);
        const Texts before = ReadFiles();
        std::vector<Texts> left;
        {
            FileCalls calls;
            calls.m_inWrite = [&left] { left.push_back(ReadFiles()); };
            MakeAlone(edit);
        }
        const Texts after = ReadFiles();
        for (const Texts& now : left) {
            EXPECT_TRUE(now[0] == before[0] || now[0] == after[0] || now[1] == before[1] ||
                        now[1] == after[1]);
        }
        nWrites += left.size();
    }
    EXPECT_GT(nWrites, 3 * EDITS.size());
}

}  // namespace
