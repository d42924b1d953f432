// Who is calling: the walk of the library beside an index.

#include <cstdio>
#include <memory>

#include "bench/directory.h"
#include "bench/keep.h"
#include "bench/lookup.h"
#include "bench/sqlite_book.h"

namespace {

constexpr double INDEX_AIM = 1.6;
constexpr int PAIRS = 300;
constexpr char IN_MEMORY[] = ":memory:";
constexpr char ON_DISK[] = "contacts.sqlite";

constexpr Wanted ASKED[] = {
    MISS,
    MISS_MIXED,
    {"last contact, equal lengths", Numbers::EQUAL_LENGTH, LAST_NUMBER, true},
    HIT_MIXED};

Pair AgainstIndex(int nContacts, const Wanted& wanted, const char* pDatabase,
                  const char* pOrder = FIRST_IN_LIST)
{
    const auto contacts = SampleContacts(nContacts, wanted.m_numbers);
    (void)std::remove(ON_DISK);
    const auto pBook = std::make_shared<CSqliteBook>(pDatabase, pOrder, contacts);
    Require(pBook->NameOf(wanted.m_pNumber) == NameToFind(contacts, wanted),
            "the right answer of SQLite");
    return {ProductLookup(contacts, wanted),
            [pBook, pNumber = wanted.m_pNumber] { Keep(pBook->NameOf(pNumber)); }};
}

}  // namespace

void AppendIndexRows(std::vector<Row>& rows)
{
    for (const Wanted& wanted : ASKED) {
        rows.push_back({LookupName(wanted, "SQLite in memory"), INDEX_AIM, NO_AIM, PAIRS,
                        [wanted] { return AgainstIndex(DIRECTORY_COUNT, wanted, IN_MEMORY); }});
    }
    rows.push_back({LookupName(MISS, "SQLite in memory, in any order"), NO_AIM, NO_AIM, PAIRS,
                    [] { return AgainstIndex(DIRECTORY_COUNT, MISS, IN_MEMORY, ANY_CONTACT); }});
    rows.push_back({LookupName(MISS, "SQLite on disk"), NO_AIM, NO_AIM, PAIRS,
                    [] { return AgainstIndex(DIRECTORY_COUNT, MISS, ON_DISK); }});
    for (const int nContacts : {100, 250, 500, DIRECTORY_COUNT, 2500, 10000, 100000}) {
        rows.push_back({"Lookup, " + std::to_string(nContacts), NO_AIM, NO_AIM,
                        nContacts > DIRECTORY_COUNT ? PAIRS / 10 : PAIRS / 3,
                        [nContacts] { return AgainstIndex(nContacts, MISS, IN_MEMORY); }, "lookup",
                        nContacts, false});
    }
}
