// Where the fields of what crosses the boundary lie, so that hosts and libraries of different
// builds fit together. The first figure holds for pointers of four bytes, the second for those of
// eight.

#include <cstddef>

#include "directory/contact_local_manager.h"

using namespace NS_DIRECTORY;
using String = qz::basic_string<char>;
using Group = CContactLocalManager::GroupData;
using Item = CContactLocalManager::ItemData;

namespace {

constexpr std::size_t At(std::size_t nNarrow, std::size_t nWide)
{
    return sizeof(void*) == 4 ? nNarrow : nWide;
}

static_assert(sizeof(String) == 16 && alignof(String) == sizeof(void*));
static_assert(sizeof(QZListNode<Item*>) == At(12, 24) && sizeof(QZList<Item*>) == At(12, 24));
static_assert(offsetof(Group, m_strRing) == At(20, 24) && sizeof(Group) == At(40, 48));
static_assert(offsetof(Item, m_nLine) == 96 && offsetof(Item, m_strDefaultPhoto) == At(100, 104));
static_assert(offsetof(Item, m_nGroupId) == At(120, 124) && sizeof(Item) == At(140, 144));
static_assert(sizeof(ContactGroupData) == 32 && sizeof(CallLogUpdateData) == 64);
static_assert(offsetof(ContactGeneralItemData, m_nLine) == 112);
static_assert(sizeof(ContactGeneralItemData) == 120 &&
              sizeof(ContactGroupSimpleData) == At(20, 24));
static_assert(offsetof(ContactGroupListData, m_nIndexFrom) == At(12, 24));
static_assert(offsetof(ContactGeneralItemListData, m_nIndexFrom) == At(16, 32));

}  // namespace
