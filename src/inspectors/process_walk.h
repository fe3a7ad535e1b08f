// The walk over the running programs, in the order in which the kernel lists them.
//
// Listed are the processes whose executable can be told: kernel threads have none, and without rights over a process
// its executable is a secret.
#ifndef INSPECTORS_PROCESS_WALK_H
#define INSPECTORS_PROCESS_WALK_H

#include <dirent.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

// The base name of the executable of a process by its link in `folder`, which ends in "/".  `longest` is the length of
// link text from which a process is not told.  None where there is no such link.
std::optional<std::string> ExecutableName(std::string_view folder, std::string_view id, size_t longest);

// The path that the link gives.
std::optional<std::string> ExecutablePath(std::string_view folder, std::string_view id, size_t longest);

// What follows the last "/" of a path, unless that is its first byte.
std::string_view BaseName(std::string_view path);

class ProcessWalk {
public:
    static constexpr std::string_view kFolder = "/proc/";
    static constexpr size_t kLongestListed = 1024;
    static constexpr size_t kLongest = 4096;

    // Opens the listing.  `folder` ends in "/" and outlives the walk.  Throws FileIOError.
    explicit ProcessWalk(std::string_view folder = kFolder);

    // The next process; false at the end.  Throws FileIOError where the listing fails.
    bool Next();

    // Of the process that Next has found.
    const std::string& Id() const { return id_; }
    const std::string& Path() const { return path_; }
    std::string_view Name() const { return BaseName(path_); }

private:
    struct Close {
        void operator()(DIR* listing) const { closedir(listing); }
    };

    std::string_view folder_;
    std::unique_ptr<DIR, Close> listing_;
    std::string id_;
    std::string path_;
};

#endif
