// Files of one folder, made durable: they are read, made, renamed and removed here, and each
// function that changes something reports whether that worked.

#ifndef NSDIRECTORY_SAFEKEEPING_INTERNAL_FOLDER_H
#define NSDIRECTORY_SAFEKEEPING_INTERNAL_FOLDER_H

#include <sys/types.h>

#include <cstddef>

#include "safekeeping/internal/checksum.h"

namespace NS_DIRECTORY {

// A file as it was read: how to know its content again, and who may read it.
struct FileData
{
    bool m_bPresent = false;
    unsigned long long m_nSize = 0;
    std::uint32_t m_nChecksum = CHECKSUM_BEGIN;
    mode_t m_nRights = 0;
    uid_t m_nOwner = 0;
    gid_t m_nGroup = 0;
};

// The same content; two absent files have the same.
bool HoldSame(const FileData& left, const FileData& right);

// True if nobody may do more with the copy than with the original.
bool IsNoMoreOpen(const FileData& copy, const FileData& original);

// All names are those of files in the folder itself. Links are never followed and are no files.
class CFolder
{
  public:
    explicit CFolder(const char* pPath);
    ~CFolder();

    CFolder(const CFolder&) = delete;
    CFolder& operator=(const CFolder&) = delete;

    // Fills data. An absent file is read too. False if the file is there and cannot be read, or if
    // that cannot be found out.
    bool Read(const char* pName, FileData& data) const;

    // Whether there is anything of that name. It opens nothing, so it knows when nothing can be
    // opened.
    bool Find(const char* pName, bool& bFound) const;

    // The whole file in *ppText, with room for it and one byte more from malloc, which is the
    // caller's to free; null if the file is absent. False as above, and if there is no memory.
    bool ReadText(const char* pName, char** ppText, std::size_t& nSize) const;

    // Makes an empty file of the name, which must not be there. There is nothing in it to sync.
    bool Make(const char* pName) const;

    // Makes a file of the name, which must not be there, and syncs it. On failure nothing is left.
    bool Write(const char* pName, const char* pText, std::size_t nSize) const;

    // The same with the content of original, which must be as in data, and with no more rights.
    bool WriteCopy(const char* pName, const CFolder& from, const char* pOriginal,
                   const FileData& data) const;

    bool Sync() const;
    bool SyncFile(const char* pName) const;  // an absent one needs none
    bool Remove(const char* pName) const;    // true also if there is none
    // Over what is there. On failure bOtherFileSystem says whether a copy would help.
    bool Rename(const char* pName, const CFolder& to, const char* pNewName,
                bool& bOtherFileSystem) const;

  private:
    int MyOpen(const char* pName) const;
    int MyCreate(const char* pName, mode_t nRights) const;
    bool MyFinish(int nFile, bool bWritten, const char* pName) const;

    int m_nFolder = -1;
    bool m_bAbsent = false;  // there is no such folder, so there is no file in it
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SAFEKEEPING_INTERNAL_FOLDER_H
