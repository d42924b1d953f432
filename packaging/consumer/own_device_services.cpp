// The services of a device of this consumer's own.

#include "platform/device_services.h"

#include <unistd.h>

int IsColorfulScreen()
{
    return 0;
}

int ZMK_MiscHelper::pathFileExist(const char* path)
{
    return access(path, F_OK) == 0 ? 1 : 0;
}

int configParser_GetConfigInt(const char* /*name*/, ZMK_RegistryHelper::CONFIG_LEVEL_TYPE /*level*/)
{
    return 0;
}
