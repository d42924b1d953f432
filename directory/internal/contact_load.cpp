// The load of the contacts. A file that a save has written is in ascending order: each element goes
// to the end of the list at the cost of one comparison. A file in any other order is sorted first,
// by pointers to its elements, so that no order costs more than n log n.

#include "directory/internal/contact_load.h"

#include <strings.h>

#include <algorithm>
#include <new>
#include <utility>

#include "directory/internal/group_finders.h"
#include "directory/internal/missing_groups.h"
#include "directory/internal/xml_names.h"

namespace NS_DIRECTORY {
namespace {

const char* NameOf(pugi::xml_node element)
{
    return element.attribute(ATTRIBUTE_DISPLAY_NAME).value();
}

const char* GroupNameOf(pugi::xml_node element)
{
    return element.attribute(ATTRIBUTE_GROUP_ID_NAME).value();
}

// Counts the elements that were taken, on each side of the blacklist.
class CLoadCount
{
  public:
    explicit CLoadCount(const ContactLimits& limits) : m_limits(limits) {}

    int Test(int nGroupId) const
    {
        return TestContactLimit(m_limits, nGroupId, m_arrTaken[MySide(nGroupId)], 1);
    }
    void Add(int nGroupId) { ++m_arrTaken[MySide(nGroupId)]; }

  private:
    static int MySide(int nGroupId) { return nGroupId == GROUP_ID_BLACKLIST ? 1 : 0; }

    ContactLimits m_limits;
    int m_arrTaken[2] = {0, 0};
};

// What all elements of one load share.
struct LoadData
{
    pugi::xml_node m_root;
    const GroupDataList& m_groups;
    bool m_bKeepGroupNames;
    CLoadCount m_count;
    CContactLoadListener& m_listener;
    int m_nResult = DIR_RET_OK;  // the worst of all, which is the lowest

    void Read(pugi::xml_node element, ItemData& item) const
    {
        ResolveGroup(m_groups, ReadContactElement(element, item), m_bKeepGroupNames, item);
    }

    void Take(const ItemData& item, pugi::xml_node element)
    {
        if (m_listener.Take(item, element) < 0) {
            m_nResult = DIR_RET_NO_MEMORY;
        }
    }

    void Refuse(int nCode, pugi::xml_node element, pugi::xml_node present)
    {
        m_listener.Refuse(nCode, element, present);
        m_nResult = std::min(m_nResult, DIR_RET_NONE);
    }
};

// Counts the elements on the way. False also if two neighbours have equal names.
bool IsAscending(pugi::xml_node root, std::size_t& nCount)
{
    bool bAscending = true;
    const char* pBefore = nullptr;
    for (const pugi::xml_node element : root.children(ELEMENT_CONTACT)) {
        const char* pName = NameOf(element);
        bAscending = bAscending && (nCount == 0 || strcasecmp(pBefore, pName) < 0);
        pBefore = pName;
        ++nCount;
    }
    return bAscending;
}

void LoadInOrder(LoadData& load)
{
    for (const pugi::xml_node element : load.m_root.children(ELEMENT_CONTACT)) {
        ItemData item;
        load.Read(element, item);
        const int nTest = load.m_count.Test(item.m_nGroupId);
        if (nTest < 0) {
            load.Refuse(nTest, element, {});
        } else {
            load.m_count.Add(item.m_nGroupId);
            load.Take(item, element);
        }
    }
}

// The elements of a file by name. Of those with equal names, which stand side by side, one can be
// taken at most: the first of their places keeps which.
class CSortedElements
{
  public:
    explicit CSortedElements(std::size_t nCount)
        : m_pEntries(new (std::nothrow) Entry[nCount]),
          m_ppByName(new (std::nothrow) Entry*[nCount]),
          m_nCount(nCount)
    {}
    CSortedElements(const CSortedElements&) = delete;
    CSortedElements& operator=(const CSortedElements&) = delete;
    ~CSortedElements()
    {
        delete[] m_ppByName;
        delete[] m_pEntries;
    }

