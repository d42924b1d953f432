#include "bench/heap_count.h"

#include <malloc.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <new>

HeapCount g_heap;

bool IsHeapCounted()
{
    return AllocationsOf([] { ::operator delete(::operator new(1)); }) != 0;
}

// The sanitizers bring allocators of their own.
#ifndef __has_feature
#define __has_feature(name) 0
#endif
#if !defined(__SANITIZE_ADDRESS__) && !__has_feature(address_sanitizer)

namespace {

void* Noted(void* pBlock)
{
    if (pBlock != nullptr) {
        ++g_heap.m_nAllocations;
        ++g_heap.m_nBlocks;
        g_heap.m_nBytes += static_cast<long>(malloc_usable_size(pBlock));
        g_heap.m_nPeakBytes = std::max(g_heap.m_nPeakBytes, g_heap.m_nBytes);
    }
    return pBlock;
}

bool Refuses(size_t nSize)
{
    const bool bUsedUp = g_heap.m_nLeft <= 0 && !(g_heap.m_bRefusesOnlyOne && g_heap.m_nLeft < 0);
    --g_heap.m_nLeft;
    if (!bUsedUp && nSize <= g_heap.m_nLargest) {
        return false;
    }
    errno = ENOMEM;
    return true;
}

void NoteGone(void* pBlock)
{
    if (pBlock != nullptr) {
        --g_heap.m_nBlocks;
        g_heap.m_nBytes -= static_cast<long>(malloc_usable_size(pBlock));
    }
}

}  // namespace

// operator new and the C library's own buffers pass through here too.
extern "C" {

void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);
void __libc_free(void* block);

void* malloc(size_t size)
{
    return Refuses(size) ? nullptr : Noted(__libc_malloc(size));
}

void* calloc(size_t count, size_t size)
{
    return Noted(__libc_calloc(count, size));
}

void* realloc(void* block, size_t size)
{
    if (Refuses(size)) {
        return nullptr;
    }
    NoteGone(block);
    return Noted(__libc_realloc(block, size));
}

void free(void* block)
{
    NoteGone(block);
    __libc_free(block);
}
}

#endif
