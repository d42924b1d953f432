// The device that the tests run on: a test sets its answers and sees what it was asked.

#ifndef NSDIRECTORY_TESTS_SUPPORT_FAKE_DEVICE_H
#define NSDIRECTORY_TESTS_SUPPORT_FAKE_DEVICE_H

#include <string>
#include <vector>

struct FakeDevice
{
    bool m_bColorful = true;
    int m_nConfigValue = 0;
    std::vector<std::string> m_listFilesAsked, m_listConfigAsked;  // paths; "key level"
};

extern FakeDevice g_device;  // new for each test of DirectoryTest

#endif  // NSDIRECTORY_TESTS_SUPPORT_FAKE_DEVICE_H
