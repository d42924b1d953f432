// Blocking callers and letting them through again: one contact, several at once, and a number of
// no contact.

#include <cstdio>
#include <filesystem>

#include "directory/contact_local_manager.h"
#include "directory/data_files.h"

using namespace NS_DIRECTORY;

namespace {

void Store(CContactLocalManager& directory, const char* pName, const char* pNumber)
{
    ContactGeneralItemData contact;
    contact.m_strDisplayName = pName;
    contact.m_strMobileNumber = pNumber;
    (void)directory.AddContact("Friend", contact);  // a second run finds it there
}

void ShowVerdicts(const CContactLocalManager& directory, const char* pMoment)
{
    (void)std::printf("%s:", pMoment);
    for (const char* pNumber : {"201", "202", "203", "666"}) {
        (void)std::printf(" %s %s", pNumber,
                          directory.IsBlackContactNumber(pNumber) ? "blocked" : "rings");
    }
    (void)std::printf("; slots used: %d of %d\n", directory.GetCurrentBlackCount(),
                      directory.GetMaxBlackCount());
}

// All or none: a list that does not fit moves nobody.
void BlockAll(CContactLocalManager& directory, QZList<qz::basic_string<char>>& listName)
{
    qz::basic_string<char> strBlacklist;
    directory.GetBlacklistGroupName(strBlacklist);
    const int nResult = directory.MoveListToGroup(listName, strBlacklist);
    if (nResult == DIR_RET_BLACK_FULL) {
        (void)std::puts("The blacklist has no room for all of them.");
    }
}

void Run(CContactLocalManager& directory)
{
    Store(directory, "Anna", "201");
    Store(directory, "Bob", "202");
    Store(directory, "Carl", "203");
    ShowVerdicts(directory, "at first");

    if (directory.Local2Black("Bob") == DIR_RET_OK) {
        ShowVerdicts(directory, "Bob blocked");
    }
    if (directory.Local2Black("Bob") == DIR_RET_ALREADY_BLACK) {
        (void)std::puts("Bob is blocked already.");
    }
    // Back into "All Contacts", whichever group he came from; the host moves him on.
    if (directory.Black2Local("Bob") == DIR_RET_OK) {
        (void)directory.MoveContactToGroup("Bob", "Friend");
        ShowVerdicts(directory, "Bob back");
    }

    QZList<qz::basic_string<char>> listName;
    listName.push_back("Anna");
    listName.push_back("Carl");
    const int nPrevious = directory.SetMaxBlackCount(1);
    BlockAll(directory, listName);
    (void)directory.SetMaxBlackCount(nPrevious);
    BlockAll(directory, listName);
    ShowVerdicts(directory, "two at once");

    // The blacklist holds contacts, so an unknown caller becomes one.
    ContactGeneralItemData nuisance;
    nuisance.m_strDisplayName = "Blocked 666";
    nuisance.m_strOtherNumber = "666";
    (void)directory.AddBlackContact(nuisance);
    ShowVerdicts(directory, "a stranger too");
}

}  // namespace

int main()
{
    std::filesystem::create_directories(NS_DIRECTORY::DATA_DIR);
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    if (pDirectory == nullptr) {
        return 1;
    }
    Run(*pDirectory);
    CContactLocalManager::ReleaseInstance();
    return 0;
}
