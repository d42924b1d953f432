// Faults of the system and bad input: each call that a load or a save makes fails in turn, files
// are cut anywhere, and the process dies in the middle of writing.

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <random>

#include <pugixml.hpp>

#include "tests/support/directory_test.h"
#include "tests/support/heap_count.h"

using namespace NS_DIRECTORY;

namespace {

using Manager = CContactLocalManager;

struct EditRow
{
    const char* m_pName;
    std::function<int(Manager&)> m_call;
    bool m_bReloads = false;
    bool m_bInserts = false;
};

QZList<String> TwoNames()
{
    QZList<String> names;
    names.push_back("Anna");
    names.push_back("Carl");
    return names;
}

const std::vector<EditRow> EDITS{
    {"AddGroup", [](Manager& m) { return m.AddGroup(Group({"Delta"})); }, true},
    {"rename", [](Manager& m) { return m.UpdateGroupData("Family", Group({"Ahnen"})); }, true},
    {"ring",
     [](Manager& m) {
         return m.UpdateGroupData("Family", Group({"Family", "r"}));
     }},
    {"RemoveGroup", [](Manager& m) { return m.RemoveGroup("Family"); }, true},
    {"RemoveAllGroup", [](Manager& m) { return m.RemoveAllGroup(); }},
    {"AddContact", [](Manager& m) { return m.AddContact("Family", Contact({"New"})); }, false,
     true},
    {"AddContactById", [](Manager& m) { return m.AddContactById(2, Contact({"New"})); }, false,
     true},
    {"AddBlackContact", [](Manager& m) { return m.AddBlackContact(Contact({"New"})); }, false,
     true},
    {"update",
     [](Manager& m) {
         return m.UpdateContactData("Bob", Contact({"Bob", "Family", "7"}));
     }},
    {"new name",
     [](Manager& m) {
         return m.UpdateContactData("Bob", Contact({"Zoe", "Family"}));
     },
     false, true},
    {"RemoveContact", [](Manager& m) { return m.RemoveContact("Bob"); }},
    {"RemoveContactList", [](Manager& m) { return m.RemoveContactList(TwoNames()); }},
    {"RemoveAllContacts", [](Manager& m) { return m.RemoveAllContacts(0); }},
    {"MoveListToGroup",
     [](Manager& m) {
         auto names = TwoNames();
         return m.MoveListToGroup(names, "Blacklist");
     }},
    {"MoveContactToGroup", [](Manager& m) { return m.MoveContactToGroup("Anna", "Blacklist"); }},
    {"SetContactGroupId", [](Manager& m) { return m.SetContactGroupId("Anna", 0); }},
    {"Black2Local", [](Manager& m) { return m.Black2Local("Bob"); }},
    {"Local2Black", [](Manager& m) { return m.Local2Black("Anna"); }},
    {"SetDefaultPhoto", [](Manager& m) { return m.SetDefaultPhoto(""); }},
};

class FaultTest : public DirectoryTest
{
  protected:
    static void StartSmall()
    {
        Start({{"Company"}, {"Family"}},
              {{"Anna", "Family", "1"}, {"Bob", "Blacklist"}, {"Carl", "Family"}});
    }

    struct Files
    {
        std::string m_strGroups = ReadFile(GROUP_FILE);
        std::string m_strContacts = ReadFile(CONTACT_FILE);
    };

    // The text that a save of the list in memory must write.
    static Files FilesOfMemory()
    {
        Files files{"<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<root_group />\n", ""};
        std::vector<GroupRow> groups;
        for (const std::string& strName : Names(Directory().m_listGroup)) {
            const auto* pGroup = Directory().MyFindGroupByDisplayName(String(strName.c_str()));
            groups.push_back({strName, pGroup->m_strRing.c_str(), pGroup->m_bReadOnly});
        }
        if (!groups.empty()) {
            files.m_strGroups = GroupFile({groups.begin() + 2, groups.end()});
        }
        std::vector<ContactRow> contacts;
        for (const auto* pos = Directory().m_listContact.begin();
             pos != Directory().m_listContact.end(); pos = pos->next) {
            const auto& item = *pos->value;
            contacts.push_back({item.m_strDisplayName.c_str(), Directory().MyGroupNameForFile(item),
                                item.m_strMobileNumber.c_str(), "", "", "", 0,
                                item.m_strDefaultPhoto.c_str()});
        }
        files.m_strContacts = ContactFile(contacts);
        return files;
    }

