#include "foundation/file_operations.h"

#include <fcntl.h>
#include <sys/statvfs.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <vector>

#include "foundation/file_loop.h"
#include "foundation/file_reader.h"
#include "foundation/file_writer.h"

namespace {

constexpr mode_t writeBits = 0222;
constexpr mode_t modeBits = 07777;

void RequireText(const FileLocation& location) {
    if (location.IsEmpty()) {
        throw EmptyFileLocationError();
    }
}

void RequireText(const FileLocation& first, const FileLocation& second) {
    RequireText(first);
    RequireText(second);
}

void RequireRegular(const FileLocation& location) {
    if (!FileStat(location).IsRegular()) {
        throw FileNotFoundError(0, location.Text());
    }
}

// Throws for the result of a system call on the place.
void Check(int result, const FileLocation& location) {
    if (result != 0) {
        ThrowLocationError(errno, location.Text());
    }
}

void MakeDirectory(const FileLocation& location, mode_t mode) { Check(::mkdir(location.CString(), mode), location); }

void CopyContent(const FileLocation& from, const FileLocation& to) {
    unsigned char block[64 * 1024];
    UnixPlatform::FileWritingPath target;
    target.CreateNew(to);
    UnixPlatform::FileReadingPath source(from);
    FileReadingLoop loop(source, Buffer(block, block + sizeof block));
    FileWriter writer(target);
    while (loop.HasBytesRemaining()) {
        const ConstData data = loop.Fill();
        writer.Write(data.begin, data.end);
    }
    target.Close();
    source.Close();
}

void Copy(const FileLocation& from, const FileLocation& to) {
    CopyContent(from, to);
    // Kept as it stands: the time goes into the record alone and never to the disk, so that a copy never carries the
    // source's time.  The looks stay for the sake of a target that has vanished: InvalidStats.
    FileStat target(to);
    target.SetModificationTime(FileStat(from).ModificationTime());
}

void MoveAcrossFileSystems(const FileStat& source, const FileLocation& to) {
    const FileLocation& from = source.Location();
    if (source.IsRegular()) {
        CopyFile(from, to);
        DeleteFile(from);
    } else if (source.IsDirectory()) {
        CopyTree(from, to);
        DeleteTree(from);
    }
}

void DeleteContent(const FileLocation& folder) {
    for (UnixPlatform::FileLoop loop(folder); loop.Valid(); loop.Next()) {
        const FileStat& entry = loop.Current();
        if (entry.IsDirectory()) {
            DeleteContent(entry.Location());
            DeleteDirectory(entry.Location());
        } else if (entry.IsThere()) {
            ForceNonexistence(entry.Location());
        }
    }
}

void RequireThere(const FileLocation& location) {
    RequireText(location);
    if (!FileStat(location).IsThere()) {
        throw DirectoryNotFoundError(0, location.Text());
    }
}

bool IsThere(const FileLocation& location) {
    RequireText(location);
    return FileStat(location).IsThere();
}

void CopyEntry(const FileStat& entry, const FileLocation& target) {
    const FileStat::State state = entry.GetState();
    if (state == FileStat::Missing) {
        throw FileItemError(0, entry.Location().Text());
    }
    if (!entry.IsDirectory()) {
        FileRetryLog noLog;
        CopyFile(entry.Location(), target, noLog);
    } else if (state == FileStat::NoLink) {
        CopyTree(entry.Location(), target);
    }
}

mode_t CurrentMode(const FileLocation& location) {
    struct stat64 record;
    Check(::stat64(location.CString(), &record), location);
    return record.st_mode & modeBits;
}

mode_t CurrentUmask() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return mask;
}

void ThrowTimeError(int errorNumber, const FileLocation& location) {
    switch (errorNumber) {
        case ENOENT:
            throw FileNotFoundError(errorNumber, location.Text());
        case EACCES:
            throw FilePermissionError(errorNumber, location.Text());
        default:
            throw FileIOError(errorNumber, location.Text());
    }
}

