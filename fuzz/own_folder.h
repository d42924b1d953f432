// A fuzzer that keeps files works in a folder of its own below TMPDIR, best one in memory. Paths on
// its command line must be absolute.

#ifndef NSDIRECTORY_FUZZ_OWN_FOLDER_H
#define NSDIRECTORY_FUZZ_OWN_FOLDER_H

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

// Called by the fuzzing library, once and first of all.
extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    std::string strFolder = std::filesystem::temp_directory_path() / "nsdirectory-XXXXXX";
    if (mkdtemp(strFolder.data()) == nullptr) {
        std::abort();
    }
    std::filesystem::current_path(strFolder);
    std::filesystem::create_directories("config/data");
    testing::GTEST_FLAG(throw_on_failure) = true;  // nothing catches it: a failed check is a crash
    return 0;
}

#endif  // NSDIRECTORY_FUZZ_OWN_FOLDER_H
