#include "bench/instruction_count.h"

#include <unistd.h>
#include <valgrind/callgrind.h>

#include <cstdio>

#include "bench/emulator_mark.h"

#ifdef __arm__

bool IsCounterThere()
{
    return true;  // the plugin cannot be asked: without it the lines stay without a count
}

void CountInstructions(const Step& step, const std::string& strTitle)
{
    std::printf("%s|", strTitle.c_str());
    std::fflush(stdout);
    syscall(MARK_SYSTEM_CALL, MARK_START);
    step();
    syscall(MARK_SYSTEM_CALL, MARK_STOP);
}

#else

bool IsCounterThere()
{
    return RUNNING_ON_VALGRIND != 0;
}

void CountInstructions(const Step& step, const std::string& strTitle)
{
    CALLGRIND_ZERO_STATS;
    CALLGRIND_START_INSTRUMENTATION;
    step();
    CALLGRIND_STOP_INSTRUMENTATION;
    CALLGRIND_DUMP_STATS_AT(strTitle.c_str());
}

#endif