using OnePlace = void (*)(const FileLocation& location);
using TwoPlaces = void (*)(const FileLocation& from, const FileLocation& to);

void Retry(OnePlace call, const char* name, const FileLocation& location, FileRetryLog& log) {
    RetryFileOperation([&] { call(location); }, name, location, nullptr, log);
}

void Retry(TwoPlaces call, const char* name, const FileLocation& from, const FileLocation& to, FileRetryLog& log) {
    RetryFileOperation([&] { call(from, to); }, name, from, &to, log);
}

}  // namespace

void ForceCopyFile(const FileLocation& from, const FileLocation& to) {
    RequireText(from, to);
    RequireRegular(from);
    ForceNonexistence(to);
    Copy(from, to);
}

void CopyFile(const FileLocation& from, const FileLocation& to) {
    RequireText(from, to);
    RequireRegular(from);
    if (FileStat(to).IsThere()) {
        throw FileExistsError(0, to.Text());
    }
    Copy(from, to);
}

void MoveFile(const FileLocation& from, const FileLocation& to) {
    const FileStat source(from);
    if (!source.IsThere()) {
        throw FileNotFoundError(0, from.Text());
    }
    RequireText(from, to);
    if (FileStat(to).IsThere()) {
        throw FileFoundError(0, to.Text());
    }
    if (std::rename(from.CString(), to.CString()) == 0) {
        return;
    }
    if (errno != EXDEV) {
        throw FileMoveError(errno, from.Text(), to.Text());
    }
    MoveAcrossFileSystems(source, to);
}

void ForceMoveFile(const FileLocation& from, const FileLocation& to) {
    RequireText(from, to);
    const FileStat source(from);
    if (!source.IsThere()) {
        throw FileNotFoundError(0, from.Text());
    }
    const FileStat target(to);
    if (target.IsThere()) {
        if (source.IsRegular() != target.IsRegular()) {
            throw DirectoryFoundError(0, source.IsDirectory() ? from.Text() : to.Text());
        }
        ForceNonexistence(to);
    }
    MoveFile(from, to);
}

void ForceNonexistence(const FileLocation& location) {
    RequireText(location);
    const FileStat stat(location);
    if (stat.IsRegular()) {
        DeleteFile(location);
    } else if (stat.IsDirectory()) {
        DeleteDirectory(location);
    }
}

void DeleteFile(const FileLocation& location) {
    RequireText(location);
    Check(::unlink(location.CString()), location);
}

void DeleteDirectory(const FileLocation& location) {
    RequireText(location);
    if (!FileStat(location).IsDirectory()) {
        throw DirectoryNotFoundError(0, location.Text());
    }
    Check(::rmdir(location.CString()), location);
}

void DeleteTree(const FileLocation& location) {
    EmptyFolder(location);
    DeleteDirectory(location);
}

void DeleteTreeIfThere(const FileLocation& location) {
    if (IsThere(location)) {
        DeleteTree(location);
    }
}

void EmptyFolder(const FileLocation& location) {
    RequireThere(location);
    DeleteContent(location);
}

void EmptyFolderIfThere(const FileLocation& location) {
    if (IsThere(location)) {
        EmptyFolder(location);
    }
}

void CopyTree(const FileLocation& from, const FileLocation& to) {
    RequireText(from, to);
    if (!FileStat(from).IsDirectory()) {
        throw DirectoryNotFoundError(0, from.Text());
    }
    EnsurePath(to);
    for (UnixPlatform::FileLoop loop(from); loop.Valid(); loop.Next()) {
        CopyEntry(loop.Current(), FileLocation(to, loop.Current().Location().Name()));
    }
}

void CreateDirectory(const FileLocation& location, mode_t mode) {
    if (IsThere(location)) {
        throw DirectoryFoundError(0, location.Text());
    }
    MakeDirectory(location, mode);
}

