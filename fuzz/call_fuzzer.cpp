// Any sequence of public calls, against the model of the directory. The input makes the choices
// that the random test draws by lot.

#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz/own_folder.h"
#include "tests/support/scenario.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    FuzzedDataProvider input(pData, nSize);
    Calls calls;
    while (input.remaining_bytes() != 0 && calls.size() < 100) {
        calls.push_back(RandomCall([&](std::size_t nEnd) {
            return input.ConsumeIntegralInRange<std::size_t>(0, nEnd - 1);
        }));
    }
    const std::string strFailure = FailureOf(calls);
    EXPECT_TRUE(strFailure.empty()) << strFailure;
    return 0;
}
