// Edits of every kind: what they write, and what they leave when each call that a load or a save
// makes fails in turn, when memory ends and when the process dies. And files that are cut anywhere.
//
// NSDIRECTORY_SOAK_EDITS and NSDIRECTORY_KILLS set how many edits must leave the heap as it was,
// and how often a process is killed.

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <pugixml.hpp>
#include <random>
#include <set>

#include "bench/heap_count.h"
#include "directory/internal/name_set.h"
#include "tests/support/directory_model.h"

namespace {

struct EditRow
{
    const char* m_pName;
    int m_nResult;
    Texts m_listWritten;
    bool m_bReloads;        // what a failed write left of a file then shows in memory
    std::size_t m_nRecord;  // the size of what it allocates; 0 where it makes no record
    int (*m_pCall)(Manager& m);
};

constexpr std::size_t GROUP_SIZE = sizeof(Manager::GroupData);
constexpr std::size_t ITEM_SIZE = sizeof(Manager::ItemData);

const Texts CONTACTS{CONTACT_FILE};
constexpr char LONG[] = "a text that does not fit into a String itself";

// clang-format off
// One behind the other, each still finds what it works on.
const std::vector<EditRow> EDITS{
    {"AddGroup", 3, {GROUP_FILE}, true, GROUP_SIZE, [](Manager& m) { return m.AddGroup(GroupRow("Delta")); }},
    {"ring", 3, {GROUP_FILE}, false, 0, [](Manager& m) { return m.UpdateGroupData("Family", GroupRow("Family", LONG)); }},
    {"rename", 2, {CONTACT_FILE, GROUP_FILE}, true, 0, [](Manager& m) { return m.UpdateGroupData("Company", GroupRow(LONG)); }},
    {"AddContact", 1, CONTACTS, false, ITEM_SIZE, [](Manager& m) { return m.AddContact("Family", ContactRow(LONG, "", LONG, LONG, LONG, LONG)); }},
    {"AddContactById", 0, CONTACTS, false, ITEM_SIZE, [](Manager& m) { return m.AddContactById(2, ContactRow("New")); }},
    {"AddBlackContact", 1, CONTACTS, false, ITEM_SIZE, [](Manager& m) { return m.AddBlackContact(ContactRow("Ned")); }},
    {"Black2Local", 1, CONTACTS, false, 0, [](Manager& m) { return m.Black2Local("Bob"); }},
    {"update", 1, CONTACTS, false, 0, [](Manager& m) { return m.UpdateContactData("Bob", ContactRow("Bob", "Family", LONG)); }},
    {"new name", 1, CONTACTS, false, ITEM_SIZE, [](Manager& m) { return m.UpdateContactData("Carl", ContactRow("Zoe", "Family")); }},
    {"MoveListToGroup", 0, CONTACTS, false, 0, [](Manager& m) { auto names = NameList({"Anna", "Carl"}); return m.MoveListToGroup(names, "Blacklist"); }},
    {"MoveContactToGroup", 0, CONTACTS, false, 0, [](Manager& m) { return m.MoveContactToGroup("Anna", "All Contacts"); }},
    {"SetContactGroupId", 1, CONTACTS, false, 0, [](Manager& m) { return m.SetContactGroupId("Anna", 2); }},
    {"Local2Black", 1, CONTACTS, false, 0, [](Manager& m) { return m.Local2Black("Anna"); }},
    {"SetDefaultPhoto", 0, CONTACTS, false, 0, [](Manager& m) { return m.SetDefaultPhoto(""); }},
    {"RemoveGroup", 1, {CONTACT_FILE, CONTACT_FILE, GROUP_FILE}, true, 0, [](Manager& m) { return m.RemoveGroup("Family"); }},
    {"RemoveAllGroup", 1, {CONTACT_FILE, GROUP_FILE}, false, 0, [](Manager& m) { return m.RemoveAllGroup(); }},
    {"RemoveContact", 1, CONTACTS, false, 0, [](Manager& m) { return m.RemoveContact("Bob"); }},
    {"RemoveContactList", 1, CONTACTS, false, 0, [](Manager& m) { return m.RemoveContactList(NameList({"Anna", "Carl"})); }},
    {"RemoveAllContacts", 1, CONTACTS, false, 0, [](Manager& m) { return m.RemoveAllContacts(0); }}};
// clang-format on

class FaultTest : public DirectoryTest
{
  protected:
    static void StartSmall()
    {
        Start({{"Company"}, {"Family"}},
              {{"Anna", "Family", "1"}, {"Bob", "Blacklist"}, {"Carl", "Family"}});
    }

    static Texts ReadFiles() { return {ReadFile(GROUP_FILE), ReadFile(CONTACT_FILE)}; }