void EnsureDirectory(const FileLocation& location, mode_t mode) {
    RequireText(location);
    const FileStat stat(location);
    if (stat.IsDirectory()) {
        return;
    }
    if (stat.IsThere()) {
        throw FileFoundError(0, location.Text());
    }
    MakeDirectory(location, mode);
}

void EnsurePath(const FileLocation& location) {
    RequireText(location);
    std::vector<std::string_view> missing;  // the deepest first
    for (std::string_view path = location.Text(); path != "/"; path = FileLocation::ParentText(path)) {
        const FileStat stat{FileLocation(path)};
        if (stat.IsDirectory()) {
            break;
        }
        if (stat.IsThere()) {
            throw FileFoundError(0, path);
        }
        missing.push_back(path);
    }
    for (auto path = missing.rbegin(); path != missing.rend(); ++path) {
        MakeDirectory(FileLocation(*path), 0777);
    }
}

void CreateFile(const FileLocation& location, mode_t mode) {
    if (IsThere(location)) {
        throw FileFoundError(0, location.Text());
    }
    std::FILE* const file = std::fopen(location.CString(), "w");
    Check(file == nullptr ? -1 : std::fclose(file), location);
    if (mode != 0666) {
        Check(::chmod(location.CString(), mode), location);
    }
}

void SetReadOnly(const FileLocation& location, bool readOnly) {
    RequireText(location);
    const mode_t mode = CurrentMode(location);
    const mode_t wanted = readOnly ? mode & ~writeBits : (mode | writeBits) & ~CurrentUmask();
    Check(::chmod(location.CString(), wanted), location);
}

bool IsReadOnly(const FileLocation& location) {
    RequireText(location);
    if (::access(location.CString(), W_OK) == 0) {
        return false;
    }
    if (errno != EACCES && errno != EROFS) {
        ThrowLocationError(errno, location.Text());
    }
    return true;
}

int64_t FreeBytes(const FileLocation& location) {
    RequireText(location);
    struct statvfs64 record;
    int64_t bytes;
    if (::statvfs64(location.CString(), &record) != 0 ||
        __builtin_mul_overflow(record.f_frsize, record.f_bfree, &bytes)) {
        return -1;
    }
    return bytes;
}

void SetModificationTime(FileStat& stat, int64_t instant) {
    stat.SetModificationTime(instant);
    RequireText(stat.Location());
    const struct timeval times[2] = {{stat.Target().st_atime, 0}, {stat.Target().st_mtime, 0}};
    if (::utimes(stat.Location().CString(), times) != 0) {
        ThrowTimeError(errno, stat.Location());
    }
}

void ForceCopyFile(const FileLocation& from, const FileLocation& to, FileRetryLog& log) {
    Retry(ForceCopyFile, "ForceCopyFile", from, to, log);
}

void CopyFile(const FileLocation& from, const FileLocation& to, FileRetryLog& log) {
    Retry(CopyFile, "CopyFile", from, to, log);
}

void ForceMoveFile(const FileLocation& from, const FileLocation& to, FileRetryLog& log) {
    Retry(ForceMoveFile, "ForceMoveFile", from, to, log);
}

void MoveFile(const FileLocation& from, const FileLocation& to, FileRetryLog& log) {
    Retry(MoveFile, "MoveFile", from, to, log);
}

void ForceNonexistence(const FileLocation& location, FileRetryLog& log) {
    Retry(ForceNonexistence, "ForceNonexistence", location, log);
}

void DeleteFile(const FileLocation& location, FileRetryLog& log) { Retry(DeleteFile, "DeleteFile", location, log); }

void DeleteDirectory(const FileLocation& location, FileRetryLog& log) {
    Retry(DeleteDirectory, "DeleteDirectory", location, log);
}

void SetModificationTime(FileStat& stat, int64_t instant, FileRetryLog& log) {
    RetryFileOperation([&] { SetModificationTime(stat, instant); }, "SetModificationTime", stat.Location(), nullptr,
                       log);
}
