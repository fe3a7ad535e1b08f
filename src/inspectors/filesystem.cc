#include "inspectors/filesystem.h"

#include <sys/stat.h>

#include <new>
#include <vector>

#include "evaluator/adapters.h"
#include "inspectors/device_files.h"
#include "inspectors/file.h"
#include "inspectors/folder.h"
#include "inspectors/symbolic_link.h"
#include "values/integer.h"
#include "values/string.h"

std::optional<filesystem> filesystem::Holding(std::string_view path) {
    filesystem made(path, FilesystemKind::Unknown);
    return made.TakeFigures() ? std::optional<filesystem>(std::move(made)) : std::nullopt;
}

std::optional<filesystem> filesystem::Mounted(const MountedFilesystem& mounted) {
    filesystem made(mounted.path, mounted.kind);
    made.mountName_ = mounted.path;
    return made.TakeFigures() ? std::optional<filesystem>(std::move(made)) : std::nullopt;
}

std::optional<int64_t> Percent(uint64_t part, uint64_t whole) {
    uint64_t hundredfold;
    if (whole == 0) {
        return 0;
    }
    if (__builtin_mul_overflow(part, uint64_t{100}, &hundredfold)) {
        return std::nullopt;
    }
    return static_cast<int64_t>(hundredfold / whole);
}

