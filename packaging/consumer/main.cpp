// A host outside the project, built against an installation. With the argument "directory" it
// works on the data folder of the delivered library; without, it touches no file.

#include <cstdio>
#include <cstring>

#include "directory/contact_local_manager.h"
#include "platform/device_services.h"

using namespace NS_DIRECTORY;

namespace {

int Fail(const char* pWhat)
{
    (void)std::printf("failed: %s\n", pWhat);
    return 1;
}

int TryWithoutFiles()
{
    QZList<qz::basic_string<char>> listName;
    listName.push_back(commonAPI_StringConvert("anna", STRING_CONVERT_TO_UPPER));
    CRIdGenerator generator;
    (void)generator.SetBegin(GROUP_ID_BLACKLIST);
    if (!(listName.begin()->value == "ANNA") || generator.GenId() != GROUP_ID_BLACKLIST + 1) {
        return Fail("texts, lists and ids");
    }
    (void)std::printf("no file touched; screen %d\n", IsColorfulScreen());
    return 0;
}

int TryDirectory()
{
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    ContactGeneralItemData contact;
    contact.m_strDisplayName = "Anna";
    contact.m_strMobileNumber = "200";
    if (pDirectory->AddContact("Family", contact) < 0) {
        return Fail("add");
    }
    CContactLocalManager::ReleaseInstance();
    // A fresh instance knows only what reached the file.
    pDirectory = CContactLocalManager::GetInstance();
    if (!(pDirectory->GetContactNameByPhoneNumber("200") == "Anna")) {
        return Fail("lookup");
    }
    (void)std::printf("200 is Anna, one of %d\n", pDirectory->GetCurrentContactCount());
    CContactLocalManager::ReleaseInstance();
    return 0;
}

}  // namespace

int main(int nArguments, char** pArguments)
{
    const bool bDirectory = nArguments > 1 && std::strcmp(pArguments[1], "directory") == 0;
    return bDirectory ? TryDirectory() : TryWithoutFiles();
}
