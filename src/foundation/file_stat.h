// The record of one look at a place in the file system.
#ifndef FOUNDATION_FILE_STAT_H
#define FOUNDATION_FILE_STAT_H

#include <sys/stat.h>

#include <cstdint>

#include "foundation/file_location.h"

// Made by one explicit look, and never refreshed by itself: a record shows the file system at the moment of its look.
// Before the first look it reads like one of a place that could not be looked at.
class FileStat {
public:
    enum State : int {
        NoLink = 0,        // no symbolic link: both records agree
        Link = 1,          // a symbolic link: the first record is its target's, the second its own
        DanglingLink = 2,  // a symbolic link whose target cannot be reached: the first record is zeroed
        Missing = 3,       // nothing that can be looked at: both records are zeroed
    };

    FileStat() noexcept = default;
    explicit FileStat(FileLocation location) { Look(std::move(location)); }

    // Binds the record to the place and looks at it.  Never fails: what cannot be looked at is Missing, and so is the
    // empty location.
    void Look(FileLocation location) noexcept;

    // The same for an entry of a folder that is open as `folder`, whose name in it is `name`: the kernel need not walk
    // the path again.  A link is still followed by its whole path, so that the links on the way there count.
    void LookIn(int folder, const char* name, FileLocation location) noexcept;

    State GetState() const noexcept { return state_; }
    const FileLocation& Location() const noexcept { return location_; }

    // The record of the place, through a symbolic link, and that of the place itself.
    const struct stat64& Target() const noexcept { return target_; }
    const struct stat64& Itself() const noexcept { return link_; }

    bool IsThere() const noexcept { return state_ != Missing; }

    // The types, of what a link leads to; all answer no for a dangling link and for a missing place.
    bool IsRegular() const noexcept { return HasType(S_IFREG); }
    bool IsDirectory() const noexcept { return HasType(S_IFDIR); }
    bool IsCharacterDevice() const noexcept { return HasType(S_IFCHR); }
    bool IsBlockDevice() const noexcept { return HasType(S_IFBLK); }
    bool IsFifo() const noexcept { return HasType(S_IFIFO); }
    bool IsSocket() const noexcept { return HasType(S_IFSOCK); }

    // Instants, in microseconds, of the first record; `TimeOf(record.st_mtime)` serves for any other.  A file's time
    // has whole seconds here.
    int64_t ModificationTime() const noexcept { return TimeOf(target_.st_mtime); }
    int64_t AccessTime() const noexcept { return TimeOf(target_.st_atime); }
    int64_t ChangeTime() const noexcept { return TimeOf(target_.st_ctime); }

    // Puts an instant into the first record, in memory only.  Throws InvalidStats when the place is Missing.
    void SetModificationTime(int64_t instant);

    // Seconds to microseconds, held at the ends of the range, and back by a truncating division.
    static int64_t TimeOf(int64_t seconds) noexcept;
    static int64_t SecondsOf(int64_t instant) noexcept { return instant / 1000000; }

    // Equal when the states and all bytes of both records are; a Missing record is unlike any other.
    friend bool operator==(const FileStat& a, const FileStat& b) noexcept;
    friend bool operator!=(const FileStat& a, const FileStat& b) noexcept { return !(a == b); }

private:
    void Take(bool found) noexcept;
    bool HasType(mode_t type) const noexcept { return (target_.st_mode & S_IFMT) == type; }

    State state_ = Missing;
    struct stat64 target_ {};
    struct stat64 link_ {};
    FileLocation location_;
};

#endif
