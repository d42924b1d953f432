// What the directory takes on a device beside its code: the heap of a full directory, and what each
// kind of call takes while it runs.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <pugixml.hpp>
#include <random>

#include "bench/bare_xml.h"
#include "bench/directory.h"
#include "bench/footprint/call_cost.h"
#include "bench/heap_count.h"

using NS_DIRECTORY::CContactLocalManager;
using Contacts = std::vector<SampleContact>;
using String = qz::basic_string<char>;
using NameList = QZList<String>;

namespace {

constexpr int GROUPS = 50;
constexpr int CONTACTS = 1030;
constexpr char GROUP[] = "Department 110";

// -- A full directory -----------------------------------------------------------------------------

void WriteGroups()
{
    std::ofstream file(GROUP_FILE);
    file << "<root_group>";
    for (int n = 2; n < GROUPS; ++n) {
        file << "<group display_name=\"Group " << n << "\" ring=\"\" read_only=\"0\"/>";
    }
    file << "</root_group>";
}

void WriteContacts(const char* pRing)
{
    std::ofstream file(CONTACT_FILE);
    file << "<root_contact>";
    for (int n = 0; n < CONTACTS; ++n) {
        file << "<contact display_name=\"Name " << 1000 + n << "\" office_number=\"0301234"
             << 1000 + n << "\" mobile_number=\"0171234" << 1000 + n << "\" ring=\"" << pRing
             << "\" group_id_name=\"" << (n < BLACK_COUNT ? "Blacklist" : "Group 7") << "\"/>";
    }
    file << "</root_contact>";
}

void ReportFullDirectory(const char* pName, const char* pRing)
{
    WriteGroups();
    WriteContacts(pRing);
    const HeapCount before = g_heap;
    g_heap.m_nPeakBytes = g_heap.m_nBytes;
    const CContactLocalManager& directory = *CContactLocalManager::GetInstance();
    const int nContacts = directory.GetCurrentContactCount() + directory.GetCurrentBlackCount();
    Require(nContacts == CONTACTS && directory.GetCurrentGroupCount() == GROUPS,
            "a full directory");
    std::printf("  %-28s %6ld blocks %8ld bytes, %8ld while it loads\n", pName,
                g_heap.m_nBlocks - before.m_nBlocks, g_heap.m_nBytes - before.m_nBytes,
                g_heap.m_nPeakBytes - before.m_nBytes);
    CContactLocalManager::ReleaseInstance();
}

// -- Calls, on the directory of the benchmarks ----------------------------------------------------

CContactLocalManager& Directory()
{
    return *CContactLocalManager::GetInstance();
}

// Both files and the directory as at first, whatever the call before has done.
class CStart
{
  public:
    explicit CStart(const Contacts& contacts)
    {
        (void)StartDirectory(contacts);
        m_strGroups = FileText(GROUP_FILE);
        m_strContacts = FileText(CONTACT_FILE);
    }

    void operator()() const
    {
        std::ofstream(GROUP_FILE, std::ios::binary) << m_strGroups;
        std::ofstream(CONTACT_FILE, std::ios::binary) << m_strContacts;
        Require(Directory().ReloadGroupXml() > 0 && Directory().ReloadContactXml() > 0,
                "a start over");
    }

