/// \file
/// The services that the device supplies to the directory. The library leaves these three undefined
/// and calls them on the host's thread; the program that links the library defines them. A plain
/// workstation answer is in platform/host/.
///
/// Duties of every answer:
///  - It returns, soon, and throws nothing. It must not call the directory.
///  - The directory asks anew each time and keeps no answer. A load, a save and an export ask for
///    the screen once a contact, so that answer should cost no more than reading a variable.

#ifndef NSDIRECTORY_PLATFORM_DEVICE_SERVICES_H
#define NSDIRECTORY_PLATFORM_DEVICE_SERVICES_H

#pragma GCC visibility push(default)

/// Non-zero if the screen shows colours. Only then do contacts have photos: the directory reads,
/// writes and hands out the photo fields on colour screens alone. An answer that changes while
/// contacts are stored costs their photos at the next load or save on a plain screen.
int IsColorfulScreen();

class ZMK_MiscHelper
{
  public:
    /// Non-zero if a file exists at the path. It is asked for the two files of the directory and
    /// for the ring of a contact. A wrong zero for the group file has the default groups written
    /// over it, and one for the contact file gives an empty list that the next save writes over it.
    /// So an answer that cannot be had, because of a shortage of memory or an error of the storage,
    /// is not zero, and a device whose storage is not up yet must not start the directory.
    static int pathFileExist(const char* path);
};

class ZMK_RegistryHelper
{
  public:
    /// The layer of the device's configuration in which a key is looked up. The directory asks for
    /// CONFIG_LEVEL_USER only; a device may have further layers.
    enum CONFIG_LEVEL_TYPE : int
    {
        CONFIG_LEVEL_SYSTEM = 0,
        CONFIG_LEVEL_USER = 1
    };
};

/// The integer that the configuration holds for the key name. The one key that the directory asks
/// for is "HistoryBlackListShowSwitch": exactly 1 shows the group "Blacklist" among the groups, any
/// other value hides it. The answer for a key that is not there is the device's choice.
int configParser_GetConfigInt(const char* name, ZMK_RegistryHelper::CONFIG_LEVEL_TYPE level);

#pragma GCC visibility pop

#endif  // NSDIRECTORY_PLATFORM_DEVICE_SERVICES_H
