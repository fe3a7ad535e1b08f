// The entries of a folder, one at a time.
#ifndef FOUNDATION_FILE_LOOP_H
#define FOUNDATION_FILE_LOOP_H

#include <string>
#include <string_view>
#include <vector>

#include "foundation/file_class.h"
#include "foundation/file_stat.h"

namespace UnixPlatform {

// A cursor over a folder's names without "." and "..", in the order of the process's locale.  The names are listed
// once, when the cursor is made; each entry is looked at when the cursor reaches it, so that one which has gone since
// the listing shows as FileStat::Missing.  A folder that does not exist or cannot be read has no entries.
//
// An entry whose loading fails with a FileIOError is passed over.
//
// A cursor keeps the folder open while it has entries, so that each is looked at by its name in the folder; where many
// are open already it does not, and walks each entry's whole path.  A listing is two blocks of memory, however many
// entries it has.
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
    virtual ~FileLoop() { Release(); }

    bool Valid() const { return next_ < starts_.size(); }

    // The entry that the cursor is on, good until Next.  Throws InvalidIteratorPosition when the cursor is not valid.
    const FileStat& Current() const;

    // The same, to be moved from: Current is then of no use until Next.
    FileStat& TakeCurrent();

    // Moves on, and lets go of the listing behind the last entry.  Does nothing when the cursor is not valid.
    void Next();

protected:
    // Fills the listing from the folder.
    virtual void FillListing();

private:
    void Begin();
    bool ReadNames();
    void Add(const char* name);
    void Load();
    void CloseFolder() noexcept;
    void Release() noexcept;

    FileLocation folder_;
    std::string pattern_;
    bool filtered_ = false;
    int descriptor_ = -1;         // the folder, -1 when it is not open
    std::string names_;           // the entries' names, each with its zero byte
    std::vector<size_t> starts_;  // where each name begins, in order
    size_t next_ = 0;             // the entry that the cursor is on
    FileStat current_;
};

}  // namespace UnixPlatform

#endif
