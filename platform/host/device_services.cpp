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

#include <fcntl.h>
#include <linux/fb.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <pugixml.hpp>

namespace {

constexpr char CONFIG_FILE[] = "device_config.xml";
constexpr char FRAME_BUFFER[] = "/dev/fb0";
constexpr char FRAME_BUFFER_DEPTH[] = "/sys/class/graphics/fb0/bits_per_pixel";

enum class Answer
{
    NO,
    YES,
    UNKNOWN
};

Answer AskFrameBuffer()
{
    const int nFile = open(FRAME_BUFFER, O_RDONLY | O_CLOEXEC);
    if (nFile < 0) {
        return Answer::UNKNOWN;
    }
    fb_var_screeninfo info{};
    const bool bTold = ioctl(nFile, FBIOGET_VSCREENINFO, &info) == 0;
    (void)close(nFile);  // it was only read
    if (!bTold) {
        return Answer::UNKNOWN;
    }
    // Values of grayscale above 1 name a pixel format, and those in use have colours.
    return info.bits_per_pixel > 1 && info.grayscale != 1 ? Answer::YES : Answer::NO;
}

// The depth can be read without rights to the device, but tells only black and white from the rest.
Answer AskFrameBufferDepth()
{
    std::FILE* pFile = std::fopen(FRAME_BUFFER_DEPTH, "re");
    if (pFile == nullptr) {
        return Answer::UNKNOWN;
    }
    int nBits = 0;
    const bool bTold = std::fscanf(pFile, "%d", &nBits) == 1;
    (void)std::fclose(pFile);  // it was only read
    if (!bTold) {
        return Answer::UNKNOWN;
    }
    return nBits > 1 ? Answer::YES : Answer::NO;
}

// A workstation without a frame buffer shows its windows in colour elsewhere.
bool FindOutColours()
{
    Answer answer = AskFrameBuffer();
    if (answer == Answer::UNKNOWN) {
        answer = AskFrameBufferDepth();
    }
    return answer != Answer::NO;
}

const char* LevelName(ZMK_RegistryHelper::CONFIG_LEVEL_TYPE level)
{
    return level == ZMK_RegistryHelper::CONFIG_LEVEL_USER ? "user" : "system";
}

}  // namespace

int IsColorfulScreen()
{
    static const bool bColours = FindOutColours();
    return bColours ? 1 : 0;
}

int ZMK_MiscHelper::pathFileExist(const char* path)
{
    struct stat info = {};
    return path != nullptr && stat(path, &info) == 0 && S_ISREG(info.st_mode) ? 1 : 0;
}

int configParser_GetConfigInt(const char* name, ZMK_RegistryHelper::CONFIG_LEVEL_TYPE level)
{
    if (name == nullptr) {
        return 0;
    }
    pugi::xml_document document;
    (void)document.load_file(CONFIG_FILE);  // what could be read is looked at
    for (const pugi::xml_node key : document.child("device_config").children("int")) {
        if (std::strcmp(key.attribute("level").value(), LevelName(level)) == 0 &&
            std::strcmp(key.attribute("name").value(), name) == 0) {
            return key.attribute("value").as_int(0);
        }
    }
    return 0;
}
