// The guard of an edit: copy, mark, edit, sync, judge, unmark, copy again. If one of these is
// interrupted, the next edit puts in order what is left, or Restore() before the next start.

#include "safekeeping/safe_copy.h"

#include <algorithm>
#include <cerrno>
#include <new>

#include "platform/device_services.h"
#include "safekeeping/internal/file_pair.h"

namespace NS_DIRECTORY {

// Numbers of groups, ordinary and blacklisted contacts: limits or counts.
struct DirectoryNumbersData
{
    int m_nGroups;
    int m_nContacts;
    int m_nBlack;
};

struct SafeCopyStateData
{
    explicit SafeCopyStateData(const char* pCopyFolder) : m_strCopyFolder(pCopyFolder) {}

    qz::basic_string<char> m_strCopyFolder;
    bool m_bUnderWay = false;     // between the two halves of an edit
    bool m_bUndoPending = false;  // an edit could not be undone; its mark is set
    // The state before the edit.
    DirectoryNumbersData m_limits = {};
    DirectoryNumbersData m_counts = {};
    ComparisonData m_arrBefore[SAFE_FILE_COUNT];
};

namespace {

// SetDefaultPhoto() writes the contact file, even if no contact has the photo.
constexpr char PHOTO_OF_NOBODY[] = "safe_copy: no contact has this photo";

constexpr int RESTORED = 1;
constexpr int NOTHING_TO_DO = 0;
constexpr int KEPT = 1;
constexpr int PREPARED = 1;

// -- Limits and counts --

DirectoryNumbersData LimitsOf(const CContactLocalManager& directory)
{
    return {directory.GetMaxGroupCount(), directory.GetMaxContactCount(),
            directory.GetMaxBlackCount()};
}

DirectoryNumbersData CountsOf(const CContactLocalManager& directory)
{
    return {directory.GetCurrentGroupCount(), directory.GetCurrentContactCount(),
            directory.GetCurrentBlackCount()};
}

void SetLimits(CContactLocalManager& directory, const DirectoryNumbersData& limits)
{
    (void)directory.SetMaxGroupCount(limits.m_nGroups);
    (void)directory.SetMaxContactCount(limits.m_nContacts);
    (void)directory.SetMaxBlackCount(limits.m_nBlack);
}

// -- Memory and files --

bool CompareBoth(const CContactLocalManager& directory, const CFilePair& pair,
                 ComparisonData (&arrResult)[SAFE_FILE_COUNT])
{
    bool bKnown = true;
    for (int n = 0; n < SAFE_FILE_COUNT; ++n) {
        arrResult[n] = pair.CompareFile(directory, n);
        bKnown = bKnown && arrResult[n].m_form != FileForm::UNKNOWN;
    }
    return bKnown;
}

bool IsMemoryAhead(const ComparisonData (&arrResult)[SAFE_FILE_COUNT])
{
    return arrResult[SAFE_GROUPS].m_bMemoryAhead || arrResult[SAFE_CONTACTS].m_bMemoryAhead;
}

// True if the contact file holds contacts that a start has left out: a save would cost them.
bool HoldsMoreThanLimits(const CContactLocalManager& directory, const ComparisonData& contacts)
{
    const DirectoryNumbersData counts = CountsOf(directory);
    const DirectoryNumbersData limits = LimitsOf(directory);
    return contacts.m_nEntries > counts.m_nContacts + counts.m_nBlack &&
           (counts.m_nContacts >= limits.m_nContacts || counts.m_nBlack >= limits.m_nBlack);
}

// -- Copies --

// A missing file is right if the manifest says so; without a manifest, on a new device.
bool IsRightlyAbsent(const CFilePair& pair, int nFile, bool bOtherAbsent)
{
    return pair.HasManifest() ? !pair.Copied(nFile).m_bPresent
                              : nFile == SAFE_CONTACTS || bOtherAbsent;
}

struct SoundnessData
{
    bool m_arrSound[SAFE_FILE_COUNT];
    bool m_bKnown;
};

SoundnessData TestFiles(const CFilePair& pair, const FileForm (&arrForm)[SAFE_FILE_COUNT])
{
    SoundnessData result = {{}, true};
    for (int n = 0; n < SAFE_FILE_COUNT; ++n) {
        const bool bOtherAbsent = arrForm[SAFE_FILE_COUNT - 1 - n] == FileForm::ABSENT;
        result.m_arrSound[n] =
            arrForm[n] == FileForm::WHOLE ||
            (arrForm[n] == FileForm::ABSENT && IsRightlyAbsent(pair, n, bOtherAbsent));
        result.m_bKnown = result.m_bKnown && arrForm[n] != FileForm::UNKNOWN;
    }
    return result;
}

// Copies the files as they are, if the copies do not hold them yet, and makes them durable for
// that. If the copies hold them already, only bSync makes the files durable.
bool MakeCopy(CFilePair& pair, const ComparisonData (&arrFile)[SAFE_FILE_COUNT], bool bSync)
{
    FilePairData files;
    const CopyState copy = pair.Found();
    if (copy == CopyState::UNREADABLE || !pair.ReadFiles(files)) {
        return false;
    }
    if (copy == CopyState::WHOLE && pair.HoldsCopyOf(files)) {
        return !bSync || pair.SyncFiles(true);
    }
    const SoundnessData sound =
        TestFiles(pair, {arrFile[SAFE_GROUPS].m_form, arrFile[SAFE_CONTACTS].m_form});
    bool bKnown = false;
    // A broken file must not replace its whole copy: Restore() will need the copy.
    if (!(sound.m_arrSound[SAFE_GROUPS] && sound.m_arrSound[SAFE_CONTACTS]) &&
        copy == CopyState::WHOLE && (pair.IsCopySound(bKnown) || !bKnown)) {
        return false;
    }
    return pair.SyncFiles(true) && pair.Renew(files) && pair.FindCopy() == CopyState::WHOLE;
}

// After an edit, done or undone. If it fails, the next edit makes the copies.
void Follow(CFilePair& pair, const FilePairData& files)
{
    if (!pair.HoldsCopyOf(files)) {
        (void)pair.Renew(files);
    }
}

// For copies that were moved away when they were put back.
void FollowAfterPutBack(CFilePair& pair)
{
    FilePairData files;
    if (pair.FindCopy() != CopyState::UNREADABLE && pair.ReadFiles(files)) {
        Follow(pair, files);
    }
}

// -- What does not match at the beginning --

// Writes the contact file once more. True if both files then hold what memory holds.
bool WriteContacts(CContactLocalManager& directory, const CFilePair& pair,
                   ComparisonData (&arrResult)[SAFE_FILE_COUNT])
{
    (void)directory.SetDefaultPhoto(PHOTO_OF_NOBODY);  // what became of it shows in the file
    return CompareBoth(directory, pair, arrResult) && !IsMemoryAhead(arrResult);
}

// Memory is ahead of the files. A whole contact file is rewritten under guard, so that a failed
// write does not cost it.
int BringTogether(CContactLocalManager& directory, CFilePair& pair,
                  ComparisonData (&arrResult)[SAFE_FILE_COUNT])
{
    if (HoldsMoreThanLimits(directory, arrResult[SAFE_CONTACTS])) {
        return SAFE_RET_NO_COPY;
    }
    if (arrResult[SAFE_CONTACTS].m_form != FileForm::WHOLE) {
        return WriteContacts(directory, pair, arrResult) ? PREPARED : SAFE_RET_NO_COPY;
    }
    if (!MakeCopy(pair, arrResult, false) || !pair.SetMark()) {
        return pair.ClearMark() ? SAFE_RET_NO_COPY : SAFE_RET_NOT_UNDONE;
    }
    const bool bTogether = WriteContacts(directory, pair, arrResult) && pair.SyncFiles(false);
    const bool bInOrder = bTogether || pair.PutBack(SAFE_GROUPS, true);
    if (!bInOrder || !pair.ClearMark()) {
        return SAFE_RET_NOT_UNDONE;
    }
    return bTogether ? PREPARED : SAFE_RET_NO_COPY;
}

// -- Undoing --

bool IsAsBefore(const ComparisonData& now, const ComparisonData& before)
{
    return !now.m_bMemoryAhead && (!now.m_bFileAhead || before.m_bFileAhead);
}

// The files are as before, and memory must be too. The limits are raised for the reload, so that
// none refuses what the files hold. If memory runs short the lists may be anything, so they are
// compared.
bool Reload(CContactLocalManager& directory, const CFilePair& pair, const SafeCopyStateData& state)
{
    const DirectoryNumbersData& before = state.m_counts;
    SetLimits(directory, {std::max(state.m_limits.m_nGroups, before.m_nGroups),
                          std::max(state.m_limits.m_nContacts, before.m_nContacts),
                          std::max(state.m_limits.m_nBlack, before.m_nBlack)});
    (void)directory.ReloadGroupXml();
    (void)directory.ReloadContactXml();
    SetLimits(directory, state.m_limits);
    ComparisonData arrNow[SAFE_FILE_COUNT];
    return CompareBoth(directory, pair, arrNow) &&
           IsAsBefore(arrNow[SAFE_GROUPS], state.m_arrBefore[SAFE_GROUPS]) &&
           IsAsBefore(arrNow[SAFE_CONTACTS], state.m_arrBefore[SAFE_CONTACTS]);
}

// The mark is set, and stays until both files and memory are as before.
int Undo(CContactLocalManager& directory, SafeCopyStateData& state)
{
    CFilePair pair(state.m_strCopyFolder.c_str());
    const CopyState copy = pair.FindCopy();
    // A mark that is left from before may not be durable yet.
    const bool bMarked = !state.m_bUndoPending || pair.SetMark();
    const bool bUndone = copy == CopyState::WHOLE && bMarked && pair.PutBack(SAFE_GROUPS, true) &&
                         Reload(directory, pair, state) && pair.ClearMark();
    // Somebody has taken the copies away: there is nothing to try again.
    state.m_bUndoPending = !bUndone && copy != CopyState::LOST;
    if (!bUndone) {
        return SAFE_RET_NOT_UNDONE;
    }
    FollowAfterPutBack(pair);
    return SAFE_RET_NOT_WRITTEN;
}

// -- Judging --

// These are left in errno by calls that have worked, or by questions of the edit's own. No file of
// an existing folder fails to be opened, written or closed with them.
bool IsHarmless(int nError)
{
    return nError == ENOENT || nError == ENOTTY || nError == ESPIPE || nError == ERANGE ||
           nError == EEXIST;
}

bool IsFileRight(const ComparisonData& now, const ComparisonData& before, bool bUnchanged)
{
    const bool bForm = now.m_form == FileForm::WHOLE || (bUnchanged && now.m_form == before.m_form);
    const bool bAhead =
        now.m_bMemoryAhead || (now.m_bFileAhead && !(before.m_bFileAhead && bUnchanged));
    return bForm && !bAhead && now.m_nStrays <= before.m_nStrays;
}

// An AddGroup, a new name and a RemoveGroup take into memory what a failed write has left, so
// memory and files alone do not show it; errno does. But errno may also come from something that
// concerns no file, and an edit that was refused and changed nothing keeps its answer.
bool HasArrived(const CContactLocalManager& directory, const CFilePair& pair,
                const SafeCopyStateData& state, int nResult, int nError, FilePairData& files)
{
    ComparisonData arrNow[SAFE_FILE_COUNT];
    const bool bFolder =
        !pair.Copied(SAFE_GROUPS).m_bPresent || !pair.Copied(SAFE_CONTACTS).m_bPresent;
    if (!pair.SyncFiles(bFolder) || !pair.ReadFiles(files) ||
        !CompareBoth(directory, pair, arrNow)) {
        return false;
    }
    bool bChanged = false;
    for (int n = 0; n < SAFE_FILE_COUNT; ++n) {
        const bool bUnchanged = HoldSame(files[n], pair.Copied(n));
        if (!IsFileRight(arrNow[n], state.m_arrBefore[n], bUnchanged)) {
            return false;
        }
        bChanged = bChanged || !bUnchanged;
    }
    return nError == 0 || (bChanged ? IsHarmless(nError) : nResult < 0);
}

// Removes a contact file that was only made for the guard, if it is still empty.
void RemoveEmptyContacts(const CContactLocalManager& directory, const CFilePair& pair)
{
    if (pair.Copied(SAFE_CONTACTS).m_bPresent) {
        return;
    }
    const ComparisonData contacts = pair.CompareFile(directory, SAFE_CONTACTS);
    if (contacts.m_form == FileForm::WHOLE && contacts.m_nEntries == 0 &&
        !contacts.m_bMemoryAhead) {
        (void)pair.RemoveFile(SAFE_CONTACTS);  // an empty one is as good
    }
}

// -- The beginning of every edit --

// Memory and files match, and the copies hold the files.
int Prepare(CContactLocalManager& directory, SafeCopyStateData& state, CFilePair& pair, bool bSync)
{
    const MarkState mark = pair.FindMark();
    const CopyState copy = pair.FindCopy();
    if (mark == MarkState::UNREADABLE || copy == CopyState::UNREADABLE ||
        !CompareBoth(directory, pair, state.m_arrBefore)) {
        return SAFE_RET_NO_COPY;
    }
    // Cut by another process, or before this start without a Restore(): memory holds what it left.
    if (mark == MarkState::SET && copy == CopyState::WHOLE) {
        return SAFE_RET_NOT_UNDONE;
    }
    if (IsMemoryAhead(state.m_arrBefore)) {
        const int nTogether = BringTogether(directory, pair, state.m_arrBefore);
        if (nTogether < 0) {
            return nTogether;
        }
    }
    const bool bCopied = MakeCopy(pair, state.m_arrBefore, bSync);
    const bool bClear = mark == MarkState::CLEAR || (bCopied && pair.ClearMark());
    return bCopied && bClear ? PREPARED : SAFE_RET_NO_COPY;
}

}  // namespace

CSafeCopy::CSafeCopy(const char* pCopyFolder)
    : m_pState(new (std::nothrow) SafeCopyStateData(pCopyFolder))
{}

CSafeCopy::~CSafeCopy()
{
    delete m_pState;
}

int CSafeCopy::Restore()
{
    if (m_pState == nullptr) {
        return SAFE_RET_NOT_UNDONE;
    }
    CFilePair pair(m_pState->m_strCopyFolder.c_str());
    pair.RemoveLeftovers();
    const MarkState mark = pair.FindMark();
    const CopyState copy = pair.FindCopy();
    const SoundnessData files =
        TestFiles(pair, {pair.FormOfFile(SAFE_GROUPS), pair.FormOfFile(SAFE_CONTACTS)});
    const bool bKnown = files.m_bKnown && mark != MarkState::UNREADABLE;
    if (mark == MarkState::CLEAR && files.m_arrSound[SAFE_GROUPS] &&
        files.m_arrSound[SAFE_CONTACTS]) {
        return NOTHING_TO_DO;
    }
    if (copy == CopyState::LOST) {
        return SAFE_RET_NO_COPY;
    }
    bool bCopyKnown = true;
    if (copy == CopyState::WHOLE && mark == MarkState::CLEAR && bKnown &&
        !pair.IsCopySound(bCopyKnown) && bCopyKnown) {
        return SAFE_RET_NO_COPY;
    }
    const int nFirst = files.m_arrSound[SAFE_GROUPS] ? SAFE_GROUPS : SAFE_CONTACTS;
    const bool bCertain = mark == MarkState::SET || (bKnown && bCopyKnown);
    if (copy != CopyState::WHOLE || !bCertain || !pair.PutBack(nFirst, mark == MarkState::SET) ||
        !pair.ClearMark()) {
        return SAFE_RET_NOT_UNDONE;
    }
    FollowAfterPutBack(pair);
    return RESTORED;
}

int CSafeCopy::Keep()
{
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    if (m_pState == nullptr || m_pState->m_bUnderWay || pDirectory == nullptr ||
        (m_pState->m_bUndoPending && Undo(*pDirectory, *m_pState) == SAFE_RET_NOT_UNDONE)) {
        return SAFE_RET_NO_COPY;
    }
    CFilePair pair(m_pState->m_strCopyFolder.c_str());
    return Prepare(*pDirectory, *m_pState, pair, true) == PREPARED ? KEPT : SAFE_RET_NO_COPY;
}

int CSafeCopy::MyBeginEdit()
{
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    if (m_pState == nullptr || m_pState->m_bUnderWay || pDirectory == nullptr) {
        return SAFE_RET_NO_COPY;
    }
    if (m_pState->m_bUndoPending && Undo(*pDirectory, *m_pState) == SAFE_RET_NOT_UNDONE) {
        return SAFE_RET_NOT_UNDONE;
    }
    CFilePair pair(m_pState->m_strCopyFolder.c_str());
    const int nPrepared = Prepare(*pDirectory, *m_pState, pair, false);
    if (nPrepared < 0) {
        return nPrepared;
    }
    m_pState->m_limits = LimitsOf(*pDirectory);
    m_pState->m_counts = CountsOf(*pDirectory);
    if (!pair.SetMark()) {
        m_pState->m_bUndoPending = !pair.ClearMark();
        return m_pState->m_bUndoPending ? SAFE_RET_NOT_UNDONE : SAFE_RET_NO_COPY;
    }
    m_pState->m_bUnderWay = true;
    // A missing file would set errno at every reload and so cover an earlier error.
    if (!pair.Copied(SAFE_CONTACTS).m_bPresent) {
        (void)pDirectory->SetDefaultPhoto(PHOTO_OF_NOBODY);  // a file that is not whole is found
    }
    (void)IsColorfulScreen();  // a first answer may take calls that fail
    errno = 0;
    return PREPARED;
}

int CSafeCopy::MyEndEdit(int nResult)
{
    const int nError = errno;
    m_pState->m_bUnderWay = false;
    CContactLocalManager& directory = *CContactLocalManager::GetInstance();
    CFilePair pair(m_pState->m_strCopyFolder.c_str());
    const bool bCopied = pair.FindCopy() == CopyState::WHOLE;
    if (bCopied) {
        RemoveEmptyContacts(directory, pair);
    }
    FilePairData files;
    if (!bCopied || !HasArrived(directory, pair, *m_pState, nResult, nError, files)) {
        return Undo(directory, *m_pState);
    }
    if (pair.ClearMark()) {
        Follow(pair, files);
        return nResult;
    }
    // The mark is still there, or it may come back after a power cut. So the edit must go.
    if (pair.SetMark()) {
        return Undo(directory, *m_pState);
    }
    // If it cannot be set, what counts is whether it is there.
    m_pState->m_bUndoPending = pair.FindMark() != MarkState::CLEAR;
    return m_pState->m_bUndoPending ? SAFE_RET_NOT_UNDONE : nResult;
}

}  // namespace NS_DIRECTORY
