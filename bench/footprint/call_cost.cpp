#include "bench/footprint/call_cost.h"

#include <ucontext.h>

#include <algorithm>
#include <array>
#include <fstream>

#include "bench/directory.h"
#include "bench/heap_count.h"

namespace {

constexpr unsigned char PAINT = 0xA5;

// The call runs on a stack of its own, which is painted before: the paint that is left was never
// reached.
alignas(16) std::array<unsigned char, 256 * 1024> g_stack;
const Step* g_pCall = nullptr;

void RunCall()
{
    (*g_pCall)();
}

long RunOnPaintedStack(const Step& call)
{
    g_stack.fill(PAINT);
    g_pCall = &call;
    ucontext_t caller;
    ucontext_t callee;
    Require(getcontext(&callee) == 0, "a stack for the call");
    callee.uc_stack.ss_sp = g_stack.data();
    callee.uc_stack.ss_size = g_stack.size();
    callee.uc_link = &caller;
    makecontext(&callee, &RunCall, 0);
    swapcontext(&caller, &callee);
    const auto* const pReached =
        std::find_if(g_stack.begin(), g_stack.end(), [](auto byte) { return byte != PAINT; });
    return static_cast<long>(g_stack.end() - pReached);
}

// By this process so far, as the kernel counts them.
long BytesWritten()
{
    std::ifstream counts("/proc/self/io");
    std::string strName;
    long nCount = 0;
    while (counts >> strName >> nCount) {
        if (strName == "wchar:") {
            return nCount;
        }
    }
    Require(false, "a count of the bytes written");
    return 0;
}

CallCost CostOfOne(const Step& call)
{
    const long nWritten = BytesWritten();
    g_heap.m_nPeakBytes = g_heap.m_nBytes;
    const long nStack = RunOnPaintedStack(call);
    const long nHeap = g_heap.m_nPeakBytes - g_heap.m_nBytes;
    return {nHeap, nStack, BytesWritten() - nWritten};
}

}  // namespace

CallCost CostOf(const Step& prepare, const Step& call)
{
    prepare();
    (void)CostOfOne(call);
    prepare();
    return CostOfOne(call);
}
