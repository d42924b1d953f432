// A plain answer to the device services, for programs that run on a workstation.
//
// Configuration: the file "device_config.xml" in the working directory of the process, one element
// for each key:
//
//   <device_config>
//       <int level="user" name="HistoryBlackListShowSwitch" value="1" />
//   </device_config>
//
// The levels are "system" and "user". The file is read anew for each question, so that a change is
// seen at once. A key that is not there, or no file at all, answers 0.

#include "platform/device_services.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <pugixml.hpp>

#include "platform/host/screen_colours.h"

namespace {

constexpr char CONFIG_FILE[] = "device_config.xml";
constexpr char FRAME_BUFFER[] = "/dev/fb0";
constexpr char FRAME_BUFFER_DEPTH[] = "/sys/class/graphics/fb0/bits_per_pixel";

const char* LevelName(ZMK_RegistryHelper::CONFIG_LEVEL_TYPE level)
{
    return level == ZMK_RegistryHelper::CONFIG_LEVEL_USER ? "user" : "system";
}

}  // namespace

int IsColorfulScreen()
{
    static const bool bColours = platform_host::HasColours(FRAME_BUFFER, FRAME_BUFFER_DEPTH);
    return bColours ? 1 : 0;
}

// A file that is wrongly said to be absent is written over. So every failure but the two that mean
// "no such file" counts as a file. A folder does not: it cannot be written over, and is no ring.
int ZMK_MiscHelper::pathFileExist(const char* path)
{
    if (path == nullptr) {
        return 0;
    }
    struct stat info = {};
    if (stat(path, &info) == 0) {
        return S_ISDIR(info.st_mode) ? 0 : 1;
    }
    return errno == ENOENT || errno == ENOTDIR ? 0 : 1;
}

int configParser_GetConfigInt(const char* name, ZMK_RegistryHelper::CONFIG_LEVEL_TYPE level)
{
    if (name == nullptr) {
        return 0;
    }
    pugi::xml_document document;
    (void)document.load_file(CONFIG_FILE);  // of a broken file, what could be read is used
    for (const pugi::xml_node key : document.child("device_config").children("int")) {
        if (std::strcmp(key.attribute("level").value(), LevelName(level)) == 0 &&
            std::strcmp(key.attribute("name").value(), name) == 0) {
            return key.attribute("value").as_int(0);
        }
    }
    return 0;
}
