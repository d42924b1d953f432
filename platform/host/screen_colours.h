// Whether the workstation's screen shows colours.

#ifndef NSDIRECTORY_PLATFORM_HOST_SCREEN_COLOURS_H
#define NSDIRECTORY_PLATFORM_HOST_SCREEN_COLOURS_H

namespace platform_host {

// Asks the frame buffer. If it does not answer, reads its depth in bits from the second file: that
// needs no rights to the device, but recognises black and white only. If neither is there, the
// answer is yes: such a workstation shows its windows in colour elsewhere.
bool HasColours(const char* pFrameBuffer, const char* pDepthFile);

}  // namespace platform_host

#endif  // NSDIRECTORY_PLATFORM_HOST_SCREEN_COLOURS_H
