// Cuts a stream of bytes into lines.
//
// "\r", "\n", "\r\n" and "\n\r" each end one line, wherever the runs of the stream are cut.  A terminator at the very
// end of a run is held until the next byte or Finish, since only then is it known to be of one byte or of two: a
// line's EndOfLine may come a run later than its last Text.
#ifndef FOUNDATION_LINE_MAKER_H
#define FOUNDATION_LINE_MAKER_H

#include <cstdint>

#include "foundation/data_receiver.h"
#include "foundation/line_receiver.h"

// Holds nothing of the stream but one byte; every Text that it hands on is a view of the run that it was given.
class LineMaker final : public DataReceiver {
public:
    explicit LineMaker(LineReceiver& next) : next_(next) {}

    void Start() override { Start(0); }

    // For a stream that begins in the middle of something: all positions count from `position`.
    void Start(uint64_t position);

    void Data(const unsigned char* begin, const unsigned char* end) override;
    void Finish() override;

private:
    void EndLine(unsigned terminatorLength);

    LineReceiver& next_;
    uint64_t position_ = 0;
    unsigned char pending_ = 0;  // the carriage return or line feed that was seen last, 0 for none
};

#endif
