// The least a host does: start, one lookup, stop.
//   minimal_host [NUMBER]

#include <cstdio>
#include <filesystem>

#include "directory/contact_local_manager.h"
#include "directory/data_files.h"

using NS_DIRECTORY::CContactLocalManager;

int main(int nArguments, char** pArguments)
{
    // The host makes the folder; the library makes the group file in it.
    std::filesystem::create_directories(NS_DIRECTORY::DATA_DIR);

    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    if (pDirectory == nullptr) {
        (void)std::puts("no memory");
        return 1;
    }
    const char* pNumber = nArguments > 1 ? pArguments[1] : "+49 30 200";
    const qz::basic_string<char> strName = pDirectory->GetContactNameByPhoneNumber(pNumber);
    (void)std::printf("%s calls\n", strName.empty() ? pNumber : strName.c_str());

    CContactLocalManager::ReleaseInstance();
    return 0;
}
