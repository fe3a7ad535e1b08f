#include "foundation/file_writing_path.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "foundation/file_writer.h"

namespace UnixPlatform {

void FileWritingPath::Create(FileLocation location) { OpenWith(std::move(location), O_CREAT | O_TRUNC); }
void FileWritingPath::OpenOrCreate(FileLocation location) { OpenWith(std::move(location), O_CREAT); }
void FileWritingPath::CreateNew(FileLocation location) { OpenWith(std::move(location), O_CREAT | O_EXCL); }
void FileWritingPath::OpenExisting(FileLocation location) { OpenWith(std::move(location), 0); }

void FileWritingPath::OpenWith(FileLocation location, int flags) {
    Rebind(std::move(location));
    SetDescriptor(::open64(Location().CString(), O_RDWR | O_CLOEXEC | flags, 0666));
    if (!IsOpen()) {
        ThrowWritingPathError(errno, Location().Text());
    }
}

void FileWritingPath::SetLength(int64_t length) {
    if (Length() < length) {
        const unsigned char zero = 0;
        FileWriter(*this, static_cast<uint64_t>(length - 1)).Write(&zero, &zero + 1);
    } else if (::ftruncate64(Descriptor(), length) != 0) {
        ThrowWritingPathError(errno, Location().Text());
    }
}

void FileWritingPath::Flush() {
    if (::fsync(Descriptor()) != 0) {
        ThrowWritingPathError(errno, Location().Text());
    }
}

}  // namespace UnixPlatform