    // Writing cuts a file short at worst; a document without all its memory replaces none.
    static void ExpectNoForeignText(const std::string& strNow, const std::string& strBefore,
                                    const std::string& strAfter, bool bWhole)
    {
        if (strNow != strBefore && strNow != strAfter) {
            EXPECT_TRUE(!bWhole && strAfter.compare(0, strNow.size(), strNow) == 0) << strNow;
        }
    }

    // One fault; false when the operation no longer makes that many calls.
    static bool RunWithFault(const EditRow& row, FileCalls::Kind kind, int nCall)
    {
        StartSmall();
        const Files before;
        EXPECT_GE(row.m_call(Directory()), 0);
        const Files after;
        const std::string strMemory = Memory();
        StartSmall();
        int nReached = 0;
        {
            FileCalls calls;
            calls.Fail(kind, nCall);
            EXPECT_GE(row.m_call(Directory()), 0) << "no result tells of the disk";
            nReached = calls.Count(kind);
        }
        ExpectSound();
        const Files now;
        const bool bWhole = kind == FileCalls::XML_MEMORY;
        if (!row.m_bReloads) {
            EXPECT_EQ(Memory(), strMemory);
        }
        // A reload that took little leaves a contact file with little, but never half a document.
        ExpectNoForeignText(now.m_strGroups, before.m_strGroups, after.m_strGroups, bWhole);
        ExpectNoForeignText(now.m_strContacts, before.m_strContacts, after.m_strContacts, bWhole);
        const Files expected = FilesOfMemory();
        Directory().MySetGroupDirty(true);
        Directory().MySetContactDirty(true);
        EXPECT_EQ(Files().m_strGroups, expected.m_strGroups);
        EXPECT_EQ(Files().m_strContacts, expected.m_strContacts);
        return nReached >= nCall;
    }
};

TEST_F(FaultTest, EveryCallOfTheSystemFailsInTurn)
{
    for (const EditRow& row : EDITS) {
        for (int nKind = 0; nKind < FileCalls::KIND_COUNT; ++nKind) {
            bool bMore = true;
            for (int nCall = 1; bMore && !HasFailure(); ++nCall) {
                SCOPED_TRACE(row.m_pName + (" kind " + std::to_string(nKind)) + " call " +
                             std::to_string(nCall));
                bMore = RunWithFault(row, static_cast<FileCalls::Kind>(nKind), nCall);
            }
        }
    }
}

TEST_F(FaultTest, NoMemoryForARecordRefusesTheEntry)
{
    for (const EditRow& row : EDITS) {
        const bool bGroup = row.m_pName == std::string("AddGroup");
        if (!row.m_bInserts && !bGroup) {
            continue;
        }
        SCOPED_TRACE(row.m_pName);
        StartSmall();
        const std::string strBefore = State();
        {
            FileCalls calls;
            calls.FailRecord(bGroup ? sizeof(Manager::GroupData) : sizeof(Manager::ItemData));
            EXPECT_EQ(row.m_call(Directory()), DIR_RET_NO_MEMORY);
            EXPECT_EQ(calls.Written(), Texts{});
        }
        EXPECT_EQ(State(), strBefore);
    }
}

TEST_F(FaultTest, FullDiskAndMissingFolder)
{
    for (const bool bFull : {true, false}) {
        for (const EditRow& row : EDITS) {
            SCOPED_TRACE(row.m_pName);
            std::filesystem::create_directories("config/data");
            StartSmall();
            std::filesystem::remove_all("config/data");
            if (bFull) {  // every write finds no space on this device
                std::filesystem::create_directories("config/data");
                std::filesystem::create_symlink("/dev/full", GROUP_FILE);
                std::filesystem::create_symlink("/dev/full", CONTACT_FILE);
            }
            EXPECT_GE(row.m_call(Directory()), 0);
            ExpectSound();
            std::filesystem::remove_all("config/data");
        }
    }
}

TEST_F(FaultTest, ADocumentWithoutAllItsMemoryReplacesNoFile)
{
    // The second of the XML library's pages begins in the middle of something else each time.
    for (std::size_t nShift = 0; nShift < 1000; nShift += 8) {
        SCOPED_TRACE(nShift);
        std::vector<ContactRow> rows(100, {"c"});
        for (ContactRow& row : rows) {
            row.m_strName += std::to_string(100 + (&row - rows.data()));
        }
        rows[0].m_strMobile.assign(nShift, '1');
        Start({}, rows);
        FileCalls calls;
        calls.Fail(FileCalls::XML_MEMORY, 2);
        EXPECT_EQ(Directory().RemoveContact("c199"), DIR_RET_OK);
        EXPECT_EQ(calls.Written(), Texts{});
    }
}

TEST_F(FaultTest, NoMemoryForTheDirectoryMeansNoDirectory)
{
    FileCalls calls;
    calls.FailRecord(sizeof(Manager));
    EXPECT_EQ(Manager::GetInstance(), nullptr);
}

TEST(MemoryDeathTest, EndsTheProcessInAContainer)
{
    if (!IsHeapCounted()) {
        GTEST_SKIP() << "another allocator is in place";
    }
    const auto refuseNode = [] {
        FileCalls calls;
        calls.FailRecord(sizeof(QZListNode<String>));
        const QZList<String> list;
    };
    const auto refuseBuffer = [](std::size_t nLargest, unsigned int nCapacity) {
        String str("longer than fourteen");
        g_heap.m_nLargest = nLargest;
        str.__grow_by_and_replace(nCapacity, 1, 0, 0, 0, 1, "x");
    };
    const auto aborted = testing::KilledBySignal(SIGABRT);
    EXPECT_EXIT(refuseNode(), aborted, "");
    EXPECT_EXIT(refuseBuffer(63, 31), aborted, "") << "twice the capacity";
    EXPECT_EXIT(refuseBuffer(0xFFFFFFED, 0x7FFFFFE7), aborted, "") << "the maximum size";
}

// The names of a list loaded from what the parser leaves of a text; the fixed groups where it
// leaves a root.
Texts NamesLeftBy(const std::string& strText, const char* pRoot, const char* pElement,
                  const Texts& fixed)
{
    pugi::xml_document document;
    (void)document.load_buffer(strText.data(), strText.size());
    const pugi::xml_node root = document.child(pRoot);
    Texts names;
    for (const pugi::xml_node element : root.children(pElement)) {
        names.emplace_back(element.attribute("display_name").value());
    }
    std::sort(names.begin(), names.end());
    if (fixed.empty()) {
        return names;
    }
    Texts groups = root ? fixed : Texts{};
    std::copy_if(names.begin(), names.end(), std::back_inserter(groups),
                 [&](const std::string& strName) {
                     return !strName.empty() &&
                            std::find(fixed.begin(), fixed.end(), strName) == fixed.end();
                 });
    return groups;
}

Texts ContactsLeftBy(const std::string& strText)
{
    return NamesLeftBy(strText, "root_contact", "contact", {});
}

TEST_F(FaultTest, FilesCutAtEveryByte)
{
    StartSmall();
    const std::string strGroups = ReadFile(GROUP_FILE);
    const std::string strContacts = ReadFile(CONTACT_FILE);
    for (std::size_t nLength = 0; nLength <= strGroups.size(); ++nLength) {
        const std::string strCut = strGroups.substr(0, nLength);
        WriteFile(GROUP_FILE, strCut);
        Restart();
        ExpectSound();
        EXPECT_EQ(Names(Directory().m_listGroup),
                  NamesLeftBy(strCut, "root_group", "group", {"All Contacts", "Blacklist"}))
            << nLength;
    }
    for (std::size_t nLength = 0; nLength <= strContacts.size(); ++nLength) {
        WriteFile(CONTACT_FILE, strContacts.substr(0, nLength));
        (void)Directory().ReloadContactXml();
        EXPECT_EQ(Names(Directory().m_listContact), ContactsLeftBy(strContacts.substr(0, nLength)))
            << nLength;
    }
}

TEST_F(FaultTest, FullSizeFileCutAtEveryElement)
{
    std::vector<ContactRow> rows;
    for (int n = 1001; n < 2030; ++n) {  // a cut name of the blacklist needs an ordinary slot
        rows.push_back({"c" + std::to_string(n), n < 2000 ? "Family" : "Blacklist"});
    }
    Start({{"Family"}}, rows);
    const std::string strFile = ReadFile(CONTACT_FILE);
    int nCut = 0;
    for (std::size_t nEnd = strFile.find('<', 100); nEnd != std::string::npos;
         nEnd = strFile.find('<', nEnd + 1)) {
        // On the boundary, and somewhere behind it.
        for (const std::size_t nLength :
             {nEnd, nEnd + static_cast<std::size_t>(nCut * 7919) % 150}) {
            WriteFile(CONTACT_FILE, strFile.substr(0, nLength));
            (void)Directory().ReloadContactXml();
            EXPECT_EQ(Names(Directory().m_listContact), ContactsLeftBy(strFile.substr(0, nLength)))
                << nLength;
        }
        ++nCut;
    }
    EXPECT_GE(nCut, 1029);
}

// A process that is killed in the middle of edits: what was not being written is whole.
class KillTest : public FaultTest
{
  protected:
    // The same edits each time, on a directory of several write calls a file.
    static void StartLarge()
    {
        std::vector<ContactRow> rows;
        for (int n = 100; n < 400; ++n) {
            rows.push_back({"c" + std::to_string(n), n % 2 == 0 ? "Family" : "Company"});
        }
        rows[0].m_strName = "Anna";
        rows[1].m_strName = "Bob";
        rows[2].m_strName = "Carl";
        rows[1].m_strGroup = "Blacklist";
        Start({{"Company"}, {"Family"}}, rows);
    }
};

TEST_F(KillTest, TheOtherFileIsAsBeforeOrAfterTheEdit)
{
    const char* pCount = std::getenv("NSDIRECTORY_KILLS");
    const int nKills = pCount == nullptr ? 20 : std::atoi(pCount);
    StartLarge();
    std::vector<Files> states{Files()};
    for (std::size_t n = 0; n < EDITS.size(); ++n) {
        (void)EDITS[n].m_call(Directory());
        states.emplace_back();
    }
    std::minstd_rand random(1);
    int nInsideWrite = 0;
    for (int nKill = 0; nKill < nKills; ++nKill) {
        SCOPED_TRACE("kill " + std::to_string(nKill));
        StartLarge();
        CContactLocalManager::ReleaseInstance();
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const int nWrite = 1 + static_cast<int>(random() % 150);
        const pid_t nChild = fork();
        if (nChild == 0) {
            FileCalls calls;
            calls.DieInWrite(nWrite);
            for (std::size_t n = 0; n < EDITS.size(); ++n) {
                (void)EDITS[n].m_call(Directory());
                (void)!write(ends[1], "x", 1);
            }
            _exit(0);
        }
        close(ends[1]);
        std::size_t nDone = 0;
        for (char cDone = 0; read(ends[0], &cDone, 1) == 1;) {
            ++nDone;
        }
        close(ends[0]);
        int nStatus = 0;
        ASSERT_EQ(waitpid(nChild, &nStatus, 0), nChild);
        nInsideWrite += WIFSIGNALED(nStatus) ? 1 : 0;
        const Files& before = states[nDone];
        const Files& after = states[std::min(nDone + 1, EDITS.size())];
        const Files now;
        const bool bGroupsWhole =
            now.m_strGroups == before.m_strGroups || now.m_strGroups == after.m_strGroups;
        const bool bContactsWhole =
            now.m_strContacts == before.m_strContacts || now.m_strContacts == after.m_strContacts;
        EXPECT_TRUE(bGroupsWhole || bContactsWhole);
        EXPECT_TRUE(WIFSIGNALED(nStatus) || (bGroupsWhole && bContactsWhole));
        (void)Directory();
        ExpectSound();
    }
    EXPECT_GE(nInsideWrite, nKills / 2);
}

}  // namespace
