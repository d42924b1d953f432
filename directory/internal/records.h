// The records of the two lists by short names, and a range over them.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_RECORDS_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_RECORDS_H

#include "directory/contact_local_manager.h"

namespace NS_DIRECTORY {

using GroupData = CContactLocalManager::GroupData;
using ItemData = CContactLocalManager::ItemData;
using GroupDataList = QZList<GroupData*>;
using ItemDataList = QZList<ItemData*>;

// For "for (ItemData& item : RecordsOf(list))". The list must not change meanwhile.
template <class TRecord>
class CRecords
{
  public:
    class CIterator
    {
      public:
        explicit CIterator(typename QZList<TRecord*>::ListIterator pos) : m_pos(pos) {}
        TRecord& operator*() const { return *m_pos->value; }
        CIterator& operator++()
        {
            m_pos = m_pos->next;
            return *this;
        }
        bool operator!=(const CIterator& other) const { return m_pos != other.m_pos; }

      private:
        typename QZList<TRecord*>::ListIterator m_pos;
    };

    explicit CRecords(const QZList<TRecord*>& list) : m_list(list) {}
    CIterator begin() const { return CIterator(m_list.begin()); }
    CIterator end() const { return CIterator(m_list.end()); }

  private:
    const QZList<TRecord*>& m_list;
};

template <class TRecord>
CRecords<TRecord> RecordsOf(const QZList<TRecord*>& list)
{
    return CRecords<TRecord>(list);
}

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_RECORDS_H
