// What the library takes: the layout of what crosses the boundary, so that hosts and libraries of
// different builds fit together, and the heap blocks of contacts and lookups.

#include <cstddef>

#include "bench/heap_count.h"
#include "tests/support/directory_test.h"

namespace {

using Group = Manager::GroupData;
using Item = Manager::ItemData;
using Contact = ContactGeneralItemData;

// The first figure holds for pointers of four bytes, the second for those of eight.
constexpr std::size_t At(std::size_t nNarrow, std::size_t nWide)
{
    return sizeof(void*) == 4 ? nNarrow : nWide;
}

static_assert(sizeof(String) == 16 && alignof(String) == sizeof(void*));
static_assert(sizeof(QZListNode<Item*>) == At(12, 24) && sizeof(QZList<Item*>) == At(12, 24));
static_assert(offsetof(QZListNode<int*>, prev) == sizeof(void*));
static_assert(offsetof(QZListNode<int*>, value) == 2 * sizeof(void*));
static_assert(offsetof(Group, m_strRing) == At(20, 24) && sizeof(Group) == At(40, 48));
static_assert(offsetof(Item, m_nLine) == 96 && offsetof(Item, m_strDefaultPhoto) == At(100, 104));
static_assert(offsetof(Item, m_nGroupId) == At(120, 124) && sizeof(Item) == At(140, 144));
static_assert(offsetof(Contact, m_nLine) == 112 && sizeof(Contact) == 120);
static_assert(sizeof(ContactGroupData) == 32 && sizeof(CallLogUpdateData) == 64);
static_assert(sizeof(ContactGroupSimpleData) == At(20, 24));
static_assert(offsetof(ContactGroupListData, m_nIndexFrom) == At(12, 24));
static_assert(offsetof(ContactGeneralItemListData, m_nIndexFrom) == At(16, 32));

using HeapTest = DirectoryTest;

TEST_F(HeapTest, OnlyLongTextsTakeABlock)
{
    if (!IsHeapCounted()) {
        GTEST_SKIP() << "another allocator is in place";
    }
    const std::string strLong(40, 'l');
    const char* const pShort = "03012345678901";  // 14 characters, the most that need no block
    const char* const pLonger = "030123456789012";
    Start({}, {{"Anna", "Blacklist", pShort, pLonger}, {strLong, "", "100", strLong}});
    const std::pair<std::string, long> lookups[] = {
        {pShort, 0}, {pLonger, 1}, {"100", 1}, {strLong, 2}, {"200", 0}, {"0301234567890124", 1}};
    for (const auto& [strNumber, nBlocks] : lookups) {
        const char* const pNumber = strNumber.c_str();
        const auto lookUp = [&] { (void)Directory().GetContactNameByPhoneNumber(pNumber); };
        EXPECT_EQ(AllocationsOf(lookUp), nBlocks) << "the number and the name: " << strNumber;
    }
    const auto blocksWith = [](const ContactRows& contacts) {
        Start({}, contacts);
        const long nBefore = g_heap.m_nBlocks;
        Manager::ReleaseInstance();
        return nBefore - g_heap.m_nBlocks;
    };
    const long nWithout = blocksWith({});
    EXPECT_EQ(blocksWith({{"Anna", "Blacklist", pShort}}) - nWithout, 2) << "a node and a record";
    EXPECT_EQ(blocksWith({{strLong, "", strLong, strLong, strLong, strLong}}) - nWithout, 2 + 5);
}

}  // namespace
