// Who is calling: the walk of the library beside the same walk over the containers of the standard
// library.

#include <list>
#include <memory>

#include "bench/directory.h"
#include "bench/keep.h"
#include "bench/lookup.h"

namespace {

constexpr double WALK_AIM = 0.75;
constexpr int PAIRS = 300;

constexpr Wanted ASKED[] = {
    MISS,
    MISS_MIXED,
    HIT_MIXED,
    {"miss of 100, mixed lengths", Numbers::MIXED_LENGTH, FEW_BITS_OF_NOBODY, false},
    {"miss, 14 of 12 to 17 digits", Numbers::BOTH_FORMS, SHORT_NUMBER_OF_NOBODY, false},
    {"miss, 15 of 12 to 17 digits", Numbers::BOTH_FORMS, LONG_NUMBER_OF_NOBODY, false},
    {"last contact, 14 of 12 to 17 digits", Numbers::BOTH_FORMS, LAST_SHORT_NUMBER, true},
    {"last contact, 15 of 12 to 17 digits", Numbers::BOTH_FORMS, LAST_LONG_NUMBER, true}};

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
        Keep(pNumber);  // or the compiler would fit the walk to one number
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

Pair AgainstStandardWalk(const Wanted& wanted)
{
    const auto contacts = SampleContacts(DIRECTORY_COUNT, wanted.m_numbers);
    const auto pBook = std::make_shared<CStandardBook>(contacts);
    Require(pBook->NameOf(wanted.m_pNumber) == NameToFind(contacts, wanted),
            "the right answer of the std walk");
    return {ProductLookup(contacts, wanted),
            [pBook, pNumber = wanted.m_pNumber] { Keep(pBook->NameOf(pNumber)); }};
}

}  // namespace

std::string NameToFind(const std::vector<SampleContact>& contacts, const Wanted& wanted)
{
    return wanted.m_bHit ? contacts.back().m_strName : "";
}

Step ProductLookup(const std::vector<SampleContact>& contacts, const Wanted& wanted)
{
    const auto& directory = StartDirectory(contacts);
    Require(directory.GetContactNameByPhoneNumber(wanted.m_pNumber) ==
                NameToFind(contacts, wanted).c_str(),
            "the right answer of the directory");
    return [&directory, pNumber = wanted.m_pNumber] {
        Keep(directory.GetContactNameByPhoneNumber(pNumber));
    };
}

std::string LookupName(const Wanted& wanted, const char* pReference)
{
    return std::string("Lookup, ") + wanted.m_pText + " / " + pReference;
}

void AppendWalkRows(std::vector<Row>& rows)
{
    for (const Wanted& wanted : ASKED) {
        rows.push_back({LookupName(wanted, "std walk"), WALK_AIM, WALK_AIM, PAIRS,
                        [wanted] { return AgainstStandardWalk(wanted); }});
    }
}
