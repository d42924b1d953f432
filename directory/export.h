// The one mark of what the library exports; everything else stays hidden in the shared object.

#ifndef NSDIRECTORY_DIRECTORY_EXPORT_H
#define NSDIRECTORY_DIRECTORY_EXPORT_H

#define NSDIRECTORY_API __attribute__((visibility("default")))

#endif  // NSDIRECTORY_DIRECTORY_EXPORT_H
