// An edit of groups after the disk was full, by a host that does without the companion in
// safekeeping/. A limit on the size of files stands in for the full disk.

#include <sys/resource.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "directory/contact_local_manager.h"
#include "directory/data_files.h"

using NS_DIRECTORY::CContactLocalManager;
using NS_DIRECTORY::ContactGeneralItemData;
using NS_DIRECTORY::ContactGroupData;

namespace {

constexpr const char* NAMES[] = {"Anna", "Bob", "Carl", "Dora", "Emil", "Fay", "Gus", "Hal"};

// Also false if the file could not be written now.
bool EndsWith(const char* pPath, const char* pEnd)
{
    std::FILE* pFile = std::fopen(pPath, "r+");
    if (pFile == nullptr) {
        return false;
    }
    char arrEnd[32] = "";
    const bool bRead = std::fseek(pFile, -static_cast<long>(std::strlen(pEnd)), SEEK_END) == 0 &&
                       std::fread(arrEnd, 1, sizeof(arrEnd) - 1, pFile) != 0;
    (void)std::fclose(pFile);  // nothing was written
    return bRead && std::strcmp(arrEnd, pEnd) == 0;
}

// AddGroup reads both files. So first they must hold all that is in memory.
bool AreFilesUpToDate(CContactLocalManager& directory)
{
    (void)directory.SetDefaultPhoto("a path that no contact uses");  // writes the contact file
    return EndsWith(NS_DIRECTORY::GROUP_FILE_PATH, "</root_group>\n") &&
           (EndsWith(NS_DIRECTORY::CONTACT_FILE_PATH, "</root_contact>\n") ||
            EndsWith(NS_DIRECTORY::CONTACT_FILE_PATH, "<root_contact />\n"));
}

int CountContacts(const CContactLocalManager& directory)
{
    return directory.GetCurrentContactCount() + directory.GetCurrentBlackCount();
}

// False if the group is not there, or if contacts are gone.
bool AddGroupWithCare(CContactLocalManager& directory, const ContactGroupData& group)
{
    if (!AreFilesUpToDate(directory)) {
        return false;
    }
    const int nContacts = CountContacts(directory);
    if (directory.AddGroup(group) < 0) {
        return false;
    }
    if (directory.GetCurrentGroupCount() == 0 || CountContacts(directory) != nContacts) {
        (void)directory.ReloadGroupXml();  // if a file only could not be read, this helps
        (void)directory.ReloadContactXml();
    }
    return directory.IsGroupExist(group.m_strDisplayName) && CountContacts(directory) == nContacts;
}

void LimitFiles(rlim_t nBytes)
{
    (void)std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    (void)getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = nBytes;
    (void)setrlimit(RLIMIT_FSIZE, &limit);
}

}  // namespace

int main()
{
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    if (pDirectory == nullptr) {
        return EXIT_FAILURE;
    }
    LimitFiles(1000);  // enough for the groups, and for some of the contacts
    for (const char* pName : NAMES) {
        ContactGeneralItemData contact;
        contact.m_strDisplayName = pName;
        (void)pDirectory->AddContact("Family", contact);  // not negative, full disk or not
    }
    ContactGroupData choir;
    choir.m_strDisplayName = "Choir";
    std::printf("Full disk: %s\n", AddGroupWithCare(*pDirectory, choir) ? "added" : "not added");
    LimitFiles(RLIM_INFINITY);
    std::printf("Space again: %s\n", AddGroupWithCare(*pDirectory, choir) ? "added" : "not added");
    CContactLocalManager::ReleaseInstance();

    pDirectory = CContactLocalManager::GetInstance();
    std::printf("After a restart: %d groups, %d contacts\n", pDirectory->GetCurrentGroupCount(),
                CountContacts(*pDirectory));
    CContactLocalManager::ReleaseInstance();
    return EXIT_SUCCESS;
}
