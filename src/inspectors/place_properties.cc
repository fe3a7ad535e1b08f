#include "inspectors/place_properties.h"

#include <grp.h>
#include <pwd.h>

#include <string_view>

#include "values/string.h"

inspector_string NameOfPlace(const FileLocation& location) {
    const std::string_view path = location.Text();
    return inspector_string(location.IsRoot() ? path : path.substr(path.rfind('/') + 1));
}

std::optional<folder> ParentFolderOfPlace(const FileLocation& location) {
    if (location.IsRoot()) {
        return std::nullopt;
    }
    return At<folder>(location.Parent());
}

std::optional<inspector_string> ParentPathOfPlace(const FileLocation& location) {
    if (!ParentFolderOfPlace(location)) {
        return std::nullopt;
    }
    return inspector_string(FileLocation::ParentText(location.Text()));
}

std::optional<folder> ancestor_iterator::Up() {
    if (current_.IsRoot()) {
        return std::nullopt;
    }
    current_ = current_.Parent();
    return At<folder>(current_);
}

namespace {

// An entry whose texts do not fit is as good as none.
constexpr size_t kEntryBytes = 1024;

}  // namespace

std::optional<inspector_string> NameOfUser(uid_t uid) {
    struct passwd entry;
    struct passwd* found = nullptr;
    char buffer[kEntryBytes];
    if (getpwuid_r(uid, &entry, buffer, sizeof buffer, &found) != 0 || found == nullptr) {
        return std::nullopt;
    }
    return CopiedString(entry.pw_name);
}

std::optional<inspector_string> NameOfGroup(gid_t gid) {
    struct group entry;
    struct group* found = nullptr;
    char buffer[kEntryBytes];
    if (getgrgid_r(gid, &entry, buffer, sizeof buffer, &found) != 0 || found == nullptr) {
        return std::nullopt;
    }
    return CopiedString(entry.gr_name);
}
