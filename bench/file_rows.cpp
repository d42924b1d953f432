// Load and save beside bare calls of the XML library, at several sizes.

#include <algorithm>
#include <memory>
#include <random>

#include "bench/bare_xml.h"
#include "bench/directory.h"
#include "bench/row.h"

using NS_DIRECTORY::CContactLocalManager;

namespace {

constexpr double LOAD_AIM = 1.2;
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

using Contacts = std::vector<SampleContact>;

void Shuffle(Contacts& contacts)
{
    std::shuffle(contacts.begin(), contacts.end(), std::mt19937(1));  // NOLINT: in every run alike
}

void Reverse(Contacts& contacts)
{
    std::reverse(contacts.begin(), contacts.end());
}

void PutFirstLast(Contacts& contacts)
{
    std::rotate(contacts.begin(), contacts.begin() + 1, contacts.end());
}

void NameAllAlike(Contacts& contacts)
{
    for (SampleContact& contact : contacts) {
        contact.m_strName = contacts.front().m_strName;
    }
}

struct FileOrder
{
    const char* m_pText;
    void (*m_arrange)(Contacts& contacts);
    bool m_bWhole;    // the load takes every contact
    bool m_bCharted;  // and instructions are counted
};

constexpr FileOrder FILE_ORDERS[] = {{"any order", Shuffle, true, true},
                                     {"reversed", Reverse, true, false},
                                     {"the first stands last", PutFirstLast, true, false},
                                     {"all names equal", NameAllAlike, false, false}};

Pair ReloadOutOfOrder(int nContacts, const FileOrder& order)
{
    auto contacts = SampleContacts(nContacts);
    auto& directory = StartDirectory(contacts);
    order.m_arrange(contacts);
    BareSaveContacts(CONTACT_FILE, contacts);
    Require((directory.ReloadContactXml() > 0) == order.m_bWhole, "a load of all contacts");
    return {[&directory] { (void)directory.ReloadContactXml(); },
            [] { BareLoadContacts(CONTACT_FILE); }};
}

// Setting a photo that nobody has writes the file and changes nothing.
Pair Save(int nContacts)
{
    const auto pContacts = std::make_shared<Contacts>(SampleContacts(nContacts));
    auto& directory = StartDirectory(*pContacts);
    (void)directory.SetDefaultPhoto(PHOTO_OF_NOBODY);
    BareSaveContacts(BARE_CONTACT_FILE, *pContacts);
    Require(FileText(CONTACT_FILE) == FileText(BARE_CONTACT_FILE), "the same file on both sides");
    return {[&directory] { (void)directory.SetDefaultPhoto(PHOTO_OF_NOBODY); },
            [pContacts] { BareSaveContacts(BARE_CONTACT_FILE, *pContacts); }};
}

struct Size
{
    int m_nContacts;
    int m_nPairs;
    double m_dAnyOrderAim;
};

constexpr Size SIZES[] = {{DIRECTORY_COUNT, 200, 2.0}, {10000, 60, 2.0}, {100000, 15, 3.5}};

std::string Named(const std::string& strWork, int nContacts)
{
    return strWork + ", " + std::to_string(nContacts) + " contacts / bare XML calls";
}

}  // namespace

void AppendFileRows(std::vector<Row>& rows)
{
    rows.push_back(
        {Named("First load of both files", DIRECTORY_COUNT), LOAD_AIM, LOAD_AIM, 200, FirstLoad});
    for (const auto& [nContacts, nPairs, dAim] : SIZES) {
        rows.push_back({Named("Reload", nContacts), LOAD_AIM, LOAD_AIM, nPairs,
                        [n = nContacts] { return Reload(n); }, "load", nContacts});
        rows.push_back({Named("Save", nContacts), NO_AIM, SAVE_AIM, nPairs,
                        [n = nContacts] { return Save(n); }, "save", nContacts});
    }
    for (const FileOrder& order : FILE_ORDERS) {
        for (const auto& [nContacts, nPairs, dAim] : SIZES) {
            rows.push_back({Named(std::string("Reload, ") + order.m_pText, nContacts), dAim,
                            order.m_bCharted ? dAim : NO_AIM, nPairs / 4,
                            [n = nContacts, order] { return ReloadOutOfOrder(n, order); },
                            order.m_bCharted ? "load_any_order" : "", nContacts});
        }
    }
}