    bool HasMemory() const { return m_pEntries != nullptr && m_ppByName != nullptr; }

    void Sort(pugi::xml_node root)
    {
        std::size_t nAt = 0;
        for (const pugi::xml_node element : root.children(ELEMENT_CONTACT)) {
            m_pEntries[nAt] = {element, NameOf(element), nullptr};
            m_ppByName[nAt] = &m_pEntries[nAt];
            ++nAt;
        }
        std::sort(m_ppByName, m_ppByName + m_nCount, MyIsBefore);
        MyShareNames();
    }

    // In the order of the file.
    void Decide(LoadData& load)
    {
        for (Entry* pEntry = m_pEntries; pEntry != m_pEntries + m_nCount; ++pEntry) {
            const int nGroupId = GroupIdByName(load.m_groups, GroupNameOf(pEntry->m_element));
            const int nTest = load.m_count.Test(nGroupId);
            if (nTest < 0) {
                load.Refuse(nTest, pEntry->m_element, {});
            } else if (*pEntry->m_ppTaken != nullptr) {
                load.Refuse(DIR_RET_CONTACT_EXIST, pEntry->m_element,
                            (*pEntry->m_ppTaken)->m_element);
            } else {
                load.m_count.Add(nGroupId);
                *pEntry->m_ppTaken = pEntry;
            }
        }
    }

    // In the order of names.
    void Take(LoadData& load) const
    {
        for (Entry** ppEntry = m_ppByName; ppEntry != m_ppByName + m_nCount; ++ppEntry) {
            if (*ppEntry != nullptr) {
                ItemData item;
                load.Read((*ppEntry)->m_element, item);
                load.Take(item, (*ppEntry)->m_element);
            }
        }
    }

  private:
    struct Entry
    {
        pugi::xml_node m_element;
        const char* m_pName;
        Entry** m_ppTaken;  // the place that the entries of this name share
    };

    // Entries lie in the order of the file, which decides between equal names.
    static bool MyIsBefore(const Entry* pLeft, const Entry* pRight)
    {
        const int nOrder = strcasecmp(pLeft->m_pName, pRight->m_pName);
        return nOrder != 0 ? nOrder < 0 : pLeft < pRight;
    }

    // Nothing is taken yet, so all places are cleared.
    void MyShareNames()
    {
        Entry** ppShared = m_ppByName;
        const char* pName = nullptr;
        for (Entry** ppEntry = m_ppByName; ppEntry != m_ppByName + m_nCount; ++ppEntry) {
            Entry* pEntry = std::exchange(*ppEntry, nullptr);
            if (pName == nullptr || strcasecmp(pName, pEntry->m_pName) != 0) {
                ppShared = ppEntry;
                pName = pEntry->m_pName;
            }
            pEntry->m_ppTaken = ppShared;
        }
    }

    Entry* m_pEntries;
    Entry** m_ppByName;
    std::size_t m_nCount;
};

void LoadByName(LoadData& load, std::size_t nCount)
{
    CSortedElements elements(nCount);
    if (!elements.HasMemory()) {
        load.m_nResult = DIR_RET_NO_MEMORY;
        return;
    }
    elements.Sort(load.m_root);
    elements.Decide(load);
    elements.Take(load);
}

}  // namespace

int LoadContacts(pugi::xml_node root, const GroupDataList& groups, const ContactLimits& limits,
                 bool bKeepGroupNames, CContactLoadListener& listener)
{
    LoadData load{root, groups, bKeepGroupNames, CLoadCount(limits), listener};
    std::size_t nCount = 0;
    if (IsAscending(root, nCount)) {
        LoadInOrder(load);
    } else {
        LoadByName(load, nCount);
    }
    return load.m_nResult;
}

}  // namespace NS_DIRECTORY
