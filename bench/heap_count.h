// Counts the heap of the whole process, the libraries' too. If another tool has put its own
// allocator in place, nothing is counted.

#ifndef NSDIRECTORY_BENCH_HEAP_COUNT_H
#define NSDIRECTORY_BENCH_HEAP_COUNT_H

#include <climits>
#include <cstddef>
#include <cstdint>

struct HeapCount
{
    long m_nAllocations = 0;
    long m_nBlocks = 0;  // in use
    long m_nBytes = 0;   // in use, as the allocator rounds them
    long m_nPeakBytes = 0;
    std::size_t m_nLargest = SIZE_MAX;  // malloc gives no block above this
    // How many more blocks malloc gives. After that it refuses one, or all of them.
    long m_nLeft = LONG_MAX;
    bool m_bRefusesOnlyOne = false;
};

extern HeapCount g_heap;

bool IsHeapCounted();

// What a step allocates, freed or not.
template <class Step>
long AllocationsOf(Step step)
{
    const long nBefore = g_heap.m_nAllocations;
    step();
    return g_heap.m_nAllocations - nBefore;
}

#endif  // NSDIRECTORY_BENCH_HEAP_COUNT_H
