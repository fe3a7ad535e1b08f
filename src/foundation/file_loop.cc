#include "foundation/file_loop.h"

#include <cstdlib>
#include <utility>

#include "foundation/wildcard.h"

namespace UnixPlatform {

namespace {

int IsNoDots(const struct dirent64* entry) {
    const char* const name = entry->d_name;
    return name[0] != '.' || (name[1] != '\0' && (name[1] != '.' || name[2] != '\0'));
}

}  // namespace

FileLoop::FileLoop(FileLocation folder) : folder_(std::move(folder)) {
    FileLoop::FillListing();
    Load();
}

FileLoop::FileLoop(FileLocation folder, std::string_view pattern)
    : folder_(std::move(folder)), pattern_(pattern), filtered_(true) {
    FileLoop::FillListing();
    Load();
}

FileLoop::FileLoop(FileLocation folder, FileClass code)
    : FileLoop(std::move(folder), std::string("*") + ExtensionOfClass(code)) {}

const FileStat& FileLoop::Current() const {
    if (!Valid()) {
        throw InvalidIteratorPosition();
    }
    return current_;
}

void FileLoop::Next() {
    if (Valid()) {
        ++listing_.next;
        Load();
    }
}

void FileLoop::FillListing() {
    listing_.Release();
    const int count = ::scandir64(folder_.CString(), &listing_.entries, IsNoDots, ::alphasort64);
    if (count < 0) {
        listing_.entries = nullptr;
        return;
    }
    listing_.count = static_cast<size_t>(count);
    if (filtered_) {
        listing_.KeepMatching(pattern_);
    }
}

// Looks at the entry that the cursor is on, or at the first one after it that can be loaded.
void FileLoop::Load() {
    for (; Valid(); ++listing_.next) {
        try {
            const std::string_view name = FileName::Checked(listing_.entries[listing_.next]->d_name);
            current_.Look(FileLocation(folder_, name));
            return;
        } catch (const FileIOError&) {
            // What cannot be loaded is no entry.
        }
    }
    listing_.Release();
}

void FileLoop::Listing::Release() noexcept {
    for (size_t i = 0; i < count; ++i) {
        std::free(entries[i]);
    }
    std::free(entries);
    entries = nullptr;
    count = 0;
    next = 0;
}

void FileLoop::Listing::KeepMatching(std::string_view pattern) noexcept {
    size_t kept = 0;
    for (size_t i = 0; i < count; ++i) {
        if (MatchesWildcard(entries[i]->d_name, pattern)) {
            entries[kept++] = entries[i];
        } else {
            std::free(entries[i]);
        }
    }
    count = kept;
}

}  // namespace UnixPlatform
