#include "tests/support/fake_device.h"

#include <filesystem>

#include "platform/device_services.h"

FakeDevice g_device;

// Yes is 2: any answer but 0 is one.
int IsColorfulScreen()
{
    return g_device.m_bColorful ? 2 : 0;
}

int ZMK_MiscHelper::pathFileExist(const char* path)
{
    g_device.m_listFilesAsked.emplace_back(path);
    return std::filesystem::exists(path) ? 2 : 0;
}

int configParser_GetConfigInt(const char* name, ZMK_RegistryHelper::CONFIG_LEVEL_TYPE level)
{
    g_device.m_listConfigAsked.push_back(std::string(name) + ' ' + std::to_string(int{level}));
    return g_device.m_nConfigValue;
}
