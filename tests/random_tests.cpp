// Random calls of every operation, checked against the model after each one.
//
// NSDIRECTORY_RANDOM_OPERATIONS and NSDIRECTORY_RANDOM_SEED set how many calls and which; with
// NSDIRECTORY_RANDOM_SHRINK at 0 a failure shows all of them at once.

#include <cstdio>
#include <iterator>
#include <random>

#include "tests/support/scenario.h"

namespace {

constexpr unsigned long CALLS_PER_FOLDER = 250;  // then an empty folder: directories stay small

unsigned long Option(const char* pName, unsigned long nDefault)
{
    const char* pValue = std::getenv(pName);
    return pValue == nullptr ? nDefault : std::strtoul(pValue, nullptr, 10);
}

using RandomTest = DirectoryTest;

TEST_F(RandomTest, EveryCallDoesWhatTheModelDoes)
{
    const unsigned long nSeed = Option("NSDIRECTORY_RANDOM_SEED", 1);
    const unsigned long nCalls = Option("NSDIRECTORY_RANDOM_OPERATIONS", 100000);
    std::printf("seed %lu, %lu operations\n", nSeed, nCalls);
    std::mt19937 random(static_cast<unsigned int>(nSeed));
    for (unsigned long nDone = 0; nDone < nCalls; nDone += CALLS_PER_FOLDER) {
        Calls calls;
        std::generate_n(std::back_inserter(calls), std::min(CALLS_PER_FOLDER, nCalls - nDone), [&] {
            return RandomCall([&](std::size_t nEnd) { return random() % nEnd; });
        });
        const bool bCutDown = Option("NSDIRECTORY_RANDOM_SHRINK", 1) != 0;
        const std::string strFailure = FailureOf(calls, bCutDown);
        if (!strFailure.empty()) {
            FAIL() << "seed " << nSeed << ": " << strFailure;
        }
    }
}

}  // namespace
