// Calls of every public operation, for whoever has choices to make them from, and their replay
// against the model. After each call the two are compared: the result, all that lies in memory, the
// files byte for byte, which were written in which order, and how many bytes.

#ifndef NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_CALLS_H
#define NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_CALLS_H

#include <functional>
#include <map>

#include "tests/support/directory_test.h"

// What a call may be given; each operation takes what it needs.
struct CallData
{
    std::size_t m_nOperation;
    String m_strName, m_strGroup, m_strNumber, m_strPath;
    int m_nId, m_nLimit, m_nFrom, m_nCount;
    std::size_t m_nField;  // of a contact
    bool m_bFlag;          // false: pointers are null, switches off
    ContactGroupData m_group = {};
    ContactGeneralItemData m_contact = {};
    Texts m_names = {};
    std::string m_strFile = {};

    const char* Pointer(const String& str) const { return m_bFlag ? str.c_str() : nullptr; }
};
using Calls = std::vector<CallData>;

// The call that these choices make, each a number below the one given.
using Choice = std::function<std::size_t(std::size_t nEnd)>;
CallData MakeCall(const Choice& below);

// Makes the calls from an empty folder, up to the first where the two differ. What differs there,
// and after which calls; empty where nothing does.
std::string Replay(const Calls& calls);

// How often each operation gave each result so far.
extern std::map<std::string, std::map<int, unsigned long>> g_results;

#endif  // NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_CALLS_H
