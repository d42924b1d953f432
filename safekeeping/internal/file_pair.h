// The two files of the directory and their copies, always both together: how the copies are made,
// how they are put back, and the mark that is set while they must be.
//
// Why a power cut never finds both damaged: while the copies are renewed, both files are
// whole and durable and no mark is set; while a mark is set, the copies are whole and durable. A
// copy that is put back may be gone from its folder, since its content is then in the file.

#ifndef NSDIRECTORY_SAFEKEEPING_INTERNAL_FILE_PAIR_H
#define NSDIRECTORY_SAFEKEEPING_INTERNAL_FILE_PAIR_H

#include "safekeeping/internal/comparison.h"
#include "safekeeping/internal/manifest.h"

namespace NS_DIRECTORY {

using FilePairData = FileData[SAFE_FILE_COUNT];

enum class CopyState
{
    WHOLE,  // what the manifest names can be had, from the copies or in place
    LOST,
    UNREADABLE  // it cannot be found out now
};

enum class MarkState
{
    SET,
    CLEAR,
    UNREADABLE
};

class CFilePair
{
  public:
    explicit CFilePair(const char* pCopyFolder);

    // False if one of the files is there and cannot be read.
    bool ReadFiles(FilePairData& files) const;
    bool SyncFiles(bool bFolder) const;  // the folder too if one may have come or gone
    bool RemoveFile(int nFile) const;

    // Looks for what the manifest names. The functions below use what it found.
    CopyState FindCopy();
    CopyState Found() const { return m_state; }
    bool HasManifest() const { return m_bManifest; }
    // What the copies hold; both absent if there is no manifest.
    const FileData& Copied(int nFile) const { return m_manifest.m_arrFile[nFile]; }
    // True if a start would find no fault in what the manifest names; bKnown says whether that
    // could be found out.
    bool IsCopySound(bool& bKnown) const;
    // True if the copies hold exactly these files.
    bool HoldsCopyOf(const FilePairData& files) const;
    // Copies the files, which must be durable. FindCopy() must be called after it. If it fails, the
    // old copies are still there, unless it was a rename or the sync after it.
    bool Renew(const FilePairData& files);
    // Puts both back and makes them durable. Without a mark the first one must be whole: if this is
    // interrupted, the broken one is then still there and Restore() goes on. With bMarked a file
    // may also be removed for the room that it takes. It can be repeated until it succeeds.
    bool PutBack(int nFirst, bool bMarked);

    MarkState FindMark() const;
    // Both: done, and durable. If not, FindMark() says what a program sees now.
    bool SetMark() const;
    bool ClearMark() const;

    // What interrupted calls have left, in both folders.
    void RemoveLeftovers() const;

    FileForm FormOfFile(int nFile) const;
    ComparisonData CompareFile(const CContactLocalManager& directory, int nFile) const;

  private:
    enum class Source
    {
        NOTHING,  // the file is rightly absent
        COPY,
        IN_PLACE
    };

    CopyState MyFindSource(int nFile);
    bool MyIsCopyOf(int nFile, const FileData& file) const;
    bool MyWriteCopies(const FilePairData& files) const;
    bool MyRenameCopies(const FilePairData& files) const;
    bool MyPutBackOne(int nFile, bool bMarked) const;
    bool MyWriteBack(int nFile) const;

    CFolder m_data;
    CFolder m_copies;
    CopyState m_state = CopyState::UNREADABLE;
    bool m_bManifest = false;
    ManifestData m_manifest;
    FilePairData m_arrCopy;  // as they are in their folder
    Source m_arrSource[SAFE_FILE_COUNT] = {Source::NOTHING, Source::NOTHING};
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SAFEKEEPING_INTERNAL_FILE_PAIR_H
