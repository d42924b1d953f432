// A host whose edits reach the disk or do not happen: the start, a guarded edit, and what each
// answer asks of the host.

#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>

#include "directory/contact_local_manager.h"
#include "safekeeping/safe_copy.h"

using NS_DIRECTORY::CContactLocalManager;
using NS_DIRECTORY::CSafeCopy;

namespace {

constexpr char COPY_FOLDER[] = "phone_book_copy";  // on a device, a folder on its flash

// The order matters: put back first, then read, then copy what was read.
CContactLocalManager* Start(CSafeCopy& safe)
{
    switch (safe.Restore()) {
        case NS_DIRECTORY::SAFE_RET_NO_COPY:
            std::puts("A file is broken and there is no copy: the directory reads what is left.");
            break;
        case NS_DIRECTORY::SAFE_RET_NOT_UNDONE:
            std::puts("The copy cannot be put back now: mount the storage, make room, try again.");
            return nullptr;
        default:  // put back, or nothing to do
            break;
    }
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    if (pDirectory != nullptr && safe.Keep() < 0) {
        std::puts("There is no room for a copy: edits will be refused.");
    }
    return pDirectory;
}

// Two calls that belong together are one edit.
int MoveToNewGroup(CContactLocalManager& directory)
{
    NS_DIRECTORY::ContactGroupData group;
    group.m_strDisplayName = "Choir";
    const int nAdded = directory.AddGroup(group);
    return nAdded < 0 ? nAdded : directory.MoveContactToGroup("Anna", "Choir");
}

void Report(int nResult)
{
    switch (nResult) {
        case NS_DIRECTORY::SAFE_RET_NO_COPY:
            std::puts("Nothing was tried: there is no room for a copy.");
            break;
        case NS_DIRECTORY::SAFE_RET_NOT_WRITTEN:
            std::puts("It did not reach the disk. Everything is as before.");
            break;
        case NS_DIRECTORY::SAFE_RET_NOT_UNDONE:
            std::puts("It reached the disk in part. The next edit or start takes it back.");
            break;
        default:
            std::puts(nResult < 0 ? "It was refused." : "It is done and lies on the disk.");
            break;
    }
}

}  // namespace

int main()
{
    (void)mkdir(COPY_FOLDER, S_IRWXU);  // it may be there
    CSafeCopy safe(COPY_FOLDER);
    if (Start(safe) == nullptr) {
        return EXIT_FAILURE;
    }
    NS_DIRECTORY::ContactGeneralItemData anna;
    anna.m_strDisplayName = "Anna";
    Report(safe.Edit([&](auto& directory) { return directory.AddContact("Family", anna); }));
    Report(safe.Edit(MoveToNewGroup));
    Report(safe.Edit(MoveToNewGroup));
    CContactLocalManager::ReleaseInstance();
    return EXIT_SUCCESS;
}
