// Power cuts at every moment of guarded edits, undone edits, copies and restores. From each state
// that the disk may then show, Restore() and a start give the directory before or after the edit,
// and once the edit has returned, the one that its result names.
//
// NSDIRECTORY_POWER_CUT_LENGTHS sets at how many places a file is cut. Above the default the power
// is cut in every restore, not only in the first of its kind.

#include <cstdio>
#include <functional>

#include "tests/safekeeping/guarded_edits.h"

namespace {

constexpr std::size_t DEFAULT_LENGTHS = 5;

using Dumps = std::set<std::string>;

struct StepData
{
    std::string m_strName;
    std::function<int(CSafeCopy&)> m_step;
    bool m_bDurable = true;  // when it has returned
    // Filled by a run: its calls, and what may be found while it runs and after it.
    DiskCalls m_calls = {};
    Dumps m_during = {}, m_after = {};
};

StepData Guarded(const EditRow& row)
{
    return {row.m_pName, [&row](CSafeCopy& copy) { return copy.Edit(row.m_pCall); }};
}

StepData Unguarded(const EditRow& row)
{
    const auto edit = [&row](CSafeCopy&) { return row.m_pCall(DirectoryTest::Directory()); };
    return {Joined(row.m_pName, ", unguarded"), edit, false};
}

const StepData KEEP{"Keep", [](CSafeCopy& copy) { return copy.Keep(); }};

// The number of the call after the sync that makes the removal of the mark durable.
std::size_t AfterTheMark(const DiskCalls& calls)
{
    const auto pos = std::find_if(calls.begin(), calls.end(), [](const DiskCallData& call) {
        return call.m_call == DiskCall::UNLINK && call.m_strPath.find("mark") != std::string::npos;
    });
    return static_cast<std::size_t>(pos - calls.begin()) + 3;
}

class PowerCutTest : public GuardedTest
{
  protected:
    void TearDown() override
    {
        CDiskCalls::s_bTwoFileSystems = false;
        std::printf("%zu states of the disk\n", m_nStates + m_mapFound.size());
        GuardedTest::TearDown();
    }

    static int Run(StepData& step, const DiskFaultData& fault = {})
    {
        CSafeCopy copy(COPY_FOLDER);
        const std::string strBefore = Dump();
        const CDiskCalls calls(fault);
        const int nResult = step.m_step(copy);
        step.m_calls = calls.m_calls;
        const std::string strAfter = Dump();
        step.m_during.insert({strBefore, strAfter});
        step.m_after = {nResult == SAFE_RET_NOT_UNDONE ? strBefore : strAfter};
        if (!step.m_bDurable) {
            step.m_after = step.m_during;
        }
        return nResult;
    }

    // Runs the steps, then cuts the power at every moment of them. They stay done.
    void CutPower(std::vector<StepData> steps, const DiskFaultData& fault = {})
    {
        CDiskStates disk(OnDisk(), m_nLengths);
        Dumps last;
        for (StepData& step : steps) {
            EXPECT_GT(Run(step, fault), SAFE_RET_NO_COPY) << step.m_strName;
            step.m_during.merge(last);
            last = step.m_after;
        }
        const Files files = OnDisk();
        for (auto pos = steps.begin(); pos != steps.end() && !HasFailure(); ++pos) {
            CutPower(disk, *pos);
        }
        EXPECT_TRUE(HasFailure() || disk.Now() == files) << "a call went past the record";
        (void)StartOn(files);
        m_nStates += m_mapFound.size();
        m_mapFound.clear();
    }

    void CutPower(CDiskStates& disk, const StepData& step)
    {
        std::set<Files> during, after;
        bool bAll = disk.Collect(during);
        for (const DiskCallData& call : step.m_calls) {
            disk.Apply(call);
            bAll = (!Changes(call) || disk.Collect(during)) && bAll;
        }
        bAll = disk.Collect(after) && bAll;
        Recover(during, step.m_during, "during " + step.m_strName);
        Recover(after, step.m_after, "after " + step.m_strName);
        EXPECT_TRUE(bAll) << "too many states during " << step.m_strName;
    }

    void Recover(const std::set<Files>& states, const Dumps& allowed, const std::string& strWhen)
    {
        for (const Files& files : states) {
            const auto [pos, bNew] = m_mapFound.emplace(files, "");
            if (bNew) {
                RestoreAndStart(files, allowed, pos->second);
            }
            const bool bRefused = m_bMayRefuse && pos->second.find("Restore: -200\n") == 0;
            ASSERT_TRUE(allowed.count(pos->second) == 1 || bRefused)
                << strWhen << ":\n"
                << testing::PrintToString(files) << '\n'
                << pos->second;
            ASSERT_FALSE(HasFailure()) << "in the restore of that " << strWhen;
        }
    }

