// A file that is open for reading and writing.
#ifndef FOUNDATION_FILE_WRITING_PATH_H
#define FOUNDATION_FILE_WRITING_PATH_H

#include <cstdint>

#include "foundation/file_reading_path.h"

namespace UnixPlatform {

// The four ways to open close what was open before; new files are made with mode 0666 through the process's umask.
// Opening, truncating and flushing throw by ThrowWritingPathError.
class FileWritingPath : public FileReadingPath {
public:
    void Create(FileLocation location);        // made, or emptied when it is there
    void OpenOrCreate(FileLocation location);  // made when it is not there
    void CreateNew(FileLocation location);     // made; FileExistsError when something is there
    void OpenExisting(FileLocation location);  // not made

    // Cuts the file to `length`, or writes one zero byte at the new end of a shorter one, by ThrowOpenFileError.
    void SetLength(int64_t length);

    // Returns when the file has reached the disk.
    void Flush();

private:
    void OpenWith(FileLocation location, int flags);
};

}  // namespace UnixPlatform

#endif
