#include "platform/device_services.h"

#include <unistd.h>

#include <cerrno>

// This model has a colour screen.
int IsColorfulScreen()
{
    return 1;
}

// Any other error, such as EIO, ENOMEM or EACCES, does not mean that the file is absent.
int ZMK_MiscHelper::pathFileExist(const char* path)
{
    const bool bAbsent = access(path, F_OK) != 0 && (errno == ENOENT || errno == ENOTDIR);
    return bAbsent ? 0 : 1;
}

// This model shows the blacklist among the groups.
int configParser_GetConfigInt(const char* /*name*/, ZMK_RegistryHelper::CONFIG_LEVEL_TYPE /*level*/)
{
    return 1;
}
