// The load of the contacts. A file that a save has written is in ascending order: each element goes
// to the end of the list at the cost of one comparison. If an element is out of order, the names
// are sorted by pointers to them, so that no order costs more than n log n.

#include "directory/internal/contact_load.h"

#include <strings.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <new>

#include "directory/internal/contact_element.h"
#include "directory/internal/missing_groups.h"
#include "directory/internal/xml_names.h"

namespace NS_DIRECTORY {
namespace {

const char* NameOf(pugi::xml_node element)
{
    return element.attribute(ATTRIBUTE_DISPLAY_NAME).value();
}

// Takes or refuses the elements, in the order of the file.
class CContactTaker
{
  public:
    CContactTaker(const ContactLoadData& data, CContactLoadListener& listener)
        : m_data(data), m_listener(listener)
    {}

    // The record, or null. pPresent has an equal name and was taken before; null if there is none.
    ItemData* Take(pugi::xml_node element, const ItemData* pPresent)
    {
        ItemData* pItem = new (std::nothrow) ItemData;
        if (pItem == nullptr) {
            NoteNoMemory();
            return nullptr;
        }
        ResolveGroup(m_data.m_groups, ReadContactElement(element, *pItem), m_data.m_bKeepGroupNames,
                     *pItem);
        int& nTaken = IsBlack(pItem->m_nGroupId) ? m_nBlack : m_nOrdinary;
        // The limit before the name, as in an insert.
        const int nTest = TestContactLimit(m_data.m_limits, pItem->m_nGroupId, nTaken, 1);
        if (nTest < 0 || pPresent != nullptr) {
            m_nResult = std::min(m_nResult, DIR_RET_NONE);
            m_listener.Refuse(nTest < 0 ? nTest : DIR_RET_CONTACT_EXIST, element, pPresent);
            delete pItem;
            return nullptr;
        }
        m_listener.Take(pItem, element);
        ++nTaken;
        return pItem;
    }

    void NoteNoMemory() { m_nResult = DIR_RET_NO_MEMORY; }
    int Result() const { return m_nResult; }

  private:
    const ContactLoadData& m_data;
    CContactLoadListener& m_listener;
    int m_nOrdinary = 0;
    int m_nBlack = 0;
    int m_nResult = DIR_RET_OK;  // the worst of all, which is the lowest
};

// Names in the order of the file, and sorted. The first of several equal names keeps the record
// that was taken for any of them.
class CSortedNames
{
  public:
    explicit CSortedNames(std::size_t nCapacity)
        : m_pEntries(new (std::nothrow) Entry[nCapacity]),
          m_ppSorted(new (std::nothrow) Entry*[nCapacity])
    {}
    CSortedNames(const CSortedNames&) = delete;
    CSortedNames& operator=(const CSortedNames&) = delete;
    ~CSortedNames()
    {
        delete[] m_ppSorted;
        delete[] m_pEntries;
    }

    bool HasMemory() const { return m_pEntries != nullptr && m_ppSorted != nullptr; }

    void Add(const char* pName, ItemData* pTaken)
    {
        Entry& entry = m_pEntries[m_nCount];
        entry = {pName, MyFoldedStart(pName), &entry, pTaken};
        m_ppSorted[m_nCount++] = &entry;
    }

    void Sort()
    {
        std::sort(m_ppSorted, m_ppSorted + m_nCount, MyIsBefore);
        for (std::size_t n = 1; n < m_nCount; ++n) {
            Entry* pFirst = m_ppSorted[n - 1]->m_pFirst;
            if (MyCompare(*pFirst, *m_ppSorted[n]) == 0) {
                m_ppSorted[n]->m_pFirst = pFirst;
            }
        }
    }

    // The record taken for the name that was added as number nIndex, or for one equal to it.
    ItemData*& Taken(std::size_t nIndex) { return m_pEntries[nIndex].m_pFirst->m_pTaken; }

