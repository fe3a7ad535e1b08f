// The table of mounted file systems: what its text says, and the text of this machine.
#ifndef INSPECTORS_MOUNT_TABLE_H
#define INSPECTORS_MOUNT_TABLE_H

#include <string>
#include <vector>

#include "foundation/const_data.h"

// What a file system is on, by the numbers that it is told by.
enum class FilesystemKind : int {
    Removable = 0,
    Fixed = 1,
    Remote = 2,
    CdRom = 3,
    Unknown = 4,  // made from a path, not from the table
};

struct MountedFilesystem {
    std::string path;  // as written: what is escaped there stays so
    FilesystemKind kind;
};

// Takes the text in pieces of any size.  Each line is a device, a path and a type, and more that does not count, with
// blanks and tabs between them; it ends at a line feed or a carriage return.  A line without a path says nothing.
class MountTableParser {
public:
    void Data(ConstData text);

    // The end of the text, which ends a last line too.  Gives what the lines said, in their order.
    std::vector<MountedFilesystem> Finish();

private:
    enum class Field { Device, Path, Type, Rest };

    void Take(char c);
    void EndField();
    void EndLine();

    std::vector<MountedFilesystem> table_;
    Field field_ = Field::Device;
    bool begun_ = false;     // the present field has a byte
    bool hasColon_ = false;  // the device has
    std::string path_;
    std::string type_;
};

// This machine's table.  Throws FileIOError with its path where it cannot be read.
std::vector<MountedFilesystem> ReadMountTable();

#endif
