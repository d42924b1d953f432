/// \file
/// CSafeCopy: edits of the directory that a power cut or a full disk cannot tear.

#ifndef NSDIRECTORY_SAFEKEEPING_SAFE_COPY_H
#define NSDIRECTORY_SAFEKEEPING_SAFE_COPY_H

#include "directory/contact_local_manager.h"
#include "directory/export.h"

namespace NS_DIRECTORY {

inline constexpr int SAFE_RET_NO_COPY = -200;      ///< no copy could be made, or there is none
inline constexpr int SAFE_RET_NOT_WRITTEN = -201;  ///< the edit did not reach the disk, is undone
inline constexpr int SAFE_RET_NOT_UNDONE = -202;   ///< there is a copy, not put back yet

struct SafeCopyStateData;

/// Guards edits by a copy of both files.
///
/// The library rewrites its files in place, syncs nothing and reports no failed write. Under this
/// guard an edit is done whole and is on the disk, or it has not happened and its result says so.
///
///     CSafeCopy safe("/backup/phone_book");
///     (void)safe.Restore();  // before the directory reads its files
///     CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
///     (void)safe.Keep();
///     int nResult = safe.Edit([&](CContactLocalManager& directory) {
///         return directory.AddContact("Family", contact);
///     });
///
/// **Files.** It works on GROUP_FILE_PATH and CONTACT_FILE_PATH (directory/data_files.h), which
/// must be regular files. All other files that it makes have names that begin with "safe_copy.";
/// they are in the folder of the copies and, for a moment, in the data folder. It follows no link
/// to any of them. A copy has the rights of its original, or fewer.
///
/// **The folder of the copies** may be on another file system. On the same one a copy is put back
/// by a rename, which needs no free space. A copy is made beside the old one, so each edit
/// needs room for one more copy of each file that it changes.
///
/// **Threads.** None and no locks: as with the directory itself, one call at a time. There is one
/// object for a folder, and one folder for a directory.
class NSDIRECTORY_API CSafeCopy
{
  public:
    /// The folder must exist when it is used. A relative path counts from the working directory, as
    /// that of a workstation's data folder does. Null is as good as a folder that does not exist.
    explicit CSafeCopy(const char* pCopyFolder);
    ~CSafeCopy();

    CSafeCopy(const CSafeCopy&) = delete;
    CSafeCopy& operator=(const CSafeCopy&) = delete;

    /// Puts the copies back if an edit was cut, or if a file is missing or not whole XML with its
    /// root: always the pair. Whole files without the mark of an edit stay, however old the copies
    /// are. Call it before GetInstance(), also on a new device.
    /// - Returns: 1, the copies were put back; 0, there was nothing to do.
    /// - Refuses, in order:
    ///   1. SAFE_RET_NO_COPY, a file is broken or an edit was cut, and there is no whole copy
    ///   2. SAFE_RET_NOT_UNDONE, there is one, or that cannot be found out now, and it could not be
    ///      put back: nothing is lost, but the directory should not start on these files
    /// - Writes: both files or neither; it removes what an interrupted copy has left.
    int Restore();

    /// Makes both files durable and copies them. If memory is ahead of the files, because an
    /// earlier write failed, the contact file is written again first. Call it after GetInstance()
    /// and after edits that were not guarded.
    /// - Returns: 1.
    /// - Refuses: SAFE_RET_NO_COPY. The old copies are still there, since a broken file never
    ///   replaces its whole copy.
    /// - Writes: the copies, if the files have changed.
    int Keep();

    /// Runs edit, a callable `int (CContactLocalManager&)`, under guard. It may make any number of
    /// calls and is one edit: all of it is done, or nothing. It must not throw, release the
    /// instance or call this object. It leaves errno as the directory's calls leave it: if a later
    /// call writes over what a failed one has left of the groups, only errno shows the failure. So
    /// it asks for no rings and files after an edit of groups.
    /// - Returns: what edit returns, if its changes are in memory and durable in the files, or if
    ///   it changed nothing.
    /// - Refuses, in order:
    ///   1. SAFE_RET_NOT_UNDONE, an earlier edit is still to be undone; edit was not run
    ///   2. SAFE_RET_NO_COPY, no copy of the present state could be made; edit was not run
    ///   3. SAFE_RET_NOT_WRITTEN, the changes did not reach the disk: memory, limits and both files
    ///      are as before
    ///   4. SAFE_RET_NOT_UNDONE, and they could not be undone now. The next Edit() or Keep() undoes
    ///      them first, or Restore() before the next start. Until then memory may hold a part of
    ///      them, and nothing should be edited without guard: it would be undone too.
    /// - Writes: what edit writes, and the copies of the files that changed.
    /// - Ids and pointers: all ids of user groups end with SAFE_RET_NOT_WRITTEN, since it reads
    ///   both files again.
    template <class TEdit>
    int Edit(TEdit edit)
    {
        const int nBegun = MyBeginEdit();
        return nBegun < 0 ? nBegun : MyEndEdit(edit(*CContactLocalManager::GetInstance()));
    }

  private:
    int MyBeginEdit();
    int MyEndEdit(int nResult);

    SafeCopyStateData* m_pState;  // null if there was no memory for it: then every call refuses
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SAFEKEEPING_SAFE_COPY_H
