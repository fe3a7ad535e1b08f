#include "foundation/file_reading_path.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace UnixPlatform {

namespace {

const FileLocation kernelMessages("/proc/kmsg");

}  // namespace

FileReadingPath::~FileReadingPath() {
    if (IsOpen()) {
        ::close(descriptor_);
    }
}

void FileReadingPath::Rebind(FileLocation location) {
    if (location.IsEmpty()) {
        throw EmptyFileLocationError();
    }
    Close();
    location_ = std::move(location);
    unseekable_ = false;
}

void FileReadingPath::Open(FileLocation location) {
    Rebind(std::move(location));
    if (location_ == kernelMessages) {
        throw FileIOError(0, location_.Text());
    }
    descriptor_ = ::open64(location_.CString(), O_RDONLY | O_CLOEXEC);
    if (!IsOpen()) {
        ThrowLocationError(errno, location_.Text());
    }
}

void FileReadingPath::Close() {
    if (!IsOpen()) {
        return;
    }
    if (::close(std::exchange(descriptor_, closed)) != 0) {
        ThrowOpenFileError(errno, location_.Text());
    }
}

int64_t FileReadingPath::Length() {
    if (unseekable_) {
        return -1;
    }
    if (!IsOpen()) {
        throw FileNotOpenError(0, location_.Text());
    }
    const off64_t position = ::lseek64(descriptor_, 0, SEEK_CUR);
    if (position < 0) {
        ThrowLocationError(errno, location_.Text());
    }
    const off64_t length = ::lseek64(descriptor_, 0, SEEK_END);
    if (length < 0 && errno == EINVAL) {
        unseekable_ = true;
        return -1;
    }
    if (length < 0 || ::lseek64(descriptor_, position, SEEK_SET) < 0) {
        ThrowLocationError(errno, location_.Text());
    }
    return length;
}

}  // namespace UnixPlatform
