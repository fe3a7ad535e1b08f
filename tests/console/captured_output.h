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

    // What has arrived so far.
    std::string Text() const {
        std::string text(static_cast<size_t>(lseek(descriptor_, 0, SEEK_END)), '\0');
        const ssize_t count = pread(descriptor_, text.data(), text.size(), 0);
        text.resize(count < 0 ? 0 : static_cast<size_t>(count));
        return text;
    }

    // Forgets what has arrived; the writer goes on at its own position, so it must have nothing more to write there.
    void Clear() { static_cast<void>(!ftruncate(descriptor_, 0)); }

private:
    int descriptor_;
    std::string path_;
};

#endif
