// Reading an open file at positions of one's own: FileReader as a source of bytes, FileReadingLoop block by block.
#ifndef FOUNDATION_FILE_READER_H
#define FOUNDATION_FILE_READER_H

#include <cstdint>

#include "foundation/data_reader.h"
#include "foundation/file_reading_path.h"

// Reads at its own position, whatever else is done with the path, which must outlive it.  Failed reads throw by
// ThrowReadError.
class FileReader final : public DataReader {
public:
    explicit FileReader(UnixPlatform::FileReadingPath& path, uint64_t position = 0)
        : path_(path), position_(position) {}

    uint64_t Position() const { return position_; }

    // A file is at its end when the position reaches its length, which is asked for again before that is said, so that
    // a file that grows gives what was added.  One that has no length is at its end when it has no byte to give.
    bool HasData() override;
    bool AtEnd() override { return !HasData(); }

    // One read into the room of `out`.
    void Fill(Buffer& out) override;

    // One read that must fill the range, else EndOfFileError; the position then stands behind what was read.
    void Read(unsigned char* begin, unsigned char* end) override;

private:
    bool Peek();
    size_t ReadOnce(unsigned char* begin, size_t length);

    UnixPlatform::FileReadingPath& path_;
    uint64_t position_;
    int64_t length_ = 0;
    unsigned char peeked_ = 0;
    bool hasPeeked_ = false;
    bool exhausted_ = false;
};

// Reads a stretch of a file in blocks of the size of a buffer.
//
//     while (loop.HasBytesRemaining()) { Use(loop.Fill()); }
class FileReadingLoop {
public:
    // `count` bytes from `start` on.  With `readPastEnd` the last block fills the buffer too, as far as the file goes.
    FileReadingLoop(UnixPlatform::FileReadingPath& path, Buffer buffer, uint64_t start, uint64_t count,
                    bool readPastEnd = false)
        : buffer_(buffer), reader_(path, start), remaining_(count), readPastEnd_(readPastEnd) {}

    // All of the file: as many bytes as it has now, or, when it has no length, until it gives no more.
    FileReadingLoop(UnixPlatform::FileReadingPath& path, Buffer buffer);

    bool HasBytesRemaining() { return untilExhausted_ ? reader_.HasData() : remaining_ != 0; }
    uint64_t BytesRemaining() const { return remaining_; }

    // The next block, which lies in the buffer until the next call.  Throws FileReadingLoopEndOfFileError when the file
    // has no more data.
    ConstData Fill();

private:
    Buffer buffer_;
    FileReader reader_;
    uint64_t remaining_;
    bool readPastEnd_ = false;
    bool untilExhausted_ = false;
};

#endif
