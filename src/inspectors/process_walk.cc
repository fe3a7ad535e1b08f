#include "inspectors/process_walk.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "foundation/file_error.h"

std::string_view BaseName(std::string_view path) {
    const size_t slash = path.rfind('/');
    return slash == std::string_view::npos || slash == 0 ? path : path.substr(slash + 1);
}

std::optional<std::string> ExecutablePath(std::string_view folder, std::string_view id, size_t longest) {
    std::string link(folder);
    link += id;
    link += "/exe";
    char target[ProcessWalk::kLongest];
    const ssize_t length = readlink(link.c_str(), target, sizeof target);
    if (length <= 0 || static_cast<size_t>(length) >= longest) {
        return std::nullopt;
    }
    return std::string(target, static_cast<size_t>(length));
}

std::optional<std::string> ExecutableName(std::string_view folder, std::string_view id, size_t longest) {
    std::optional<std::string> path = ExecutablePath(folder, id, longest);
    if (path) {
        path->erase(0, path->size() - BaseName(*path).size());
    }
    return path;
}

ProcessWalk::ProcessWalk(std::string_view folder) : folder_(folder), listing_(opendir(std::string(folder).c_str())) {
    if (listing_ == nullptr) {
        throw FileIOError(errno, folder_);
    }
}

bool ProcessWalk::Next() {
    for (;;) {
        errno = 0;
        const dirent64* entry = readdir64(listing_.get());
        if (entry == nullptr) {
            if (errno != 0) {
                throw FileIOError(errno, folder_);
            }
            return false;
        }
        if (std::strtol(entry->d_name, nullptr, 10) == 0) {
            continue;
        }
        id_ = entry->d_name;
        struct stat64 status {};
        if (stat64((std::string(folder_) + id_).c_str(), &status) != 0) {
            continue;  // It has just gone.
        }
        if (std::optional<std::string> path = ExecutablePath(folder_, id_, kLongestListed)) {
            path_ = std::move(*path);
            return true;
        }
    }
}
