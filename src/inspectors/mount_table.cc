#include "inspectors/mount_table.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <utility>

#include "foundation/file_error.h"

namespace {

struct TypeRow {
    std::string_view type;
    FilesystemKind kind;
};

// "pcsf" is written so.
constexpr TypeRow kTypes[] = {
    {"subfs", FilesystemKind::Removable},     //
    {"pcsf", FilesystemKind::Removable},      //
    {"fd", FilesystemKind::Removable},        //
    {"msdos", FilesystemKind::Removable},     //
    {"usbfs", FilesystemKind::Removable},     //
    {"usbdevfs", FilesystemKind::Removable},  //
    {"nfs", FilesystemKind::Remote},          //
    {"hsfs", FilesystemKind::CdRom},          //
    {"cdfs", FilesystemKind::CdRom},          //
    {"cdrfs", FilesystemKind::CdRom},         //
};

// The type's row comes first; a device with a ":" is a place on another machine.
FilesystemKind KindOf(std::string_view type, bool deviceHasColon) {
    for (const TypeRow& row : kTypes) {
        if (row.type == type) {
            return row.kind;
        }
    }
    return deviceHasColon ? FilesystemKind::Remote : FilesystemKind::Fixed;
}

class OpenTable {
public:
    explicit OpenTable(const char* path) : descriptor_(open64(path, O_RDONLY | O_CLOEXEC)) {}
    OpenTable(const OpenTable&) = delete;
    OpenTable& operator=(const OpenTable&) = delete;
    ~OpenTable() {
        if (IsOpen()) {
            close(descriptor_);
        }
    }
    bool IsOpen() const { return descriptor_ >= 0; }

    // Negative where the table cannot be read on.
    ssize_t Read(char* block, size_t size) const {
        for (;;) {
            const ssize_t count = read(descriptor_, block, size);
            if (count >= 0 || errno != EINTR) {
                return count;
            }
        }
    }

private:
    int descriptor_;
};

}  // namespace

void MountTableParser::Data(ConstData text) {
    for (char c : text.View()) {
        Take(c);
    }
}

std::vector<MountedFilesystem> MountTableParser::Finish() {
    EndLine();
    return std::exchange(table_, {});
}

void MountTableParser::Take(char c) {
    if (c == '\n' || c == '\r') {
        EndLine();
        return;
    }
    if (c == ' ' || c == '\t') {
        EndField();
        return;
    }
    begun_ = true;
    if (field_ == Field::Device) {
        hasColon_ = hasColon_ || c == ':';
    } else if (field_ == Field::Path) {
        path_ += c;
    } else if (field_ == Field::Type) {
        type_ += c;
    }
}

void MountTableParser::EndField() {
    if (begun_ && field_ != Field::Rest) {
        field_ = static_cast<Field>(static_cast<int>(field_) + 1);
        begun_ = false;
    }
}

void MountTableParser::EndLine() {
    if (!path_.empty()) {
        table_.push_back({path_, KindOf(type_, hasColon_)});
    }
    field_ = Field::Device;
    begun_ = false;
    hasColon_ = false;
    path_.clear();
    type_.clear();
}

std::vector<MountedFilesystem> ReadMountTable() {
    static constexpr char kPath[] = "/etc/mtab";
    const OpenTable table(kPath);
    if (!table.IsOpen()) {
        throw FileIOError(0, kPath);
    }
    MountTableParser parser;
    char block[1024];
    for (;;) {
        const ssize_t count = table.Read(block, sizeof block);
        if (count < 0) {
            throw FileIOError(0, kPath);
        }
        if (count == 0) {
            return parser.Finish();
        }
        parser.Data(ConstData(block, static_cast<size_t>(count)));
    }
}