  private:
    std::string m_strGroups;
    std::string m_strContacts;
};

// The bare calls of the XML library that a call cannot do without.
enum class Bare
{
    NONE,
    LOAD,
    SAVE,
    BOTH  // one after the other: the larger counts
};

struct Call
{
    const char* m_pName;
    Bare m_bare;
    Step m_call;
};

void ReadBare()
{
    pugi::xml_document document;
    Require(document.load_file(CONTACT_FILE), "a contact file");
}

void ReloadContacts()
{
    (void)Directory().ReloadContactXml();
}

std::vector<Call> Reads()
{
    return {{"GetContactNameByPhoneNumber", Bare::NONE,
             [] { (void)Directory().GetContactNameByPhoneNumber(LAST_NUMBER); }},
            {"GetContactListById, a page of 20", Bare::NONE,
             [] {
                 NS_DIRECTORY::ContactGeneralItemListData page;
                 page.m_nCountToGet = 20;
                 (void)Directory().GetContactListById(&page, NS_DIRECTORY::GROUP_ID_ALL);
             }},
            {"ReloadContactXml", Bare::LOAD, ReloadContacts},
            {"ExportContactAndGroup", Bare::SAVE,
             [] { (void)Directory().ExportContactAndGroup("export.xml"); }}};
}

std::vector<Call> ContactEdits(const Contacts& contacts)
{
    const SampleContact& contact = contacts[1];  // an ordinary one
    const String strName = contact.m_strName.c_str();
    const auto data = [&contact](const char* pName, const char* pRing) {
        auto record = BoundaryRecord(contact);
        record.m_strDisplayName = pName;
        record.m_strRing = pRing;
        return record;
    };
    NameList listName;
    for (std::size_t n = 1; n < contacts.size(); n += 2) {
        listName.push_back(contacts[n].m_strName.c_str());
    }
    return {
        {"AddContact", Bare::SAVE,
         [added = data("Nobody Yet", "")] { (void)Directory().AddContact(GROUP, added); }},
        {"UpdateContactData, another ring", Bare::SAVE,
         [strName, ring = data(contact.m_strName.c_str(), "bell.wav")] {
             (void)Directory().UpdateContactData(strName, ring);
         }},
        {"UpdateContactData, a new name", Bare::SAVE,
         [strName, named = data("Nobody Yet", "")] {
             (void)Directory().UpdateContactData(strName, named);
         }},
        {"RemoveContact", Bare::SAVE, [strName] { (void)Directory().RemoveContact(strName); }},
        {"RemoveContactList, 510 names", Bare::SAVE,
         [listName] { (void)Directory().RemoveContactList(listName); }},
        {"RemoveAllContacts", Bare::SAVE,
         [] { (void)Directory().RemoveAllContacts(NS_DIRECTORY::GROUP_ID_ALL); }},
        {"MoveContactToGroup", Bare::SAVE,
         [strName] { (void)Directory().MoveContactToGroup(strName, GROUP); }},
        {"MoveListToGroup, 510 names", Bare::SAVE,
         [listName]() mutable { (void)Directory().MoveListToGroup(listName, GROUP); }},
        {"Local2Black", Bare::SAVE,
         [strName] {
             (void)Directory().SetMaxBlackCount(BLACK_COUNT + 1);
             (void)Directory().Local2Black(strName);
         }},
        {"SetDefaultPhoto", Bare::SAVE, [] { (void)Directory().SetDefaultPhoto("nobody.png"); }}};
}

std::vector<Call> GroupEdits()
{
    return {{"AddGroup", Bare::LOAD,
             [] {
                 (void)Directory().AddGroup({"New Group", ""});
             }},
            {"UpdateGroupData, another ring", Bare::NONE,
             [] {
                 (void)Directory().UpdateGroupData(GROUP, {GROUP, "bell.wav"});
             }},
            {"UpdateGroupData, a new name", Bare::BOTH,
             [] {
                 (void)Directory().UpdateGroupData(GROUP, {"New Group", ""});
             }},
            {"RemoveGroup", Bare::BOTH, [] { (void)Directory().RemoveGroup(GROUP); }},
            {"RemoveAllGroup", Bare::SAVE, [] { (void)Directory().RemoveAllGroup(); }}};
}

// -- The table ------------------------------------------------------------------------------------

// Which files a call wrote, by the sizes that it left.
const char* FilesWritten(long nWritten)
{
    if (nWritten == 0) {
        return "-";
    }
    const auto nContacts = static_cast<long>(std::filesystem::file_size(CONTACT_FILE));
    const auto nGroups = static_cast<long>(std::filesystem::file_size(GROUP_FILE));
    const std::pair<long, const char*> ways[] = {
        {nContacts, "contacts"},
        {nGroups, "groups"},
        {nContacts + nGroups, "contacts, groups"},
        {2 * nContacts + nGroups, "contacts twice, groups"}};
    for (const auto& [nBytes, pText] : ways) {
        if (nBytes == nWritten) {
            return pText;
        }
    }
    return nWritten > 2 * nContacts + nGroups ? "contacts many times, groups" : "another file";
}

// A heap of 0 of the bare calls means that there are none. Returns the heap of the call.
long Report(const char* pName, long nBareHeap, const Step& prepare, const Step& call)
{
    const CallCost cost = CostOf(prepare, call);
    char szRatio[8] = "";
    if (nBareHeap != 0) {
        std::snprintf(szRatio, sizeof(szRatio), "%.2f",
                      static_cast<double>(cost.m_nHeap) / static_cast<double>(nBareHeap));
    }
    std::printf("  %-34s %7ld %5s %6ld %7ld  %s\n", pName, cost.m_nHeap, szRatio, cost.m_nStack,
                cost.m_nWritten, FilesWritten(cost.m_nWritten));
    return cost.m_nHeap;
}

void ReportCalls(const Contacts& contacts)
{
    const CStart start(contacts);
    std::puts("  call, 1020 contacts                   heap /bare  stack written");
    const long nLoad = Report("bare load of the contact file", 0, start, ReadBare);
    const long nSave = Report("bare save of the contact file", 0, start,
                              [&contacts] { BareSaveContacts(CONTACT_FILE, contacts); });
    const long arrBareHeap[] = {0, nLoad, nSave, std::max(nLoad, nSave)};
    for (const auto& calls : {Reads(), ContactEdits(contacts), GroupEdits()}) {
        for (const Call& call : calls) {
            (void)Report(call.m_pName, arrBareHeap[static_cast<std::size_t>(call.m_bare)], start,
                         call.m_call);
        }
    }
    const auto startAnew = [&start] {
        start();
        CContactLocalManager::ReleaseInstance();
    };
    const auto shuffle = [&start, &contacts] {
        start();
        Contacts shuffled(contacts);
        std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(1));  // NOLINT: always alike
        BareSaveContacts(CONTACT_FILE, shuffled);
    };
    (void)Report("GetInstance", nLoad, startAnew, [] { (void)Directory(); });
    (void)Report("ReloadContactXml, any order", nLoad, shuffle, ReloadContacts);
}

}  // namespace

int main()
{
    const CWorkFolder folder;
    ReportFullDirectory("heap, short texts", "");
    ReportFullDirectory("heap, one long text each", "/config/rings/a_ring_of_its_own.wav");
    ReportCalls(SampleContacts(DIRECTORY_COUNT));
    return EXIT_SUCCESS;
}
