// What each edit leaves if a call of the system fails under it or the XML library gets no memory.
//
// NSDIRECTORY_SOAK_EDITS sets how many edits must leave the heap as it was.

#include <set>

#include "bench/heap_count.h"
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
    // The edit with one fault; false if it makes fewer calls.
    static bool RunWithFault(const CallData& edit, FileCalls::Kind kind, int nCall)
    {
        MakeAlone(START);
        const Texts result = MakeAlone(edit);
        MakeAlone(START);
        int nReached = 0;
        {
            FileCalls calls;
            calls.Fail(kind, nCall);
            EXPECT_EQ(MakeAlone(edit), result) << "no result depends on the disk";
            nReached = calls.Count(kind);
        }
        ExpectSound();
        const Entries entries = AllEntries();
        Directory().m_bGroupDirty = Directory().m_bContactDirty = true;
        EXPECT_EQ(Directory().SaveGroupToXml() + Directory().SaveContactToXml(), 2);
        EXPECT_EQ(Directory().ReloadContactXml(), 1);
        EXPECT_EQ(Changes(entries, AllEntries()), Texts{}) << "the next save writes all";
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
        calls.Fail(FileCalls::XML_MEMORY, calls.Count(FileCalls::XML_MEMORY) + 2);
        EXPECT_EQ(Directory().RemoveContact("c198"), DIR_RET_NO_MEMORY) << "until it is saved";
        EXPECT_EQ(calls.Written(), Texts{});
        EXPECT_EQ(Directory().RemoveContact("c198"), DIR_RET_OK);
        EXPECT_EQ(calls.Written(), (Texts{CONTACT_FILE, CONTACT_FILE}));
    }
}

TEST_F(FaultTest, EditsWithoutEndLeaveTheHeapAsItWas)
{
    const char* pEdits = std::getenv("NSDIRECTORY_SOAK_EDITS");
    const long nEdits = pEdits == nullptr ? 2000 : std::atol(pEdits);
    MakeAlone(START);
    const Entries before = AllEntries();
    const std::string strGroups = ReadFile(GROUP_FILE), strContacts = ReadFile(CONTACT_FILE);
    const long nBlocks = g_heap.m_nBlocks;
    for (long nDone = 0; nDone < nEdits; nDone += static_cast<long>(EDITS.size())) {
        for (const CallData& edit : EDITS) {
            ASSERT_NE(MakeAlone(edit)[0][0], 'D') << edit.m_strLine;
        }
        WriteFile(GROUP_FILE, strGroups);
        WriteFile(CONTACT_FILE, strContacts);
        ASSERT_EQ(Directory().ReloadGroupXml() + Directory().ReloadContactXml(), 2);
    }
    EXPECT_EQ(g_heap.m_nBlocks, nBlocks);
    EXPECT_EQ(Changes(before, AllEntries()), Texts{});
}

}  // namespace
