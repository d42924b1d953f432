// These rename functions, and both names are called; or define some of those below.
#undef _FILE_OFFSET_BITS
#undef _TIME_BITS
#undef _FORTIFY_SOURCE

#include "tests/support/disk_calls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <pugixml.hpp>

#include "directory/contact_local_manager.h"

namespace {

using Manager = NS_DIRECTORY::CContactLocalManager;

CDiskCalls* g_pCalls = nullptr;

// The system's function, which the one of that name here hides.
template <class Function>
Function* Real(Function* /*pOwn*/, const char* pName)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, pName));
}

bool IsWatched(const char* pPath)
{
    return g_pCalls != nullptr && pPath[0] != '/';
}

bool IsWatched(int nFile)
{
    return g_pCalls != nullptr && g_pCalls->m_mapOpen.count(nFile) != 0;
}

bool HasMemory()
{
    return g_pCalls == nullptr || g_pCalls->Enter({DiskCall::MEMORY}) == DiskEnd::DONE;
}

std::string PathOf(int nFolder, const char* pPath)
{
    const std::string strFolder = IsWatched(nFolder) ? g_pCalls->m_mapOpen[nFolder] + '/' : "";
    const auto path = std::filesystem::path(strFolder + pPath).lexically_normal();
    return path.has_filename() ? path : path.parent_path();
}

template <class Function>
int Make(const DiskCallData& call, Function real)
{
    const int nResult = g_pCalls->Enter(call) == DiskEnd::DONE ? real() : -1;
    g_pCalls->m_calls.back().m_end = nResult < 0 ? DiskEnd::FAILS : DiskEnd::DONE;
    return nResult;
}

int FileOf(void* pStream)
{
    return static_cast<int>(reinterpret_cast<std::intptr_t>(pStream));
}

// After a part the disk is full: another try would say so.
ssize_t WriteStream(void* pStream, const char* pData, std::size_t nSize)
{
    const ssize_t nWritten = write(FileOf(pStream), pData, nSize);
    errno = nWritten == static_cast<ssize_t>(nSize) ? errno : ENOSPC;
    return std::max<ssize_t>(nWritten, 0);
}

int SeekStream(void* pStream, off64_t* pOffset, int nOrigin)
{
    *pOffset = lseek64(FileOf(pStream), *pOffset, nOrigin);
    return *pOffset < 0 ? -1 : 0;
}

}  // namespace

CDiskCalls::CDiskCalls(const DiskFaultData& fault) : m_fault(fault)
{
    g_pCalls = this;
    pugi::set_memory_management_functions(
        [](std::size_t nBytes) { return HasMemory() ? std::malloc(nBytes) : nullptr; }, std::free);
}

CDiskCalls::~CDiskCalls()
{
    g_pCalls = nullptr;
    pugi::set_memory_management_functions(std::malloc, std::free);
}

DiskEnd CDiskCalls::Enter(const DiskCallData& call)
{
    m_calls.push_back(call);
    const bool bLater = m_fault.m_nCall != 0 && m_calls.size() > m_fault.m_nCall;
    const bool bFails = bLater && (m_fault.m_later == LaterCalls::FAIL ||
                                   (m_fault.m_later == LaterCalls::OF_THIS_KIND_FAIL &&
                                    m_calls[m_fault.m_nCall - 1].m_call == call.m_call));
    DiskEnd& end = m_calls.back().m_end;
    end = m_calls.size() == m_fault.m_nCall ? m_fault.m_end : bFails ? DiskEnd::FAILS : end;
    if (end != DiskEnd::DONE) {
        errno = call.m_call == DiskCall::WRITE  ? ENOSPC
                : call.m_call == DiskCall::OPEN ? EMFILE
                                                : EIO;
    }
    return end;
}

// The records of the directory are refused without memory; for lack of others the process ends.
void* operator new(std::size_t nBytes, const std::nothrow_t& /*tag*/) noexcept
{
    const bool bRecord =
        nBytes == sizeof(Manager::GroupData) || nBytes == sizeof(Manager::ItemData);
    return bRecord && !HasMemory() ? nullptr : ::operator new(nBytes);
}

