// The checker's own answer to the device services.

#ifndef NSDIRECTORY_TOOLS_DIRECTORY_CHECK_DEVICE_SERVICES_H
#define NSDIRECTORY_TOOLS_DIRECTORY_CHECK_DEVICE_SERVICES_H

// The screen for which the files are judged; a colour screen unless this says otherwise.
void SetPlainScreen(bool bPlain);

#endif  // NSDIRECTORY_TOOLS_DIRECTORY_CHECK_DEVICE_SERVICES_H
