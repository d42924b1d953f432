// Any two files: what a load takes from them is a sound directory, and the saves and loads that
// follow lose nothing more.
//
// Input: '0' for a plain screen or '1' for a colour one, the group file, a form feed, the contact
// file. An empty file is not there at all.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <set>

#include "fuzz/own_folder.h"
#include "tests/support/directory_test.h"

namespace {

void Plant(const char* pPath, const std::string& strText)
{
    strText.empty() ? (void)std::remove(pPath) : WriteFile(pPath, strText);
}

// The ids and counts that a load gives.
void ExpectSoundLoad(const NS_DIRECTORY::CContactLocalManager& d)
{
    const std::string strMemory = DirectoryTest::Memory();
    std::set<int> ids;
    for (auto pos = d.m_listGroup.begin(); pos != d.m_listGroup.end(); pos = pos->next) {
        EXPECT_TRUE(ids.insert(pos->value->m_nId).second) << strMemory;
        EXPECT_FALSE(pos->value->m_strDisplayName.empty()) << strMemory;
    }
    const Texts names = Names(d.m_listGroup);
    const bool bFixed = ids.size() > 1 && *ids.begin() == 0 && ids.count(1) == 1 &&
                        names[0] == "All Contacts" && names[1] == "Blacklist";
    EXPECT_TRUE(bFixed || names.empty()) << strMemory;
    for (auto pos = d.m_listContact.begin(); pos != d.m_listContact.end(); pos = pos->next) {
        const int nId = pos->value->m_nGroupId;
        EXPECT_TRUE(names.empty() ? nId == 0 : ids.count(nId) == 1) << strMemory;
    }
    EXPECT_LE(names.size(), 50U);
    EXPECT_LE(d.GetCurrentBlackCount(), 30);
    EXPECT_LE(d.GetCurrentContactCount(), names.empty() ? 1030 : 1000);
}

// The two files as a start on the present ones saves them.
std::string SavedAfterStart()
{
    DirectoryTest::Restart();
    DirectoryTest::ExpectSound();
    ExpectSoundLoad(DirectoryTest::Directory());
    DirectoryTest::Directory().MySetGroupDirty(true);
    DirectoryTest::Directory().MySetContactDirty(true);
    DirectoryTest::ExpectSound();
    return ReadFile(GROUP_FILE) + ReadFile(CONTACT_FILE);
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
    Plant(GROUP_FILE, std::string(pData + 1, pSplit));
    Plant(CONTACT_FILE, std::string(pSplit + (pSplit != pEnd), pEnd));
    const std::string strFirst = SavedAfterStart();
    // Without groups the first save keeps the names of missing ones, and the second start drops
    // them.
    const bool bHadGroups = DirectoryTest::Directory().GetCurrentGroupCount() != 0;
    const std::string strSecond = SavedAfterStart();
    EXPECT_EQ(strSecond, bHadGroups ? strFirst : strSecond);
    EXPECT_EQ(SavedAfterStart(), strSecond);
    return 0;
}
