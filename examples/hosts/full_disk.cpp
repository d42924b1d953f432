// A host that lives through a full disk: every edit goes through the safe copy, and what does not
// fit is reported to the user and costs nothing. The disk is played by a limit on the size of
// files.

#include <sys/resource.h>

#include <csignal>
#include <cstdio>
#include <filesystem>

#include "directory/contact_local_manager.h"
#include "directory/data_files.h"
#include "safekeeping/safe_copy.h"

using namespace NS_DIRECTORY;

namespace {

constexpr char COPY_FOLDER[] = "copies";

// The present size of the contact file, and room for so many bytes more.
void LimitDisk(rlim_t nMore)
{
    (void)std::signal(SIGXFSZ, SIG_IGN);  // the write is to fail, not to end the process
    const rlimit limit{std::filesystem::file_size(CONTACT_FILE_PATH) + nMore, RLIM_INFINITY};
    (void)setrlimit(RLIMIT_FSIZE, &limit);
}

const char* MeaningOf(int nResult)
{
    switch (nResult) {
        case SAFE_RET_NO_COPY:
            return "no room for a copy, so nothing was tried";
        case SAFE_RET_NOT_WRITTEN:
            return "it did not fit, and all is as before";
        case SAFE_RET_NOT_UNDONE:
            return "a part of it was written; the next edit or start puts the copy back";
        default:
            return nResult < 0 ? "refused" : "done, and on the disk";
    }
}

template <class TEdit>
void Try(CSafeCopy& safe, const char* pWhat, TEdit edit)
{
    (void)std::printf("%s: %s\n", pWhat, MeaningOf(safe.Edit(edit)));
}

int AddContact(CContactLocalManager& directory, const char* pName)
{
    ContactGeneralItemData contact;
    contact.m_strDisplayName = pName;
    return directory.AddContact("Family", contact);
}

// Several calls are one edit: all of them are done, or none.
int MoveHouse(CContactLocalManager& directory)
{
    ContactGroupData group;
    group.m_strDisplayName = "All who live in the new house by the lake, and their guests";
    const int nRenamed = directory.UpdateGroupData("Family", group);
    return nRenamed < 0 ? nRenamed : AddContact(directory, "Eve");
}

// False if there is no directory.
bool Start(CSafeCopy& safe)
{
    (void)std::printf("restored: %d\n", safe.Restore());  // before the directory reads its files
    return CContactLocalManager::GetInstance() != nullptr && safe.Keep() > 0;
}

void Show(const char* pWhen)
{
    const CContactLocalManager& directory = *CContactLocalManager::GetInstance();
    (void)std::printf("%s: %d contacts, Anna in \"%s\"\n", pWhen,
                      directory.GetCurrentContactCount(),
                      directory.GetGroupRingByContact("Anna").c_str());
}

}  // namespace

int main()
{
    std::filesystem::create_directories(DATA_DIR);
    std::filesystem::create_directories(COPY_FOLDER);
    CSafeCopy safe(COPY_FOLDER);
    if (!Start(safe)) {
        return 1;
    }
    Try(safe, "add Anna", [](auto& directory) { return AddContact(directory, "Anna"); });
    Try(safe, "add Bob", [](auto& directory) { return AddContact(directory, "Bob"); });
    LimitDisk(20);
    Try(safe, "add Carl", [](auto& directory) { return AddContact(directory, "Carl"); });
    Try(safe, "move house", MoveHouse);
    Show("on the full disk");
    Try(safe, "remove Bob", [](auto& directory) { return directory.RemoveContact("Bob"); });
    Try(safe, "add Carl", [](auto& directory) { return AddContact(directory, "Carl"); });
    CContactLocalManager::ReleaseInstance();
    if (!Start(safe)) {
        return 1;
    }
    Show("after a restart");
    CContactLocalManager::ReleaseInstance();
    return 0;
}
