#include "foundation/file_loop.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <utility>

#include "foundation/wildcard.h"

namespace UnixPlatform {

namespace {

// A descriptor above this is not kept: a walk in deep folders must not use up what the process may open.
constexpr int kHighestKeptDescriptor = 63;

bool IsDots(const char* name) { return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0')); }

}  // namespace

FileLoop::FileLoop(FileLocation folder) : folder_(std::move(folder)) { Begin(); }

FileLoop::FileLoop(FileLocation folder, std::string_view pattern)
    : folder_(std::move(folder)), pattern_(pattern), filtered_(true) {
    Begin();
}

FileLoop::FileLoop(FileLocation folder, FileClass code)
    : FileLoop(std::move(folder), std::string("*") + ExtensionOfClass(code)) {}

const FileStat& FileLoop::Current() const {
    if (!Valid()) {
        throw InvalidIteratorPosition();
    }
    return current_;
}

FileStat& FileLoop::TakeCurrent() {
    Current();
    return current_;
}

void FileLoop::Next() {
    if (Valid()) {
        ++next_;
        Load();
    }
}

// No destructor runs for an object whose constructor failed.
void FileLoop::Begin() {
    try {
        FileLoop::FillListing();
        Load();
    } catch (...) {
        Release();
        throw;
    }
}

void FileLoop::FillListing() {
    Release();
    descriptor_ = ::open64(folder_.CString(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor_ < 0) {
        return;
    }
    if (!ReadNames()) {
        Release();
        return;
    }
    if (descriptor_ > kHighestKeptDescriptor) {
        CloseFolder();
    }
    const char* const names = names_.data();
    std::sort(starts_.begin(), starts_.end(), [names](size_t a, size_t b) {
        const int order = std::strcoll(names + a, names + b);
        return order != 0 ? order < 0 : std::strcmp(names + a, names + b) < 0;
    });
}

// False for a folder that cannot be read to its end.  One that was removed meanwhile is at its end.
bool FileLoop::ReadNames() {
    alignas(struct dirent64) char block[32768];
    for (;;) {
        const ssize_t size = ::getdents64(descriptor_, block, sizeof block);
        if (size <= 0) {
            return size == 0 || errno == ENOENT;
        }
        for (ssize_t at = 0; at < size;) {
            const auto* entry = reinterpret_cast<const struct dirent64*>(block + at);
            Add(entry->d_name);
            at += entry->d_reclen;
        }
    }
}

void FileLoop::Add(const char* name) {
    if (IsDots(name) || (filtered_ && !MatchesWildcard(name, pattern_))) {
        return;
    }
    starts_.push_back(names_.size());
    names_.append(name, std::strlen(name) + 1);
}

// Looks at the entry that the cursor is on, or at the first one after it that can be loaded.
void FileLoop::Load() {
    for (; Valid(); ++next_) {
        try {
            const char* const name = names_.data() + starts_[next_];
            FileLocation location(folder_, FileName::Checked(name));
            // By its path where the folder is not open, and where the kernel would refuse so long a path.
            if (descriptor_ >= 0 && location.Length() < PATH_MAX) {
                current_.LookIn(descriptor_, name, std::move(location));
            } else {
                current_.Look(std::move(location));
            }
            return;
        } catch (const FileIOError&) {
            // What cannot be loaded is no entry.
        }
    }
    Release();
}

void FileLoop::CloseFolder() noexcept {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
        descriptor_ = -1;
    }
}

void FileLoop::Release() noexcept {
    CloseFolder();
    names_ = std::string();
    starts_ = std::vector<size_t>();
    next_ = 0;
}

}  // namespace UnixPlatform
