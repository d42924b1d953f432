// Typing: a search after each key pressed, compared with what a host would ask of SQLite on the
// same contacts: LIKE, which walks them as the companion does, and a full-text index.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <array>
#include <memory>

#include "bench/directory.h"
#include "bench/row.h"
#include "search/contact_search.h"

namespace {

using NS_DIRECTORY::CContactSearch;
using NS_DIRECTORY::SearchMatchData;

constexpr int FULL_COUNT = 1030;  // both limits reached
constexpr int PAIRS = 100;
constexpr int LINES = 10;  // on a screen

using Names = std::vector<std::string>;
using Find = std::function<Names(const std::string& strTyped)>;

// The beginning of a word of a name or of its keys, or a part of a number.
constexpr char WITH_LIKE[] =
    "SELECT name FROM contact WHERE name LIKE ?1 || '%' OR name LIKE '% ' || ?1 || '%' OR"
    " office LIKE '%' || ?1 || '%' OR mobile LIKE '%' || ?1 || '%' OR"
    " other LIKE '%' || ?1 || '%' ORDER BY rowid LIMIT 10";
constexpr char KEYS_WITH_LIKE[] =
    "SELECT name FROM contact WHERE keys LIKE ?1 || '%' OR keys LIKE '%0' || ?1 || '%' OR"
    " office LIKE '%' || ?1 || '%' OR mobile LIKE '%' || ?1 || '%' OR"
    " other LIKE '%' || ?1 || '%' ORDER BY rowid LIMIT 10";
// The full-text index knows words of names only: it has no part of a number.
constexpr char WITH_INDEX[] =
    "SELECT name FROM word WHERE word MATCH ?1 || '*' ORDER BY rowid LIMIT 10";

// The keys that type a name of the sample, 0 for the blanks in it.
std::string KeysOf(const std::string& strName)
{
    constexpr std::string_view LETTER_KEYS = "22233344455566677778889999";
    constexpr std::pair<std::string_view, char> ACCENTED[] = {
        {"ä", '2'}, {"ç", '2'}, {"í", '4'}, {"ö", '6'}};
    std::string strKeys;
    for (std::size_t n = 0; n < strName.size(); ++n) {
        const char cLetter = static_cast<char>(strName[n] | 0x20);
        if (cLetter >= 'a' && cLetter <= 'z') {
            strKeys += LETTER_KEYS[static_cast<std::size_t>(cLetter - 'a')];
        } else if (strName[n] == ' ') {
            strKeys += '0';
        } else if (strName[n] >= '0' && strName[n] <= '9') {
            strKeys += strName[n];
        }
        for (const auto& [text, cKey] : ACCENTED) {
            if (strName.compare(n, text.size(), text) == 0) {
                strKeys += cKey;
            }
        }
    }
    return strKeys;
}

// The contacts in a table and in a full-text index, in memory.
class CSqliteSearch
{
  public:
    CSqliteSearch(const char* pQuery, const std::vector<SampleContact>& contacts)
    {
        Require(sqlite3_open(":memory:", &m_pDatabase) == SQLITE_OK, "an SQLite database");
        Execute(
            "CREATE TABLE contact (name TEXT, office TEXT, mobile TEXT, other TEXT, keys TEXT)");
        Execute(
            "CREATE VIRTUAL TABLE word USING fts5 (name, prefix='1 2 3 4',"
            " tokenize='unicode61 remove_diacritics 2')");
        Execute("BEGIN");
        for (const SampleContact& contact : contacts) {
            Insert("INSERT INTO contact VALUES (?1, ?2, ?3, ?4, ?5)",
                   {contact.m_strName, contact.m_strOffice, contact.m_strMobile, contact.m_strOther,
                    KeysOf(contact.m_strName)});
            Insert("INSERT INTO word VALUES (?1)", {contact.m_strName});
        }
        Execute("COMMIT");
        m_pQuery = Prepare(pQuery);
    }

    ~CSqliteSearch()
    {
        sqlite3_finalize(m_pQuery);
        sqlite3_close(m_pDatabase);
    }
    CSqliteSearch(const CSqliteSearch&) = delete;
    CSqliteSearch& operator=(const CSqliteSearch&) = delete;

