// Percent escapes, in both directions, as filters: an escape may be cut anywhere by the ends of the blocks that are
// read and written.
#ifndef FOUNDATION_URL_FILTERS_H
#define FOUNDATION_URL_FILTERS_H

#include "foundation/data_filter.h"

// Writes the byte that each "%" with two hexadecimal digits stands for.  A "%" that begins no escape is copied.  An
// escape that the last input leaves unfinished stays pending and is never written.
//
// Filter throws DataOverflow when a byte must be written and `out` had no room at all; what was consumed until then
// is kept, so that the call may be repeated with room.
class URLDecoder final : public DataFilter {
public:
    void Filter(ConstData& in, Buffer& out) override;
    bool IsFinished() const override { return state_ != State::Literal; }

    // Forgets what is pending, for a new text.
    void Reset() { state_ = State::Copying; }

private:
    enum class State {
        Copying = 0,
        FirstDigit = 1,   // a "%" was consumed
        SecondDigit = 2,  // and the digit that is kept in pending_
        Literal = 3,      // pending_ is to be written as it is
    };

    State state_ = State::Copying;
    unsigned char pending_ = 0;
};

// Writes "%" and two upper-case hexadecimal digits for each byte but the unreserved ones: letters, digits and "-._~".
// These mean the same in every part of a URL, and no other byte does.
class URLEncoder final : public DataFilter {
public:
    void Filter(ConstData& in, Buffer& out) override;
    bool IsFinished() const override { return left_ == 0; }

private:
    unsigned left_ = 0;  // digits of the escape of byte_ that are still to be written
    unsigned char byte_ = 0;
};

#endif
