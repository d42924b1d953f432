// The calls by which a program reaches the disk: recorded, and failed on request.
//
// A function that an executable defines serves its shared libraries too, so disk_calls.cpp defines
// those of the system; the library's streams are led through them. Watched are the files with
// relative paths, while a CDiskCalls lives.

#ifndef NSDIRECTORY_TESTS_SUPPORT_DISK_CALLS_H
#define NSDIRECTORY_TESTS_SUPPORT_DISK_CALLS_H

#include <fcntl.h>

#include <map>
#include <string>
#include <vector>

// clang-format off
enum class DiskCall { OPEN, READ, WRITE, SYNC, CLOSE, RENAME, UNLINK, MEMORY };  // of XML, records
enum class DiskEnd { DONE, FAILS, HALF_WRITTEN, ALL_BUT_ONE_WRITTEN };
enum class LaterCalls { DONE, OF_THIS_KIND_FAIL, FAIL };
// clang-format on

struct DiskCallData
{
    DiskCall m_call;
    std::string m_strPath = {};  // of an open file the one by which it was opened
    std::string m_strText = {};  // what was written, always at the end; the new path of a rename
    int m_nFlags = 0;            // of an open
    int m_nFile = -1;
    DiskEnd m_end = DiskEnd::DONE;
};
inline bool Changes(const DiskCallData& call)
{
    return call.m_call == DiskCall::WRITE || call.m_call == DiskCall::RENAME ||
           call.m_call == DiskCall::UNLINK || (call.m_nFlags & O_CREAT) != 0;
}
using DiskCalls = std::vector<DiskCallData>;

struct DiskFaultData
{
    std::size_t m_nCall = 0;  // from 1; 0: none
    DiskEnd m_end = DiskEnd::FAILS;
    LaterCalls m_later = LaterCalls::DONE;
};

// One at a time.
class CDiskCalls
{
  public:
    explicit CDiskCalls(const DiskFaultData& fault = {});
    CDiskCalls(const CDiskCalls&) = delete;
    ~CDiskCalls();

    // How this call ends; errno says why it fails.
    DiskEnd Enter(const DiskCallData& call);

    static inline bool s_bTwoFileSystems = false;  // no rename goes from folder to folder

    DiskCalls m_calls = {};
    std::map<int, std::string> m_mapOpen = {};  // paths of the files that are open

  private:
    DiskFaultData m_fault;
};

#endif  // NSDIRECTORY_TESTS_SUPPORT_DISK_CALLS_H
