#include "bench/sqlite_book.h"

#include "bench/directory.h"

CSqliteBook::CSqliteBook(const char* pPath, const char* pOrder,
                         const std::vector<SampleContact>& contacts)
{
    Require(sqlite3_open(pPath, &m_pDatabase) == SQLITE_OK, "an SQLite database");
    Execute("CREATE TABLE contact (name TEXT, office TEXT, mobile TEXT, other TEXT)");
    Execute("BEGIN");
    Insert(contacts);
    Execute("CREATE INDEX by_office ON contact (office)");
    Execute("CREATE INDEX by_mobile ON contact (mobile)");
    Execute("CREATE INDEX by_other ON contact (other)");
    Execute("COMMIT");
    const std::string strLookup =
        "SELECT name FROM contact WHERE mobile = ?1 OR office = ?1 OR other = ?1";
    m_pLookup = Prepare((strLookup + pOrder + " LIMIT 1").c_str());
}

CSqliteBook::~CSqliteBook()
{
    sqlite3_finalize(m_pLookup);
    sqlite3_close(m_pDatabase);
}

std::string CSqliteBook::NameOf(const char* pNumber)
{
    std::string strName;
    sqlite3_bind_text(m_pLookup, 1, pNumber, -1, SQLITE_STATIC);
    if (sqlite3_step(m_pLookup) == SQLITE_ROW) {
        strName = reinterpret_cast<const char*>(sqlite3_column_text(m_pLookup, 0));
    }
    sqlite3_reset(m_pLookup);
    return strName;
}

void CSqliteBook::Execute(const char* pStatement)
{
    Require(sqlite3_exec(m_pDatabase, pStatement, nullptr, nullptr, nullptr) == SQLITE_OK,
            pStatement);
}

sqlite3_stmt* CSqliteBook::Prepare(const char* pStatement)
{
    sqlite3_stmt* pPrepared = nullptr;
    Require(sqlite3_prepare_v2(m_pDatabase, pStatement, -1, &pPrepared, nullptr) == SQLITE_OK,
            pStatement);
    return pPrepared;
}

void CSqliteBook::Insert(const std::vector<SampleContact>& contacts)
{
    sqlite3_stmt* pInsert = Prepare("INSERT INTO contact VALUES (?1, ?2, ?3, ?4)");
    for (const SampleContact& contact : contacts) {
        int nColumn = 0;
        for (const std::string* pText : {&contact.m_strName, &contact.m_strOffice,
                                         &contact.m_strMobile, &contact.m_strOther}) {
            sqlite3_bind_text(pInsert, ++nColumn, pText->c_str(), -1, SQLITE_STATIC);
        }
        Require(sqlite3_step(pInsert) == SQLITE_DONE, "a filled SQLite table");
        sqlite3_reset(pInsert);
    }
    sqlite3_finalize(pInsert);
}
