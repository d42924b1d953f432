// Invented directories of any size, the same ones in every run.

#ifndef NSDIRECTORY_BENCH_SAMPLE_H
#define NSDIRECTORY_BENCH_SAMPLE_H

#include <string>
#include <vector>

// Fields in the order in which they stand in the file.
struct SampleContact
{
    std::string m_strName;
    std::string m_strOffice;
    std::string m_strMobile;
    std::string m_strOther;
    int m_nLine;
    std::string m_strRing;
    std::string m_strGroup;
    std::string m_strPhoto;
    int m_nSelectedPhoto;
};

enum class Numbers
{
    EQUAL_LENGTH,  // three numbers of 11 digits each: no comparison is decided by the length
    MIXED_LENGTH   // of 3 to 13 digits, a third of the fields empty
};

inline constexpr int BLACK_COUNT = 30;
inline constexpr int DIRECTORY_COUNT = 990 + BLACK_COUNT;
inline constexpr char NUMBER_OF_NOBODY[] = "07771234567";

// In list order, spread over the groups; 30 of them are blacklisted.
std::vector<SampleContact> SampleContacts(int nCount, Numbers numbers = Numbers::MIXED_LENGTH);

// The fixed groups, then user groups in list order, nCount in all.
std::vector<std::string> SampleGroups(int nCount);

#endif  // NSDIRECTORY_BENCH_SAMPLE_H
