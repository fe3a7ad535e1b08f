#include "foundation/file_reader.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>

bool FileReader::HasData() {
    // What lay behind the position at the last look is most likely still there.  If not, the read gives nothing and the
    // reader is exhausted.
    if (!exhausted_ && position_ < static_cast<uint64_t>(length_)) {
        return true;
    }
    const int64_t length = path_.Length();
    if (length < 0) {
        return Peek();
    }
    if (length != length_) {
        length_ = length;
        exhausted_ = false;
    }
    return !exhausted_ && position_ < static_cast<uint64_t>(length_);
}

bool FileReader::Peek() {
    if (!hasPeeked_ && !exhausted_) {
        hasPeeked_ = ::pread64(path_.Descriptor(), &peeked_, 1, static_cast<off64_t>(position_)) == 1;
        exhausted_ = !hasPeeked_;
    }
    return hasPeeked_;
}

void FileReader::Fill(Buffer& out) { out.write += ReadOnce(out.write, out.Room()); }

void FileReader::Read(unsigned char* begin, unsigned char* end) {
    const size_t length = static_cast<size_t>(end - begin);
    if (ReadOnce(begin, length) != length) {
        ThrowReadError(shortRead, path_.Location().Text());
    }
}

// The peeked byte comes first and the file is read on from behind it: a file that is made up as it is read is then
// asked for each of its bytes once, in order.
size_t FileReader::ReadOnce(unsigned char* begin, size_t length) {
    if (length == 0) {
        return 0;
    }
    const size_t peeked = hasPeeked_ ? 1 : 0;
    size_t count = peeked;
    if (length > peeked) {
        const ssize_t result =
            ::pread64(path_.Descriptor(), begin + peeked, length - peeked, static_cast<off64_t>(position_ + peeked));
        if (result < 0) {
            ThrowReadError(errno, path_.Location().Text());
        }
        count += static_cast<size_t>(result);
    }
    if (hasPeeked_) {
        *begin = peeked_;
        hasPeeked_ = false;
    }
    // Some files claim a length that they do not fill.  Asking them again would never end, until the length changes.
    exhausted_ = count == 0;
    position_ += count;
    return count;
}

FileReadingLoop::FileReadingLoop(UnixPlatform::FileReadingPath& path, Buffer buffer) : buffer_(buffer), reader_(path) {
    const int64_t length = path.Length();
    untilExhausted_ = length < 0;
    remaining_ = untilExhausted_ ? std::numeric_limits<uint64_t>::max() : static_cast<uint64_t>(length);
}

ConstData FileReadingLoop::Fill() {
    if (!reader_.HasData()) {
        throw FileReadingLoopEndOfFileError();
    }
    Buffer block(buffer_.begin, buffer_.end);
    if (!readPastEnd_) {
        block.end = block.begin + std::min<uint64_t>(block.Room(), remaining_);
    }
    reader_.Fill(block);
    if (block.Filled().Empty() && !buffer_.Full()) {
        throw FileReadingLoopEndOfFileError();
    }
    remaining_ -= std::min<uint64_t>(remaining_, block.Filled().Length());
    return block.Filled();
}
