// Writing a stream to a file: FileWriter at positions of an open one, FileDataSink as a receiver that opens its own.
#ifndef FOUNDATION_FILE_WRITER_H
#define FOUNDATION_FILE_WRITER_H

#include <cstdint>
#include <utility>

#include "foundation/data_receiver.h"
#include "foundation/file_writing_path.h"

// Writes at its own position, whatever else is done with the path, which must outlive it.
class FileWriter {
public:
    explicit FileWriter(UnixPlatform::FileWritingPath& path, uint64_t position = 0)
        : path_(&path), position_(position) {}

    uint64_t Position() const { return position_; }

    // Writes all of [begin, end) and moves behind it.  Throws by ThrowOpenFileError; what was written until then stays.
    void Write(const unsigned char* begin, const unsigned char* end);

private:
    UnixPlatform::FileWritingPath* path_;
    uint64_t position_;
};

// Start makes the file, or empties the one that is there; Finish closes it.
class FileDataSink final : public DataReceiver {
public:
    explicit FileDataSink(FileLocation location) : location_(std::move(location)), writer_(path_) {}

    void Start() override;
    void Data(const unsigned char* begin, const unsigned char* end) override { writer_.Write(begin, end); }
    void Finish() override { path_.Close(); }

private:
    FileLocation location_;
    UnixPlatform::FileWritingPath path_;
    FileWriter writer_;
};

#endif
