// The lines of a text of any length, read through a small window.
//
// A line ends at the first line feed or carriage return; when the other of the two comes next, it belongs to the same
// end.  A last line needs no end, and an empty text has no lines.  A line that fills the window is cut there, and what
// remains of it comes as the next line, also when nothing but its end remains.
#ifndef INSPECTORS_LINE_WINDOW_H
#define INSPECTORS_LINE_WINDOW_H

#include <cstdint>
#include <string_view>

#include "foundation/data_reader.h"
#include "inspectors/line_end_search.h"

// How much of a file is looked at at a time, and the most that a line has.
inline constexpr size_t kLineWindow = 2048;

// A look through a buffer of the caller's at what a reader gives.  Both must outlive it.
class LineWindow {
public:
    // `offset` is where in the text the reader stands.
    LineWindow(DataReader& reader, Buffer buffer, uint64_t offset = 0);
    LineWindow(const LineWindow&) = delete;
    LineWindow& operator=(const LineWindow&) = delete;

    // Moves to the next line, to the first one at the first call.  False when there are no more.  Throws what the
    // reader throws, and what an interruption of the evaluation throws.
    bool Next();

    // Of the present line; the text lies in the buffer until Next.
    std::string_view Text() const { return ConstData(lineStart_, lineEnd_).View(); }
    uint64_t StartOffset() const { return startOffset_; }
    uint64_t EndOffset() const { return startOffset_ + static_cast<uint64_t>(lineEnd_ - lineStart_); }
    // Behind the end of the line too: where the next line begins.
    uint64_t NextOffset() const { return nextOffset_; }

private:
    bool Refill();
    bool ReadMore(Buffer& room);
    void TakeWithoutEnd();
    void TakeUpTo(const unsigned char* end);
    void LookBehindWindow();

    DataReader& reader_;
    Buffer buffer_;  // filled from `begin` to `write`
    LineEndSearch ends_;
    const unsigned char* lineStart_;
    const unsigned char* lineEnd_;
    const unsigned char* terminatorEnd_;
    uint64_t startOffset_;
    uint64_t nextOffset_;
};

#endif
