// What one call takes beside its time: heap, stack, and what it writes.

#ifndef NSDIRECTORY_BENCH_FOOTPRINT_CALL_COST_H
#define NSDIRECTORY_BENCH_FOOTPRINT_CALL_COST_H

#include "bench/row.h"

struct CallCost
{
    long m_nHeap;     // the most bytes that it held at a time, beyond what it leaves
    long m_nStack;    // bytes
    long m_nWritten;  // bytes, to all files
};

// Prepares and runs the call twice, and counts the second time: the first call of a function also
// binds its name, which takes stack of its own.
CallCost CostOf(const Step& prepare, const Step& call);

#endif  // NSDIRECTORY_BENCH_FOOTPRINT_CALL_COST_H
