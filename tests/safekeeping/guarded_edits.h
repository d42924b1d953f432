// Edits of every kind, and a test that can set both folders back to what they held.

#ifndef NSDIRECTORY_TESTS_SAFEKEEPING_GUARDED_EDITS_H
#define NSDIRECTORY_TESTS_SAFEKEEPING_GUARDED_EDITS_H

#include "directory/data_files.h"
#include "safekeeping/safe_copy.h"
#include "tests/support/directory_test.h"
#include "tests/support/disk_states.h"

inline ContactGeneralItemData FullContact(const char* pName, const char* pGroup = "")
{
    return {pName, pGroup, "030 1", "0170 2", "+49 555", "picture.png", "r.wav", 2, 3};
}

struct EditRow
{
    const char* m_pName;
    int (*m_pCall)(Manager& m);
};

// Each finds what it works on, from a new directory on and round after round.
// clang-format off
inline const EditRow EDITS[] = {
    {"AddGroup", [](Manager& m) { return m.AddGroup({"Delta", "delta.wav"}); }},
    {"several calls", [](Manager& m) {
        (void)m.AddGroup({"Company", ""});
        (void)m.AddGroup({"Family", "family.wav"});
        (void)m.AddContact("Family", FullContact("Anna"));
        (void)m.AddBlackContact(FullContact("Bob"));
        (void)m.AddContact("Company", FullContact("Carl"));
        return m.AddContact("All Contacts", FullContact("Dora")); }},
    {"ring", [](Manager& m) { return m.UpdateGroupData("Family", {"Family", "f.wav"}); }},
    {"rename", [](Manager& m) { return m.UpdateGroupData("Company", {"Zebra and other striped friends", "z.wav"}); }},
    {"AddContact and a look for its ring, whose absence covers earlier errors", [](Manager& m) {
        const int nResult = m.AddContact("Family", FullContact("Emil"));
        (void)m.GetContactRingByNumber("030 1", "");
        return nResult; }},
    {"refused", [](Manager& m) { return m.AddContact("Family", FullContact("Emil")); }},
    {"AddContactById", [](Manager& m) { return m.AddContactById(2, FullContact("Fritz")); }},
    {"AddBlackContact", [](Manager& m) { return m.AddBlackContact(FullContact("Gerd")); }},
    {"update", [](Manager& m) { return m.UpdateContactData("Bob", FullContact("Bob", "Family")); }},
    {"new name", [](Manager& m) { return m.UpdateContactData("Carl", FullContact("Zoe", "Family")); }},
    {"MoveListToGroup", [](Manager& m) { auto names = NameList({"Anna", "Zoe"}); return m.MoveListToGroup(names, "Blacklist"); }},
    {"MoveContactToGroup", [](Manager& m) { return m.MoveContactToGroup("Anna", "Delta"); }},
    {"SetContactGroupId", [](Manager& m) { return m.SetContactGroupId("Bob", 0); }},
    {"Local2Black", [](Manager& m) { return m.Local2Black("Bob"); }},
    {"Black2Local", [](Manager& m) { return m.Black2Local("Gerd"); }},
    {"SetDefaultPhoto", [](Manager& m) { return m.SetDefaultPhoto("picture.png"); }},
    {"RemoveGroup", [](Manager& m) { return m.RemoveGroup("Family"); }},
    {"RemoveContact", [](Manager& m) { return m.RemoveContact("Fritz"); }},
    {"RemoveContactList", [](Manager& m) { return m.RemoveContactList(NameList({"Anna", "Dora"})); }},
    {"RemoveAllGroup", [](Manager& m) { return m.RemoveAllGroup(); }},
    {"RemoveAllContacts", [](Manager& m) { return m.RemoveAllContacts(0); }}};
// clang-format on
inline const EditRow& FILL = EDITS[1];
inline const EditRow& RENAME = EDITS[3];

inline constexpr char COPY_FOLDER[] = "copies";

// From the environment, for longer and shorter runs.
inline std::size_t Option(const char* pName, std::size_t nDefault)
{
    const char* pValue = std::getenv(pName);
    return pValue == nullptr ? nDefault : std::strtoul(pValue, nullptr, 10);
}

class GuardedTest : public DirectoryTest
{
  protected:
    void SetUp() override
    {
        DirectoryTest::SetUp();
        ASSERT_EQ(StartOn({}), 0);
    }

    // The two folders hold these files and no others.
    static void Lay(const Files& files)
    {
        Manager::ReleaseInstance();
        for (const char* pFolder : {DATA_DIR, COPY_FOLDER}) {
            std::filesystem::create_directories(pFolder);
            for (const auto& entry : std::filesystem::directory_iterator(pFolder)) {
                std::filesystem::remove(entry);
            }
        }
        for (const auto& [strPath, strText] : files) {
            WriteFile(strPath, strText);
        }
    }
    static Files OnDisk()
    {
        Files files;
        for (const char* pFolder : {DATA_DIR, COPY_FOLDER}) {
            for (const auto& entry : std::filesystem::directory_iterator(pFolder)) {
                files[entry.path().lexically_normal()] = ReadFile(entry.path());
            }
        }
        return files;
    }

    // As a host starts. What Restore() answered.
    static int StartOn(const Files& files)
    {
        Lay(files);
        return StartAgain();
    }
    static int StartAgain()
    {
        Manager::ReleaseInstance();
        const int nRestored = CSafeCopy(COPY_FOLDER).Restore();
        (void)Directory();
        return nRestored;
    }

    // All that hosts can see: limits, counts, groups with their rings, contacts with every field.
    static std::string Dump()
    {
        const Manager& d = Directory();
        std::string strText = Joined(d.GetMaxGroupCount(), ' ', d.GetMaxContactCount(), ' ',
                                     d.GetMaxBlackCount(), ' ', d.GetCurrentBlackCount(), '\n');
        for (const Entry& entry : AllEntries()) {
            strText += entry.Text() + '\n';
        }
        return strText;
    }
};

#endif  // NSDIRECTORY_TESTS_SAFEKEEPING_GUARDED_EDITS_H
