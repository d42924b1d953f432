// Counts the instructions of a step. Two counters are known: callgrind, which dumps a profile under
// the title (start it with --tool=callgrind --instr-atstart=no), and the plugin of the emulator in
// emulator_plugin.cpp, which prints "title|count". Elsewhere nothing is counted.

#ifndef NSDIRECTORY_BENCH_INSTRUCTION_COUNT_H
#define NSDIRECTORY_BENCH_INSTRUCTION_COUNT_H

#include <string>

#include "bench/row.h"

bool IsCounterThere();

void CountInstructions(const Step& step, const std::string& strTitle);

#endif  // NSDIRECTORY_BENCH_INSTRUCTION_COUNT_H
