// CSafeCopy: edits of the directory that a power cut or a full disk cannot tear.
//
// The library rewrites its files in place, syncs nothing and reports no failed write. This
// companion keeps a copy of both files in a folder of its own and runs edits under its guard: an
// edit is done whole and lies on the disk, or has not happened and says so.
//
//   CSafeCopy safe("/backup/phone_book");
//   (void)safe.Restore();                                 // before the directory reads its files
//   CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
//   (void)safe.Keep();
//   int nResult = safe.Edit([&](CContactLocalManager& directory) {
//       return directory.AddContact("Family", contact);
//   });
//
// Files. It works on GROUP_FILE_PATH and CONTACT_FILE_PATH of directory/data_files.h, which must be
// regular files, not links, and makes others only under names that begin with "safe_copy.", in the
// folder of the copies and, for a moment, in the data folder. It follows no link to any of them. A
// copy has the rights of its original, or fewer. While an edit is under way the folder holds
// "safe_copy.mark".
//
// The folder of the copies may be on another file system. On the same one putting a copy back is a
// rename, which needs no free space.
//
// Threads. None and no locks: as with the directory itself, one call at a time. One object for a
// folder, and one folder for a directory.

#ifndef NSDIRECTORY_SAFEKEEPING_SAFE_COPY_H
#define NSDIRECTORY_SAFEKEEPING_SAFE_COPY_H

#include "directory/contact_local_manager.h"
#include "directory/export.h"

namespace NS_DIRECTORY {

inline constexpr int SAFE_RET_NO_COPY = -200;      // no copy could be made, or there is none
inline constexpr int SAFE_RET_NOT_WRITTEN = -201;  // the edit did not reach the disk and was undone
inline constexpr int SAFE_RET_NOT_UNDONE = -202;   // a whole copy stands, but could not be put back
                                                   // now

struct SafeCopyStateData;

class NSDIRECTORY_API CSafeCopy
{
  public:
    /// The folder in which the copies lie. It must exist, and may be on another file system. A
    /// relative path counts from the working directory of each call, like that of the data folder.
    explicit CSafeCopy(const char* pCopyFolder);
    ~CSafeCopy();

    CSafeCopy(const CSafeCopy&) = delete;
    CSafeCopy& operator=(const CSafeCopy&) = delete;

    /// Puts the copies back if an edit was cut, or if a file is missing or broken. Call it before
    /// GetInstance(). Whole files without the mark of an edit stay, however old the copy is.
    /// Returns: 1, the copies were put back; 0, nothing to do, also at a first start without files
    /// and copies.
    /// Refuses: SAFE_RET_NO_COPY, a file is broken or an edit was cut, and there is no whole copy;
    /// SAFE_RET_NOT_UNDONE, there is one, or there may be, and it could not be put back now.
    /// Writes: both files or neither; what an interrupted copy has left in the folders goes.
    int Restore();

    /// Makes both files durable and copies them. Call it after GetInstance() and after edits that
    /// were not guarded. If memory is ahead of the contact file, that file is written again first.
    /// Returns: 1.
    /// Refuses: SAFE_RET_NO_COPY. The copy that stood before still stands then.
    /// Writes: the copies, if the files have changed.
    int Keep();

    /// Runs edit, a callable `int (CContactLocalManager&)`, under guard. It may make any number of
    /// calls, and is one edit: all of it is done, or nothing. It must neither throw nor release the
    /// instance nor call this object.
    /// Returns: what edit returns, if its changes are in memory and durable in the files, or if it
    /// changed nothing.
    /// Refuses: SAFE_RET_NO_COPY, no copy of the present state could be made, edit was not called;
    /// SAFE_RET_NOT_WRITTEN, the changes did not reach the disk: memory, limits and both files are
    /// as before; SAFE_RET_NOT_UNDONE, and they could not be undone either. The next Edit() or
    /// Keep() undoes them first, or the next Restore() before a start; until then edit nothing
    /// unguarded, since that would be undone too.
    /// Writes: what edit writes; the copies of the files that changed.
    /// Ids and pointers: SAFE_RET_NOT_WRITTEN means that both files were read again, so ids of user
    /// groups end.
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
