// The pair of files and the pair of copies. What a later step relies on is made durable before it,
// and nothing else is: each sync costs time and wears the storage.

#include "safekeeping/internal/file_pair.h"

#include "directory/data_files.h"

namespace NS_DIRECTORY {
namespace {

struct NamesData
{
    const char* m_pFile;
    const char* m_pCopy;
    const char* m_pNewCopy;   // in the folder of the copies, until it is whole
    const char* m_pBackCopy;  // in the data folder, until it is whole
};

constexpr NamesData NAMES[SAFE_FILE_COUNT] = {
    {GROUP_FILE_NAME, "safe_copy.groups", "safe_copy.groups.new", "safe_copy.groups.back"},
    {CONTACT_FILE_NAME, "safe_copy.contacts", "safe_copy.contacts.new", "safe_copy.contacts.back"}};
constexpr char MANIFEST[] = "safe_copy.manifest";
constexpr char NEW_MANIFEST[] = "safe_copy.manifest.new";
constexpr char MARK[] = "safe_copy.mark";

}  // namespace

CFilePair::CFilePair(const char* pCopyFolder) : m_data(DATA_DIR), m_copies(pCopyFolder) {}

bool CFilePair::ReadFiles(FilePairData& files) const
{
    bool bRead = true;
    for (int n = 0; n < SAFE_FILE_COUNT; ++n) {
        bRead = m_data.Read(NAMES[n].m_pFile, files[n]) && bRead;
    }
    return bRead;
}

bool CFilePair::SyncFiles(bool bFolder) const
{
    return m_data.SyncFile(GROUP_FILE_NAME) && m_data.SyncFile(CONTACT_FILE_NAME) &&
           (!bFolder || m_data.Sync());
}

bool CFilePair::RemoveFile(int nFile) const
{
    return m_data.Remove(NAMES[nFile].m_pFile);
}

FileForm CFilePair::FormOfFile(int nFile) const
{
    return ReadForm(m_data, NAMES[nFile].m_pFile, nFile);
}

ComparisonData CFilePair::CompareFile(const CContactLocalManager& directory, int nFile) const
{
    return Compare(directory, m_data, NAMES[nFile].m_pFile, nFile);
}

CopyState CFilePair::FindCopy()
{
    const ManifestState manifest = ReadManifest(m_copies, MANIFEST, m_manifest);
    m_state = CopyState::WHOLE;
    for (int n = 0; n < SAFE_FILE_COUNT; ++n) {
        const CopyState one = MyFindSource(n);
        m_state = one == CopyState::WHOLE || m_state == CopyState::UNREADABLE ? m_state : one;
    }
    m_bManifest = manifest == ManifestState::THERE;
    if (!m_bManifest) {
        m_manifest = ManifestData();
        m_state = manifest == ManifestState::MISSING ? CopyState::LOST : CopyState::UNREADABLE;
    }
    return m_state;
}

CopyState CFilePair::MyFindSource(int nFile)
{
    const FileData& wanted = m_manifest.m_arrFile[nFile];
    const bool bCopyRead = m_copies.Read(NAMES[nFile].m_pCopy, m_arrCopy[nFile]);
    m_arrSource[nFile] = Source::NOTHING;
    if (!wanted.m_bPresent) {
        return CopyState::WHOLE;
    }
    if (bCopyRead && HoldSame(m_arrCopy[nFile], wanted)) {
        m_arrSource[nFile] = Source::COPY;
        return CopyState::WHOLE;
    }
    FileData inPlace;
    const bool bFileRead = m_data.Read(NAMES[nFile].m_pFile, inPlace);
    if (bFileRead && HoldSame(inPlace, wanted)) {
        m_arrSource[nFile] = Source::IN_PLACE;
        return CopyState::WHOLE;
    }
    return bCopyRead && bFileRead ? CopyState::LOST : CopyState::UNREADABLE;
}

bool CFilePair::IsCopySound(bool& bKnown) const
{
    bKnown = true;
    bool bSound = true;
    for (int n = 0; n < SAFE_FILE_COUNT; ++n) {
        const FileForm form = m_arrSource[n] == Source::COPY
                                  ? ReadForm(m_copies, NAMES[n].m_pCopy, n)
                                  : FormOfFile(n);
        bKnown = bKnown && (form != FileForm::UNKNOWN);
        // Without contacts a device is new; without groups it has lost them.
        const bool bNone = n == SAFE_CONTACTS && m_arrSource[n] == Source::NOTHING;
        bSound = bSound && (form == FileForm::WHOLE || bNone);
    }
    return bSound;
}

bool CFilePair::MyIsCopyOf(int nFile, const FileData& file) const
{
    return HoldSame(m_arrCopy[nFile], file) && IsNoMoreOpen(m_arrCopy[nFile], file);
}

bool CFilePair::HoldsCopyOf(const FilePairData& files) const
{
    for (int n = 0; n < SAFE_FILE_COUNT; ++n) {
        const bool bCopied = !files[n].m_bPresent || MyIsCopyOf(n, files[n]);
        if (!bCopied || !HoldSame(m_manifest.m_arrFile[n], files[n])) {
            return false;
        }
    }
    return true;
}

bool CFilePair::Renew(const FilePairData& files)
{
    ManifestData manifest;
    for (int n = 0; n < SAFE_FILE_COUNT; ++n) {
        manifest.m_arrFile[n] = files[n];
    }
    if (!MyWriteCopies(files) || !WriteManifest(m_copies, NEW_MANIFEST, manifest)) {
        RemoveLeftovers();
        return false;
    }
    bool bUnused = false;
    // The renames may reach the disk in any order: copies that do not match the manifest are no
    // pair, and both files are durable.
    return MyRenameCopies(files) && m_copies.Rename(NEW_MANIFEST, m_copies, MANIFEST, bUnused) &&
           m_copies.Sync();
}

// All is written before the first new copy replaces an old one: a full disk then costs none.
bool CFilePair::MyWriteCopies(const FilePairData& files) const
{
    RemoveLeftovers();
    for (int n = 0; n < SAFE_FILE_COUNT; ++n) {
        const bool bNeeded = files[n].m_bPresent && !MyIsCopyOf(n, files[n]);
        if (bNeeded &&
            !m_copies.WriteCopy(NAMES[n].m_pNewCopy, m_data, NAMES[n].m_pFile, files[n])) {
            return false;
        }
    }
    return true;
}

bool CFilePair::MyRenameCopies(const FilePairData& files) const
{
    for (int n = 0; n < SAFE_FILE_COUNT; ++n) {
        bool bUnused = false;
        const bool bNeeded = files[n].m_bPresent && !MyIsCopyOf(n, files[n]);
        if (bNeeded && !m_copies.Rename(NAMES[n].m_pNewCopy, m_copies, NAMES[n].m_pCopy, bUnused)) {
            return false;
        }
    }
    return true;
}

bool CFilePair::PutBack(int nFirst, bool bMarked)
{
    const int nSecond = SAFE_FILE_COUNT - 1 - nFirst;
    // A rename is durable when both its folders are. The mark holds both files together.
    return MyPutBackOne(nFirst, bMarked) && (bMarked || (m_data.Sync() && m_copies.Sync())) &&
           MyPutBackOne(nSecond, bMarked) && m_data.Sync() && m_copies.Sync();
}

bool CFilePair::MyPutBackOne(int nFile, bool bMarked) const
{
    const NamesData& names = NAMES[nFile];
    if (m_arrSource[nFile] == Source::NOTHING) {
        return m_data.Remove(names.m_pFile);
    }
    if (m_arrSource[nFile] == Source::IN_PLACE) {
        return true;  // it was synced as a copy
    }
    bool bOtherFileSystem = false;
    if (m_copies.Rename(names.m_pCopy, m_data, names.m_pFile, bOtherFileSystem)) {
        return true;
    }
    if (!bOtherFileSystem) {
        return false;
    }
    // On a full disk the damaged file makes room for the copy.
    return MyWriteBack(nFile) || (bMarked && m_data.Remove(names.m_pFile) && MyWriteBack(nFile));
}

bool CFilePair::MyWriteBack(int nFile) const
{
    const NamesData& names = NAMES[nFile];
    bool bUnused = false;
    return m_data.Remove(names.m_pBackCopy) &&
           m_data.WriteCopy(names.m_pBackCopy, m_copies, names.m_pCopy, m_arrCopy[nFile]) &&
           m_data.Rename(names.m_pBackCopy, m_data, names.m_pFile, bUnused);
}

MarkState CFilePair::FindMark() const
{
    bool bFound = false;
    if (!m_copies.Find(MARK, bFound)) {
        return MarkState::UNREADABLE;
    }
    return bFound ? MarkState::SET : MarkState::CLEAR;
}

bool CFilePair::SetMark() const
{
    return (FindMark() == MarkState::SET || m_copies.Make(MARK)) && m_copies.Sync();
}

bool CFilePair::ClearMark() const
{
    return m_copies.Remove(MARK) && m_copies.Sync();
}

void CFilePair::RemoveLeftovers() const
{
    // If one cannot be removed, the next copy fails and reports it.
    for (const NamesData& names : NAMES) {
        (void)m_copies.Remove(names.m_pNewCopy);
        (void)m_data.Remove(names.m_pBackCopy);
    }
    (void)m_copies.Remove(NEW_MANIFEST);
}

}  // namespace NS_DIRECTORY
