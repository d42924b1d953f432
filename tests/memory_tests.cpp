// Memory that runs short in the middle of a call, and is there again afterwards. Whatever the call
// was, the files end with all that they held and with every edit that was not refused.

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <map>

#include "bench/heap_count.h"
#include "directory/internal/name_set.h"
#include "tests/support/directory_test.h"

namespace {

using Call = int (*)(Manager& m);
struct CallRow
{
    const char* m_pName;
    Call m_pCall;
};

constexpr char LONG[] = "a text that does not fit into a String itself";

// Made before memory runs short, since these take some too.
const ContactGroupData ALPHA = GroupRow("Alpha", LONG), RENAMED = GroupRow(LONG, LONG),
                       RUNG = GroupRow("Family", LONG);
const ContactRow NEW("New", "", LONG), ZOE("Zoe", "Family"), ANN("Ann", "Company", LONG);
QZList<String> g_listName = NameList({"Ann", "Bob"});

int FamilyId(const Manager& m)
{
    return m.GetGroupIdByGroupName("Family");
}

const std::vector<CallRow> CALLS{
    {"start", [](Manager&) { return Manager::ReleaseInstance(), Manager::GetInstance() ? 1 : -1; }},
    {"start under low limits",
     [](Manager&) {
         Manager::ReleaseInstance();
         Manager* const p = Manager::GetInstance();
         return p ? p->SetMaxGroupCount(1) + p->SetMaxContactCount(1) + p->SetMaxBlackCount(0) : -1;
     }},
    {"reload", [](Manager& m) { return m.ReloadGroupXml() + m.ReloadContactXml(); }},
    {"AddGroup", [](Manager& m) { return m.AddGroup(ALPHA); }},
    {"rename", [](Manager& m) { return m.UpdateGroupData("Family", RENAMED); }},
    {"ring", [](Manager& m) { return m.UpdateGroupData("Family", RUNG); }},
    {"RemoveGroup", [](Manager& m) { return m.RemoveGroup("Company"); }},
    {"RemoveAllGroup", [](Manager& m) { return m.RemoveAllGroup(); }},
    {"AddContact", [](Manager& m) { return m.AddContact("Family", NEW); }},
    {"AddContactById", [](Manager& m) { return m.AddContactById(FamilyId(m), NEW); }},
    {"AddBlackContact", [](Manager& m) { return m.AddBlackContact(NEW); }},
    {"new name", [](Manager& m) { return m.UpdateContactData("Ann", ZOE); }},
    {"update", [](Manager& m) { return m.UpdateContactData("Ann", ANN); }},
    {"RemoveContactList", [](Manager& m) { return m.RemoveContactList(g_listName); }},
    {"RemoveContact", [](Manager& m) { return m.RemoveContact("Ann"); }},
    {"RemoveAllContacts", [](Manager& m) { return m.RemoveAllContacts(GROUP_ID_BLACKLIST); }},
    {"move", [](Manager& m) { return m.MoveContactToGroup("Ann", "Company"); }},
    {"MoveListToGroup", [](Manager& m) { return m.MoveListToGroup(g_listName, "Company"); }},
    {"SetContactGroupId", [](Manager& m) { return m.SetContactGroupId("Ann", FamilyId(m)); }},
    {"Local2Black", [](Manager& m) { return m.Local2Black("Ann"); }},
    {"Black2Local", [](Manager& m) { return m.Black2Local("Bob"); }},
    {"SetDefaultPhoto", [](Manager& m) { return m.SetDefaultPhoto(""); }}};
// What a host does afterwards.
const std::vector<Call> LATER{[](Manager& m) { return m.SetContactGroupId("Dan", FamilyId(m)); },
                              [](Manager& m) { return m.AddGroup(GroupRow("Later")); },
                              [](Manager& m) { return m.AddBlackContact(ContactRow("Last")); },
                              [](Manager& m) { return m.RemoveGroup("Club"); }};

class MemoryTest : public DirectoryTest
{
  protected:
    using Results = std::vector<int>;  // of a call and of all later ones

    void SetUp() override
    {
        DirectoryTest::SetUp();
        if (!IsHeapCounted()) {
            GTEST_SKIP() << "another allocator is in place";
        }
    }

    static void WriteBase()
    {
        // One text of a contact fills more than a page of the XML library.
        const std::string strHuge(40000, 'r');
        Manager::ReleaseInstance();
        WriteFile(GROUP_FILE, GroupFile({{"Club"}, {"Company"}, {"Family", LONG}}));
        WriteFile(CONTACT_FILE, ContactFile({{"Ann", "Family", "1"},
                                             {"Bob", "Blacklist", "2"},
                                             {"Dan", "Club", LONG},
                                             {"Carl", "Company", "3", "", "", strHuge}}));
    }

