// What the rows of lookups ask for, and the side of the library in each of them.

#ifndef NSDIRECTORY_BENCH_LOOKUP_H
#define NSDIRECTORY_BENCH_LOOKUP_H

#include <string>
#include <vector>

#include "bench/row.h"
#include "bench/sample.h"

struct Wanted
{
    const char* m_pText;
    Numbers m_numbers;
    const char* m_pNumber;  // of nobody or of the last contact
    bool m_bHit;
};

inline constexpr Wanted MISS = {"miss, equal lengths", Numbers::EQUAL_LENGTH, NUMBER_OF_NOBODY,
                                false};
inline constexpr Wanted MISS_MIXED = {"miss, mixed lengths", Numbers::MIXED_LENGTH,
                                      NUMBER_OF_NOBODY, false};
inline constexpr Wanted HIT_MIXED = {"last contact, mixed lengths", Numbers::MIXED_LENGTH,
                                     LAST_NUMBER, true};

// Empty for a miss.
std::string NameToFind(const std::vector<SampleContact>& contacts, const Wanted& wanted);

Step ProductLookup(const std::vector<SampleContact>& contacts, const Wanted& wanted);

std::string LookupName(const Wanted& wanted, const char* pReference);

#endif  // NSDIRECTORY_BENCH_LOOKUP_H
