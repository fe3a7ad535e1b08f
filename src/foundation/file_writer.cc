#include "foundation/file_writer.h"

#include <unistd.h>

#include <cerrno>

void FileWriter::Write(const unsigned char* begin, const unsigned char* end) {
    while (begin != end) {
        // One call that seeks and writes, with the same failures as the two calls have.
        const ssize_t count =
            ::pwrite64(path_->Descriptor(), begin, static_cast<size_t>(end - begin), static_cast<off64_t>(position_));
        if (count < 0) {
            ThrowOpenFileError(errno, path_->Location().Text());
        }
        begin += count;
        position_ += static_cast<uint64_t>(count);
    }
}

void FileDataSink::Start() {
    path_.Create(location_);
    writer_ = FileWriter(path_);
}
