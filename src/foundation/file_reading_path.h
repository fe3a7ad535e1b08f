// A file that is open for reading.
#ifndef FOUNDATION_FILE_READING_PATH_H
#define FOUNDATION_FILE_READING_PATH_H

#include <cstdint>

#include "foundation/file_location.h"

namespace UnixPlatform {

// Owns one descriptor, which is never handed down to other programs.  What the operations throw, when nothing else is
// said, is told by ThrowLocationError.
class FileReadingPath {
public:
    FileReadingPath() = default;
    explicit FileReadingPath(FileLocation location) { Open(std::move(location)); }
    FileReadingPath(const FileReadingPath&) = delete;
    FileReadingPath& operator=(const FileReadingPath&) = delete;

    // Closes, and keeps a failure of that to itself.
    ~FileReadingPath();

    // Closes what was open before.  The one place that is never opened is /proc/kmsg, where a read would wait for the
    // kernel's next message and take it away from its log: FileIOError.  An empty location throws
    // EmptyFileLocationError.
    void Open(FileLocation location);

    // Does nothing when closed.  The path counts as closed even when this throws, by ThrowOpenFileError.
    void Close();

    bool IsOpen() const { return descriptor_ != closed; }
    int Descriptor() const { return descriptor_; }
    const FileLocation& Location() const { return location_; }

    // The number of bytes in the file now, or -1 when it refuses to tell by seeking, as many files of /proc do.  Leaves
    // the position of the descriptor as it was.  Throws FileNotOpenError when closed.
    int64_t Length();

protected:
    static constexpr int closed = -1;

    // Closes, and binds this to an open descriptor and its place.
    void Rebind(FileLocation location);
    void SetDescriptor(int descriptor) { descriptor_ = descriptor; }

private:
    FileLocation location_;
    int descriptor_ = closed;
    bool unseekable_ = false;
};

}  // namespace UnixPlatform

#endif