    static std::string Files() { return ReadFile(GROUP_FILE) + ReadFile(CONTACT_FILE); }

    // The call with all the memory it wants, and the later ones, except those refused.
    static const std::string& Expected(const CallRow& row, const Results& results)
    {
        std::string strKey = row.m_pName;
        for (const int nResult : results) {
            strKey += nResult < 0 ? " refused" : " done";
        }
        static std::map<std::string, std::string> s_known;
        std::string& strFiles = s_known[strKey];
        if (strFiles.empty()) {
            WriteBase();
            results[0] < 0 ? 0 : row.m_pCall(Directory());
            for (std::size_t n = 0; n < LATER.size(); ++n) {
                results[n + 1] < 0 ? 0 : LATER[n](Directory());
            }
            strFiles = Files();
        }
        return strFiles;
    }

    static void CallLater(volatile int* pResults)
    {
        for (const Call pCall : LATER) {
            *pResults++ = Manager::GetInstance() == nullptr ? -1 : pCall(Directory());
        }
    }

    // The call in its own process, with nBlocks allocations left. False once it needs no
    // more than that.
    static bool RunShort(const CallRow& row, long nBlocks, bool bOnlyOne)
    {
        static auto* const pShared = static_cast<volatile int*>(
            mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
        volatile int* const pResults = pShared + 1;
        WriteBase();
        const pid_t nChild = fork();
        if (nChild == 0) {
            Manager& directory = Directory();
            g_heap.m_bRefusesOnlyOne = bOnlyOne;
            g_heap.m_nLeft = nBlocks;
            const int nResult = row.m_pCall(directory);
            pShared[0] = g_heap.m_nLeft < 0 ? 1 : 0;
            g_heap.m_nLeft = LONG_MAX;
            pResults[0] = nResult;
            CallLater(pResults + 1);
            _exit(0);
        }
        int nStatus = 0;
        EXPECT_EQ(waitpid(nChild, &nStatus, 0), nChild);
        const bool bAborted = WIFSIGNALED(nStatus) && WTERMSIG(nStatus) == SIGABRT;
        EXPECT_TRUE(bAborted || nStatus == 0) << "status " << nStatus;
        if (bAborted) {  // a container ended the process; the host is started again
            CallLater(pResults + 1);
        }
        ExpectNothingLost(row, bAborted, Results(pResults, pResults + 1 + LATER.size()));
        return bAborted || pShared[0] != 0;
    }

    static void ExpectNothingLost(const CallRow& row, bool bAborted, Results results)
    {
        Manager::ReleaseInstance();
        const std::string strFiles = Files();
        results[0] = bAborted ? -1 : results[0];
        bool bAsExpected = strFiles == Expected(row, results);
        if (bAborted && !bAsExpected) {  // the edit under way may be done
            results[0] = 1;
            bAsExpected = strFiles == Expected(row, results);
        }
        EXPECT_TRUE(bAsExpected) << row.m_pName << " and the later calls left:\n"
                                 << strFiles.substr(0, 700);
    }
};

TEST_F(MemoryTest, EachAllocationFailsInTurn)
{
    for (const CallRow& row : CALLS) {
        for (const bool bOnlyOne : {true, false}) {
            bool bMore = true;
            for (long nBlocks = 0; bMore && !HasFailure(); ++nBlocks) {
                SCOPED_TRACE(Joined(row.m_pName, ": ", bOnlyOne ? "one" : "every",
                                    " allocation fails after ", nBlocks));
                bMore = RunShort(row, nBlocks, bOnlyOne);
            }
        }
    }
}

// There is no memory to read a file at the start, nor for any mutator to read it again.
TEST_F(MemoryTest, MutatorsRefuseWhileAFileIsUnreadOrUnsaved)
{
    ContactRows rows{{"Ann", "Family"}, {"Bob", "Blacklist"}};
    for (int n = 100; n < 300; ++n) {  // more than a page of the XML library
        rows.emplace_back("c" + std::to_string(n), "Family");
    }
    for (const int nFailing : {1, 3, 5}) {  // the groups, the contacts, all but part of them
        SCOPED_TRACE(Joined("a start without allocation ", nFailing));
        Start({{"Club"}, {"Company"}, {"Family"}}, rows);
        FileCalls calls;
        calls.Fail(FileCalls::XML_MEMORY, nFailing);
        Restart();
        (void)Directory().SetMaxBlackCount(0);  // that it is full is no reason yet
        EXPECT_LT(Directory().GetCurrentContactCount() * Directory().GetCurrentGroupCount(), 1000);
        for (std::size_t n = 3; n < CALLS.size(); ++n) {  // the mutators
            SCOPED_TRACE(CALLS[n].m_pName);
            g_heap.m_nLeft = 0;
            const int nResult = CALLS[n].m_pCall(Directory());
            g_heap.m_nLeft = LONG_MAX;
            EXPECT_EQ(nResult, DIR_RET_NO_MEMORY);
        }
        EXPECT_EQ(calls.Written(), Texts{});
        EXPECT_EQ(Directory().UpdateGroupData("Club", GroupRow("Club")), 2) << "all is read again";
        EXPECT_EQ(Directory().GetCurrentContactCount(), 201);
    }
    const ContactGroupData ring = GroupRow("Family", "a.wav");
    g_heap.m_nLeft = 0;
    const int nRing = Directory().UpdateGroupData("Family", ring);
    const int nRemoved = Directory().RemoveGroup("Club");
    const int nReloaded = Directory().ReloadContactXml() + Directory().ReloadGroupXml();
    g_heap.m_nLeft = LONG_MAX;
    EXPECT_EQ(nRing, 4) << "UpdateGroupData: that nothing was saved is not reported";
    EXPECT_EQ(nRemoved, DIR_RET_NO_MEMORY) << "RemoveGroup: until the ring is saved";
    EXPECT_EQ(nReloaded, DIR_RET_NONE) << "ReloadContactXml and ReloadGroupXml";
    EXPECT_EQ(Directory().GetCurrentGroupCount(), 5) << "the list stays";
    EXPECT_EQ(Directory().ReloadGroupXml() + Directory().ReloadContactXml(), 2);
    const FileCalls calls;
    EXPECT_EQ(Directory().RemoveContact("Bob"), DIR_RET_OK);
    EXPECT_EQ(calls.Written(), Texts{CONTACT_FILE}) << "no group waits to be saved";
    EXPECT_EQ(DIR_RET_NO_MEMORY, -50) << "which hosts have built in";
}

// A process with little address space starts, adds, adds a group and adds: no contact is lost.
TEST_F(MemoryTest, ASmallProcessLosesNoContact)
{
    if (!IsHeapCounted()) {
        GTEST_SKIP() << "the sanitizers need much address space";
    }
    ContactRows rows;
    for (int n = 1000; n < 1920; ++n) {
        rows.emplace_back("c" + std::to_string(n), n % 2 == 0 ? "Family" : "Company", LONG);
    }
    std::size_t nPages = 0;
    std::ifstream("/proc/self/statm") >> nPages;
    for (std::size_t nStep = 0; nStep < 35; ++nStep) {
        Manager::ReleaseInstance();
        WriteFile(GROUP_FILE, GroupFile({{"Company"}, {"Family"}}));
        WriteFile(CONTACT_FILE, ContactFile(rows));
        const pid_t nChild = fork();
        if (nChild == 0) {
            const rlim_t nLimit = nPages * static_cast<rlim_t>(getpagesize()) + nStep * 64 * 1024;
            const rlimit limit{nLimit, nLimit};
            (void)setrlimit(RLIMIT_AS, &limit);
            if (Manager* const pDirectory = Manager::GetInstance()) {
                (void)pDirectory->AddContact("Family", ContactRow("Ann"));
                (void)pDirectory->AddGroup(GroupRow("Club"));
                (void)pDirectory->AddContact("Family", ContactRow("Bob"));
            }
            _exit(0);
        }
        EXPECT_EQ(waitpid(nChild, nullptr, 0), nChild);
        for (const ContactRow& row : rows) {
            ContactGeneralItemData contact;
            (void)Directory().GetContactDataByName(&contact, row.m_strDisplayName);
            ASSERT_STREQ(contact.m_strGroupName.c_str(), row.m_strGroupName.c_str())
                << row.m_strDisplayName.c_str() << ", limit " << nStep;
        }
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
    EXPECT_EXIT((g_heap.m_nLargest = 0, QZList<String>()), aborted, "");
    EXPECT_EXIT(grow(63, 31), aborted, "") << "twice the capacity";
    EXPECT_EXIT(grow(0xFFFFFFED, 0x7FFFFFE7), aborted, "") << "the maximum size";
}

}  // namespace
