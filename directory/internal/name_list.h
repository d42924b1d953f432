// The names that a host hands in as a list, struck off one by one as their contacts are met.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_NAME_LIST_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_NAME_LIST_H

#include "qzstl/list_like"
#include "qzstl/string_like"

namespace NS_DIRECTORY {

class CNameList
{
  public:
    // Works on a copy: the host's list stays as it was.
    explicit CNameList(const QZList<qz::basic_string<char>>& listName) : m_listName(listName) {}

    bool IsEmpty() const { return m_listName.size() == 0; }

    // Strikes the first of the names that equals strName; false where none does. A name that
    // stands twice is struck once, and what is struck makes the next search shorter.
    bool Strike(const qz::basic_string<char>& strName)
    {
        for (auto pos = m_listName.begin(); pos != m_listName.end(); pos = pos->next) {
            if (pos->value == strName) {
                (void)m_listName.erase(pos);
                return true;
            }
        }
        return false;
    }

  private:
    QZList<qz::basic_string<char>> m_listName;
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_NAME_LIST_H
