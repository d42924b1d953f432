// The XML library calls the plain names, which the system's headers would replace or define here.
#undef _FILE_OFFSET_BITS
#undef _TIME_BITS
#undef _FORTIFY_SOURCE

#include "tests/support/fake_system.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <pugixml.hpp>

#include "platform/device_services.h"

namespace {

FileCalls* g_pCalls = nullptr;

bool Refuses(FileCalls::Kind kind)
{
    return g_pCalls != nullptr && ++g_pCalls->m_arrCount[kind] == g_pCalls->m_arrFailing[kind];
}

void* AllocateXml(std::size_t nBytes)
{
    return Refuses(FileCalls::XML_MEMORY) ? nullptr : std::malloc(nBytes);
}

// The system's function, which the one of that name here hides.
template <class Function>
Function* Real(Function* /*pOwn*/, const char* pName)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, pName));
}

}  // namespace

// Yes is 2: any answer but 0 is one.
int IsColorfulScreen()
{
    return g_device.m_bColorful ? 2 : 0;
}

int ZMK_MiscHelper::pathFileExist(const char* path)
{
    std::snprintf(g_device.m_szFileAsked, sizeof(g_device.m_szFileAsked), "%s", path);
    return access(path, F_OK) == 0 ? 2 : 0;
}

int configParser_GetConfigInt(const char* name, ZMK_RegistryHelper::CONFIG_LEVEL_TYPE level)
{
    std::snprintf(g_device.m_szConfigAsked, sizeof(g_device.m_szConfigAsked), "%s %d", name,
                  int{level});
    return g_device.m_nConfigValue;
}

FileCalls::FileCalls()
{
    g_pCalls = this;
    pugi::set_memory_management_functions(AllocateXml, std::free);
}

FileCalls::~FileCalls()
{
    g_pCalls = nullptr;
    pugi::set_memory_management_functions(std::malloc, std::free);
}

// What an executable defines under these names serves its shared libraries too.
extern "C" {

FILE* fopen(const char* path, const char* mode)
{
    if (g_pCalls != nullptr && mode[0] != 'r') {
        g_pCalls->m_listWritten.emplace_back(path);
    }
    return Refuses(FileCalls::OPEN) ? nullptr : Real(fopen, "fopen")(path, mode);
}

size_t fread(void* data, size_t size, size_t count, FILE* file)
{
    return Refuses(FileCalls::READ) ? 0 : Real(fread, "fread")(data, size, count, file);
}

size_t fwrite(const void* data, size_t size, size_t count, FILE* file)
{
    if (Refuses(FileCalls::WRITE)) {
        return 0;
    }
    return Real(fwrite, "fwrite")(data, size, count, file);
}
}
