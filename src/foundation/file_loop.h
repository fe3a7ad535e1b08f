// The entries of a folder, one at a time.
#ifndef FOUNDATION_FILE_LOOP_H
#define FOUNDATION_FILE_LOOP_H

#include <dirent.h>

#include <string>
#include <string_view>

#include "foundation/file_class.h"
#include "foundation/file_stat.h"

namespace UnixPlatform {

// A cursor over a folder's names without "." and "..", in the order of the process's locale.  The names are listed
// once, when the cursor is made; each entry is looked at when the cursor reaches it, so that one which has gone since
// the listing shows as FileStat::Missing.  A folder that does not exist or cannot be read has no entries.
//
// An entry whose loading fails with a FileIOError is passed over.
//
//     for (FileLoop loop(folder); loop.Valid(); loop.Next()) { Use(loop.Current()); }
class FileLoop {
public:
    struct Error : DebuggableException {
        using DebuggableException::DebuggableException;
    };
    struct InvalidIteratorPosition : Error {
        InvalidIteratorPosition() noexcept : Error("UnixPlatform::FileLoop::InvalidIteratorPosition") {}
    };

    explicit FileLoop(FileLocation folder);

    // Only the names that match the wildcard pattern.
    FileLoop(FileLocation folder, std::string_view pattern);

    // Only the names with the class's extension.
    FileLoop(FileLocation folder, FileClass code);

    FileLoop(const FileLoop&) = delete;
    FileLoop& operator=(const FileLoop&) = delete;
    virtual ~FileLoop() = default;

    bool Valid() const { return listing_.next < listing_.count; }

    // The entry that the cursor is on, good until Next.  Throws InvalidIteratorPosition when the cursor is not valid.
    const FileStat& Current() const;

    // Moves on, and lets go of the listing behind the last entry.  Does nothing when the cursor is not valid.
    void Next();

protected:
    // Fills the listing from the folder.
    virtual void FillListing();

private:
    struct Listing {
        Listing() = default;
        Listing(const Listing&) = delete;
        Listing& operator=(const Listing&) = delete;
        ~Listing() { Release(); }
        void Release() noexcept;
        void KeepMatching(std::string_view pattern) noexcept;

        struct dirent64** entries = nullptr;
        size_t count = 0;
        size_t next = 0;  // the entry that the cursor is on
    };

    void Load();

    FileLocation folder_;
    std::string pattern_;
    bool filtered_ = false;
    Listing listing_;
    FileStat current_;
};

}  // namespace UnixPlatform

#endif
