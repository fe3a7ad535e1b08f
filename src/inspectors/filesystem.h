// Mounted file systems, also called drives: what is in them and what they are on.
#ifndef INSPECTORS_FILESYSTEM_H
#define INSPECTORS_FILESYSTEM_H

#include <sys/vfs.h>

#include <optional>
#include <string>
#include <string_view>

#include "inspectors/mount_table.h"
#include "registry/inspector_type_info.h"

// The figures of a file system as they were when the value was made.
class filesystem {
public:
    // The one that holds a path; none where the path cannot be reached.
    static std::optional<filesystem> Holding(std::string_view path);

    // One of the mount table.  Those that may be slow or empty are not asked for figures.  None where one is asked and
    // refuses.
    static std::optional<filesystem> Mounted(const MountedFilesystem& mounted);

    FilesystemKind Kind() const { return kind_; }
    const std::string& Path() const { return path_; }

    // The path that it is mounted on; empty where only the mount table can tell.
    const std::string& MountName() const { return mountName_; }

    // Null where there are none.
    const struct statfs64* Figures() const { return HasFigures(kind_) ? &figures_ : nullptr; }

    static bool HasFigures(FilesystemKind kind) {
        return kind == FilesystemKind::Fixed || kind == FilesystemKind::Unknown;
    }

private:
    filesystem(std::string_view path, FilesystemKind kind) : kind_(kind), path_(path) {}
    bool TakeFigures() { return !HasFigures(kind_) || statfs64(path_.c_str(), &figures_) == 0; }

    struct statfs64 figures_ {};
    FilesystemKind kind_;
    std::string path_;
    std::string mountName_;
};

template <>
struct InspectorTypeInfo<filesystem> : InspectorTypeBasics<filesystem, 0> {
    static constexpr char Name[] = "filesystem";
    static constexpr unsigned Size = sizeof(filesystem);
};

// `part` of `whole` in percent, cut to a whole number; 0 of nothing.  None where it does not fit.
std::optional<int64_t> Percent(uint64_t part, uint64_t whole);

#endif
