// A console's output kept in memory, under a path that can be given as an output file.
#ifndef TESTS_CONSOLE_CAPTURED_OUTPUT_H
#define TESTS_CONSOLE_CAPTURED_OUTPUT_H

#include <sys/mman.h>
#include <unistd.h>

#include <string>

class CapturedOutput {
public:
    CapturedOutput() : descriptor_(memfd_create("output", MFD_CLOEXEC)) {
        path_ = "/proc/self/fd/" + std::to_string(descriptor_);
    }
    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;
    ~CapturedOutput() { close(descriptor_); }

    const char* Path() const { return path_.c_str(); }

    // How much has arrived so far, and the text of it from a position on.
    size_t Size() const { return static_cast<size_t>(lseek(descriptor_, 0, SEEK_END)); }
    std::string Text(size_t from = 0) const {
        std::string text(Size() - from, '\0');
        const ssize_t count = pread(descriptor_, text.data(), text.size(), static_cast<off_t>(from));
        text.resize(count < 0 ? 0 : static_cast<size_t>(count));
        return text;
    }

private:
    int descriptor_;
    std::string path_;
};

#endif
