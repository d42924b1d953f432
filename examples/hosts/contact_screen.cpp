// A contact screen of four lines: pages through a group, and back, without ever holding more than
// one page.

#include <cstdio>
#include <filesystem>

#include "directory/contact_local_manager.h"
#include "directory/data_files.h"

using namespace NS_DIRECTORY;

namespace {

constexpr int LINES = 4;

void Store(CContactLocalManager& directory)
{
    const char* const NAMES[] = {"Zoë",  "Anna", "Émile", "Bob", "Çelik",
                                 "Dora", "Ivan", "Ōta",   "Ben"};
    for (const char* pName : NAMES) {
        ContactGeneralItemData contact;
        contact.m_strDisplayName = pName;
        contact.m_strOfficeNumber = "100";
        (void)directory.AddContact("Company", contact);  // a second run finds them all there
    }
}

// Shows the page that starts at nFrom and returns how many contacts the group has.
int Show(const CContactLocalManager& directory, int nFrom)
{
    ContactGeneralItemListData page;  // a fresh one each time: entries are appended
    page.m_nIndexFrom = nFrom;
    page.m_nCountToGet = LINES;
    if (directory.GetContactList(&page, "Company") != DIR_RET_OK) {
        (void)std::puts("the group is gone");
        return 0;
    }
    (void)std::printf("Company, %d to %d of %d\n", nFrom + 1,
                      nFrom + static_cast<int>(page.m_listData.size()), page.m_nTotalCount);
    for (auto pos = page.m_listData.begin(); pos != page.m_listData.end(); pos = pos->next) {
        (void)std::printf("  %s  %s\n", pos->value.m_strDisplayName.c_str(),
                          pos->value.m_strOfficeNumber.c_str());
    }
    return page.m_nTotalCount;
}

}  // namespace

int main()
{
    std::filesystem::create_directories(NS_DIRECTORY::DATA_DIR);
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    if (pDirectory == nullptr) {
        return 1;
    }
    Store(*pDirectory);
    int nFrom = 0;
    while (nFrom + LINES < Show(*pDirectory, nFrom)) {
        nFrom += LINES;  // the key "down"
    }
    (void)Show(*pDirectory, nFrom - LINES);  // the key "up"
    CContactLocalManager::ReleaseInstance();
    return 0;
}
