// Every guarded edit, with every call that it makes failing in turn, in every way: the directory is
// as before or as after the edit, in memory and after a restart, and the result says which.
//
// NSDIRECTORY_FAULT_STEP tries only each n-th call.

#include <cstdio>

#include "tests/safekeeping/guarded_edits.h"

namespace {

// Each way in which each of these calls can fail.
std::vector<DiskFaultData> Faults(const DiskCalls& calls)
{
    const std::size_t nStep = Option("NSDIRECTORY_FAULT_STEP", 1);
    std::vector<DiskFaultData> faults;
    for (std::size_t n = 0; n < calls.size(); n += nStep) {
        for (const LaterCalls later :
             {LaterCalls::DONE, LaterCalls::OF_THIS_KIND_FAIL, LaterCalls::FAIL}) {
            faults.push_back({n + 1, DiskEnd::FAILS, later});
            if (calls[n].m_call == DiskCall::WRITE) {
                faults.push_back({n + 1, DiskEnd::HALF_WRITTEN, later});
                faults.push_back({n + 1, DiskEnd::ALL_BUT_ONE_WRITTEN, later});
            }
        }
    }
    return faults;
}

std::string Text(const DiskFaultData& fault, const DiskCalls& calls)
{
    const DiskCallData& call = calls[fault.m_nCall - 1];
    return Joined("call ", fault.m_nCall, ", kind ", int(call.m_call), ' ', call.m_strPath,
                  ", end ", int(fault.m_end), ", later ", int(fault.m_later));
}

template <class TStep>
DiskCalls CallsOf(TStep step, const DiskFaultData& fault = {})
{
    const CDiskCalls record(fault);
    (void)step();
    return record.m_calls;
}

class DiskFaultTest : public GuardedTest
{
  protected:
    // The edit on a directory that has started well, then for some another one, then a restart.
    void Try(const EditRow& row, const DiskFaultData& fault)
    {
        CSafeCopy copy(COPY_FOLDER);
        int nResult = 0;
        {
            const CDiskCalls calls(fault);
            nResult = copy.Edit(row.m_pCall);
            EXPECT_TRUE(calls.m_mapOpen.empty()) << "a file was left open";
        }
        ++m_mapResults[nResult];
        const bool bAfter = nResult == m_nResult;
        const std::string& strExpected = bAfter ? m_strAfter : m_strBefore;
        EXPECT_TRUE(bAfter || nResult < 0) << nResult;
        if (nResult != SAFE_RET_NOT_UNDONE) {
            EXPECT_EQ(Dump(), strExpected) << "in memory, result " << nResult;
        }
        if (fault.m_nCall % 2 == 0) {
            EXPECT_EQ(copy.Edit([](Manager&) { return DIR_RET_OK; }), DIR_RET_OK);
            EXPECT_EQ(Dump(), strExpected) << "after the next edit, result " << nResult;
        }
        EXPECT_GE(StartAgain(), 0);
        EXPECT_EQ(Dump(), strExpected) << "after a restart, result " << nResult;
    }

    std::string m_strBefore, m_strAfter;
    int m_nResult = 0;
    std::map<int, std::size_t> m_mapResults;
};

TEST_F(DiskFaultTest, TheStateIsTheOneBeforeOrAfterTheEditAndTheResultSaysWhich)
{
    for (const EditRow& row : EDITS) {
        const Files before = OnDisk();
        m_strBefore = Dump();
        const DiskCalls calls =
            CallsOf([&] { return m_nResult = CSafeCopy(COPY_FOLDER).Edit(row.m_pCall); });
        m_strAfter = Dump();
        const Files after = OnDisk();
        for (const DiskFaultData& fault : Faults(calls)) {
            SCOPED_TRACE(row.m_pName + (": " + Text(fault, calls)));
            ASSERT_EQ(StartOn(before), 0);
            Try(row, fault);
            ASSERT_FALSE(HasFailure());
        }
        ASSERT_EQ(StartOn(after), 0);
    }
    for (const auto& [nResult, nCount] : m_mapResults) {
        std::printf("result %d: %zu faults\n", nResult, nCount);
    }
}

TEST_F(DiskFaultTest, ARestoreThatFailsCanBeDoneAgain)
{
    ASSERT_GE(CSafeCopy(COPY_FOLDER).Edit(FILL.m_pCall), 0);
    const std::string strBefore = Dump();
    (void)RENAME.m_pCall(Directory());
    Files cut = OnDisk();
    cut["copies/safe_copy.mark"] = "";
    cut[CONTACT_FILE_PATH].resize(100);
    Lay(cut);
    const auto restore = [] { return CSafeCopy(COPY_FOLDER).Restore(); };
    const DiskCalls calls = CallsOf(restore);
    for (const DiskFaultData& fault : Faults(calls)) {
        SCOPED_TRACE(Text(fault, calls));
        Lay(cut);
        (void)CallsOf(restore, fault);
        EXPECT_GE(StartAgain(), 0);
        EXPECT_EQ(Dump(), strBefore);
    }
}

TEST_F(DiskFaultTest, TheLibraryWritesTheSameWithoutAGuard)
{
    for (const EditRow& row : EDITS) {
        SCOPED_TRACE(row.m_pName);
        std::string strCalls;
        const auto edit = [&](Manager& m) {
            int nResult = 0;
            strCalls = "";
            for (const DiskCallData& call : CallsOf([&] { return nResult = row.m_pCall(m); })) {
                strCalls += Changes(call) ? call.m_strPath + '\n' + call.m_strText : "";
            }
            return nResult;
        };
        const Files before = OnDisk();
        const int nBare = edit(Directory());
        const std::string strBare = strCalls;
        const Texts files{ReadFile(GROUP_FILE_PATH), ReadFile(CONTACT_FILE_PATH)};
        (void)StartOn(before);
        EXPECT_EQ(CSafeCopy(COPY_FOLDER).Edit(edit), nBare);
        EXPECT_EQ(strCalls, strBare);
        EXPECT_EQ((Texts{ReadFile(GROUP_FILE_PATH), ReadFile(CONTACT_FILE_PATH)}), files);
    }
}

}  // namespace