    Names operator()(const std::string& strTyped)
    {
        Names names;
        sqlite3_bind_text(m_pQuery, 1, strTyped.c_str(), -1, SQLITE_STATIC);
        while (sqlite3_step(m_pQuery) == SQLITE_ROW) {
            names.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(m_pQuery, 0)));
        }
        sqlite3_reset(m_pQuery);
        return names;
    }

  private:
    void Execute(const char* pStatement)
    {
        Require(sqlite3_exec(m_pDatabase, pStatement, nullptr, nullptr, nullptr) == SQLITE_OK,
                pStatement);
    }

    sqlite3_stmt* Prepare(const char* pStatement)
    {
        sqlite3_stmt* pPrepared = nullptr;
        Require(sqlite3_prepare_v2(m_pDatabase, pStatement, -1, &pPrepared, nullptr) == SQLITE_OK,
                pStatement);
        return pPrepared;
    }

    void Insert(const char* pStatement, const Names& values)
    {
        sqlite3_stmt* pInsert = Prepare(pStatement);
        int nColumn = 0;
        for (const std::string& strValue : values) {
            sqlite3_bind_text(pInsert, ++nColumn, strValue.c_str(), -1, SQLITE_STATIC);
        }
        Require(sqlite3_step(pInsert) == SQLITE_DONE, "a filled SQLite table");
        sqlite3_finalize(pInsert);
    }

    sqlite3* m_pDatabase = nullptr;
    sqlite3_stmt* m_pQuery = nullptr;
};

Find ProductSearch(decltype(&CContactSearch::FindByText) pFind,
                   const std::vector<SampleContact>& contacts)
{
    const auto pSearch = std::make_shared<CContactSearch>();
    Require(pSearch->Refresh(StartDirectory(contacts)) == FULL_COUNT, "a search of all contacts");
    return [pSearch, pFind](const std::string& strTyped) {
        std::array<SearchMatchData, LINES> matches;
        const int nFound = ((*pSearch).*pFind)(strTyped.c_str(), NS_DIRECTORY::SEARCH_PLAIN,
                                               matches.data(), LINES);
        Names names;
        for (int n = 0; n < std::min(nFound, LINES); ++n) {
            names.emplace_back(matches[static_cast<std::size_t>(n)].m_pDisplayName);
        }
        return names;
    };
}

// The search after each key of the text.
Step Typing(const Find& find, const std::string& strText)
{
    return [find, strText] {
        for (std::size_t n = 1; n <= strText.size(); ++n) {
            benchmark::DoNotOptimize(find(strText.substr(0, n)));
        }
    };
}

Pair AgainstSqlite(decltype(&CContactSearch::FindByText) pFind, const std::string& strText,
                   const char* pQuery)
{
    const auto contacts = SampleContacts(FULL_COUNT);
    const Find product = ProductSearch(pFind, contacts);
    const auto pSqlite = std::make_shared<CSqliteSearch>(pQuery, contacts);
    const Find reference = [pSqlite](const std::string& strTyped) { return (*pSqlite)(strTyped); };
    for (std::size_t n = 1; n <= strText.size(); ++n) {
        const std::string strTyped = strText.substr(0, n);
        Require(product(strTyped) == reference(strTyped), "the same answer of both");
    }
    return {
        Typing(product, strText), Typing(reference, strText), {}, static_cast<int>(strText.size())};
}

}  // namespace

void AppendSearchRows(std::vector<Row>& rows)
{
    const auto pByText = &CContactSearch::FindByText;
    const auto pByKeys = &CContactSearch::FindByKeys;
    const auto append = [&rows](const char* pName, auto pFind, const char* pTyped,
                                const char* pQuery) {
        rows.push_back(
            {pName, NO_AIM, NO_AIM, PAIRS, [=] { return AgainstSqlite(pFind, pTyped, pQuery); }});
    };
    append("Search after each key of a name / SQLite LIKE", pByText, "weber", WITH_LIKE);
    append("Search after each key of a name / SQLite FTS5", pByText, "weber", WITH_INDEX);
    append("Search after each digit of a number / SQLite LIKE", pByText, "0771", WITH_LIKE);
    append("Search by the keys of a name / SQLite LIKE", pByKeys, "93237", KEYS_WITH_LIKE);
}