    // The edit with one fault; false when it no longer makes that many calls.
    static bool RunWithFault(const EditRow& row, const Texts& after, FileCalls::Kind kind,
                             int nCall)
    {
        StartSmall();
        const Texts before = ReadFiles();
        int nReached = 0;
        {
            FileCalls calls;
            calls.Fail(kind, nCall);
            EXPECT_EQ(row.m_pCall(Directory()), row.m_nResult) << "no result tells of the disk";
            nReached = calls.Count(kind);
        }
        const Texts now = ReadFiles();
        for (const std::size_t n : {0U, 1U}) {
            // A failed write cuts a file short.
            const bool bCut = kind == FileCalls::WRITE && after[n].find(now[n]) == 0;
            EXPECT_TRUE(now[n] == before[n] || now[n] == after[n] || bCut) << now[n];
        }
        ExpectSound();
        const std::string strMemory = Memory();
        const Texts groups = Names(Directory().m_listGroup);
        Directory().MySetGroupDirty(true);
        Directory().MySetContactDirty(true);
        EXPECT_TRUE(row.m_bReloads || ReadFiles() == after) << "the next save brings all";
        EXPECT_EQ(Directory().ReloadContactXml(), 1);
        EXPECT_EQ(Memory(), strMemory);
        EXPECT_EQ(Directory().ReloadGroupXml(), 1);
        EXPECT_TRUE(groups.empty() || Names(Directory().m_listGroup) == groups);
        return nReached >= nCall;
    }
};

TEST_F(FaultTest, EveryCallOfTheSystemFailsInTurn)
{
    std::set<int> reached;
    for (const EditRow& row : EDITS) {
        StartSmall();
        ExpectDone(row.m_nResult, row.m_listWritten, [&row] { return row.m_pCall(Directory()); });
        const Texts after = ReadFiles();
        for (int nKind = 0; nKind < FileCalls::XML_MEMORY; ++nKind) {  // memory has its own tests
            bool bMore = true;
            for (int nCall = 1; bMore && !HasFailure(); ++nCall) {
                SCOPED_TRACE(Joined(row.m_pName, " kind ", nKind, " call ", nCall));
                bMore = RunWithFault(row, after, static_cast<FileCalls::Kind>(nKind), nCall);
                bMore ? void(reached.insert(nKind)) : void();
            }
        }
    }
    EXPECT_EQ(reached.size(), FileCalls::XML_MEMORY) << "some kind of call goes past the watch";
}

TEST_F(FaultTest, FullDiskAndMissingFolder)
{
    for (const bool bFull : {true, false}) {
        for (const EditRow& row : EDITS) {
            SCOPED_TRACE(row.m_pName + std::string(bFull ? ", full disk" : ", no folder"));
            StartSmall();
            std::filesystem::rename("config", "kept");
            if (bFull) {  // a device on which every write finds no room
                std::filesystem::create_directories("config/data");
                std::filesystem::create_symlink("/dev/full", GROUP_FILE);
                std::filesystem::create_symlink("/dev/full", CONTACT_FILE);
            }
            EXPECT_EQ(row.m_pCall(Directory()), row.m_nResult) << "no result tells of the disk";
            ExpectSound();
            std::filesystem::remove_all("config");
            std::filesystem::rename("kept", "config");
        }
    }
}

TEST_F(FaultTest, NoMemoryForARecordRefusesTheEntry)
{
    for (const EditRow& row : EDITS) {
        SCOPED_TRACE(row.m_pName);
        StartSmall();
        FileCalls::s_nFailingRecord = row.m_nRecord;
        if (row.m_nRecord != 0) {
            ExpectRefused(-50, [&row] { return row.m_pCall(Directory()); });
        }
    }
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
    StartSmall();
    const std::string strBefore = State();
    const Texts files = ReadFiles();
    g_device = FakeDevice();
    const long nBlocks = g_heap.m_nBlocks;
    for (long nDone = 0; nDone < nEdits; nDone += static_cast<long>(EDITS.size())) {
        for (const EditRow& row : EDITS) {
            ASSERT_GE(row.m_pCall(Directory()), 0) << row.m_pName;
        }
        WriteFile(GROUP_FILE, files[0]);
        WriteFile(CONTACT_FILE, files[1]);
        ASSERT_EQ(Directory().ReloadGroupXml() + Directory().ReloadContactXml(), 2);
        g_device = FakeDevice();  // what it notes grows with the edits
    }
    EXPECT_EQ(g_heap.m_nBlocks, nBlocks);
    EXPECT_EQ(State(), strBefore);
}

TEST_F(FaultTest, FilesCutAtEveryByte)
{
    StartSmall();
    const Texts whole = ReadFiles();
    for (std::size_t nLength = 0; nLength <= whole[1].size(); ++nLength) {
        SCOPED_TRACE(nLength);
        CDirectoryModel model;
        model.m_files[GROUP_FILE] = whole[0].substr(0, nLength);
        model.m_files[CONTACT_FILE] = whole[1].substr(0, nLength);
        model.StartBoth();
        EXPECT_EQ(Memory(), model.Memory());
    }
}

TEST_F(FaultTest, FullSizeFileCutAtEveryElement)
{
    ContactRows rows;
    for (int n = 1001; n < 2030; ++n) {  // a cut name of the blacklist needs an ordinary slot
        rows.emplace_back("c" + std::to_string(n), n < 2000 ? "Family" : "Blacklist");
    }
    Start({{"Family"}}, rows);
    const std::string strFile = ReadFile(CONTACT_FILE);
    for (std::size_t nCut = 0, nEnd = 100; nEnd < strFile.size(); ++nCut) {
        nEnd = std::min(strFile.find('<', nEnd + 1), strFile.size());
        // On the boundary, and somewhere behind it.
        for (const std::size_t nLength : {nEnd, nEnd + nCut * 7919 % 150}) {
            const std::string strCut = strFile.substr(0, nLength);
            pugi::xml_document document;
            (void)document.load_string(strCut.c_str());
            Texts names;
            for (const pugi::xml_node contact :
                 document.child("root_contact").children("contact")) {
                names.emplace_back(contact.attribute("display_name").value());
            }
            std::sort(names.begin(), names.end());  // the cut one may have no name
            WriteFile(CONTACT_FILE, strCut);
            (void)Directory().ReloadContactXml();
            EXPECT_EQ(Names(Directory().m_listContact), names) << nLength;
        }
    }
}

// A process that is killed in the middle of edits: what was not being written is whole.
class KillTest : public FaultTest
{
  protected:
    // On a directory of several write calls a file.
    static void StartLarge()
    {
        ContactRows rows{{"Anna", "Family"}, {"Bob", "Blacklist"}, {"Carl", "Family"}};
        for (int n = 100; n < 400; ++n) {
            rows.emplace_back("c" + std::to_string(n), n % 2 == 0 ? "Family" : "Company");
        }
        Start({{"Company"}, {"Family"}}, rows);
    }

