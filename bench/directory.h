// The directory that a row works on, started on sample files in the working directory.

#ifndef NSDIRECTORY_BENCH_DIRECTORY_H
#define NSDIRECTORY_BENCH_DIRECTORY_H

#include <filesystem>
#include <string>
#include <vector>

#include "bench/sample.h"
#include "directory/contact_local_manager.h"

inline constexpr int GROUP_COUNT = 49;  // one below the limit

// A fresh working directory for the whole process; goes with all that is in it.
class CWorkFolder
{
  public:
    CWorkFolder();
    ~CWorkFolder();
    CWorkFolder(const CWorkFolder&) = delete;
    CWorkFolder& operator=(const CWorkFolder&) = delete;

  private:
    std::filesystem::path m_pathBefore;
    std::filesystem::path m_pathFolder;
};

// Writes both files and starts the directory over on them, with limits that take them whole.
NS_DIRECTORY::CContactLocalManager& StartDirectory(const std::vector<SampleContact>& contacts,
                                                   int nGroups = GROUP_COUNT);

NS_DIRECTORY::ContactGeneralItemData BoundaryRecord(const SampleContact& contact);

std::string FileText(const char* pPath);

// Ends the program: a figure for something else than what the row says is worse than none.
void Require(bool bHolds, const char* pWhat);

#endif  // NSDIRECTORY_BENCH_DIRECTORY_H
