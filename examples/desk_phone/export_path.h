// Where an export may go, and whether it has arrived. The library takes any path and reports no
// failed write, so a host that cares looks for itself.

#ifndef DESK_PHONE_EXPORT_PATH_H
#define DESK_PHONE_EXPORT_PATH_H

#include <string>

namespace desk_phone {

// Throws CWrongInput for a path that leads to one of the two files or of their copies, by whatever
// name or link, and for what is no file: a folder, a pipe, a device.
void RequireExportPath(const std::string& strPath, const std::string& strCopyFolder);

// True if the export at the path is whole and could be written.
bool IsExported(const std::string& strPath);

}  // namespace desk_phone

#endif  // DESK_PHONE_EXPORT_PATH_H
