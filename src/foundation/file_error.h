// The failures of the file layer.
//
// A FileIOError knows its errno (0 when no system call failed) and up to two paths, and its text is made of these and
// of the name that its class has in the type information; so each class below is part of what is printed.  Failures
// that are about a text rather than about a place carry nothing and derive from DebuggableException.
#ifndef FOUNDATION_FILE_ERROR_H
#define FOUNDATION_FILE_ERROR_H

#include <memory>
#include <string>
#include <string_view>

#include "foundation/debuggable_exception.h"

class FileIOError : public DebuggableException {
public:
    // Throws std::bad_alloc when the record cannot be made: lack of memory is then the failure to report.
    explicit FileIOError(int errorNumber = 0, std::string_view firstPath = {}, std::string_view secondPath = {});
    FileIOError(const FileIOError&) noexcept = default;
    FileIOError& operator=(const FileIOError&) noexcept = default;
    ~FileIOError() override = default;

    // The errno of the system call that failed, 0 when the failure was found without one.
    int Code() const noexcept { return record_->errorNumber; }

    // The places that the failure is about, empty when there are none.
    const std::string& FirstPath() const noexcept { return record_->firstPath; }
    const std::string& SecondPath() const noexcept { return record_->secondPath; }

    // The text is built when it is first asked for.  When even that fails, it is the bare name of the class.
    const char* what() const noexcept override;

private:
    struct Record {
        int errorNumber;
        std::string firstPath;
        std::string secondPath;
        std::string text;
    };

    // Shared by the copies that throwing makes, so that copying a failure cannot fail.
    std::shared_ptr<Record> record_;
};

struct FileNotFoundError : FileIOError {
    using FileIOError::FileIOError;
};
struct FilePermissionError : FileIOError {
    using FileIOError::FileIOError;
};
struct FileLockError : FileIOError {
    using FileIOError::FileIOError;
};
struct FileResourceError : FileIOError {
    using FileIOError::FileIOError;
};
struct FileExistsError : FileIOError {
    using FileIOError::FileIOError;
};
struct FileFoundError : FileIOError {
    using FileIOError::FileIOError;
};
struct DirectoryFoundError : FileIOError {
    using FileIOError::FileIOError;
};
struct DirectoryNotFoundError : FileIOError {
    using FileIOError::FileIOError;
};
struct FileSeekError : FileIOError {
    using FileIOError::FileIOError;
};
struct FileDiskFullError : FileIOError {
    using FileIOError::FileIOError;
};
struct EndOfFileError : FileIOError {
    using FileIOError::FileIOError;
};
struct FileNotOpenError : FileIOError {
    using FileIOError::FileIOError;
};
struct FileItemError : FileIOError {
    using FileIOError::FileIOError;
};
struct FileMoveError : FileIOError {
    using FileIOError::FileIOError;
};

// The answer of almost every operation to a location without text.
struct EmptyFileLocationError : FileIOError {
    EmptyFileLocationError() = default;
};

// An operation was handed a FileStat of a place that could not be looked at.
struct InvalidStats : FileIOError {
    InvalidStats() = default;
};

struct DirectoryCreateFailed : FileIOError {
    using FileIOError::FileIOError;
};
struct FileCreateFailed : FileIOError {
    using FileIOError::FileIOError;
};
struct CreateUniqueFileLocationFailed : FileIOError {
    using FileIOError::FileIOError;
};
struct InvalidFileLocation : FileIOError {
    using FileIOError::FileIOError;
};
struct RootHasNoParent : FileIOError {
    using FileIOError::FileIOError;
};

// Known only to the report of a failed upload (see UploadFailureName).
struct BadFileNameError : FileIOError {
    using FileIOError::FileIOError;
};
struct DiskFullError : FileIOError {
    using FileIOError::FileIOError;
};
struct FileBusyError : FileIOError {
    using FileIOError::FileIOError;
};
struct FileCopyError : FileIOError {
    using FileIOError::FileIOError;
};

struct IllegalFileName : DebuggableException {
    IllegalFileName() noexcept : DebuggableException("IllegalFileName") {}
};
struct IllegalFileNameLength : DebuggableException {
    IllegalFileNameLength() noexcept : DebuggableException("IllegalFileNameLength") {}
};
struct ExtensionDoesNotMatch : DebuggableException {
    ExtensionDoesNotMatch() noexcept : DebuggableException("ExtensionDoesNotMatch") {}
};
struct PrefixDoesNotMatch : DebuggableException {
    PrefixDoesNotMatch() noexcept : DebuggableException("PrefixDoesNotMatch") {}
};
struct FormatError : DebuggableException {
    FormatError() noexcept : DebuggableException("FormatError") {}
};
struct FileReadingLoopEndOfFileError : DebuggableException {
    FileReadingLoopEndOfFileError() noexcept : DebuggableException("FileReadingLoopEndOfFileError") {}
};
struct UnsetLibLocation : DebuggableException {
    UnsetLibLocation() noexcept : DebuggableException("UnsetLibLocation") {}
};
struct UnsetStorageLocation : DebuggableException {
    UnsetStorageLocation() noexcept : DebuggableException("UnsetStorageLocation") {}
};

// The word by which the report of a failed upload names a failure: the first of a fixed list of classes that it is of,
// "FileIOError" for any other failure of the file layer.  Null when it is of none of them.
const char* UploadFailureName(const std::exception& failure) noexcept;

// What a failed system call throws, for each of the three kinds of place where one is made.  Each does nothing for an
// errno of 0.
//
// On locations, and on files that are open for reading.
void ThrowLocationError(int errorNumber, std::string_view firstPath, std::string_view secondPath = {});

// On files that are open for writing.
void ThrowOpenFileError(int errorNumber, std::string_view path);

// The same for opening, truncating and flushing, where EINVAL does not speak of a seek.
void ThrowWritingPathError(int errorNumber, std::string_view path);

// On reads through a FileReader.
void ThrowReadError(int errorNumber, std::string_view path);

// Stands in the place of an errno for a read that gave fewer bytes than were asked for.
inline constexpr int shortRead = 90;

#endif
