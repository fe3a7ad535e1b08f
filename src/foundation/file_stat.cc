#include "foundation/file_stat.h"

#include <fcntl.h>

#include <cstring>
#include <limits>
#include <utility>

void FileStat::Look(FileLocation location) noexcept {
    location_ = std::move(location);
    // Zeroed first, so that records can be compared byte for byte whatever the kernel leaves alone.
    std::memset(&link_, 0, sizeof link_);
    Take(lstat64(location_.CString(), &link_) == 0);
}

void FileStat::LookIn(int folder, const char* name, FileLocation location) noexcept {
    location_ = std::move(location);
    std::memset(&link_, 0, sizeof link_);
    Take(fstatat64(folder, name, &link_, AT_SYMLINK_NOFOLLOW) == 0);
}

// Sets the state and the first record from the second one, which holds the place itself where it was found.
void FileStat::Take(bool found) noexcept {
    if (found && !S_ISLNK(link_.st_mode)) {
        target_ = link_;
        state_ = NoLink;
        return;
    }
    std::memset(&target_, 0, sizeof target_);
    if (!found) {
        std::memset(&link_, 0, sizeof link_);
        state_ = Missing;
    } else if (stat64(location_.CString(), &target_) == 0) {
        state_ = Link;
    } else {
        std::memset(&target_, 0, sizeof target_);
        state_ = DanglingLink;
    }
}

void FileStat::SetModificationTime(int64_t instant) {
    if (state_ == Missing) {
        throw InvalidStats();
    }
    target_.st_mtim.tv_sec = SecondsOf(instant);
    target_.st_mtim.tv_nsec = 0;
}

int64_t FileStat::TimeOf(int64_t seconds) noexcept {
    int64_t instant;
    if (!__builtin_mul_overflow(seconds, int64_t{1000000}, &instant)) {
        return instant;
    }
    return seconds < 0 ? std::numeric_limits<int64_t>::min() : std::numeric_limits<int64_t>::max();
}

bool operator==(const FileStat& a, const FileStat& b) noexcept {
    return a.state_ == b.state_ && a.state_ != FileStat::Missing &&
           std::memcmp(&a.target_, &b.target_, sizeof a.target_) == 0 &&
           std::memcmp(&a.link_, &b.link_, sizeof a.link_) == 0;
}
