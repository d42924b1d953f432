// Makes the compiler compute what nobody looks at, as a benchmark must.

#ifndef NSDIRECTORY_BENCH_KEEP_H
#define NSDIRECTORY_BENCH_KEEP_H

// For a value that the measured work has made, and for one that it must not know beforehand.
template <class T>
void Keep(T& value)
{
    asm volatile("" : "+m,r"(value) : : "memory");
}

template <class T>
void Keep(const T& value)
{
    asm volatile("" : : "r,m"(value) : "memory");
}

#endif  // NSDIRECTORY_BENCH_KEEP_H
