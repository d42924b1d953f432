// A real disk without room, made of memory in a mount namespace of this process alone: every edit
// of a large directory, with little space left and with enough.
//
// NSDIRECTORY_FULL_DISK_TABLE names the file with the table of the outcomes, which the guide shows.
// With NSDIRECTORY_FULL_DISK_WRITE set the test writes it.

#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cstdio>

#include "tests/safekeeping/guarded_edits.h"

namespace {

constexpr char FILLER[] = "config/data/filler";

// An edit, and what the directory is before and after it.
struct CaseData
{
    const EditRow& m_row;
    Files m_files;
    std::string m_strBefore, m_strAfter = {};
};
// clang-format off
enum Outcome { DONE, UNDONE, REFUSED, LOST, OUTCOME_COUNT };
// clang-format on

class FullDiskTest : public GuardedTest
{
  protected:
    static void LeaveFree(std::size_t nBytes)
    {
        struct statvfs info = {};
        ASSERT_EQ(statvfs(DATA_DIR, &info), 0);
        const auto nFree = static_cast<std::size_t>(info.f_bavail * info.f_bsize);
        WriteFile(FILLER, std::string(nFree - nBytes, 'x'));
        ASSERT_EQ(statvfs(DATA_DIR, &info), 0);
        ASSERT_EQ(info.f_bavail * info.f_bsize, nBytes);
    }

    // A guarded edit is as its result says, in memory and after a restart; a bare one may be lost.
    static Outcome Try(const CaseData& edit, bool bGuarded)
    {
        const int nResult = bGuarded ? CSafeCopy(COPY_FOLDER).Edit(edit.m_row.m_pCall)
                                     : edit.m_row.m_pCall(Directory());
        const bool bDone = nResult > SAFE_RET_NO_COPY;
        const std::string& strExpected = bDone ? edit.m_strAfter : edit.m_strBefore;
        EXPECT_TRUE(!bGuarded || Dump() == strExpected) << "in memory, result " << nResult;
        std::filesystem::remove(FILLER);
        bGuarded ? void(StartAgain()) : Restart();
        const bool bRight = Dump() == strExpected && nResult != SAFE_RET_NOT_UNDONE;
        EXPECT_TRUE(!bGuarded || bRight) << "after a restart, result " << nResult;
        return !bRight ? LOST : bDone ? DONE : nResult == SAFE_RET_NO_COPY ? REFUSED : UNDONE;
    }

    // Rows of the table, with a file system of its own over that folder.
    static std::string TryAll(const char* pTitle, const char* pFolder,
                              const std::vector<CaseData>& cases, bool bGuarded = true)
    {
        const std::filesystem::path path = std::filesystem::current_path();
        EXPECT_EQ(mount("none", pFolder, "tmpfs", 0, "size=4m"), 0);
        std::filesystem::current_path(path);  // the one on top
        std::string strRows;
        for (const std::size_t nKib : {0U, 4U, 16U, 256U}) {
            int arrCount[OUTCOME_COUNT] = {};
            for (const CaseData& edit : cases) {
                SCOPED_TRACE(Joined(pTitle, ", ", edit.m_row.m_pName, ", KiB free: ", nKib));
                EXPECT_EQ(StartOn(edit.m_files), 0);
                LeaveFree(nKib * 1024);
                ++arrCount[Try(edit, bGuarded)];
            }
            char arrRow[100];
            (void)std::snprintf(arrRow, sizeof(arrRow), "%-24s %3zu KiB %6d %8d %9d %6d\n", pTitle,
                                nKib, arrCount[DONE], arrCount[UNDONE], arrCount[REFUSED],
                                arrCount[LOST]);
            strRows += arrRow;
        }
        std::filesystem::current_path("/");
        EXPECT_EQ(umount2((path / pFolder).c_str(), MNT_DETACH), 0);
        std::filesystem::current_path(path);
        return strRows;
    }
};

TEST_F(FullDiskTest, EveryEditIsDoneOrUndone)
{
    if (unshare(CLONE_NEWNS) != 0 ||
        mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
        GTEST_SKIP() << "a mount namespace is not allowed here";
    }
    (void)FILL.m_pCall(Directory());
    std::string strContacts = ReadFile(CONTACT_FILE_PATH);
    std::vector<Contact> many;
    for (int n = 0; n < 500; ++n) {
        many.push_back(
            FullContact(Joined("Contact number ", n).c_str(), n % 2 == 0 ? "Family" : "Company"));
    }
    const std::string strMany = ContactRoot(many, false);
    strContacts.insert(strContacts.find("\t<contact "), strMany, 15, strMany.rfind("</") - 15);
    WriteFile(CONTACT_FILE_PATH, strContacts);
    (void)StartAgain();
    std::vector<CaseData> cases, first;
    for (const EditRow& row : EDITS) {
        first.push_back({row, OnDisk(), Dump()});
        EXPECT_EQ(CSafeCopy(COPY_FOLDER).Keep(), 1);
        cases.push_back({row, OnDisk(), Dump()});
        (void)row.m_pCall(Directory());
        first.back().m_strAfter = cases.back().m_strAfter = Dump();
    }
    const std::string strTable =
        "guarded, with copies        free   done   undone   refused   lost\n" +
        TryAll("on the same disk", ".", cases) + TryAll("on another disk", DATA_DIR, cases) +
        TryAll("that are not made yet", ".", first) + TryAll("not guarded", ".", cases, false);
    const char* pTable = std::getenv("NSDIRECTORY_FULL_DISK_TABLE");
    if (pTable == nullptr || sysconf(_SC_PAGESIZE) != 4096) {
        std::printf("%s", strTable.c_str());
    } else if (Option("NSDIRECTORY_FULL_DISK_WRITE", 0) != 0) {
        WriteFile(pTable, strTable);
    } else {
        EXPECT_EQ(ReadFile(pTable), strTable);
    }
}

}  // namespace
