// A host outside the project that edits under the guard of the companion. With the argument
// "directory" it works on the data folder of the delivered library; without, it touches no file.

#include <sys/stat.h>

#include <cstdio>
#include <cstring>

#include "directory/contact_local_manager.h"
#include "safekeeping/safe_copy.h"

using namespace NS_DIRECTORY;

int main(int nArguments, char** pArguments)
{
    CSafeCopy safe("/config/copies");
    if (nArguments < 2 || std::strcmp(pArguments[1], "directory") != 0) {
        (void)std::printf("no file touched\n");
        return 0;
    }
    (void)mkdir("/config/copies", S_IRWXU);  // it must exist
    const int nRestored = safe.Restore();
    const int nAdded = safe.Edit([](CContactLocalManager& directory) {
        ContactGeneralItemData contact;
        contact.m_strDisplayName = "Dora";
        return directory.AddContact("Family", contact);
    });
    const int nKept = safe.Keep();
    CContactLocalManager::ReleaseInstance();
    (void)std::printf("restored %d, added %d, kept %d\n", nRestored, nAdded, nKept);
    return nRestored == 0 && nAdded >= 0 && nKept == 1 ? 0 : 1;
}
