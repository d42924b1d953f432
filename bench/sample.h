// Invented directories of any size, the same ones in every run.

#ifndef NSDIRECTORY_BENCH_SAMPLE_H
#define NSDIRECTORY_BENCH_SAMPLE_H

#include <string>
#include <vector>

// Fields in the order of the file.
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
    MIXED_LENGTH,  // of 3 to 13 digits, a third of the fields empty
    BOTH_FORMS     // of 12 to 17 digits: half of them do not fit into the String itself
};

inline constexpr int BLACK_COUNT = 30;
inline constexpr int DIRECTORY_COUNT = 990 + BLACK_COUNT;
// Of nobody: one with few bits set, too, since the library rules contacts out by their bits.
inline constexpr char NUMBER_OF_NOBODY[] = "07771234567";
inline constexpr char FEW_BITS_OF_NOBODY[] = "100";
inline constexpr char SHORT_NUMBER_OF_NOBODY[] = "07771234567890";
inline constexpr char LONG_NUMBER_OF_NOBODY[] = "077712345678901";
// Of the last contact alone; the second and third only if numbers are in both forms.
inline constexpr char LAST_NUMBER[] = "01709876543";
inline constexpr char LAST_SHORT_NUMBER[] = "01709876543210";
inline constexpr char LAST_LONG_NUMBER[] = "017098765432109";

// In list order, spread over the groups; 30 of them are blacklisted.
std::vector<SampleContact> SampleContacts(int nCount, Numbers numbers = Numbers::MIXED_LENGTH);

// The fixed groups, then user groups in list order, nCount in all.
std::vector<std::string> SampleGroups(int nCount);

#endif  // NSDIRECTORY_BENCH_SAMPLE_H
