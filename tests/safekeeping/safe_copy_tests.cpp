// The plain ways of the safe copy: what an edit that did not arrive leaves, what a restore puts
// back, and what it makes of files that do not match memory.

#include <sys/stat.h>

#include "tests/safekeeping/guarded_edits.h"

namespace {

namespace fs = std::filesystem;

constexpr char MARK[] = "copies/safe_copy.mark";
constexpr char GROUP_COPY[] = "copies/safe_copy.groups";
constexpr char CONTACT_COPY[] = "copies/safe_copy.contacts";

class SafeCopyTest : public GuardedTest
{
  protected:
    static void StartSmall()
    {
        Start({{"Company"}, {"Family", "bell.wav"}},
              {{"Anna", "Family", "1"}, {"Bob", "Blacklist"}, {"Carl", "Company", "3"}});
    }
    static Texts Files() { return {ReadFile(GROUP_FILE), ReadFile(CONTACT_FILE)}; }
    static Texts Copies() { return {ReadFile(GROUP_COPY), ReadFile(CONTACT_COPY)}; }

    CSafeCopy m_safe{COPY_FOLDER};
};

int AddAnother(Manager& m)
{
    return m.AddContact("Family", ContactRow("Dora"));
}

// The system's errors in the place of a disk that makes them.
TEST_F(SafeCopyTest, AnEditThatDidNotArriveIsUndone)
{
    StartSmall();
    (void)Directory().SetMaxContactCount(1);  // below what is stored
    const std::string strBefore = Dump() + State();
    EXPECT_EQ(m_safe.Edit([](Manager& m) { return m.RemoveContact("Anna"), errno = EIO; }),
              SAFE_RET_NOT_WRITTEN);
    EXPECT_EQ(Dump() + State(), strBefore);
    EXPECT_EQ(Copies(), Files());
    EXPECT_FALSE(fs::exists(MARK));
    EXPECT_EQ(m_safe.Edit([](Manager& m) { return errno = EMFILE, m.GetCurrentGroupCount(); }),
              SAFE_RET_NOT_WRITTEN);
    EXPECT_EQ(m_safe.Edit([](Manager&) { return errno = ENOMEM, -7; }), -7) << "it was refused";
    EXPECT_EQ(Dump() + State(), strBefore);
}

TEST_F(SafeCopyTest, RestorePutsBackThePairOrNothing)
{
    struct Row
    {
        const char* m_pName;
        bool m_bMark;
        const char *m_pRemoved, *m_pBroken;
        int m_nResult;
    };
    const Row rows[] = {{"whole files win", false, nullptr, nullptr, 0},
                        {"no copy needed", false, CONTACT_COPY, nullptr, 0},
                        {"an edit was cut", true, nullptr, nullptr, 1},
                        {"contacts missing", false, CONTACT_FILE, nullptr, 1},
                        {"groups broken", false, nullptr, GROUP_FILE, 1},
                        {"groups broken, group copy gone", false, GROUP_COPY, GROUP_FILE, -200},
                        {"groups broken, other copy gone", false, CONTACT_COPY, GROUP_FILE, -200},
                        {"copy broken", true, nullptr, CONTACT_COPY, -200},
                        {"manifest broken", true, nullptr, "copies/safe_copy.manifest", -200}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.m_pName);
        StartSmall();
        EXPECT_EQ(m_safe.Keep(), 1);
        const Texts kept = Files();
        (void)Directory().RemoveContact("Anna");  // unguarded: newer than the copy
        row.m_bMark ? WriteFile(MARK, "") : void();
        row.m_pBroken ? WriteFile(row.m_pBroken, ReadFile(row.m_pBroken).substr(0, 60)) : void();
        row.m_pRemoved ? void(fs::remove(row.m_pRemoved)) : void();
        const Texts found = Files();
        WriteFile("copies/safe_copy.groups.new", "left over");
        WriteFile("config/data/safe_copy.groups.back", "left over");
        EXPECT_EQ(m_safe.Restore(), row.m_nResult);
        EXPECT_EQ(Files(), row.m_nResult == 1 ? kept : found);
        EXPECT_EQ(m_safe.Restore(), row.m_nResult == 1 ? 0 : row.m_nResult);
        EXPECT_FALSE(fs::exists("copies/safe_copy.groups.new") ||
                     fs::exists("config/data/safe_copy.groups.back"));
        fs::remove(MARK);
    }
}

TEST_F(SafeCopyTest, WhatDoesNotMatchAtTheBeginning)
{
    StartSmall();
    const std::string strWhole = ReadFile(CONTACT_FILE);
    WriteFile(CONTACT_FILE, strWhole.substr(0, 120));  // as a failed write leaves it
    EXPECT_EQ(m_safe.Keep(), 1);
    EXPECT_EQ(ReadFile(CONTACT_FILE), strWhole) << "memory was ahead";

    WriteFile(GROUP_FILE, "<root_gr");
    EXPECT_EQ(m_safe.Edit(AddAnother), SAFE_RET_NO_COPY) << "contacts alone do not help";
    Restart();
    EXPECT_EQ(m_safe.Keep(), SAFE_RET_NO_COPY) << "there is a whole copy";
    EXPECT_EQ(m_safe.Restore(), 1);

    fs::remove_all(COPY_FOLDER);
    EXPECT_EQ(m_safe.Keep(), SAFE_RET_NO_COPY) << "no folder";
    fs::create_directory(COPY_FOLDER);
    WriteFile(GROUP_FILE, "<root_gr");
    Restart();
    EXPECT_EQ(m_safe.Edit([](Manager& m) { return m.AddGroup(GroupRow("Family")); }), 0);
    EXPECT_EQ(Contacts(), (Texts{"Anna 2", "Bob 1", "Carl 0"})) << "the repair was guarded";

    (void)Directory().SetMaxContactCount(1);
    std::string strMore = ReadFile(CONTACT_FILE);
    strMore.insert(strMore.rfind("</"), "\t<contact display_name=\"Dora\" />\n");
    WriteFile(CONTACT_FILE, strMore);
    EXPECT_EQ(m_safe.Keep(), 1) << "the file holds more than memory took";
    EXPECT_EQ(Copies(), Files());
}

TEST_F(SafeCopyTest, LinksAndRights)
{
    StartSmall();
    const mode_t nMask = umask(0);
    for (const auto nRights : {fs::perms{0666}, fs::perms{0640}, fs::perms{0600}}) {
        fs::permissions(CONTACT_FILE, nRights);
        EXPECT_EQ(m_safe.Keep(), 1);
        EXPECT_EQ(fs::status(CONTACT_COPY).permissions(), nRights);
    }
    umask(nMask);
    WriteFile("foreign", "untouched");
    for (const char* pLink : {CONTACT_COPY, "copies/safe_copy.contacts.new", MARK}) {
        fs::remove(pLink);
        fs::create_symlink("../foreign", pLink);
        (void)m_safe.Edit(AddAnother);
        EXPECT_EQ(ReadFile("foreign"), "untouched");
        fs::remove(pLink);
    }
    fs::rename(CONTACT_FILE, "moved");
    fs::create_symlink("../../moved", CONTACT_FILE);
    EXPECT_EQ(m_safe.Edit(AddAnother), SAFE_RET_NO_COPY) << "a rename would cut the link";
}

}  // namespace