    // Runs the edits in a process that dies in that write. How many it came through; all where it
    // lived on.
    static std::size_t EditAndDie(int nWrite)
    {
        StartLarge();
        static void* const pShared = mmap(nullptr, sizeof(std::size_t), PROT_READ | PROT_WRITE,
                                          MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        auto* const pDone = new (pShared) volatile std::size_t(0);
        const pid_t nChild = fork();
        if (nChild == 0) {
            FileCalls calls;
            calls.DieInWrite(nWrite);
            for (const EditRow& row : EDITS) {
                (void)row.m_pCall(Directory());
                *pDone = *pDone + 1;
            }
            _exit(0);
        }
        int nStatus = 0;
        EXPECT_EQ(waitpid(nChild, &nStatus, 0), nChild);
        EXPECT_EQ(WIFSIGNALED(nStatus) && WTERMSIG(nStatus) == SIGKILL, *pDone < EDITS.size());
        return *pDone;
    }
};

TEST_F(KillTest, TheOtherFileIsAsBeforeOrAfterTheEdit)
{
    const char* pCount = std::getenv("NSDIRECTORY_KILLS");
    const int nKills = pCount == nullptr ? 20 : std::atoi(pCount);
    StartLarge();
    std::vector<Texts> states{ReadFiles()};
    for (const EditRow& row : EDITS) {
        (void)row.m_pCall(Directory());
        states.push_back(ReadFiles());
    }
    states.push_back(states.back());
    std::minstd_rand random(1);
    int nInsideWrite = 0;
    for (int nKill = 0; nKill < nKills; ++nKill) {
        SCOPED_TRACE("kill " + std::to_string(nKill));
        const std::size_t nDone = EditAndDie(1 + static_cast<int>(random() % 150));
        nInsideWrite += nDone < EDITS.size() ? 1 : 0;
        const Texts now = ReadFiles();
        const auto isWhole = [&](std::size_t nFile) {
            return now[nFile] == states[nDone][nFile] || now[nFile] == states[nDone + 1][nFile];
        };
        EXPECT_TRUE(isWhole(0) || isWhole(1));
        EXPECT_TRUE(nDone < EDITS.size() || now == states[nDone]);
        Restart();
        ExpectSound();
    }
    EXPECT_GE(nInsideWrite, nKills / 2);
}

}  // namespace
