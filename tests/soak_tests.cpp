// Edits without end leave the heap as it was. NSDIRECTORY_SOAK_EDITS sets how many there are.

#include <algorithm>
#include <cstdlib>

#include "tests/support/directory_test.h"
#include "tests/support/heap_count.h"

namespace {

// Every kind of edit, in this order, and at the end no entry is left; the results.
std::vector<int> EditRound(NS_DIRECTORY::CContactLocalManager& m)
{
    const std::string strLong(40, 'l');
    const String strKey(strLong.c_str());
    QZList<String> names;
    names.push_back(strKey);
    return {m.AddGroup(Group({strLong, "r"})),
            m.AddGroup(Group({"Work", strLong})),
            m.UpdateGroupData("Work", Group({"Work", strLong + "2"})),
            m.UpdateGroupData("Work", Group({"Job", strLong})),
            m.AddContact("Job", Contact({"Dora", "", strLong, strLong})),
            m.AddContactById(0, Contact({strLong})),
            m.AddBlackContact(Contact({"Ed", "", "", strLong, strLong})),
            m.UpdateContactData("Dora", Contact({"Dora", "Job", strLong + "2"})),
            m.UpdateContactData("Dora", Contact({"Zoe", strLong})),
            m.MoveListToGroup(names, "Job"),
            m.MoveContactToGroup("Ed", strKey),
            m.Local2Black("Zoe"),
            m.Black2Local("Zoe"),
            m.SetContactGroupId("Ed", 2),
            m.SetDefaultPhoto(""),
            m.RemoveGroup("Job"),
            m.RemoveContact("Zoe"),
            m.RemoveContactList(names),
            m.RemoveAllGroup(),
            m.RemoveAllContacts(0)};
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
