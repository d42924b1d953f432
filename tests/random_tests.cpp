// Random calls of every public operation, checked against the model after each one.
//
// NSDIRECTORY_RANDOM_OPERATIONS and NSDIRECTORY_RANDOM_SEED set how many calls and which; with
// NSDIRECTORY_RANDOM_SHRINK at 0 a failure shows all of them at once.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <random>

#include "tests/support/directory_calls.h"

namespace {

constexpr unsigned long CALLS_PER_FOLDER = 250;  // then an empty folder: directories stay small

unsigned long Option(const char* pName, unsigned long nDefault)
{
    const char* pValue = std::getenv(pName);
    return pValue == nullptr ? nDefault : std::strtoul(pValue, nullptr, 10);
}

// Takes out, in ever smaller pieces, what the failure does not need.
Calls Shrunk(Calls calls)
{
    for (std::size_t nPiece = calls.size() / 2; nPiece != 0; nPiece /= 2) {
        for (std::size_t n = 0; n + nPiece <= calls.size();) {
            Calls fewer = calls;
            const auto first = fewer.begin() + static_cast<std::ptrdiff_t>(n);
            fewer.erase(first, first + static_cast<std::ptrdiff_t>(nPiece));
            const bool bFails = !Replay(fewer).empty();
            calls = bFails ? fewer : calls;
            n += bFails ? 0 : nPiece;
        }
    }
    return calls;
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
            return MakeCall([&](std::size_t nEnd) { return random() % nEnd; });
        });
        const bool bFails = !Replay(calls).empty();
        calls = bFails && Option("NSDIRECTORY_RANDOM_SHRINK", 1) != 0 ? Shrunk(calls) : calls;
        ASSERT_FALSE(bFails) << "seed " << nSeed << ", " << Replay(calls);
    }
    for (const auto& [strName, counts] : g_results) {
        std::printf("%-28s", strName.c_str());
        for (const auto& [nCode, nCount] : counts) {
            std::printf(" %d:%lu", nCode, nCount);
        }
        std::printf("\n");
    }
}

}  // namespace
