#include "foundation/line_maker.h"

namespace {

bool EndsALine(unsigned char byte) { return byte == '\r' || byte == '\n'; }

}  // namespace

void LineMaker::Start(uint64_t position) {
    position_ = position;
    pending_ = 0;
    next_.Start(position);
}

void LineMaker::Data(const unsigned char* begin, const unsigned char* end) {
    while (begin != end) {
        if (pending_ != 0) {
            const bool otherHalf = EndsALine(*begin) && *begin != pending_;
            begin += otherHalf ? 1 : 0;
            EndLine(otherHalf ? 2 : 1);
        }
        const unsigned char* const text = begin;
        while (begin != end && !EndsALine(*begin)) {
            ++begin;
        }
        const unsigned char* const textEnd = begin;
        if (begin != end) {
            pending_ = *begin++;
        }
        if (text != textEnd) {
            next_.Text(text, textEnd);
            position_ += static_cast<uint64_t>(textEnd - text);
        }
    }
}

void LineMaker::Finish() {
    if (pending_ != 0) {
        EndLine(1);
    }
    next_.Finish(position_);
}

void LineMaker::EndLine(unsigned terminatorLength) {
    const uint64_t start = position_;
    pending_ = 0;
    position_ += terminatorLength;
    next_.EndOfLine(start, position_);
}
