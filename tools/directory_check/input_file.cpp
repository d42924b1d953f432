#include "tools/directory_check/input_file.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>

PathKind KindOf(const std::string& strPath)
{
    struct stat info = {};
    if (stat(strPath.c_str(), &info) != 0) {
        if (errno == ENOENT || errno == ENOTDIR) {
            return PathKind::ABSENT;
        }
        throw CUnreadable(strPath + ": " + std::strerror(errno));
    }
    if (S_ISDIR(info.st_mode)) {
        return PathKind::FOLDER;
    }
    if (!S_ISREG(info.st_mode)) {
        throw CUnreadable(strPath + ": not a regular file");
    }
    return PathKind::REGULAR;
}

std::string ReadText(const std::string& strPath)
{
    if (KindOf(strPath) == PathKind::FOLDER) {
        throw CUnreadable(strPath + ": a folder");
    }
    std::ifstream file(strPath, std::ios::binary);
    std::string strText;
    std::array<char, 65536> block{};
    while (file.read(block.data(), block.size()) || file.gcount() != 0) {
        strText.append(block.data(), static_cast<std::size_t>(file.gcount()));
    }
    if (!file.eof()) {
        throw CUnreadable(strPath + ": " + std::strerror(errno));
    }
    return strText;
}
