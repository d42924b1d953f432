// CContactPages: all contacts that the directory hands out, one after the other in its own order.
// Its pages list the blacklisted contacts apart from the others, so two lists are read and merged.

#ifndef NSDIRECTORY_SEARCH_INTERNAL_CONTACT_PAGES_H
#define NSDIRECTORY_SEARCH_INTERNAL_CONTACT_PAGES_H

#include "directory/contact_local_manager.h"

namespace NS_DIRECTORY {

// The contacts of one group, of which one page is held at a time.
class CGroupPages
{
  public:
    CGroupPages(const CContactLocalManager& directory, int nGroupId);

    // Null at the end. Good until Advance().
    const ContactGeneralItemData* Current() const;
    void Advance();

  private:
    void MyReadPage();

    const CContactLocalManager& m_directory;
    int m_nGroupId;
    ContactGeneralItemListData m_page;
    QZList<ContactGeneralItemData>::ListIterator m_pos;
};

class CContactPages
{
  public:
    explicit CContactPages(const CContactLocalManager& directory)
        : m_ordinary(directory, GROUP_ID_ALL), m_black(directory, GROUP_ID_BLACKLIST)
    {}

    // As in CGroupPages.
    const ContactGeneralItemData* Current() const;
    bool IsBlacklisted() const;  // the current one
    void Advance();

  private:
    CGroupPages m_ordinary;
    CGroupPages m_black;
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SEARCH_INTERNAL_CONTACT_PAGES_H
