// Who is calling: the walk of the library beside an index, and beside the same walk over the
// containers of the standard library.

#include <benchmark/benchmark.h>

#include <cstring>
#include <list>
#include <memory>

#include "bench/directory.h"
#include "bench/row.h"
#include "bench/sqlite_book.h"

namespace {

constexpr double INDEX_AIM = 1.6;
constexpr double WALK_AIM = 0.7;
constexpr int PAIRS = 300;
constexpr char IN_MEMORY[] = ":memory:";
constexpr char ON_DISK[] = "contacts.sqlite";

struct Wanted
{
    const char* m_pText;
    Numbers m_numbers;
    bool m_bHit;
};

constexpr Wanted WANTED[] = {{"miss, equal lengths", Numbers::EQUAL_LENGTH, false},
                             {"miss, mixed lengths", Numbers::MIXED_LENGTH, false},
                             {"last contact, equal lengths", Numbers::EQUAL_LENGTH, true},
                             {"last contact, mixed lengths", Numbers::MIXED_LENGTH, true}};

std::string NumberToFind(const std::vector<SampleContact>& contacts, bool bHit)
{
    return bHit ? contacts.back().m_strMobile : NUMBER_OF_NOBODY;
}

Step ProductLookup(const std::vector<SampleContact>& contacts, bool bHit)
{
    const auto& directory = StartDirectory(contacts);
    const std::string strNumber = NumberToFind(contacts, bHit);
    const std::string strExpected = bHit ? contacts.back().m_strName : "";
    Require(directory.GetContactNameByPhoneNumber(strNumber.c_str()) == strExpected.c_str(),
            "the right answer of the directory");
    return [&directory, strNumber] {
        benchmark::DoNotOptimize(directory.GetContactNameByPhoneNumber(strNumber.c_str()));
    };
}

Pair AgainstIndex(int nContacts, Numbers numbers, bool bHit, const char* pDatabase,
                  const char* pOrder = FIRST_IN_LIST)
{
    const auto contacts = SampleContacts(nContacts, numbers);
    const std::string strNumber = NumberToFind(contacts, bHit);
    (void)std::remove(ON_DISK);
    const auto pBook = std::make_shared<CSqliteBook>(pDatabase, pOrder, contacts);
    Require(pBook->NameOf(strNumber.c_str()) == (bHit ? contacts.back().m_strName : ""),
            "the right answer of SQLite");
    return {ProductLookup(contacts, bHit),
            [pBook, strNumber] { benchmark::DoNotOptimize(pBook->NameOf(strNumber.c_str())); }};
}

// A record as a host without the library would write it, the fields in the same order.
struct StandardRecord
{
    std::string m_strName;
    std::string m_strOffice;
    std::string m_strMobile;
    std::string m_strOther;
    std::string m_strRing;
    std::string m_strNameIndex;
    int m_nLine;
    std::string m_strPhoto;
    int m_nSelectedPhoto;
    int m_nGroupId;
};

class CStandardBook
{
  public:
    explicit CStandardBook(const std::vector<SampleContact>& contacts)
    {
        for (const SampleContact& contact : contacts) {
            m_listOwned.push_back(std::make_unique<StandardRecord>(
                StandardRecord{contact.m_strName, contact.m_strOffice, contact.m_strMobile,
                               contact.m_strOther, contact.m_strRing, "", contact.m_nLine,
                               contact.m_strPhoto, contact.m_nSelectedPhoto, 0}));
            m_listRecord.push_back(m_listOwned.back().get());
        }
    }

    std::string NameOf(const char* pNumber) const
    {
        benchmark::DoNotOptimize(pNumber);  // or the compiler would fit the walk to one number
        const std::string strNumber(pNumber);
        for (const StandardRecord* pRecord : m_listRecord) {
            if (pRecord->m_strMobile == strNumber || pRecord->m_strOffice == strNumber ||
                pRecord->m_strOther == strNumber) {
                return pRecord->m_strName;
            }
        }
        return {};
    }

  private:
    std::vector<std::unique_ptr<StandardRecord>> m_listOwned;
    std::list<StandardRecord*> m_listRecord;
};

Pair AgainstStandardWalk(Numbers numbers)
{
    const auto contacts = SampleContacts(DIRECTORY_COUNT, numbers);
    const auto pBook = std::make_shared<CStandardBook>(contacts);
    return {ProductLookup(contacts, false),
            [pBook] { benchmark::DoNotOptimize(pBook->NameOf(NUMBER_OF_NOBODY)); }};
}

}  // namespace

void AppendLookupRows(std::vector<Row>& rows)
{
    for (const Wanted& wanted : WANTED) {
        rows.push_back({std::string("Lookup, ") + wanted.m_pText + " / SQLite in memory", INDEX_AIM,
                        NO_AIM, PAIRS, [wanted] {
                            return AgainstIndex(DIRECTORY_COUNT, wanted.m_numbers, wanted.m_bHit,
                                                IN_MEMORY);
                        }});
    }
    rows.push_back(
        {"Lookup, miss, equal lengths / SQLite in memory, in any order", NO_AIM, NO_AIM, PAIRS, [] {
             return AgainstIndex(DIRECTORY_COUNT, Numbers::EQUAL_LENGTH, false, IN_MEMORY,
                                 ANY_CONTACT);
         }});
    rows.push_back({"Lookup, miss, equal lengths / SQLite on disk", NO_AIM, NO_AIM, PAIRS, [] {
                        return AgainstIndex(DIRECTORY_COUNT, Numbers::EQUAL_LENGTH, false, ON_DISK);
                    }});
    rows.push_back({"Lookup, miss, equal lengths / std walk", WALK_AIM, WALK_AIM, PAIRS,
                    [] { return AgainstStandardWalk(Numbers::EQUAL_LENGTH); }});
    rows.push_back({"Lookup, miss, mixed lengths / std walk", WALK_AIM, WALK_AIM, PAIRS,
                    [] { return AgainstStandardWalk(Numbers::MIXED_LENGTH); }});
    for (const int nContacts : {100, 250, 500, DIRECTORY_COUNT, 2500, 10000, 100000}) {
        rows.push_back({"Lookup, " + std::to_string(nContacts), NO_AIM, NO_AIM,
                        nContacts > DIRECTORY_COUNT ? PAIRS / 10 : PAIRS / 3,
                        [nContacts] {
                            return AgainstIndex(nContacts, Numbers::EQUAL_LENGTH, false, IN_MEMORY);
                        },
                        "lookup", nContacts, false});
    }
}
