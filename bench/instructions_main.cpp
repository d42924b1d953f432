// Instructions: runs each row that counts them once under callgrind, which dumps a count for each
// side under the row's name. Start it with --tool=callgrind --instr-atstart=no.

#include <valgrind/callgrind.h>

#include "bench/directory.h"
#include "bench/row.h"

namespace {

void Count(const Pair& pair, const Step& step, const std::string& strTitle)
{
    CALLGRIND_ZERO_STATS;
    CALLGRIND_START_INSTRUMENTATION;
    step();
    CALLGRIND_STOP_INSTRUMENTATION;
    CALLGRIND_DUMP_STATS_AT(strTitle.c_str());
    if (pair.m_restore) {
        pair.m_restore();
    }
}

void CountBoth(const Row& row)
{
    const Pair pair = row.m_prepare();
    const std::string strTitle = std::to_string(row.m_dInstructionAim) + '|' + row.m_strName;
    // The first call of each side also binds symbols.
    for (const Step* pStep : {&pair.m_product, &pair.m_reference}) {
        (*pStep)();
        if (pair.m_restore) {
            pair.m_restore();
        }
    }
    Count(pair, pair.m_product, "measured|" + strTitle);
    Count(pair, pair.m_reference, "reference|" + strTitle);
}

}  // namespace

int main()
{
    Require(RUNNING_ON_VALGRIND != 0, "callgrind, under which this program runs");
    const CWorkFolder folder;
    for (const Row& row : AllRows()) {
        if (row.m_dInstructionAim != NO_AIM) {
            CountBoth(row);
        }
    }
    return EXIT_SUCCESS;
}