void* operator new[](std::size_t nBytes, const std::nothrow_t& /*tag*/) noexcept
{
    const bool bNames = nBytes < 64;  // a few to be sorted: for lack of these too
    return !bNames && !HasMemory() ? nullptr : ::operator new[](nBytes);
}

extern "C" {

int openat(int folder, const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    const auto real = [=] { return Real(openat, "openat")(folder, path, flags, mode); };
    if (!IsWatched(path)) {
        return real();
    }
    const std::string strPath = PathOf(folder, path);
    const int file = Make({DiskCall::OPEN, strPath, "", flags}, real);
    if (file >= 0) {
        g_pCalls->m_mapOpen[file] = strPath;
        g_pCalls->m_calls.back().m_nFile = file;
    }
    return file;
}

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return openat(AT_FDCWD, path, flags, mode);
}

// A file is closed also if that is reported as failed.
int close(int file)
{
    const bool bFails = IsWatched(file) && g_pCalls->Enter({DiskCall::CLOSE}) != DiskEnd::DONE;
    if (IsWatched(file)) {
        g_pCalls->m_mapOpen.erase(file);
    }
    const int result = Real(close, "close")(file);
    errno = bFails ? EIO : errno;
    return bFails ? -1 : result;
}

ssize_t read(int file, void* data, size_t size)
{
    const bool bFails = IsWatched(file) && g_pCalls->Enter({DiskCall::READ}) != DiskEnd::DONE;
    return bFails ? -1 : Real(read, "read")(file, data, size);
}

ssize_t write(int file, const void* data, size_t size)
{
    if (IsWatched(file)) {
        const DiskEnd end =
            g_pCalls->Enter({DiskCall::WRITE, g_pCalls->m_mapOpen[file], "", 0, file});
        size = end == DiskEnd::DONE                  ? size
               : end == DiskEnd::HALF_WRITTEN        ? size / 2
               : end == DiskEnd::ALL_BUT_ONE_WRITTEN ? size - 1
                                                     : 0;
        g_pCalls->m_calls.back().m_strText.assign(static_cast<const char*>(data), size);
        if (size == 0) {
            return -1;
        }
    }
    return Real(write, "write")(file, data, size);
}

int fsync(int file)
{
    const auto real = [=] { return Real(fsync, "fsync")(file); };
    return !IsWatched(file) ? real()
                            : Make({DiskCall::SYNC, g_pCalls->m_mapOpen[file], "", 0, file}, real);
}

int renameat(int folder, const char* from, int target, const char* to) noexcept
{
    const auto real = [=] { return Real(renameat, "renameat")(folder, from, target, to); };
    if (CDiskCalls::s_bTwoFileSystems && folder != target) {
        errno = EXDEV;
        return -1;
    }
    return !IsWatched(from)
               ? real()
               : Make({DiskCall::RENAME, PathOf(folder, from), PathOf(target, to)}, real);
}

int unlinkat(int folder, const char* path, int flags) noexcept
{
    const auto real = [=] { return Real(unlinkat, "unlinkat")(folder, path, flags); };
    return !IsWatched(path) ? real() : Make({DiskCall::UNLINK, PathOf(folder, path)}, real);
}

FILE* fopen(const char* path, const char* mode)
{
    if (!IsWatched(path)) {
        return Real(fopen, "fopen")(path, mode);
    }
    const int file = open(path, mode[0] == 'r' ? O_RDONLY : O_WRONLY | O_CREAT | O_TRUNC, 0666);
    void* const cookie = reinterpret_cast<void*>(std::intptr_t{file});
    const cookie_io_functions_t functions{
        [](void* stream, char* data, size_t size) { return read(FileOf(stream), data, size); },
        WriteStream, SeekStream, [](void* stream) { return close(FileOf(stream)); }};
    return file < 0 ? nullptr : fopencookie(cookie, mode, functions);
}

int openat64(int folder, const char* path, int flags, ...) __attribute__((alias("openat")));
int open64(const char* path, int flags, ...) __attribute__((alias("open")));
FILE* fopen64(const char* path, const char* mode) __attribute__((alias("fopen")));
}
