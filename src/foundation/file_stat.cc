#include "foundation/file_stat.h"

#include <cstring>
#include <limits>
#include <utility>

void FileStat::Look(FileLocation location) noexcept {
    location_ = std::move(location);
    const char* const path = location_.CString();
    // Zeroed first, so that records can be compared byte for byte whatever the kernel leaves alone.
    std::memset(&link_, 0, sizeof link_);
    std::memset(&target_, 0, sizeof target_);
    if (lstat64(path, &link_) != 0) {
        std::memset(&link_, 0, sizeof link_);
        state_ = Missing;
    } else if (!S_ISLNK(link_.st_mode)) {
        target_ = link_;
        state_ = NoLink;
    } else if (stat64(path, &target_) == 0) {
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