    // With the power cut in the restore too.
    void RestoreAndStart(const Files& files, const Dumps& allowed, std::string& strFound)
    {
        StepData restore{"Restore", {}};
        Lay(files);
        {
            CSafeCopy copy(COPY_FOLDER);
            const CDiskCalls calls;
            const int nResult = copy.Restore();
            strFound = nResult < 0 ? Joined("Restore: ", nResult, '\n') : "";
            restore.m_calls = calls.m_calls;
        }
        strFound += Dump();
        std::string strKind;
        for (const DiskCallData& call : restore.m_calls) {
            strKind += Joined(int(call.m_call), ' ', call.m_strPath, '\n');
        }
        const bool bNew = m_kinds.insert(strKind).second || m_nLengths > DEFAULT_LENGTHS;
        if (bNew && !std::exchange(m_bInRestore, true)) {
            restore.m_during = allowed;
            restore.m_after = {strFound};
            CDiskStates disk(files, m_nLengths);
            CutPower(disk, restore);
            m_bInRestore = false;
        }
    }

    const std::size_t m_nLengths = Option("NSDIRECTORY_POWER_CUT_LENGTHS", DEFAULT_LENGTHS);
    std::map<Files, std::string> m_mapFound;  // by what was on the disk
    std::set<std::string> m_kinds;            // of restores, by their calls
    bool m_bInRestore = false;
    bool m_bMayRefuse = false;  // there may be no whole copy
    std::size_t m_nStates = 0;
};

// Also if the copies cannot follow the files.
TEST_F(PowerCutTest, EveryEdit)
{
    for (const EditRow& row : EDITS) {
        const Files files = OnDisk();
        StepData step = Guarded(row);
        (void)Run(step);
        (void)StartOn(files);
        CutPower({Guarded(row)}, {AfterTheMark(step.m_calls), DiskEnd::FAILS, LaterCalls::FAIL});
        (void)StartOn(files);
        CutPower({Guarded(row)});
    }
}

TEST_F(PowerCutTest, GuardedAndUnguardedEditsOneAfterTheOther)
{
    (void)FILL.m_pCall(Directory());
    CutPower({KEEP, Unguarded(EDITS[4]), KEEP, Guarded(RENAME), Unguarded(EDITS[6]),
              Guarded(EDITS[16]), Guarded(EDITS[19])});
}

TEST_F(PowerCutTest, UndoneEdits)
{
    (void)FILL.m_pCall(Directory());
    ASSERT_EQ(CSafeCopy(COPY_FOLDER).Keep(), 1);
    const Files files = OnDisk();
    StepData whole = Guarded(RENAME);
    (void)StartOn(files);
    (void)Run(whole);
    for (std::size_t n = 0; n < 2 * whole.m_calls.size() && !HasFailure(); ++n) {
        const DiskCallData& call = whole.m_calls[n / 2];
        if (Changes(call) || call.m_call == DiskCall::SYNC) {
            SCOPED_TRACE(Joined("the fault was at call ", n / 2 + 1));
            CDiskCalls::s_bTwoFileSystems = n % 2 == 1;
            (void)StartOn(files);
            StepData step = Guarded(RENAME);
            (void)Run(step, {n / 2 + 1});
            step.m_during = whole.m_during;
            CDiskStates disk(files, 2);  // more would be too many: no file may be synced
            CutPower(disk, step);
        }
    }
}

// What an unguarded edit then loses may not be made up from copies of two states.
TEST_F(PowerCutTest, CopiesOfWhichOneCouldNotFollow)
{
    (void)FILL.m_pCall(Directory());
    ASSERT_EQ(CSafeCopy(COPY_FOLDER).Keep(), 1);
    const Files files = OnDisk();
    StepData whole = Guarded(RENAME);
    (void)Run(whole);
    std::size_t nCall = 0;
    for (int nRenames = 0; nRenames < 2; ++nCall) {
        nRenames += whole.m_calls[nCall].m_call == DiskCall::RENAME ? 1 : 0;
    }
    (void)StartOn(files);
    m_bMayRefuse = true;
    StepData next = Unguarded(EDITS[4]);
    next.m_during = whole.m_during;  // copies of before the guarded edit may be whole
    CutPower({Guarded(RENAME), next}, {nCall});
}

// Without a mark: one file is newer than its copy, the other was being written.
TEST_F(PowerCutTest, RestoresOfBrokenFiles)
{
    (void)FILL.m_pCall(Directory());
    ASSERT_EQ(CSafeCopy(COPY_FOLDER).Keep(), 1);
    const std::string strKept = Dump();
    (void)EDITS[2].m_pCall(Directory());
    (void)EDITS[4].m_pCall(Directory());
    const Files files = OnDisk();
    for (const char* pPath : {GROUP_FILE_PATH, CONTACT_FILE_PATH}) {
        for (const bool bTwo : {false, true}) {
            CDiskCalls::s_bTwoFileSystems = bTwo;
            Files broken = files;
            broken[pPath].resize(100);
            m_kinds.clear();
            Recover({broken}, {strKept}, "at the start");
        }
    }
}

}  // namespace
