#include "foundation/file_error.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <typeinfo>

#include "foundation/file_loop.h"

namespace {

using Thrower = void (*)(int errorNumber, std::string_view path);

// The type-information name of what is thrown, "" for nothing.
std::string Thrown(Thrower thrower, int errorNumber) {
    try {
        thrower(errorNumber, "/p");
    } catch (const FileIOError& error) {
        EXPECT_EQ(error.Code(), errorNumber);
        EXPECT_EQ(error.FirstPath(), "/p");
        return typeid(error).name();
    }
    return "";
}

void Location(int errorNumber, std::string_view path) { ThrowLocationError(errorNumber, path); }

struct Row {
    int errorNumber;
    const char* location;
    const char* openFile;
    const char* read;
};

const Row rows[] = {
    {EPERM, "19FilePermissionError", "19FilePermissionError", "19FilePermissionError"},
    {EACCES, "19FilePermissionError", "19FilePermissionError", "19FilePermissionError"},
    {ENOENT, "17FileNotFoundError", "17FileNotFoundError", "11FileIOError"},
    {EIO, "11FileIOError", "11FileIOError", "11FileIOError"},
    {EBADF, "11FileIOError", "11FileIOError", "11FileIOError"},
    {EAGAIN, "13FileLockError", "13FileLockError", "11FileIOError"},
    {ENOMEM, "17FileResourceError", "17FileResourceError", "11FileIOError"},
    {ENFILE, "17FileResourceError", "17FileResourceError", "11FileIOError"},
    {EMFILE, "17FileResourceError", "17FileResourceError", "11FileIOError"},
    {EEXIST, "11FileIOError", "15FileExistsError", "11FileIOError"},
    {ENOTDIR, "22DirectoryNotFoundError", "22DirectoryNotFoundError", "11FileIOError"},
    {ENAMETOOLONG, "22DirectoryNotFoundError", "22DirectoryNotFoundError", "11FileIOError"},
    {EINVAL, "11FileIOError", "13FileSeekError", "13FileSeekError"},
    {ENOSPC, "11FileIOError", "17FileDiskFullError", "11FileIOError"},
    {EISDIR, "11FileIOError", "11FileIOError", "11FileIOError"},
    {ELOOP, "11FileIOError", "11FileIOError", "11FileIOError"},
    {0, "", "", ""},
};

TEST(FileError, EveryErrnoHasItsClassInEachTable) {
    for (const Row& row : rows) {
        EXPECT_EQ(Thrown(Location, row.errorNumber), row.location) << row.errorNumber;
        EXPECT_EQ(Thrown(ThrowOpenFileError, row.errorNumber), row.openFile) << row.errorNumber;
        EXPECT_EQ(Thrown(ThrowReadError, row.errorNumber), row.read) << row.errorNumber;
        const char* const writingPath = row.errorNumber == EINVAL ? "11FileIOError" : row.openFile;
        EXPECT_EQ(Thrown(ThrowWritingPathError, row.errorNumber), writingPath) << row.errorNumber;
    }
}

TEST(FileError, AShortReadIsTheEndOfTheFileForReadersAlone) {
    EXPECT_EQ(Thrown(ThrowReadError, 90), "14EndOfFileError");
    EXPECT_EQ(Thrown(Location, 90), "11FileIOError");
    EXPECT_EQ(Thrown(ThrowOpenFileError, 90), "11FileIOError");
}

TEST(FileError, TheTextHasTheClassThePathsAndTheNumber) {
    EXPECT_STREQ(FileIOError().what(), "File error \"11FileIOError\"");
    EXPECT_STREQ(FileNotFoundError(0, "/x").what(), "File error \"17FileNotFoundError\" on \"/x\"");
    EXPECT_STREQ(FileNotFoundError(2, "/x").what(), "File error \"17FileNotFoundError\" on \"/x\": Unknown error: 2");
    EXPECT_STREQ(FileMoveError(18, "/x", "/y").what(),
                 "File error \"13FileMoveError\" on \"/x\" and \"/y\": Unknown error: 18");
    EXPECT_STREQ(FileIOError(5, "", "/y").what(), "File error \"11FileIOError\" and \"/y\": Unknown error: 5");
    EXPECT_STREQ(EmptyFileLocationError().what(), "File error \"22EmptyFileLocationError\"");
    EXPECT_STREQ(InvalidStats().what(), "File error \"12InvalidStats\"");
}

template <class Error>
void ExpectFileError(const char* name) {
    const Error error;
    EXPECT_EQ(std::string(error.what()), std::string("File error \"") + name + "\"");
    EXPECT_EQ(error.Code(), 0);
    const FileIOError& base = error;
    EXPECT_STREQ(base.what(), error.what());
}

TEST(FileError, EveryClassOfTheTreeShowsItsName) {
    ExpectFileError<FileNotFoundError>("17FileNotFoundError");
    ExpectFileError<FilePermissionError>("19FilePermissionError");
    ExpectFileError<FileLockError>("13FileLockError");
    ExpectFileError<FileResourceError>("17FileResourceError");
    ExpectFileError<FileExistsError>("15FileExistsError");
    ExpectFileError<FileFoundError>("14FileFoundError");
    ExpectFileError<DirectoryFoundError>("19DirectoryFoundError");
    ExpectFileError<DirectoryNotFoundError>("22DirectoryNotFoundError");
    ExpectFileError<FileSeekError>("13FileSeekError");
    ExpectFileError<FileDiskFullError>("17FileDiskFullError");
    ExpectFileError<EndOfFileError>("14EndOfFileError");
    ExpectFileError<FileNotOpenError>("16FileNotOpenError");
    ExpectFileError<FileItemError>("13FileItemError");
    ExpectFileError<FileMoveError>("13FileMoveError");
    ExpectFileError<EmptyFileLocationError>("22EmptyFileLocationError");
    ExpectFileError<InvalidStats>("12InvalidStats");
    ExpectFileError<DirectoryCreateFailed>("21DirectoryCreateFailed");
    ExpectFileError<FileCreateFailed>("16FileCreateFailed");
    ExpectFileError<CreateUniqueFileLocationFailed>("30CreateUniqueFileLocationFailed");
    ExpectFileError<InvalidFileLocation>("19InvalidFileLocation");
    ExpectFileError<RootHasNoParent>("15RootHasNoParent");
    ExpectFileError<BadFileNameError>("16BadFileNameError");
    ExpectFileError<DiskFullError>("13DiskFullError");
    ExpectFileError<FileBusyError>("13FileBusyError");
    ExpectFileError<FileCopyError>("13FileCopyError");
}

TEST(FileError, FailuresWithoutAPlaceAreNoFileErrors) {
    EXPECT_STREQ(IllegalFileName().what(), "IllegalFileName");
    EXPECT_STREQ(IllegalFileNameLength().what(), "IllegalFileNameLength");
    EXPECT_STREQ(ExtensionDoesNotMatch().what(), "ExtensionDoesNotMatch");
    EXPECT_STREQ(PrefixDoesNotMatch().what(), "PrefixDoesNotMatch");
    EXPECT_STREQ(FormatError().what(), "FormatError");
    EXPECT_STREQ(FileReadingLoopEndOfFileError().what(), "FileReadingLoopEndOfFileError");
    EXPECT_STREQ(UnsetLibLocation().what(), "UnsetLibLocation");
    EXPECT_STREQ(UnsetStorageLocation().what(), "UnsetStorageLocation");
    const UnixPlatform::FileLoop::InvalidIteratorPosition position;
    EXPECT_NE(dynamic_cast<const UnixPlatform::FileLoop::Error*>(&position), nullptr);
    EXPECT_STREQ(position.what(), "UnixPlatform::FileLoop::InvalidIteratorPosition");
}

TEST(FileError, AnUploadFailureIsNamedByTheFirstClassThatItIsOf) {
    EXPECT_STREQ(UploadFailureName(BadFileNameError()), "BadFileNameError");
    EXPECT_STREQ(UploadFailureName(DirectoryFoundError()), "DirectoryFoundError");
    EXPECT_STREQ(UploadFailureName(DirectoryNotFoundError()), "DirectoryNotFoundError");
    EXPECT_STREQ(UploadFailureName(DiskFullError()), "DiskFullError");
    EXPECT_STREQ(UploadFailureName(EndOfFileError()), "EndOfFileError");
    EXPECT_STREQ(UploadFailureName(FileBusyError()), "FileBusyError");
    EXPECT_STREQ(UploadFailureName(FileCopyError()), "FileCopyError");
    EXPECT_STREQ(UploadFailureName(FileFoundError()), "FileFoundError");
    EXPECT_STREQ(UploadFailureName(FileLockError()), "FileLockError");
    EXPECT_STREQ(UploadFailureName(FileMoveError()), "FileMoveError");
    EXPECT_STREQ(UploadFailureName(FileNotFoundError()), "FileNotFoundError");
    EXPECT_STREQ(UploadFailureName(FilePermissionError()), "FilePermissionError");
    EXPECT_STREQ(UploadFailureName(FileSeekError()), "FileSeekError");
    EXPECT_STREQ(UploadFailureName(FormatError()), "FormatError");
    EXPECT_STREQ(UploadFailureName(FileIOError()), "FileIOError");
    EXPECT_STREQ(UploadFailureName(FileExistsError()), "FileIOError");
    EXPECT_EQ(UploadFailureName(IllegalFileName()), nullptr);
}

}  // namespace
