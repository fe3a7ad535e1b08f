// What can be done to places in the file system.
//
// Each operation refuses an empty location with EmptyFileLocationError before it does anything, unless said otherwise,
// and maps the failures of its system calls by ThrowLocationError.  What an operation finds out by looking, before it
// acts, it throws with errno 0.  Nothing is undone when an operation fails halfway.
//
// The forms that take a FileRetryLog call the plain ones under the rule of RetryFileOperation, by the same name.
//
// A place "is there" when it can be looked at, even as a symbolic link that leads nowhere; it is "a regular file" or "a
// folder" by what a symbolic link leads to.
#ifndef FOUNDATION_FILE_OPERATIONS_H
#define FOUNDATION_FILE_OPERATIONS_H

#include <sys/types.h>

#include <cstdint>

#include "foundation/file_location.h"
#include "foundation/file_retry.h"
#include "foundation/file_stat.h"

// Copy the content of a regular file, else FileNotFoundError.  ForceCopyFile makes room by ForceNonexistence; CopyFile
// throws FileExistsError when `to` is there.  The copy's time is that of its making.
void ForceCopyFile(const FileLocation& from, const FileLocation& to);
void ForceCopyFile(const FileLocation& from, const FileLocation& to, FileRetryLog& log);
void CopyFile(const FileLocation& from, const FileLocation& to);
void CopyFile(const FileLocation& from, const FileLocation& to, FileRetryLog& log);

// Moves a file or a folder.  FileNotFoundError when `from` is not there, which is asked before whether the locations
// have text; FileFoundError when `to` is; FileMoveError with both paths when it cannot be renamed.  Across file systems
// files and folders are copied and deleted, and anything else is silently left where it is.
void MoveFile(const FileLocation& from, const FileLocation& to);
void MoveFile(const FileLocation& from, const FileLocation& to, FileRetryLog& log);

// The same, making room by ForceNonexistence; but a file never takes the place of something else nor something else the
// place of a file: DirectoryFoundError on whichever of the two is the folder.
void ForceMoveFile(const FileLocation& from, const FileLocation& to);
void ForceMoveFile(const FileLocation& from, const FileLocation& to, FileRetryLog& log);

// Deletes a regular file or an empty folder.  Leaves a dangling link and every other kind of file alone and reports no
// failure.
void ForceNonexistence(const FileLocation& location);
void ForceNonexistence(const FileLocation& location, FileRetryLog& log);

void DeleteFile(const FileLocation& location);
void DeleteFile(const FileLocation& location, FileRetryLog& log);

// The folder must be empty.  DirectoryNotFoundError for what is no folder.
void DeleteDirectory(const FileLocation& location);
void DeleteDirectory(const FileLocation& location, FileRetryLog& log);

// Delete the content of a folder, and DeleteTree the folder itself.  Links to folders count as folders, whose content
// goes too.  DirectoryNotFoundError when nothing is there, where the other two do nothing.
void DeleteTree(const FileLocation& location);
void DeleteTreeIfThere(const FileLocation& location);
void EmptyFolder(const FileLocation& location);
void EmptyFolderIfThere(const FileLocation& location);

// Copies a folder and the folders below it, in name order, into a folder that is made when it is not there; what is
// there already stops the copy.  Links to folders are passed over.  DirectoryNotFoundError when `from` is no folder,
// FileItemError for an entry that goes while the copy runs.  Files are copied by the retrying CopyFile.
void CopyTree(const FileLocation& from, const FileLocation& to);

// DirectoryFoundError when anything is there.
void CreateDirectory(const FileLocation& location, mode_t mode = 0777);

// Leaves a folder that is there alone; FileFoundError when anything else is.
void EnsureDirectory(const FileLocation& location, mode_t mode = 0777);

// The same, after doing it to every missing ancestor up to the root.
void EnsurePath(const FileLocation& location);

// An empty file; FileFoundError when anything is there.
void CreateFile(const FileLocation& location, mode_t mode = 0666);

// Clears the three write bits of the mode, or sets them as far as the process's umask allows; the umask then also
// masks the other bits.  Changes the umask for a moment: no other thread may be making files.
void SetReadOnly(const FileLocation& location, bool readOnly);

// Whether this process may not write there.
bool IsReadOnly(const FileLocation& location);

// The bytes that are free on the file system of the place, those reserved for the administrator included; -1 when that
// cannot be told or counted.
int64_t FreeBytes(const FileLocation& location);

// Gives the place that was looked at, and the look itself, the modification time of `instant` (microseconds), in whole
// seconds; the access time becomes that of the look, in whole seconds too.  Throws InvalidStats when nothing was there,
// FileNotFoundError for ENOENT, FilePermissionError for EACCES, FileIOError for the rest.
void SetModificationTime(FileStat& stat, int64_t instant);
void SetModificationTime(FileStat& stat, int64_t instant, FileRetryLog& log);

#endif
