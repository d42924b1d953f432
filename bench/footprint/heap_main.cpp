// The heap of a full directory: 50 groups, 1000 ordinary and 30 blacklisted contacts. It works in
// config/data/ of the working directory, which it makes.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "bench/heap_count.h"
#include "directory/contact_local_manager.h"
#include "platform/device_services.h"

using NS_DIRECTORY::CContactLocalManager;

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

namespace {

constexpr int GROUPS = 50;
constexpr int CONTACTS = 1030;
constexpr int BLACK_CONTACTS = 30;

void WriteGroups()
{
    std::ofstream file("config/data/contact_group_list.xml");
    file << "<root_group>";
    for (int n = 2; n < GROUPS; ++n) {
        file << "<group display_name=\"Group " << n << "\" ring=\"\" read_only=\"0\"/>";
    }
    file << "</root_group>";
}

void WriteContacts(const char* pRing)
{
    std::ofstream file("config/data/contact_list.xml");
    file << "<root_contact>";
    for (int n = 0; n < CONTACTS; ++n) {
        file << "<contact display_name=\"Name " << 1000 + n << "\" office_number=\"0301234"
             << 1000 + n << "\" mobile_number=\"0171234" << 1000 + n << "\" ring=\"" << pRing
             << "\" group_id_name=\"" << (n < BLACK_CONTACTS ? "Blacklist" : "Group 7") << "\"/>";
    }
    file << "</root_contact>";
}

void Report(const char* pName, const char* pRing)
{
    WriteContacts(pRing);
    const HeapCount before = g_heap;
    g_heap.m_nPeakBytes = g_heap.m_nBytes;
    const CContactLocalManager& directory = *CContactLocalManager::GetInstance();
    const int nContacts = directory.GetCurrentContactCount() + directory.GetCurrentBlackCount();
    if (nContacts != CONTACTS || directory.GetCurrentGroupCount() != GROUPS) {
        std::fputs("The directory did not fill.\n", stderr);
        std::exit(EXIT_FAILURE);
    }
    std::printf("  %-28s %6ld blocks %8ld bytes, %8ld while it loads\n", pName,
                g_heap.m_nBlocks - before.m_nBlocks, g_heap.m_nBytes - before.m_nBytes,
                g_heap.m_nPeakBytes - before.m_nBytes);
    CContactLocalManager::ReleaseInstance();
}

}  // namespace

int main()
{
    std::filesystem::create_directories("config/data");
    WriteGroups();
    Report("heap, short texts", "");
    Report("heap, one long text each", "/config/rings/a_ring_of_its_own.wav");
    return EXIT_SUCCESS;
}
