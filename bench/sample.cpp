#include "bench/sample.h"

#include <strings.h>

#include <algorithm>
#include <array>
#include <random>

namespace {

constexpr std::array GIVEN_NAMES = {
    "Anna",  "Bob",    "Chen",  "Dora",   "Emil",   "Fatima", "Greta",    "Hugo",
    "Ines",  "Jonas",  "Karin", "Leila",  "Marco",  "Nina",   "Oskar",    "Priya",
    "Quinn", "Rosa",   "Sven",  "Tereza", "Ulrich", "Vera",   "Wanda",    "Xavier",
    "Yuki",  "Zoltan", "Aisha", "Bjarne", "Carmen", "Dmitri", "Eleonora", "François"};
constexpr std::array FAMILY_NAMES = {
    "Abe",    "Bauer",  "Cruz",      "Dietrich",  "Eriksen", "Fischer",  "García",   "Haddad",
    "Ivanov", "Jensen", "Kowalski",  "Lindqvist", "Moreau",  "Novak",    "Okafor",   "Papadakis",
    "Quast",  "Rossi",  "Schäfer",   "Tanaka",    "Ueda",    "Virtanen", "Weber",    "Xu",
    "Yilmaz", "Zimmer", "Andersson", "Brandt",    "Conti",   "Duarte",   "Engström", "Ferreira"};
constexpr std::array AREAS = {"030", "040", "069", "089", "020", "021", "015", "017"};
constexpr int USER_GROUPS_IN_USE = 20;

std::string Digits(std::mt19937& random, std::size_t nCount)
{
    std::string strDigits;
    while (strDigits.size() < nCount) {
        strDigits += static_cast<char>('0' + random() % 10);
    }
    return strDigits;
}

std::string Number(std::mt19937& random, Numbers numbers)
{
    if (numbers == Numbers::EQUAL_LENGTH) {
        return AREAS[random() % AREAS.size()] + Digits(random, 8);
    }
    if (numbers == Numbers::BOTH_FORMS) {
        return Digits(random, 12 + random() % 6);
    }
    return random() % 3 == 0 ? std::string() : Digits(random, 3 + random() % 11);
}

std::string Name(std::size_t n)
{
    const std::size_t nNames = GIVEN_NAMES.size() * FAMILY_NAMES.size();
    const std::string strName = std::string(GIVEN_NAMES[n % GIVEN_NAMES.size()]) + ' ' +
                                FAMILY_NAMES[n / GIVEN_NAMES.size() % FAMILY_NAMES.size()];
    return n < nNames ? strName : strName + ' ' + std::to_string(n / nNames);
}

SampleContact Contact(std::mt19937& random, Numbers numbers, int nIndex,
                      const std::vector<std::string>& groups)
{
    const bool bPhoto = nIndex % 8 == 0;
    return {Name(static_cast<std::size_t>(nIndex)), Number(random, numbers),
            Number(random, numbers), Number(random, numbers), nIndex % 4,
            nIndex % 10 == 0 ? "/config/rings/ring_" + std::to_string(nIndex % 7) + ".wav" : "",
            // Half of the contacts are in no user group.
            nIndex % 2 == 0 ? groups[0] : groups[2 + random() % USER_GROUPS_IN_USE],
            bPhoto ? "/config/photos/" + std::to_string(nIndex) + ".png" : "", bPhoto ? 1 : 0};
}

}  // namespace

std::vector<std::string> SampleGroups(int nCount)
{
    std::vector<std::string> groups = {"All Contacts", "Blacklist"};
    for (int n = 2; n < nCount; ++n) {
        groups.push_back("Department " + std::to_string(100 + n));
    }
    return groups;
}

std::vector<SampleContact> SampleContacts(int nCount, Numbers numbers)
{
    std::mt19937 random(1);  // NOLINT: the same directory in every run
    const std::vector<std::string> groups = SampleGroups(2 + USER_GROUPS_IN_USE);
    std::vector<SampleContact> contacts;
    for (int n = 0; n < nCount; ++n) {
        contacts.push_back(Contact(random, numbers, n, groups));
    }
    std::sort(contacts.begin(), contacts.end(), [](const auto& left, const auto& right) {
        return strcasecmp(left.m_strName.c_str(), right.m_strName.c_str()) < 0;
    });
    for (int n = 0; n < BLACK_COUNT; ++n) {
        contacts[contacts.size() * static_cast<std::size_t>(n) / BLACK_COUNT].m_strGroup =
            groups[1];
    }
    SampleContact& last = contacts.back();  // for the hits that come last
    last.m_strMobile = LAST_NUMBER;
    if (numbers == Numbers::BOTH_FORMS) {
        last.m_strOffice = LAST_SHORT_NUMBER;
        last.m_strOther = LAST_LONG_NUMBER;
    }
    return contacts;
}
