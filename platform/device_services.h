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

/// Whether the screen shows colours. Only then do contacts have photos: the directory reads, writes
/// and hands out the photo fields on colour screens alone. If the answer changes to zero while
/// contacts are stored, they lose their photos with the next save.
/// - Returns: non-zero if it does.
int IsColorfulScreen();

class ZMK_MiscHelper
{
  public:
    /// Whether a file exists at the path. The directory asks for its two files and for the ring of
    /// a contact. After a wrong zero for the group file, the default groups are written over it;
    /// after one for the contact file, the next save writes an empty list over it. So do not return
    /// zero if memory is short or the storage fails, and do not start the directory before the
    /// storage is mounted.
    /// - Returns: zero if there is no such file, else non-zero.
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

/// Looks up a key of the device's configuration. The directory asks for one key only,
/// "HistoryBlackListShowSwitch": 1 shows the group "Blacklist" among the groups, any other value
/// hides it.
/// - Returns: the integer of the key name; the device chooses the one for an absent key.
int configParser_GetConfigInt(const char* name, ZMK_RegistryHelper::CONFIG_LEVEL_TYPE level);

#pragma GCC visibility pop

#endif  // NSDIRECTORY_PLATFORM_DEVICE_SERVICES_H