namespace {

std::optional<filesystem> FilesystemOfPath(const inspector_string& path) { return filesystem::Holding(path.View()); }

template <class T>
std::optional<filesystem> FilesystemOf(const T& object) {
    return filesystem::Holding(object.Location().Text());
}

// The one that holds the link, which need not be the one that the link leads to.
std::optional<filesystem> FilesystemOfLink(const symbolic_link& link) {
    return filesystem::Holding(FileLocation::ParentText(link.Location().Text()));
}

class filesystem_iterator {
public:
    void Start() {
        table_ = ReadMountTable();
        next_ = 0;
    }
    bool Finished() const { return next_ == table_.size(); }
    std::optional<filesystem> Next() { return filesystem::Mounted(table_[next_++]); }

private:
    std::vector<MountedFilesystem> table_;
    size_t next_ = 0;
};

std::optional<dev_t> DeviceOf(const std::string& path) {
    struct stat64 record;
    return stat64(path.c_str(), &record) == 0 ? std::optional<dev_t>(record.st_dev) : std::nullopt;
}

// A table that cannot be read tells no name, whatever the reason; that memory ran out is no reason of the table's.
std::vector<MountedFilesystem> TableOrNone() {
    try {
        return ReadMountTable();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (...) {
        return {};
    }
}

std::optional<inspector_string> Name(const filesystem& f) {
    if (!f.MountName().empty()) {
        return inspector_string(f.MountName());
    }
    const std::optional<dev_t> device = DeviceOf(f.Path());
    if (!device) {
        return std::nullopt;
    }
    for (const MountedFilesystem& mounted : TableOrNone()) {
        if (filesystem::HasFigures(mounted.kind) && DeviceOf(mounted.path) == device) {
            return CopiedString(mounted.path);
        }
    }
    return std::nullopt;
}

std::optional<inspector_string> TypeName(const filesystem& f) {
    static constexpr std::string_view kNames[] = {"DRIVE_REMOVABLE", "DRIVE_FIXED", "DRIVE_REMOTE", "DRIVE_CDROM",
                                                  "DRIVE_UNKNOWN"};
    const auto number = static_cast<size_t>(f.Kind());
    return number < std::size(kNames) ? std::optional<inspector_string>(kNames[number]) : std::nullopt;
}

// The figures below are exact or absent: a count that no integer holds has no value.
std::optional<integer> Exact(uint64_t count) {
    int64_t exact;
    return __builtin_add_overflow(count, uint64_t{0}, &exact) ? std::nullopt : std::optional<integer>(exact);
}

std::optional<integer> Difference(uint64_t whole, uint64_t part) {
    int64_t difference;
    return __builtin_sub_overflow(whole, part, &difference) ? std::nullopt : std::optional<integer>(difference);
}

uint64_t Total(const struct statfs64& figures) { return figures.f_blocks; }
uint64_t Free(const struct statfs64& figures) { return figures.f_bfree; }
uint64_t Used(const struct statfs64& figures) { return figures.f_blocks - figures.f_bfree; }

template <auto Blocks>
std::optional<integer> Space(const filesystem& f) {
    int64_t bytes;
    if (f.Figures() == nullptr || __builtin_mul_overflow(Blocks(*f.Figures()), f.Figures()->f_bsize, &bytes)) {
        return std::nullopt;
    }
    return bytes;
}

template <auto Blocks>
std::optional<integer> SpacePercent(const filesystem& f) {
    const std::optional<int64_t> percent =
        f.Figures() == nullptr ? std::nullopt : Percent(Blocks(*f.Figures()), Total(*f.Figures()));
    return percent ? std::optional<integer>(*percent) : std::nullopt;
}

std::optional<integer> FileCount(const filesystem& f) {
    return f.Figures() == nullptr ? std::nullopt : Exact(f.Figures()->f_files);
}

std::optional<integer> FreeFileCount(const filesystem& f) {
    return f.Figures() == nullptr ? std::nullopt : Exact(f.Figures()->f_ffree);
}

std::optional<integer> UsedFileCount(const filesystem& f) {
    return f.Figures() == nullptr ? std::nullopt : Difference(f.Figures()->f_files, f.Figures()->f_ffree);
}

template <class T>
using OfObject = Property<T, filesystem, FilesystemOf<T>>;
using Table =
    IteratedPropertyOfWorld<filesystem_iterator, filesystem, &filesystem_iterator::Next, &filesystem_iterator::Next,
                            &filesystem_iterator::Start, &filesystem_iterator::Finished>;

// clang-format off
Type<filesystem>                                                    type;

NamedGlobalProperty<filesystem, FilesystemOfPath>                   ofPath        {"filesystem", "filesystems", ByValueOnly};
OfObject<file>                                                      ofFile        {"filesystem", "filesystems", ByValueOnly};
OfObject<folder>                                                    ofFolder      {"filesystem", "filesystems", ByValueOnly};
OfObject<device_file>                                               ofDeviceFile  {"filesystem", "filesystems", ByValueOnly};
OfObject<fifo_file>                                                 ofFifoFile    {"filesystem", "filesystems", ByValueOnly};
OfObject<socket_file>                                               ofSocketFile  {"filesystem", "filesystems", ByValueOnly};
Property<symbolic_link, filesystem, FilesystemOfLink>               ofSymlink     {"filesystem", "filesystems", ByValueOnly};
Table                                                               table         {"filesystem", "filesystems", ByValueOnly};

NamedGlobalProperty<filesystem, FilesystemOfPath>                   driveOfPath       {"drive", "drives", ByValueOnly};
OfObject<file>                                                      driveOfFile       {"drive", "drives", ByValueOnly};
OfObject<folder>                                                    driveOfFolder     {"drive", "drives", ByValueOnly};
OfObject<device_file>                                               driveOfDeviceFile {"drive", "drives", ByValueOnly};
OfObject<fifo_file>                                                 driveOfFifoFile   {"drive", "drives", ByValueOnly};
OfObject<socket_file>                                               driveOfSocketFile {"drive", "drives", ByValueOnly};
Property<symbolic_link, filesystem, FilesystemOfLink>               driveOfSymlink    {"drive", "drives", ByValueOnly};
Table                                                               driveTable        {"drive", "drives", ByValueOnly};

Property<filesystem, inspector_string, Name>                        name          {"name", "names", ByValueOnly};
Property<filesystem, inspector_string, TypeName>                    typeName      {"type", "types"};
Property<filesystem, integer, Space<Total>>                         size          {"size", "sizes"};
Property<filesystem, integer, Space<Total>>                         totalSpace    {"total space", "total spaces"};
Property<filesystem, integer, Space<Free>>                          freeSpace     {"free space", "free spaces"};
Property<filesystem, integer, Space<Used>>                          usedSpace     {"used space", "used spaces"};
Property<filesystem, integer, SpacePercent<Free>>                   freePercent   {"free percent", "free percents"};
Property<filesystem, integer, SpacePercent<Used>>                   usedPercent   {"used percent", "used percents"};
Property<filesystem, integer, FileCount>                            fileCount     {"file count", "file counts"};
Property<filesystem, integer, FreeFileCount>                        freeFileCount {"free file count", "free file counts"};
Property<filesystem, integer, UsedFileCount>                        usedFileCount {"used file count", "used file counts"};
// clang-format on

}  // namespace
