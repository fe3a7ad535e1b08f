#include "inspectors/line_window.h"

#include <cstring>

#include "evaluator/inspector_context.h"

namespace {

// The line feed's partner is the carriage return, and the other way round.
bool ArePartners(unsigned char first, unsigned char second) { return (first ^ second) == ('\n' ^ '\r'); }

}  // namespace

LineWindow::LineWindow(DataReader& reader, Buffer buffer, uint64_t offset)
    : reader_(reader),
      buffer_(buffer),
      lineStart_(buffer.begin),
      lineEnd_(buffer.begin),
      terminatorEnd_(buffer.begin),
      startOffset_(offset),
      nextOffset_(offset) {
    ends_.Restart(buffer.begin);
}

bool LineWindow::Next() {
    lineStart_ = lineEnd_ = terminatorEnd_;
    startOffset_ = nextOffset_;
    for (;;) {
        const unsigned char* end = ends_.First(lineStart_, buffer_.write);
        if (end != buffer_.write) {
            TakeUpTo(end);
            return true;
        }
        if (!Refill()) {
            break;
        }
    }
    if (lineStart_ == buffer_.write) {
        return false;
    }
    TakeWithoutEnd();
    return true;
}

// A line that fills the window, or the last one.
void LineWindow::TakeWithoutEnd() {
    lineEnd_ = terminatorEnd_ = buffer_.write;
    nextOffset_ = EndOffset();
}

void LineWindow::TakeUpTo(const unsigned char* end) {
    lineEnd_ = end;
    terminatorEnd_ = end + 1;
    nextOffset_ = EndOffset() + 1;
    if (terminatorEnd_ == buffer_.write) {
        LookBehindWindow();
    } else if (ArePartners(*end, *terminatorEnd_)) {
        ++terminatorEnd_;
        ++nextOffset_;
    }
}

// The line's end is the last byte that has been read.  Its partner may come next.
void LineWindow::LookBehindWindow() {
    if (Refill()) {
        if (ArePartners(*lineEnd_, *terminatorEnd_)) {
            ++terminatorEnd_;
            ++nextOffset_;
        }
        return;
    }
    if (!buffer_.Full() || lineStart_ != buffer_.begin) {
        return;
    }
    // The line and its end fill the window.  The next byte is read to the place of the end, which is of no more use.
    unsigned char* const place = buffer_.write - 1;
    const unsigned char end = *place;
    Buffer room(place, buffer_.end);
    if (!ReadMore(room)) {
        return;
    }
    if (ArePartners(end, *place)) {
        ++nextOffset_;
    } else {
        terminatorEnd_ = place;
        ends_.Restart(place);
        ends_.Extend(place, buffer_.write);
    }
}

// Moves the present line to the front of the window and reads on behind what has been read.  False when there is no
// room and when there is no more to read.
bool LineWindow::Refill() {
    const auto distance = static_cast<size_t>(lineStart_ - buffer_.begin);
    if (distance != 0) {
        const auto kept = static_cast<size_t>(buffer_.write - lineStart_);
        std::memmove(buffer_.begin, lineStart_, kept);
        buffer_.write = buffer_.begin + kept;
        lineStart_ = buffer_.begin;
        lineEnd_ -= distance;
        terminatorEnd_ -= distance;
        ends_.Move(distance);
    }
    const unsigned char* const oldEnd = buffer_.write;
    if (buffer_.Full() || !ReadMore(buffer_)) {
        return false;
    }
    ends_.Extend(oldEnd, buffer_.write);
    return true;
}

bool LineWindow::ReadMore(Buffer& room) {
    CheckForInterruption();
    const unsigned char* const before = room.write;
    while (room.write == before && reader_.HasData()) {
        reader_.Fill(room);
    }
    return room.write != before;
}
