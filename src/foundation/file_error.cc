#include "foundation/file_error.h"

#include <cerrno>
#include <cstring>
#include <typeinfo>

namespace {

// The C library has two functions of this name.  The one in force here returns a text, and a return that is not zero
// has always been taken for a failure, so that it is the bare number that is shown: kept as it stands.
std::string ErrorText(int errorNumber) {
    char buffer[256] = "";
    if (strerror_r(errorNumber, buffer, sizeof buffer) != 0) {
        return "Unknown error: " + std::to_string(errorNumber);
    }
    return "Error: " + std::to_string(errorNumber) + ": " + buffer;
}

template <class Error>
bool IsA(const std::exception& failure) {
    return dynamic_cast<const Error*>(&failure) != nullptr;
}

struct UploadName {
    bool (*matches)(const std::exception& failure);
    const char* name;
};

// Tried in this order: the base class of the others comes last.
constexpr UploadName uploadNames[] = {
    {IsA<BadFileNameError>, "BadFileNameError"},
    {IsA<DirectoryFoundError>, "DirectoryFoundError"},
    {IsA<DirectoryNotFoundError>, "DirectoryNotFoundError"},
    {IsA<DiskFullError>, "DiskFullError"},
    {IsA<EndOfFileError>, "EndOfFileError"},
    {IsA<FileBusyError>, "FileBusyError"},
    {IsA<FileCopyError>, "FileCopyError"},
    {IsA<FileFoundError>, "FileFoundError"},
    {IsA<FileLockError>, "FileLockError"},
    {IsA<FileMoveError>, "FileMoveError"},
    {IsA<FileNotFoundError>, "FileNotFoundError"},
    {IsA<FilePermissionError>, "FilePermissionError"},
    {IsA<FileSeekError>, "FileSeekError"},
    {IsA<FormatError>, "FormatError"},
    {IsA<FileIOError>, "FileIOError"},
};

using Thrower = void (*)(int errorNumber, std::string_view firstPath, std::string_view secondPath);

template <class Error>
void Throw(int errorNumber, std::string_view firstPath, std::string_view secondPath) {
    throw Error(errorNumber, firstPath, secondPath);
}

struct ErrorRow {
    int errorNumber;
    Thrower location;
    Thrower openFile;
    Thrower writingPath;
    Thrower read;
};

// clang-format off
constexpr ErrorRow errorRows[] = {
    // errno        locations                      open files                     writing paths                  reads
    {EPERM,         Throw<FilePermissionError>,    Throw<FilePermissionError>,    Throw<FilePermissionError>,    Throw<FilePermissionError>},
    {EACCES,        Throw<FilePermissionError>,    Throw<FilePermissionError>,    Throw<FilePermissionError>,    Throw<FilePermissionError>},
    {ENOENT,        Throw<FileNotFoundError>,      Throw<FileNotFoundError>,      Throw<FileNotFoundError>,      Throw<FileIOError>},
    {EIO,           Throw<FileIOError>,            Throw<FileIOError>,            Throw<FileIOError>,            Throw<FileIOError>},
    {EBADF,         Throw<FileIOError>,            Throw<FileIOError>,            Throw<FileIOError>,            Throw<FileIOError>},
    {EAGAIN,        Throw<FileLockError>,          Throw<FileLockError>,          Throw<FileLockError>,          Throw<FileIOError>},
    {ENOMEM,        Throw<FileResourceError>,      Throw<FileResourceError>,      Throw<FileResourceError>,      Throw<FileIOError>},
    {ENFILE,        Throw<FileResourceError>,      Throw<FileResourceError>,      Throw<FileResourceError>,      Throw<FileIOError>},
    {EMFILE,        Throw<FileResourceError>,      Throw<FileResourceError>,      Throw<FileResourceError>,      Throw<FileIOError>},
    {EEXIST,        Throw<FileIOError>,            Throw<FileExistsError>,        Throw<FileExistsError>,        Throw<FileIOError>},
    {ENOTDIR,       Throw<DirectoryNotFoundError>, Throw<DirectoryNotFoundError>, Throw<DirectoryNotFoundError>, Throw<FileIOError>},
    {ENAMETOOLONG,  Throw<DirectoryNotFoundError>, Throw<DirectoryNotFoundError>, Throw<DirectoryNotFoundError>, Throw<FileIOError>},
    {EINVAL,        Throw<FileIOError>,            Throw<FileSeekError>,          Throw<FileIOError>,            Throw<FileSeekError>},
    {ENOSPC,        Throw<FileIOError>,            Throw<FileDiskFullError>,      Throw<FileDiskFullError>,      Throw<FileIOError>},
};
// clang-format on

void ThrowByTable(Thrower ErrorRow::*column, int errorNumber, std::string_view firstPath, std::string_view secondPath) {
    if (errorNumber == 0) {
        return;
    }
    for (const ErrorRow& row : errorRows) {
        if (row.errorNumber == errorNumber) {
            (row.*column)(errorNumber, firstPath, secondPath);
        }
    }
    throw FileIOError(errorNumber, firstPath, secondPath);
}

}  // namespace

FileIOError::FileIOError(int errorNumber, std::string_view firstPath, std::string_view secondPath)
    : DebuggableException("FileIOError"),
      record_(std::make_shared<Record>(
          Record{errorNumber, std::string(firstPath), std::string(secondPath), std::string()})) {}

const char* FileIOError::what() const noexcept {
    const char* const name = typeid(*this).name();
    try {
        if (record_->text.empty()) {
            std::string text = std::string("File error \"") + name + "\"";
            if (!record_->firstPath.empty()) {
                text += " on \"" + record_->firstPath + "\"";
            }
            if (!record_->secondPath.empty()) {
                text += " and \"" + record_->secondPath + "\"";
            }
            if (record_->errorNumber != 0) {
                text += ": " + ErrorText(record_->errorNumber);
            }
            record_->text = std::move(text);
        }
        return record_->text.c_str();
    } catch (...) {
        return name;
    }
}

const char* UploadFailureName(const std::exception& failure) noexcept {
    for (const UploadName& row : uploadNames) {
        if (row.matches(failure)) {
            return row.name;
        }
    }
    return nullptr;
}

void ThrowLocationError(int errorNumber, std::string_view firstPath, std::string_view secondPath) {
    ThrowByTable(&ErrorRow::location, errorNumber, firstPath, secondPath);
}

void ThrowOpenFileError(int errorNumber, std::string_view path) {
    ThrowByTable(&ErrorRow::openFile, errorNumber, path, {});
}

void ThrowWritingPathError(int errorNumber, std::string_view path) {
    ThrowByTable(&ErrorRow::writingPath, errorNumber, path, {});
}

void ThrowReadError(int errorNumber, std::string_view path) {
    if (errorNumber == shortRead) {
        throw EndOfFileError(errorNumber, path);
    }
    ThrowByTable(&ErrorRow::read, errorNumber, path, {});
}
