// Edits of every kind: what they write, and what they leave when each call that a load or a save
// makes fails in turn and when the process dies. And files that are cut anywhere.

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <pugixml.hpp>
#include <random>

#include "directory/internal/name_list.h"
#include "tests/support/directory_model.h"
#include "tests/support/heap_count.h"

namespace {

using Manager = CContactLocalManager;

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

int MoveTwo(Manager& m)
{
    QZList<String> names = NameList({"Anna", "Carl"});
    return m.MoveListToGroup(names, "Blacklist");
}

const Texts CONTACTS{CONTACT_FILE};

// clang-format off
const std::vector<EditRow> EDITS{
    {"AddGroup", 3, {GROUP_FILE}, true, GROUP_SIZE, [](Manager& m) { return m.AddGroup(Group({"Delta"})); }},
    {"rename", 2, {CONTACT_FILE, GROUP_FILE}, true, 0, [](Manager& m) { return m.UpdateGroupData("Family", Group({"Ahnen"})); }},
    {"ring", 3, {GROUP_FILE}, false, 0, [](Manager& m) { return m.UpdateGroupData("Family", Group({"Family", "r"})); }},
    {"RemoveGroup", 1, {CONTACT_FILE, CONTACT_FILE, GROUP_FILE}, true, 0, [](Manager& m) { return m.RemoveGroup("Family"); }},
    {"RemoveAllGroup", 1, {CONTACT_FILE, GROUP_FILE}, false, 0, [](Manager& m) { return m.RemoveAllGroup(); }},
    {"AddContact", 2, CONTACTS, false, ITEM_SIZE, [](Manager& m) { return m.AddContact("Family", Contact({"New"})); }},
    {"AddContactById", 0, CONTACTS, false, ITEM_SIZE, [](Manager& m) { return m.AddContactById(2, Contact({"New"})); }},
    {"AddBlackContact", 1, CONTACTS, false, ITEM_SIZE, [](Manager& m) { return m.AddBlackContact(Contact({"New"})); }},
    {"update", 1, CONTACTS, false, 0, [](Manager& m) { return m.UpdateContactData("Bob", Contact({"Bob", "Family", "7"})); }},
    {"new name", 2, CONTACTS, false, ITEM_SIZE, [](Manager& m) { return m.UpdateContactData("Bob", Contact({"Zoe", "Family"})); }},
    {"RemoveContact", 1, CONTACTS, false, 0, [](Manager& m) { return m.RemoveContact("Bob"); }},
    {"RemoveContactList", 1, CONTACTS, false, 0, [](Manager& m) { return m.RemoveContactList(NameList({"Anna", "Carl"})); }},
    {"RemoveAllContacts", 1, CONTACTS, false, 0, [](Manager& m) { return m.RemoveAllContacts(0); }},
    {"MoveListToGroup", 0, CONTACTS, false, 0, MoveTwo},
    {"MoveContactToGroup", 0, CONTACTS, false, 0, [](Manager& m) { return m.MoveContactToGroup("Anna", "Blacklist"); }},
    {"SetContactGroupId", 1, CONTACTS, false, 0, [](Manager& m) { return m.SetContactGroupId("Anna", 0); }},
    {"Black2Local", 1, CONTACTS, false, 0, [](Manager& m) { return m.Black2Local("Bob"); }},
    {"Local2Black", 1, CONTACTS, false, 0, [](Manager& m) { return m.Local2Black("Anna"); }},
    {"SetDefaultPhoto", 0, CONTACTS, false, 0, [](Manager& m) { return m.SetDefaultPhoto(""); }}};
// clang-format on

using Files = std::array<std::string, 2>;  // groups, contacts

Files ReadFiles()
{
    return {ReadFile(GROUP_FILE), ReadFile(CONTACT_FILE)};
}

class FaultTest : public DirectoryTest
{
  protected:
    static void StartSmall()
    {
        Start({{"Company"}, {"Family"}},
              {{"Anna", "Family", "1"}, {"Bob", "Blacklist"}, {"Carl", "Family"}});
    }

    // One fault; false when the operation no longer makes that many calls.
    static bool RunWithFault(const EditRow& row, const Files& after, FileCalls::Kind kind,
                             int nCall)
    {
        StartSmall();
        const Files before = ReadFiles();
        int nReached = 0;
        {
            FileCalls calls;
            calls.Fail(kind, nCall);
            EXPECT_EQ(row.m_pCall(Directory()), row.m_nResult) << "no result tells of the disk";
            nReached = calls.Count(kind);
        }
        const Files now = ReadFiles();
        for (const std::size_t n : {0U, 1U}) {
            // Writing cuts a file short at worst; a document without all its memory replaces none.
            const bool bCut = kind != FileCalls::XML_MEMORY && after[n].find(now[n]) == 0;
            EXPECT_TRUE(now[n] == before[n] || now[n] == after[n] || bCut) << now[n];
        }
        ExpectNextSaveToBringAll(row.m_bReloads ? nullptr : &after);
        return nReached >= nCall;
    }

