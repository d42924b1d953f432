// A host outside the project that searches. With the argument "directory" it works on the data
// folder of the delivered library; without, it touches no file. Built with WITH_NUMBERS it searches
// by number too.

#include "search/contact_search.h"

#include <cstdio>
#include <cstring>

#ifdef WITH_NUMBERS
#include "search/number_search.h"
#endif

using namespace NS_DIRECTORY;

namespace {

bool FindsOnlyMuller(int nFound, const SearchMatchData& match)
{
    return nFound == 1 && std::strcmp(match.m_pDisplayName, "Müller") == 0;
}

bool TryDirectory()
{
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    ContactGeneralItemData contact;
    contact.m_strDisplayName = "Müller";
    contact.m_strMobileNumber = "+49 555 700000";
    (void)pDirectory->AddContact("Family", contact);  // another program may have been here
    SearchMatchData match;
    CContactSearch search;
    (void)search.Refresh(*pDirectory);
    bool bFound = FindsOnlyMuller(search.FindByText("muel", SEARCH_PLAIN, &match, 1), match) &&
                  FindsOnlyMuller(search.FindByKeys("6855", SEARCH_PLAIN, &match, 1), match);
#ifdef WITH_NUMBERS
    CNumberSearch numbers;
    (void)numbers.Refresh(*pDirectory, "DE");
    bFound = bFound && FindsOnlyMuller(numbers.FindByNumber("0555/700000", &match, 1), match);
#endif
    CContactLocalManager::ReleaseInstance();
    return bFound;
}

bool TryWithoutFiles()
{
    return CContactSearch().FindByText("muel", SEARCH_PLAIN, nullptr, 0) == 0;
}

}  // namespace

int main(int nArguments, char** pArguments)
{
    const bool bDirectory = nArguments > 1 && std::strcmp(pArguments[1], "directory") == 0;
    const bool bFound = bDirectory ? TryDirectory() : TryWithoutFiles();
    (void)std::puts(bFound ? "searched" : "failed: search");
    return bFound ? 0 : 1;
}
