// A start with limits of the host's own, and the way back after the group file was lost.

#include <cstdio>
#include <cstdlib>

#include "directory/contact_local_manager.h"

using NS_DIRECTORY::CContactLocalManager;
using NS_DIRECTORY::ContactGroupData;

namespace {

constexpr const char* OWN_GROUPS[] = {"Company", "Family", "Friend"};

CContactLocalManager* StartWithLimits()
{
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    if (pDirectory == nullptr) {
        return nullptr;
    }
    (void)pDirectory->SetMaxGroupCount(100);
    (void)pDirectory->SetMaxContactCount(2000);
    (void)pDirectory->SetMaxBlackCount(100);
    // The start used the limits of a fresh instance. Groups first, and before any change.
    const int nGroups = pDirectory->ReloadGroupXml();
    const int nContacts = pDirectory->ReloadContactXml();
    if (nGroups == NS_DIRECTORY::DIR_RET_NONE || nContacts == NS_DIRECTORY::DIR_RET_NONE) {
        std::puts("A file is missing, broken, or holds more than was taken.");
    }
    return pDirectory;
}

// Before any change of a contact: while the file still names their groups, contacts regain them.
void RestoreGroups(CContactLocalManager& directory)
{
    for (const char* pName : OWN_GROUPS) {
        ContactGroupData group;
        group.m_strDisplayName = pName;
        const int nAdded = directory.AddGroup(group);
        if (nAdded < 0 && nAdded != NS_DIRECTORY::DIR_RET_GROUP_EXIST) {
            std::printf("The group %s was refused: %d\n", pName, nAdded);
        }
    }
}

void StoreAContact(CContactLocalManager& directory)
{
    NS_DIRECTORY::ContactGeneralItemData anna;
    anna.m_strDisplayName = "Anna";
    if (directory.AddContact("Family", anna) < 0) {
        std::puts("Anna was refused.");
    }
}

void BreakTheGroupFile()
{
    std::FILE* pFile = std::fopen("config/data/contact_group_list.xml", "w");
    if (pFile != nullptr) {
        (void)std::fclose(pFile);  // empty, as after a power cut
    }
}

}  // namespace

int main()
{
    CContactLocalManager* pDirectory = StartWithLimits();
    if (pDirectory == nullptr) {
        return EXIT_FAILURE;
    }
    StoreAContact(*pDirectory);
    CContactLocalManager::ReleaseInstance();

    BreakTheGroupFile();
    pDirectory = StartWithLimits();
    std::printf("%d groups\n", pDirectory->GetCurrentGroupCount());
    RestoreGroups(*pDirectory);
    std::printf("%d groups, Anna in %s\n", pDirectory->GetCurrentGroupCount(),
                pDirectory->GetGroupRingByContact("Anna").c_str());
    CContactLocalManager::ReleaseInstance();
    return EXIT_SUCCESS;
}
