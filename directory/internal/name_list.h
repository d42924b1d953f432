// The names that a host hands in as a list, struck off one by one as their contacts are met.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_NAME_LIST_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_NAME_LIST_H

#include <algorithm>
#include <cstdlib>
#include <new>

#include "qzstl/list_like"
#include "qzstl/string_like"

namespace NS_DIRECTORY {

class CNameList
{
    using String = qz::basic_string<char>;

  public:
    // Keeps pointers into the host's list, which stays as it was. They are sorted, so that a search
    // takes a few steps however many names there are.
    explicit CNameList(const QZList<String>& listName)
        : m_ppBegin(new (std::nothrow) const String*[listName.size()]),
          m_ppEnd(m_ppBegin),
          m_nLeft(listName.size())
    {
        if (m_ppBegin == nullptr) {
            std::abort();  // as where a list gets no memory
        }
        for (auto pos = listName.begin(); pos != listName.end(); pos = pos->next) {
            *m_ppEnd++ = &pos->value;
        }
        std::sort(m_ppBegin, m_ppEnd, MyIsBefore);
    }

    ~CNameList() { delete[] m_ppBegin; }

    CNameList(const CNameList&) = delete;
    CNameList& operator=(const CNameList&) = delete;

    // True once every name is struck.
    bool IsEmpty() const { return m_nLeft == 0; }

    // False where no name equals strName. Each contact asks once, and no two of the list bear one
    // name, so that a struck name needs no mark; of a name that stands twice the second is never
    // struck.
    bool Strike(const String& strName)
    {
        const String* const* ppName = std::lower_bound(m_ppBegin, m_ppEnd, &strName, MyIsBefore);
        if (ppName == m_ppEnd || !(**ppName == strName)) {
            return false;
        }
        --m_nLeft;
        return true;
    }

  private:
    static bool MyIsBefore(const String* pLeft, const String* pRight)
    {
        return pLeft->compare(0, String::npos, pRight->c_str(), pRight->size()) < 0;
    }

    const String** m_ppBegin;
    const String** m_ppEnd;
    unsigned int m_nLeft;
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_NAME_LIST_H
