// Files of one folder, made durable. Every call that a signal may interrupt is made again, and
// every error counts, those of a sync and of a close too.

#include "safekeeping/internal/folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace NS_DIRECTORY {
namespace {

constexpr mode_t ALL_RIGHTS = S_IRWXU | S_IRWXG | S_IRWXO;
constexpr mode_t OWN_FILE_RIGHTS = S_IRUSR | S_IWUSR;
constexpr int NO_FILE = -1;
constexpr std::size_t PIECE_SIZE = 4096;

template <class TCall>
auto Repeat(TCall call)
{
    auto nResult = call();
    while (nResult < 0 && errno == EINTR) {
        nResult = call();
    }
    return nResult;
}

// Closes a file that was only read.
class CReadFile
{
  public:
    explicit CReadFile(int nFile) : m_nFile(nFile) {}
    ~CReadFile()
    {
        if (m_nFile != NO_FILE) {
            (void)close(m_nFile);  // nothing was written
        }
    }
    CReadFile(const CReadFile&) = delete;
    CReadFile& operator=(const CReadFile&) = delete;

  private:
    int m_nFile;
};

bool WriteAll(int nFile, const char* pText, std::size_t nSize)
{
    while (nSize > 0) {
        const ssize_t nWritten = Repeat([&] { return write(nFile, pText, nSize); });
        if (nWritten <= 0) {
            return false;
        }
        pText += nWritten;
        nSize -= static_cast<std::size_t>(nWritten);
    }
    return true;
}

bool IsRegular(int nFile, FileData& data)
{
    struct stat info = {};
    if (fstat(nFile, &info) != 0 || !S_ISREG(info.st_mode)) {
        return false;
    }
    data.m_nRights = info.st_mode & ALL_RIGHTS;
    data.m_nOwner = info.st_uid;
    data.m_nGroup = info.st_gid;
    return true;
}

// Calls take for each piece of the rest of the file, until it returns false.
template <class TTake>
bool ReadPieces(int nFile, TTake take)
{
    char arrPiece[PIECE_SIZE];
    ssize_t nRead = 0;
    do {
        nRead = Repeat([&] { return read(nFile, arrPiece, sizeof(arrPiece)); });
    } while (nRead > 0 && take(arrPiece, static_cast<std::size_t>(nRead)));
    return nRead == 0;
}

void AddPiece(FileData& data, const char* pPiece, std::size_t nSize)
{
    data.m_nChecksum = AddToChecksum(data.m_nChecksum, pPiece, nSize);
    data.m_nSize += nSize;
}

}  // namespace

bool HoldSame(const FileData& left, const FileData& right)
{
    if (!left.m_bPresent || !right.m_bPresent) {
        return left.m_bPresent == right.m_bPresent;
    }
    return left.m_nSize == right.m_nSize && left.m_nChecksum == right.m_nChecksum;
}

bool IsNoMoreOpen(const FileData& copy, const FileData& original)
{
    const bool bSameOwner =
        copy.m_nOwner == original.m_nOwner && copy.m_nGroup == original.m_nGroup;
    // With another owner, the rights of the group and of others would go to other people.
    return (copy.m_nRights & ~(original.m_nRights & (bSameOwner ? ALL_RIGHTS : S_IRWXU))) == 0;
}

namespace {

// The copy goes to the owner of its original if that is allowed. Some file systems give every file
// the same owner and rights, so the result is tested.
bool TakeRights(int nFile, const FileData& original)
{
    FileData copy;
    const bool bOwned =
        IsRegular(nFile, copy) &&
        ((copy.m_nOwner == original.m_nOwner && copy.m_nGroup == original.m_nGroup) ||
         fchown(nFile, original.m_nOwner, original.m_nGroup) == 0);
    (void)fchmod(nFile, original.m_nRights & (bOwned ? ALL_RIGHTS : S_IRWXU));
    return IsRegular(nFile, copy) && IsNoMoreOpen(copy, original);
}

}  // namespace

CFolder::CFolder(const char* pPath)
    : m_nFolder(Repeat([pPath] { return open(pPath, O_RDONLY | O_DIRECTORY | O_CLOEXEC); }))
{
    m_bAbsent = m_nFolder < 0 && errno == ENOENT;
}

CFolder::~CFolder()
{
    if (m_nFolder >= 0) {
        (void)close(m_nFolder);  // nothing was written by way of it
    }
}

