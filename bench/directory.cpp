#include "bench/directory.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "bench/bare_xml.h"
#include "platform/device_services.h"

using NS_DIRECTORY::CContactLocalManager;

// The device of the benchmarks: a colour screen, so that every attribute takes part.
int IsColorfulScreen()
{
    return 1;
}
int ZMK_MiscHelper::pathFileExist(const char* path)
{
    return std::filesystem::exists(path) ? 1 : 0;
}
int configParser_GetConfigInt(const char*, ZMK_RegistryHelper::CONFIG_LEVEL_TYPE)
{
    return 1;
}

CWorkFolder::CWorkFolder() : m_pathBefore(std::filesystem::current_path())
{
    std::string strFolder = std::filesystem::temp_directory_path() / "nsdirectory-bench-XXXXXX";
    Require(mkdtemp(strFolder.data()) != nullptr, "a working directory");
    m_pathFolder = strFolder;
    std::filesystem::current_path(m_pathFolder);
    std::filesystem::create_directories("config/data");
}

CWorkFolder::~CWorkFolder()
{
    CContactLocalManager::ReleaseInstance();
    std::error_code error;  // nothing is left to do about a folder that stays
    std::filesystem::current_path(m_pathBefore, error);
    std::filesystem::remove_all(m_pathFolder, error);
}

CContactLocalManager& StartDirectory(const std::vector<SampleContact>& contacts, int nGroups)
{
    CContactLocalManager::ReleaseInstance();
    BareSaveGroups(GROUP_FILE, SampleGroups(nGroups));
    BareSaveContacts(CONTACT_FILE, contacts);
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    const int nCount = static_cast<int>(contacts.size());
    if (nCount > pDirectory->GetMaxContactCount() + BLACK_COUNT) {
        pDirectory->SetMaxContactCount(nCount);
        pDirectory->ReloadContactXml();
    }
    Require(pDirectory->GetCurrentGroupCount() == nGroups, "a start with all groups");
    Require(pDirectory->GetCurrentContactCount() + pDirectory->GetCurrentBlackCount() == nCount,
            "a start with all contacts");
    return *pDirectory;
}

NS_DIRECTORY::ContactGeneralItemData BoundaryRecord(const SampleContact& contact)
{
    return {contact.m_strName.c_str(),   contact.m_strGroup.c_str(),
            contact.m_strOffice.c_str(), contact.m_strMobile.c_str(),
            contact.m_strOther.c_str(),  contact.m_strPhoto.c_str(),
            contact.m_strRing.c_str(),   contact.m_nLine,
            contact.m_nSelectedPhoto};
}

std::string FileText(const char* pPath)
{
    std::ostringstream text;
    text << std::ifstream(pPath, std::ios::binary).rdbuf();
    return text.str();
}

void Require(bool bHolds, const char* pWhat)
{
    if (!bHolds) {
        std::fprintf(stderr, "bench: this machine or this build does not give %s\n", pWhat);
        std::exit(EXIT_FAILURE);
    }
}
