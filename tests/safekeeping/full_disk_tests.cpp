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

constexpr std::size_t FREE_KIB[] = {0, 4, 16, 256};
constexpr char FILLER[] = "config/data/filler";

// An edit, and what the directory is before and after it.
struct CaseData
{
    const EditRow& m_row;
    Files m_files;
    std::string m_strBefore, m_strAfter = {};
};
struct CountData
{
    int m_nDone = 0, m_nUndone = 0, m_nRefused = 0, m_nLost = 0;
};

class FullDiskTest : public GuardedTest
{
  protected:
    // With many more contacts in two groups.
    static std::string Enlarged(std::string strFile)
    {
        const std::size_t nPlace = strFile.find("\t<contact ");
        for (const char* pName : {"Anna", "Carl"}) {
            const std::size_t nName = strFile.rfind(pName);
            const std::size_t nBegin = strFile.rfind('\t', nName);
            const std::size_t nSize = strFile.find('\n', nName) + 1 - nBegin;
            for (int n = 100; n < 350; ++n) {
                std::string strElement =
                    strFile.substr(strFile.rfind(pName) - (nName - nBegin), nSize);
                strFile.insert(nPlace, strElement.insert(nName - nBegin, std::to_string(n)));
            }
        }
        return strFile;
    }

    static void LeaveFree(std::size_t nBytes)
    {
        struct statvfs info = {};
        ASSERT_EQ(statvfs(DATA_DIR, &info), 0);
        WriteFile(
            FILLER,
            std::string(static_cast<std::size_t>(info.f_bavail * info.f_bsize) - nBytes, 'x'));
        ASSERT_EQ(statvfs(DATA_DIR, &info), 0);
        ASSERT_EQ(info.f_bavail * info.f_bsize, nBytes);
    }

    static void TryGuarded(const CaseData& edit, CountData& counts)
    {
        const int nResult = CSafeCopy(COPY_FOLDER).Edit(edit.m_row.m_pCall);
        const bool bDone = nResult > SAFE_RET_NO_COPY;
        ++(bDone                         ? counts.m_nDone
           : nResult == SAFE_RET_NO_COPY ? counts.m_nRefused
                                         : counts.m_nUndone);
        const std::string& strExpected = bDone ? edit.m_strAfter : edit.m_strBefore;
        EXPECT_NE(nResult, SAFE_RET_NOT_UNDONE);
        EXPECT_TRUE(Dump() == strExpected) << "in memory, result " << nResult;
        std::filesystem::remove(FILLER);
        EXPECT_GE(StartAgain(), 0);
        EXPECT_TRUE(Dump() == strExpected) << "after a restart, result " << nResult;
    }

    static void TryUnguarded(const CaseData& edit, CountData& counts)
    {
        (void)edit.m_row.m_pCall(Directory());
        Restart();
        ++(Dump() == edit.m_strAfter ? counts.m_nDone : counts.m_nLost);
    }

    // Rows of the table, with a file system of its own over that folder.
    static std::string TryAll(const char* pTitle, const char* pFolder,
                              const std::vector<CaseData>& cases,
                              void (*pTry)(const CaseData&, CountData&))
    {
        const std::filesystem::path path = std::filesystem::current_path();
        EXPECT_EQ(mount("none", pFolder, "tmpfs", 0, "size=4m"), 0);
        std::filesystem::current_path(path);  // what lies there now
        std::string strRows;
        for (const std::size_t nKib : FREE_KIB) {
            CountData counts;
            for (const CaseData& edit : cases) {
                SCOPED_TRACE(Joined(pTitle, ", ", edit.m_row.m_pName, ", KiB free: ", nKib));
                EXPECT_EQ(StartOn(edit.m_files), 0);
                LeaveFree(nKib * 1024);
                pTry(edit, counts);
            }
            char arrRow[100];
            (void)std::snprintf(arrRow, sizeof(arrRow), "%-24s %3zu KiB %6d %8d %9d %6d\n", pTitle,
                                nKib, counts.m_nDone, counts.m_nUndone, counts.m_nRefused,
                                counts.m_nLost);
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
    WriteFile(CONTACT_FILE_PATH, Enlarged(ReadFile(CONTACT_FILE_PATH)));
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
        TryAll("on the same disk", ".", cases, TryGuarded) +
        TryAll("on another disk", DATA_DIR, cases, TryGuarded) +
        TryAll("that are not made yet", ".", first, TryGuarded) +
        TryAll("not guarded", ".", cases, TryUnguarded);
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
