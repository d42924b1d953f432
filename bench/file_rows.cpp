// Load and save beside bare calls of the XML library, at several sizes.

#include <algorithm>
#include <memory>
#include <random>

#include "bench/bare_xml.h"
#include "bench/directory.h"
#include "bench/row.h"

using NS_DIRECTORY::CContactLocalManager;

namespace {

constexpr double LOAD_AIM = 1.5;
constexpr double SAVE_AIM = 1.05;
constexpr char PHOTO_OF_NOBODY[] = "/config/photos/nobody.png";

Pair FirstLoad()
{
    StartDirectory(SampleContacts(DIRECTORY_COUNT));
    CContactLocalManager::ReleaseInstance();
    return {[] {
                (void)CContactLocalManager::GetInstance();
                CContactLocalManager::ReleaseInstance();
            },
            [] {
                BareLoadGroups(GROUP_FILE);
                BareLoadContacts(CONTACT_FILE);
            }};
}

Pair Reload(int nContacts)
{
    auto& directory = StartDirectory(SampleContacts(nContacts));
    return {[&directory] { (void)directory.ReloadContactXml(); },
            [] { BareLoadContacts(CONTACT_FILE); }};
}

Pair ReloadInAnyOrder(int nContacts)
{
    auto contacts = SampleContacts(nContacts);
    auto& directory = StartDirectory(contacts);
    std::shuffle(contacts.begin(), contacts.end(), std::mt19937(1));  // NOLINT: in every run alike
    BareSaveContacts(CONTACT_FILE, contacts);
    return {[&directory] { (void)directory.ReloadContactXml(); },
            [] { BareLoadContacts(CONTACT_FILE); }};
}

// Setting a photo that nobody has writes the file and changes nothing.
Pair Save(int nContacts)
{
    const auto pContacts = std::make_shared<std::vector<SampleContact>>(SampleContacts(nContacts));
    auto& directory = StartDirectory(*pContacts);
    (void)directory.SetDefaultPhoto(PHOTO_OF_NOBODY);
    BareSaveContacts(BARE_CONTACT_FILE, *pContacts);
    Require(FileText(CONTACT_FILE) == FileText(BARE_CONTACT_FILE), "the same file on both sides");
    return {[&directory] { (void)directory.SetDefaultPhoto(PHOTO_OF_NOBODY); },
            [pContacts] { BareSaveContacts(BARE_CONTACT_FILE, *pContacts); }};
}

std::string Named(const char* pWork, int nContacts)
{
    return std::string(pWork) + ", " + std::to_string(nContacts) + " contacts / bare XML calls";
}

}  // namespace

void AppendFileRows(std::vector<Row>& rows)
{
    rows.push_back(
        {Named("First load of both files", DIRECTORY_COUNT), LOAD_AIM, LOAD_AIM, 200, FirstLoad});
    for (const auto& [nContacts, nPairs] :
         {std::pair{DIRECTORY_COUNT, 200}, {10000, 60}, {100000, 15}}) {
        rows.push_back({Named("Reload", nContacts), LOAD_AIM, NO_AIM, nPairs,
                        [n = nContacts] { return Reload(n); }, "load", nContacts});
        rows.push_back({Named("Save", nContacts), NO_AIM, SAVE_AIM, nPairs,
                        [n = nContacts] { return Save(n); }, "save", nContacts});
    }
    rows.push_back({Named("Reload, any order", DIRECTORY_COUNT), NO_AIM, NO_AIM, 50,
                    [] { return ReloadInAnyOrder(DIRECTORY_COUNT); }});
    rows.push_back({Named("Reload, any order", 10000), NO_AIM, NO_AIM, 3,
                    [] { return ReloadInAnyOrder(10000); }});
}
