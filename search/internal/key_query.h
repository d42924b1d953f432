// CKeyQuery: the keys that a user has pressed.

#ifndef NSDIRECTORY_SEARCH_INTERNAL_KEY_QUERY_H
#define NSDIRECTORY_SEARCH_INTERNAL_KEY_QUERY_H

#include "search/internal/found.h"

namespace NS_DIRECTORY {

class CKeyQuery
{
  public:
    // The keys must outlive the query.
    explicit CKeyQuery(const char* pKeys) : m_pKeys(pKeys) {}

    bool IsValid() const;
    MatchRankType Find(const IndexEntryData& entry, FoundData& found) const;

  private:
    const char* m_pKeys;
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SEARCH_INTERNAL_KEY_QUERY_H
