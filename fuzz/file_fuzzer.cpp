// Any two files: a load takes from them what the model takes, and the saves and loads that follow
// lose nothing more.
//
// Input: '0' for a plain screen or '1' for a colour one, the group file, a form feed, the contact
// file. An empty file is not there at all.

#include <algorithm>
#include <cstdint>

#include "fuzz/own_folder.h"
#include "tests/support/directory_model.h"

namespace {

// The two files as a start on the given ones saves them.
Texts SavedAfterStart(const Texts& files)
{
    CDirectoryModel model;
    const char* const paths[] = {GROUP_FILE, CONTACT_FILE};
    for (const std::size_t n : {0U, 1U}) {
        std::filesystem::remove(paths[n]);
        if (!files[n].empty()) {
            model.m_files[paths[n]] = files[n];
        }
    }
    model.StartBoth();
    DirectoryTest::ExpectSound();
    EXPECT_EQ(DirectoryTest::Memory(), model.Memory());
    DirectoryTest::Directory().MySetGroupDirty(true);
    DirectoryTest::Directory().MySetContactDirty(true);
    return {ReadFile(GROUP_FILE), ReadFile(CONTACT_FILE)};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    if (nSize == 0) {
        return 0;
    }
    const std::uint8_t* const pEnd = pData + nSize;
    const std::uint8_t* const pSplit = std::find(pData + 1, pEnd, '\f');
    g_device = FakeDevice();
    g_device.m_bColorful = *pData % 2 != 0;
    const Texts first = SavedAfterStart(
        {std::string(pData + 1, pSplit), std::string(pSplit + (pSplit != pEnd), pEnd)});
    // Without groups the first save keeps the names of missing ones, and the second drops them.
    const Texts second = SavedAfterStart(first);
    EXPECT_EQ(SavedAfterStart(second), second);
    return 0;
}