    static void ExpectNextSaveToBringAll(const Files* pFiles)
    {
        ExpectSound();
        const std::string strMemory = Memory();
        const Texts groups = Names(Directory().m_listGroup);
        Directory().MySetGroupDirty(true);
        Directory().MySetContactDirty(true);
        if (pFiles != nullptr) {
            EXPECT_EQ(ReadFiles(), *pFiles);
        }
        EXPECT_EQ(Directory().ReloadContactXml(), 1);
        EXPECT_EQ(Memory(), strMemory);
        EXPECT_EQ(Directory().ReloadGroupXml(), 1);
        EXPECT_TRUE(groups.empty() || Names(Directory().m_listGroup) == groups);
    }
};

TEST_F(FaultTest, EveryCallOfTheSystemFailsInTurn)
{
    for (const EditRow& row : EDITS) {
        StartSmall();
        ExpectDone(row.m_nResult, row.m_listWritten, [&row] { return row.m_pCall(Directory()); });
        const Files after = ReadFiles();
        for (int nKind = 0; nKind < FileCalls::KIND_COUNT; ++nKind) {
            bool bMore = true;
            for (int nCall = 1; bMore && !HasFailure(); ++nCall) {
                SCOPED_TRACE(row.m_pName + (" kind " + std::to_string(nKind)) + " call " +
                             std::to_string(nCall));
                bMore = RunWithFault(row, after, static_cast<FileCalls::Kind>(nKind), nCall);
            }
        }
    }
}

TEST_F(FaultTest, FullDiskAndMissingFolder)
{
    for (const bool bFull : {true, false}) {
        for (const EditRow& row : EDITS) {
            SCOPED_TRACE(row.m_pName + std::string(bFull ? ", full disk" : ", no folder"));
            std::filesystem::create_directories("config/data");
            StartSmall();
            std::filesystem::remove_all("config/data");
            if (bFull) {  // a device on which every write finds no room
                std::filesystem::create_directories("config/data");
                std::filesystem::create_symlink("/dev/full", GROUP_FILE);
                std::filesystem::create_symlink("/dev/full", CONTACT_FILE);
            }
            EXPECT_EQ(row.m_pCall(Directory()), row.m_nResult) << "no result tells of the disk";
            ExpectSound();
            std::filesystem::remove_all("config/data");
        }
    }
}

TEST_F(FaultTest, NoMemoryForARecordRefusesTheEntry)
{
    for (const EditRow& row : EDITS) {
        SCOPED_TRACE(row.m_pName);
        StartSmall();
        if (row.m_nRecord != 0) {
            ExpectRefused(DIR_RET_NO_MEMORY, [&row] {
                FileCalls::FailRecord(row.m_nRecord);
                return row.m_pCall(Directory());
            });
        }
    }
    Manager::ReleaseInstance();
    FileCalls::FailRecord(sizeof(Manager));
    EXPECT_EQ(Manager::GetInstance(), nullptr);
}

TEST_F(FaultTest, ADocumentWithoutAllItsMemoryReplacesNoFile)
{
    // The second of the XML library's pages begins in the middle of something else each time.
    for (std::size_t nShift = 0; nShift < 1000; nShift += 8) {
        SCOPED_TRACE(nShift);
        ContactRows rows(100, {"c"});
        for (ContactRow& row : rows) {
            row.m_strName += std::to_string(100 + (&row - rows.data()));
        }
        rows[0].m_strMobile.assign(nShift, '1');
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
    const auto refuseNode = [] {
        FileCalls::FailRecord(sizeof(QZListNode<String>));
        const QZList<String> list;
    };
    const auto refuseBuffer = [](std::size_t nLargest, unsigned int nCapacity) {
        String str("longer than fourteen");
        g_heap.m_nLargest = nLargest;
        str.__grow_by_and_replace(nCapacity, 1, 0, 0, 0, 1, "x");
    };
    const auto refuseNames = [] {
        const QZList<String> list;
        g_heap.m_nLargest = 0;
        const CNameList names(list);
    };
    const auto aborted = testing::KilledBySignal(SIGABRT);
    EXPECT_EXIT(refuseNames(), aborted, "");
    EXPECT_EXIT(refuseNode(), aborted, "");
    EXPECT_EXIT(refuseBuffer(63, 31), aborted, "") << "twice the capacity";
    EXPECT_EXIT(refuseBuffer(0xFFFFFFED, 0x7FFFFFE7), aborted, "") << "the maximum size";
}

TEST_F(FaultTest, FilesCutAtEveryByte)
{
    StartSmall();
    const Files whole = ReadFiles();
    for (std::size_t nLength = 0; nLength <= whole[0].size() + whole[1].size(); ++nLength) {
        SCOPED_TRACE(nLength);
        CDirectoryModel model;
        model.m_files[GROUP_FILE] = whole[0].substr(0, nLength);
        model.m_files[CONTACT_FILE] =
            whole[1].substr(0, nLength - model.m_files[GROUP_FILE].size());
        model.Start();
        WriteFile(GROUP_FILE, model.m_files[GROUP_FILE]);
        WriteFile(CONTACT_FILE, model.m_files[CONTACT_FILE]);
        Restart();
        EXPECT_EQ(Memory(), model.Memory());
    }
}

TEST_F(FaultTest, FullSizeFileCutAtEveryElement)
{
    ContactRows rows;
    for (int n = 1001; n < 2030; ++n) {  // a cut name of the blacklist needs an ordinary slot
        rows.push_back({"c" + std::to_string(n), n < 2000 ? "Family" : "Blacklist"});
    }
    Start({{"Family"}}, rows);
    const std::string strFile = ReadFile(CONTACT_FILE);
    for (std::size_t nCut = 0, nEnd = 100; nEnd < strFile.size(); ++nCut) {
        // On the boundary, and somewhere behind it.
        nEnd = std::min(strFile.find('<', nEnd + 1), strFile.size());
        for (const std::string& strCut :
             {strFile.substr(0, nEnd), strFile.substr(0, nEnd + nCut * 7919 % 150)}) {
            pugi::xml_document document;
            (void)document.load_buffer(strCut.data(), strCut.size());
            Texts names;
            for (const pugi::xml_node contact :
                 document.child("root_contact").children("contact")) {
                names.emplace_back(contact.attribute("display_name").value());
            }
            std::sort(names.begin(), names.end());  // the cut one may have no name
            WriteFile(CONTACT_FILE, strCut);
            (void)Directory().ReloadContactXml();
            EXPECT_EQ(Names(Directory().m_listContact), names) << strCut.size();
        }
    }
}

// A process that is killed in the middle of edits: what was not being written is whole.
class KillTest : public FaultTest
{
  protected:
    // The same edits each time, on a directory of several write calls a file.
    static void StartLarge()
    {
        ContactRows rows{{"Anna", "Family"}, {"Bob", "Blacklist"}, {"Carl", "Family"}};
        for (int n = 100; n < 400; ++n) {
            rows.push_back({"c" + std::to_string(n), n % 2 == 0 ? "Family" : "Company"});
        }
        Start({{"Company"}, {"Family"}}, rows);
    }

    // Runs the edits in a process that dies in that write. How many it came through; all where it
    // lived on.
    static std::size_t EditAndDie(int nWrite)
    {
        StartLarge();
        Manager::ReleaseInstance();
        void* const pShared = mmap(nullptr, sizeof(std::size_t), PROT_READ | PROT_WRITE,
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
        const std::size_t nDone = *pDone;
        (void)munmap(pShared, sizeof(std::size_t));
        EXPECT_EQ(WIFSIGNALED(nStatus), nDone < EDITS.size());
        return nDone;
    }
};

TEST_F(KillTest, TheOtherFileIsAsBeforeOrAfterTheEdit)
{
    const char* pCount = std::getenv("NSDIRECTORY_KILLS");
    const int nKills = pCount == nullptr ? 20 : std::atoi(pCount);
    StartLarge();
    std::vector<Files> states{ReadFiles()};
    for (const EditRow& row : EDITS) {
        (void)row.m_pCall(Directory());
        states.push_back(ReadFiles());
    }
    std::minstd_rand random(1);
    int nInsideWrite = 0;
    for (int nKill = 0; nKill < nKills; ++nKill) {
        SCOPED_TRACE("kill " + std::to_string(nKill));
        const std::size_t nDone = EditAndDie(1 + static_cast<int>(random() % 150));
        const bool bKilled = nDone < EDITS.size();
        nInsideWrite += bKilled ? 1 : 0;
        const Files now = ReadFiles();
        const Files& before = states[nDone];
        const Files& after = states[nDone + (bKilled ? 1 : 0)];
        const bool bGroups = now[0] == before[0] || now[0] == after[0];
        const bool bContacts = now[1] == before[1] || now[1] == after[1];
        EXPECT_TRUE(bKilled ? bGroups || bContacts : bGroups && bContacts);
        (void)Directory();
        ExpectSound();
    }
    EXPECT_GE(nInsideWrite, nKills / 2);
}

}  // namespace