// Without O_NONBLOCK a pipe would block the caller.
int CFolder::MyOpen(const char* pName) const
{
    return Repeat([&] {
        return openat(m_nFolder, pName, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    });
}

int CFolder::MyCreate(const char* pName, mode_t nRights) const
{
    return Repeat([&] {
        return openat(m_nFolder, pName, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                      nRights);
    });
}

bool CFolder::Read(const char* pName, FileData& data) const
{
    data = FileData();
    if (m_bAbsent) {
        return true;
    }
    const int nFile = MyOpen(pName);
    if (nFile < 0) {
        return errno == ENOENT;
    }
    const CReadFile file(nFile);
    data.m_bPresent = true;
    return IsRegular(nFile, data) && ReadPieces(nFile, [&data](const char* pPiece, std::size_t n) {
               AddPiece(data, pPiece, n);
               return true;
           });
}

bool CFolder::Find(const char* pName, bool& bFound) const
{
    struct stat info = {};
    bFound = !m_bAbsent && fstatat(m_nFolder, pName, &info, AT_SYMLINK_NOFOLLOW) == 0;
    return bFound || m_bAbsent || errno == ENOENT;
}

bool CFolder::ReadText(const char* pName, char** ppText, std::size_t& nSize) const
{
    *ppText = nullptr;
    nSize = 0;
    const int nFile = m_bAbsent ? NO_FILE : MyOpen(pName);
    if (nFile < 0) {
        return m_bAbsent || errno == ENOENT;
    }
    const CReadFile file(nFile);
    struct stat info = {};
    if (fstat(nFile, &info) != 0 || !S_ISREG(info.st_mode)) {
        return false;
    }
    const auto nRoom = static_cast<std::size_t>(info.st_size);
    char* pText = static_cast<char*>(std::malloc(nRoom + 1));
    const bool bRead =
        pText != nullptr && ReadPieces(nFile, [&](const char* pPiece, std::size_t n) {
            std::memcpy(pText + nSize, pPiece, std::min(n, nRoom - nSize));
            nSize += std::min(n, nRoom - nSize);
            return true;
        });
    if (!bRead) {
        std::free(pText);
        return false;
    }
    *ppText = pText;
    return true;
}

// Syncs and closes a new file, and removes it if that or the writing failed.
bool CFolder::MyFinish(int nFile, bool bWritten, const char* pName) const
{
    const bool bSynced = bWritten && Repeat([nFile] { return fsync(nFile); }) == 0;
    // Closed also if a signal interrupts it.
    const bool bClosed = close(nFile) == 0 || errno == EINTR;
    if (!bSynced || !bClosed) {
        (void)Remove(pName);  // what stays is cleaned up by the next copy
        return false;
    }
    return true;
}

bool CFolder::Make(const char* pName) const
{
    const int nFile = MyCreate(pName, OWN_FILE_RIGHTS);
    const CReadFile file(nFile);  // nothing is written to it either
    return nFile >= 0;
}

bool CFolder::Write(const char* pName, const char* pText, std::size_t nSize) const
{
    const int nFile = MyCreate(pName, OWN_FILE_RIGHTS);
    return nFile >= 0 && MyFinish(nFile, WriteAll(nFile, pText, nSize), pName);
}

bool CFolder::WriteCopy(const char* pName, const CFolder& from, const char* pOriginal,
                        const FileData& data) const
{
    const int nOriginal = from.MyOpen(pOriginal);
    const CReadFile original(nOriginal);
    if (nOriginal < 0) {
        return false;
    }
    const int nFile = MyCreate(pName, data.m_nRights & S_IRWXU);
    if (nFile < 0) {
        return false;
    }
    FileData copied;
    copied.m_bPresent = true;
    const bool bCopied = ReadPieces(nOriginal, [&](const char* pPiece, std::size_t n) {
        AddPiece(copied, pPiece, n);
        return WriteAll(nFile, pPiece, n);
    });
    // The rights last: a file that nobody may write can still be written by its maker until then.
    const bool bSame = bCopied && HoldSame(copied, data) && TakeRights(nFile, data);
    return MyFinish(nFile, bSame, pName);
}

bool CFolder::Sync() const
{
    return m_nFolder >= 0 && Repeat([this] { return fsync(m_nFolder); }) == 0;
}

bool CFolder::SyncFile(const char* pName) const
{
    const int nFile = MyOpen(pName);
    const CReadFile file(nFile);
    return nFile < 0 ? errno == ENOENT : Repeat([nFile] { return fsync(nFile); }) == 0;
}

bool CFolder::Remove(const char* pName) const
{
    return m_bAbsent || unlinkat(m_nFolder, pName, 0) == 0 || errno == ENOENT;
}

bool CFolder::Rename(const char* pName, const CFolder& to, const char* pNewName,
                     bool& bOtherFileSystem) const
{
    const bool bRenamed = renameat(m_nFolder, pName, to.m_nFolder, pNewName) == 0;
    bOtherFileSystem = !bRenamed && errno == EXDEV;
    return bRenamed;
}

}  // namespace NS_DIRECTORY
