// A whole host: it starts the directory, stores a contact and answers a call.

#include <clocale>
#include <cstdio>
#include <cstdlib>

#include "directory/contact_local_manager.h"

using NS_DIRECTORY::CContactLocalManager;

int main()
{
    (void)std::setlocale(LC_ALL, "C.UTF-8");  // before the first GetInstance(): it orders the lists
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    if (pDirectory == nullptr) {
        return EXIT_FAILURE;
    }

    NS_DIRECTORY::ContactGeneralItemData anna;
    anna.m_strDisplayName = "Anna";
    anna.m_strMobileNumber = "+15550200";
    const int nAdded = pDirectory->AddContact("Family", anna);
    if (nAdded < 0 && nAdded != NS_DIRECTORY::DIR_RET_CONTACT_EXIST) {
        std::fprintf(stderr, "The contact was refused: %d\n", nAdded);
    }

    const char* pCaller = "+15550200";
    std::printf("%s, %s\n", pDirectory->GetContactNameByPhoneNumber(pCaller).c_str(),
                pDirectory->IsBlackContactNumber(pCaller) ? "blocked" : "let through");
    CContactLocalManager::ReleaseInstance();
    return EXIT_SUCCESS;
}
