// The files of a process that hold items, each ended by a zero byte: its command line and its environment.
//
// A reader holds the whole text and gives the items one after the other.  The two readers differ in the file that they
// read and in the classes of their failures, which their users tell apart.
#ifndef INSPECTORS_PROCESS_ITEMS_H
#define INSPECTORS_PROCESS_ITEMS_H

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "foundation/debuggable_exception.h"

template <class Reader>
class ProcessItemReader {
public:
    struct Error : DebuggableException {
        using DebuggableException::DebuggableException;
    };
    struct OperationNotPermitted : Error {
        OperationNotPermitted() noexcept : Error("OperationNotPermitted") {}
    };
    struct NoSuchProcess : Error {
        NoSuchProcess() noexcept : Error("NoSuchProcess") {}
    };
    struct ReadError : Error {
        ReadError() noexcept : Error("ReadError") {}
    };

    // Over a text that has been read.
    explicit ProcessItemReader(std::string text) : text_(std::move(text)) { SkipEmpty(); }

    bool HasMore() const { return cursor_ != text_.size(); }

    // The bytes up to the next zero byte, or to the end of a text that has none.  Empty items are no items.
    std::string_view NextItem() {
        const size_t end = std::min(text_.find('\0', cursor_), text_.size());
        const std::string_view item = std::string_view(text_).substr(cursor_, end - cursor_);
        cursor_ = end;
        SkipEmpty();
        return item;
    }

    // The text of the reader's file of a process.  Throws OperationNotPermitted where it belongs to somebody else,
    // NoSuchProcess where it cannot be opened, ReadError, and std::bad_alloc also where the kernel has no memory.
    static Reader Open(std::string_view id) {
        std::string path = "/proc/";
        path += id;
        path += Reader::kFile;
        return Reader(ReadWhole(path.c_str()));
    }

    static std::string ReadWhole(const char* path) {
        const Descriptor file(open64(path, O_RDONLY | O_CLOEXEC));
        if (file.number < 0) {
            ThrowOpenError(errno);
        }
        std::string text;
        char block[128];
        ssize_t count;
        do {
            count = ReadBlock(file.number, block, sizeof block);
            text.append(block, static_cast<size_t>(count));
        } while (count == sizeof block);
        return text;
    }

private:
    struct Descriptor {
        explicit Descriptor(int descriptor) : number(descriptor) {}
        Descriptor(const Descriptor&) = delete;
        Descriptor& operator=(const Descriptor&) = delete;
        ~Descriptor() {
            if (number >= 0) {
                close(number);
            }
        }
        int number;
    };

    [[noreturn]] static void ThrowOpenError(int error) {
        switch (error) {
            case ENOMEM:
                throw std::bad_alloc();
            case EACCES:
                throw OperationNotPermitted();
            default:
                throw NoSuchProcess();
        }
    }

    static ssize_t ReadBlock(int descriptor, char* block, size_t size) {
        for (;;) {
            const ssize_t count = read(descriptor, block, size);
            if (count >= 0) {
                return count;
            }
            if (errno != EINTR) {
                throw ReadError();
            }
        }
    }

    void SkipEmpty() { cursor_ = std::min(text_.find_first_not_of('\0', cursor_), text_.size()); }

    std::string text_;
    size_t cursor_ = 0;
};

class CmdLineArgReader : public ProcessItemReader<CmdLineArgReader> {
public:
    using ProcessItemReader::ProcessItemReader;
    static constexpr std::string_view kFile = "/cmdline";
};

class OtherProcessEnvReader : public ProcessItemReader<OtherProcessEnvReader> {
public:
    using ProcessItemReader::ProcessItemReader;
    static constexpr std::string_view kFile = "/environ";
};

#endif