    void AppendTaken(CContactLoadListener& listener) const
    {
        for (Entry** ppEntry = m_ppSorted; ppEntry != m_ppSorted + m_nCount; ++ppEntry) {
            if ((*ppEntry)->m_pTaken != nullptr) {
                listener.Append((*ppEntry)->m_pTaken);
            }
        }
    }

  private:
    struct Entry
    {
        const char* m_pName;
        std::uint64_t m_nStart;
        Entry* m_pFirst;  // of the equal names; it alone has the record
        ItemData* m_pTaken;
    };

    // The first bytes as strcasecmp compares them. Most names differ there, and need not be read.
    static std::uint64_t MyFoldedStart(const char* pName)
    {
        constexpr unsigned int BITS = 8;
        std::uint64_t nStart = 0;
        for (std::size_t n = 0; n < sizeof(nStart); ++n) {
            const auto nByte =
                static_cast<unsigned char>(std::tolower(static_cast<unsigned char>(*pName)));
            nStart = nStart << BITS | nByte;
            pName += *pName == '\0' ? 0 : 1;
        }
        return nStart;
    }

    static int MyCompare(const Entry& left, const Entry& right)
    {
        if (left.m_nStart != right.m_nStart) {
            return left.m_nStart < right.m_nStart ? -1 : 1;
        }
        return strcasecmp(left.m_pName, right.m_pName);
    }

    // Entries lie in the order of the file, which decides between equal names.
    static bool MyIsBefore(const Entry* pLeft, const Entry* pRight)
    {
        const int nOrder = MyCompare(*pLeft, *pRight);
        return nOrder != 0 ? nOrder < 0 : pLeft < pRight;
    }

    Entry* m_pEntries;
    Entry** m_ppSorted;
    std::size_t m_nCount = 0;
};

// False, with nothing done, if the element belongs before the end of the list.
bool LoadAtEnd(pugi::xml_node element, const ItemDataList& list, CContactTaker& taker,
               CContactLoadListener& listener)
{
    const ItemData* pLast = list.size() == 0 ? nullptr : list.end()->prev->value;
    const int nOrder =
        pLast == nullptr ? -1 : strcasecmp(pLast->m_strDisplayName.c_str(), NameOf(element));
    if (nOrder > 0) {
        return false;
    }
    ItemData* pItem = taker.Take(element, nOrder == 0 ? pLast : nullptr);
    if (pItem != nullptr) {
        listener.Append(pItem);
    }
    return true;
}

// The element and all that follow, with what the list holds already.
void LoadSorted(pugi::xml_node first, const ItemDataList& list, CContactTaker& taker,
                CContactLoadListener& listener)
{
    std::size_t nCount = list.size();
    for (pugi::xml_node element = first; element; element = element.next_sibling(ELEMENT_CONTACT)) {
        ++nCount;
    }
    CSortedNames names(nCount);
    if (!names.HasMemory()) {
        taker.NoteNoMemory();
        return;
    }
    for (ItemData& item : RecordsOf(list)) {
        names.Add(item.m_strDisplayName.c_str(), &item);
    }
    for (pugi::xml_node element = first; element; element = element.next_sibling(ELEMENT_CONTACT)) {
        names.Add(NameOf(element), nullptr);
    }
    names.Sort();
    std::size_t nAt = list.size();
    listener.Clear();
    for (pugi::xml_node element = first; element; element = element.next_sibling(ELEMENT_CONTACT)) {
        ItemData*& pTaken = names.Taken(nAt++);
        ItemData* pItem = taker.Take(element, pTaken);
        pTaken = pTaken == nullptr ? pItem : pTaken;
    }
    names.AppendTaken(listener);
}

}  // namespace

int LoadContacts(pugi::xml_node root, const ContactLoadData& data, CContactLoadListener& listener)
{
    CContactTaker taker(data, listener);
    pugi::xml_node element = root.child(ELEMENT_CONTACT);
    while (element && LoadAtEnd(element, data.m_list, taker, listener)) {
        element = element.next_sibling(ELEMENT_CONTACT);
    }
    if (element) {
        LoadSorted(element, data.m_list, taker, listener);
    }
    return taker.Result();
}

}  // namespace NS_DIRECTORY
