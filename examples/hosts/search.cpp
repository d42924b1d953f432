// Contacts while a name is typed, by letters and by the keys of a telephone; and a caller whose
// number is written in another way than the stored one.

#include <cstdio>
#include <filesystem>
#include <string>

#include "directory/contact_local_manager.h"
#include "directory/data_files.h"
#include "search/contact_search.h"
#include "search/number_search.h"

using namespace NS_DIRECTORY;

namespace {

constexpr int LINES = 3;
constexpr char COUNTRY[] = "DE";  // where the telephone stands

void Store(CContactLocalManager& directory, const char* pGroup, const char* pName,
           const char* pNumber)
{
    ContactGeneralItemData contact;
    contact.m_strDisplayName = pName;
    contact.m_strMobileNumber = pNumber;
    (void)directory.AddContact(pGroup, contact);  // a second run finds it there
}

// The text that matches, with what the user has typed in brackets.
std::string Highlighted(const SearchMatchData& match)
{
    std::string strText = match.m_pText;
    for (int n = match.m_nPlaceCount - 1; n >= 0; --n) {  // from the back: offsets stay right
        const auto nOffset = static_cast<std::size_t>(match.m_places[n].m_nOffset);
        const auto nLength = static_cast<std::size_t>(match.m_places[n].m_nLength);
        strText.insert(nOffset + nLength, "]");
        strText.insert(nOffset, "[");
    }
    return strText;
}

void ShowMatches(const char* pTyped, const SearchMatchData* pMatches, int nFound)
{
    (void)std::printf("%s: %d found\n", pTyped, nFound);
    for (int n = 0; n < nFound && n < LINES; ++n) {
        const bool bName = pMatches[n].m_eField == SEARCH_FIELD_NAME;
        (void)std::printf("  %s%s%s\n", bName ? "" : pMatches[n].m_pDisplayName, bName ? "" : ", ",
                          Highlighted(pMatches[n]).c_str());
    }
}

// After each key pressed.
void ShowByText(const CContactSearch& search, const char* pTyped)
{
    SearchMatchData matches[LINES];
    ShowMatches(pTyped, matches, search.FindByText(pTyped, SEARCH_BEST_FIRST, matches, LINES));
}

void ShowByKeys(const CContactSearch& search, const char* pKeys)
{
    SearchMatchData matches[LINES];
    ShowMatches(pKeys, matches, search.FindByKeys(pKeys, SEARCH_BEST_FIRST, matches, LINES));
}

// The number under which the caller is stored. What calls exactly comes first; then whoever has the
// same line.
std::string StoredNumber(const CContactLocalManager& directory, const CNumberSearch& numbers,
                         const char* pCaller)
{
    ContactGeneralItemData contact;
    SearchMatchData match;
    if (directory.GetContactDataByNumber(&contact, pCaller) != DIR_RET_OK &&
        numbers.FindByNumber(pCaller, &match, 1) > 0) {
        return match.m_pText;
    }
    return pCaller;
}

// From here on the directory answers everything, the ring too.
void Answer(const CContactLocalManager& directory, const CNumberSearch& numbers,
            const char* pCaller)
{
    const std::string strNumber = StoredNumber(directory, numbers, pCaller);
    const auto strName = directory.GetContactNameByPhoneNumber(strNumber.c_str());
    (void)std::printf("%s calls: %s, %s\n", pCaller,
                      strName.empty() ? "nobody we know" : strName.c_str(),
                      directory.IsBlackContactNumber(strNumber.c_str()) ? "blocked" : "it rings");
}

}  // namespace

int main()
{
    std::filesystem::create_directories(NS_DIRECTORY::DATA_DIR);
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    if (pDirectory == nullptr) {
        return 1;
    }
    Store(*pDirectory, "Company", "Anna Müller", "+49 555 700000");
    Store(*pDirectory, "Company", "Łukasz Ansorge", "200");
    Store(*pDirectory, "Company", "Σίσυφος", "0555/700001");
    Store(*pDirectory, "Blacklist", "Lotto", "+1 650 555 0100");

    CContactSearch search;
    CNumberSearch numbers;
    // Again after each edit.
    if (search.Refresh(*pDirectory) < 0 || numbers.Refresh(*pDirectory, COUNTRY) < 0) {
        return 1;
    }
    for (const char* pTyped : {"a", "an", "an mu", "lukasz", "555 70"}) {
        ShowByText(search, pTyped);
    }
    for (const char* pKeys : {"26", "2662068", "74"}) {
        ShowByKeys(search, pKeys);
    }
    for (const char* pCaller :
         {"0555700000", "+49555700001", "0016505550100", "200", "0555800000"}) {
        Answer(*pDirectory, numbers, pCaller);
    }
    CContactLocalManager::ReleaseInstance();
    return 0;
}
