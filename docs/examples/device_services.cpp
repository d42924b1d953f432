#include "platform/device_services.h"

#include <unistd.h>

// This model has a colour screen.
int IsColorfulScreen()
{
    return 1;
}

int ZMK_MiscHelper::pathFileExist(const char* path)
{
    return access(path, F_OK) == 0 ? 1 : 0;
}

// This model shows the blacklist among the groups.
int configParser_GetConfigInt(const char* /*name*/, ZMK_RegistryHelper::CONFIG_LEVEL_TYPE /*level*/)
{
    return 1;
}
