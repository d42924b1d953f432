// Whether the workstation's screen shows colours.

#ifndef NSDIRECTORY_PLATFORM_HOST_SCREEN_COLOURS_H
#define NSDIRECTORY_PLATFORM_HOST_SCREEN_COLOURS_H

namespace platform_host {

// Asks the frame buffer, and if it does not answer, reads its depth in bits from the second file,
// which needs no rights to the device but only sets black and white apart from the rest. If neither
// is there, the answer is yes: such a workstation shows its windows in colour elsewhere.
bool HasColours(const char* pFrameBuffer, const char* pDepthFile);

}  // namespace platform_host

#endif  // NSDIRECTORY_PLATFORM_HOST_SCREEN_COLOURS_H
