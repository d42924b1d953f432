// Instructions: runs each row that counts them once, and reports a count for each side under the
// row's name.
//   nsdirectory_bench_instructions [PATTERN]     only rows whose name the regular expression finds

#include <regex>

#include "bench/directory.h"
#include "bench/instruction_count.h"
#include "bench/row.h"

namespace {

void Count(const Pair& pair, const Step& step, const std::string& strTitle)
{
    CountInstructions(step, strTitle);
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

int main(int argc, char** argv)
{
    Require(IsCounterThere(), "a counter of instructions, under which this program runs");
    const std::regex pattern(argc > 1 ? argv[1] : "");
    const CWorkFolder folder;
    std::vector<Row> rows;
    AppendWalkRows(rows);
    AppendFileRows(rows);
    AppendEditRows(rows);
    for (const Row& row : rows) {
        if (row.m_dInstructionAim != NO_AIM && std::regex_search(row.m_strName, pattern)) {
            CountBoth(row);
        }
    }
    return EXIT_SUCCESS;
}
