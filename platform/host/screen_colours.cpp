#include "platform/host/screen_colours.h"

#include <fcntl.h>
#include <linux/fb.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>

namespace platform_host {
namespace {

enum class Answer
{
    NO,
    YES,
    UNKNOWN
};

Answer AskFrameBuffer(const char* pPath)
{
    const int nFile = open(pPath, O_RDONLY | O_CLOEXEC);
    if (nFile < 0) {
        return Answer::UNKNOWN;
    }
    fb_var_screeninfo info{};
    const bool bAnswered = ioctl(nFile, FBIOGET_VSCREENINFO, &info) == 0;
    (void)close(nFile);  // it was only read
    if (!bAnswered) {
        return Answer::UNKNOWN;
    }
    // Values of grayscale above 1 name a pixel format, and those in use have colours.
    return info.bits_per_pixel > 1 && info.grayscale != 1 ? Answer::YES : Answer::NO;
}

Answer AskDepth(const char* pPath)
{
    std::FILE* pFile = std::fopen(pPath, "re");
    if (pFile == nullptr) {
        return Answer::UNKNOWN;
    }
    int nBits = 0;
    const bool bAnswered = std::fscanf(pFile, "%d", &nBits) == 1;
    (void)std::fclose(pFile);  // it was only read
    if (!bAnswered) {
        return Answer::UNKNOWN;
    }
    return nBits > 1 ? Answer::YES : Answer::NO;
}

}  // namespace

bool HasColours(const char* pFrameBuffer, const char* pDepthFile)
{
    Answer answer = AskFrameBuffer(pFrameBuffer);
    if (answer == Answer::UNKNOWN) {
        answer = AskDepth(pDepthFile);
    }
    return answer != Answer::NO;
}

}  // namespace platform_host
