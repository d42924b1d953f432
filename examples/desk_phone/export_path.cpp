#include "desk_phone/export_path.h"

#include <strings.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "desk_phone/words.h"
#include "directory/data_files.h"

namespace desk_phone {

namespace {

namespace fs = std::filesystem;

constexpr int MOST_LINKS = 40;

// Where a path leads, also by links to what is not there yet.
fs::path TargetOf(fs::path path)
{
    std::error_code error;
    for (int nLinks = 0; nLinks < MOST_LINKS && fs::is_symlink(path, error); ++nLinks) {
        path = path.parent_path() / fs::read_symlink(path, error);
    }
    return path;
}

fs::path FolderOf(const fs::path& path)
{
    return path.has_parent_path() ? path.parent_path() : ".";
}

// Links are followed. A file that is not there yet has only its name and folder; some file systems
// make no difference between small and capital letters.
bool AreOne(const fs::path& left, const fs::path& right)
{
    std::error_code error;  // one that is not there is not the other one
    return fs::equivalent(left, right, error) ||
           (strcasecmp(left.filename().c_str(), right.filename().c_str()) == 0 &&
            fs::equivalent(FolderOf(left), FolderOf(right), error));
}

bool IsOwnFile(const std::string& strPath, const std::string& strCopyFolder)
{
    std::vector<fs::path> own{NS_DIRECTORY::GROUP_FILE_PATH, NS_DIRECTORY::CONTACT_FILE_PATH};
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(strCopyFolder, error)) {
        own.push_back(entry.path());
    }
    const fs::path target = TargetOf(strPath);
    for (const fs::path& file : own) {
        if (AreOne(target, TargetOf(file))) {
            return true;
        }
    }
    return false;
}

bool EndsWith(const std::string& strText, const std::string& strEnd)
{
    return strText.size() >= strEnd.size() &&
           strText.compare(strText.size() - strEnd.size(), strEnd.size(), strEnd) == 0;
}

}  // namespace

void RequireExportPath(const std::string& strPath, const std::string& strCopyFolder)
{
    if (IsOwnFile(strPath, strCopyFolder)) {
        throw CWrongInput("That is one of the directory's own files: " + strPath);
    }
    std::error_code error;
    if (fs::exists(strPath, error) && !fs::is_regular_file(strPath, error)) {
        throw CWrongInput("That is no file to write to: " + strPath);
    }
}

bool IsExported(const std::string& strPath)
{
    std::ifstream file(strPath, std::ios::binary);
    const std::string strText{std::istreambuf_iterator<char>(file), {}};
    const bool bWhole =
        EndsWith(strText, "</root_contact>\n") || EndsWith(strText, "<root_contact />\n");
    return bWhole && access(strPath.c_str(), W_OK) == 0;  // else an earlier export is there
}

}  // namespace desk_phone
