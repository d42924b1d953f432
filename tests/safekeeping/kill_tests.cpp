// Processes that are killed at random moments of guarded edits, each going on over what the last
// one left: nothing is lost but the edit under way.
//
// NSDIRECTORY_SAFE_KILLS sets how many.

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <random>

#include "tests/safekeeping/guarded_edits.h"

namespace {

class SafeKillTest : public GuardedTest
{
  protected:
    // Edits without end, from where the last process was. It returns if something is wrong.
    void Live()
    {
        const std::size_t nRows = std::size(EDITS);
        const int nRestored = StartAgain();
        const std::string strFound = Dump();
        std::size_t nEdit = *m_pDone;
        nEdit += strFound == m_dumps[nEdit % nRows] ? 0 : 1;
        int nResult = nRestored < 0 || strFound != m_dumps[nEdit % nRows] ? SAFE_RET_NO_COPY : 0;
        for (CSafeCopy copy(COPY_FOLDER); nResult > SAFE_RET_NO_COPY; ++nEdit) {
            *m_pDone = nEdit;
            nResult = copy.Edit(EDITS[nEdit % nRows].m_pCall);
        }
        std::printf("Restore(): %d, edit %zu: %d, found at the start:\n%s", nRestored, nEdit,
                    nResult, strFound.c_str());
        std::fflush(stdout);
    }

    std::vector<std::string> m_dumps;  // before each edit of a round
    // How many edits have returned; the processes share it.
    volatile std::size_t* m_pDone =
        new (mmap(nullptr, sizeof(std::size_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS,
                  -1, 0)) volatile std::size_t(0);
};

TEST_F(SafeKillTest, NothingIsLostButTheEditUnderWay)
{
    const std::size_t nKills = Option("NSDIRECTORY_SAFE_KILLS", 40);
    for (std::size_t nRound = 0; nRound < 2; ++nRound) {
        m_dumps.clear();
        for (const EditRow& row : EDITS) {
            m_dumps.push_back(Dump());
            (void)row.m_pCall(Directory());
        }
    }
    ASSERT_EQ(Dump(), m_dumps[0]) << "a round ends where it begins";
    Manager::ReleaseInstance();
    std::minstd_rand random(1);
    for (std::size_t nKill = 0; nKill <= nKills; ++nKill) {
        const pid_t nChild = fork();
        if (nChild == 0) {
            Live();
            _exit(1);
        }
        (void)usleep(static_cast<useconds_t>(random() % 20000));
        (void)kill(nChild, SIGKILL);
        int nStatus = 0;
        ASSERT_EQ(waitpid(nChild, &nStatus, 0), nChild);
        ASSERT_TRUE(WIFSIGNALED(nStatus)) << "process " << nKill;
    }
    std::printf("%zu kills, %zu edits\n", nKills, std::size_t{*m_pDone});
}

}  // namespace
