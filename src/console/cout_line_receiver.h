// The console's output: a file, or standard output.
#ifndef CONSOLE_COUT_LINE_RECEIVER_H
#define CONSOLE_COUT_LINE_RECEIVER_H

#include <cstdio>
#include <string>
#include <string_view>

#include "foundation/line_receiver.h"

class CoutLineReceiver final : public LineReceiver {
public:
    // Opens `path` for writing; null, and a path that cannot be opened, mean standard output.  With `flushing` each
    // line is on its way as it ends, for a person who waits for it.
    CoutLineReceiver(const char* path, bool flushing);
    CoutLineReceiver(const CoutLineReceiver&) = delete;
    CoutLineReceiver& operator=(const CoutLineReceiver&) = delete;
    ~CoutLineReceiver() override;

    void Start(uint64_t) override {}
    void Text(const unsigned char* begin, const unsigned char* end) override;
    void EndOfLine(uint64_t start, uint64_t end) override;
    void Finish(uint64_t) override {}

    void Text(std::string_view text);
    void EndLine() { EndOfLine(0, 0); }

    // The path as it was given; null for none.
    const char* Path() const { return path_; }

    // Sends on what is held back.
    void Flush() { std::fflush(stream_); }

private:
    FILE* stream_;
    std::string suppressedPrefix_;  // Dropped at the start of a line; empty while there is no line editor.
    bool atLineStart_ = true;
    const char* path_;
    bool flushing_;
};

#endif
