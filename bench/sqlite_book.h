// What a host might use instead: the contacts in an SQLite table with an index for each number.

#ifndef NSDIRECTORY_BENCH_SQLITE_BOOK_H
#define NSDIRECTORY_BENCH_SQLITE_BOOK_H

#include <sqlite3.h>

#include <string>
#include <vector>

#include "bench/sample.h"

// Which of several contacts with the number answers: as in the library the first in list order, or
// the one that costs least.
inline constexpr char FIRST_IN_LIST[] = " ORDER BY name COLLATE NOCASE";
inline constexpr char ANY_CONTACT[] = "";

class CSqliteBook
{
  public:
    CSqliteBook(const char* pPath, const char* pOrder, const std::vector<SampleContact>& contacts);
    ~CSqliteBook();
    CSqliteBook(const CSqliteBook&) = delete;
    CSqliteBook& operator=(const CSqliteBook&) = delete;

    // The name of a contact that has the number; empty if there is none.
    std::string NameOf(const char* pNumber);

  private:
    void Execute(const char* pStatement);
    sqlite3_stmt* Prepare(const char* pStatement);
    void Insert(const std::vector<SampleContact>& contacts);

    sqlite3* m_pDatabase = nullptr;
    sqlite3_stmt* m_pLookup = nullptr;
};

#endif  // NSDIRECTORY_BENCH_SQLITE_BOOK_H
