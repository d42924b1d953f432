// The names that a host hands in as a list, to ask of each contact whether it is one of them.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_NAME_SET_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_NAME_SET_H

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

#include "directory/internal/records.h"

namespace NS_DIRECTORY {

class CNameSet
{
    using String = qz::basic_string<char>;

  public:
    // Keeps pointers into the host's list, which must not change meanwhile. They are sorted, so
    // that a question takes a few steps however many names there are.
    explicit CNameSet(const QZList<String>& listName)
        : m_ppBegin(new (std::nothrow) const String*[listName.size()]), m_ppEnd(m_ppBegin)
    {
        if (m_ppBegin == nullptr) {
            std::abort();  // as a list does without memory
        }
        for (auto pos = listName.begin(); pos != listName.end(); pos = pos->next) {
            *m_ppEnd++ = &pos->value;
        }
        std::sort(m_ppBegin, m_ppEnd, MyIsBefore);
        m_ppEnd = std::unique(m_ppBegin, m_ppEnd, MyIsEqual);
    }

    CNameSet(const CNameSet&) = delete;
    CNameSet& operator=(const CNameSet&) = delete;
    ~CNameSet() { delete[] m_ppBegin; }

    // Names that are in the list several times count once.
    int Size() const { return static_cast<int>(m_ppEnd - m_ppBegin); }

    bool Holds(const String& strName) const
    {
        return std::binary_search(m_ppBegin, m_ppEnd, &strName, MyIsBefore);
    }

  private:
    static bool MyIsBefore(const String* pLeft, const String* pRight)
    {
        return pLeft->compare(0, String::npos, pRight->c_str(), pRight->size()) < 0;
    }

    static bool MyIsEqual(const String* pLeft, const String* pRight) { return *pLeft == *pRight; }

    const String** m_ppBegin;
    const String** m_ppEnd;
};

// Calls visit with the position of each contact that the set names, in list order. The visit may
// erase that position.
template <class TVisit>
void VisitNamed(const ItemDataList& list, const CNameSet& names, TVisit visit)
{
    int nLeft = names.Size();  // no two contacts have one name
    for (ItemDataList::ListIterator pos = list.begin(); nLeft > 0 && pos != list.end();) {
        const ItemDataList::ListIterator posVisited = std::exchange(pos, pos->next);
        if (names.Holds(posVisited->value->m_strDisplayName)) {
            --nLeft;
            visit(posVisited);
        }
    }
}

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_NAME_SET_H
