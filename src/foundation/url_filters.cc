#include "foundation/url_filters.h"

#include <algorithm>

#include "foundation/character_set.h"

namespace {

constexpr CharacterSet kUnreserved = CharacterSets::lettersAndDigits | CharacterSet("-._~");

void CopyRun(ConstData& in, Buffer& out, const unsigned char* end) {
    const size_t count = std::min(static_cast<size_t>(end - in.begin), out.Room());
    out.write = std::copy_n(in.begin, count, out.write);
    in.begin += count;
}

}  // namespace

void URLDecoder::Filter(ConstData& in, Buffer& out) {
    const bool noRoom = out.Full();
    const auto full = [&] {
        if (out.Full() && noRoom) {
            throw DataOverflow();
        }
        return out.Full();
    };
    while (state_ == State::Literal || !in.Empty()) {
        switch (state_) {
            case State::Copying:
                if (*in.begin == '%') {
                    ++in.begin;
                    state_ = State::FirstDigit;
                    break;
                }
                if (full()) {
                    return;
                }
                CopyRun(in, out, std::find(in.begin, in.end, '%'));
                break;
            case State::FirstDigit:
                if (CharacterSets::hexadecimalDigits.Contains(*in.begin)) {
                    pending_ = *in.begin++;
                    state_ = State::SecondDigit;
                    break;
                }
                if (full()) {
                    return;
                }
                *out.write++ = '%';
                state_ = State::Copying;
                break;
            case State::SecondDigit:
                if (full()) {
                    return;
                }
                if (CharacterSets::hexadecimalDigits.Contains(*in.begin)) {
                    *out.write++ = static_cast<unsigned char>(HexadecimalDigitValue(pending_) * 16 +
                                                              HexadecimalDigitValue(*in.begin++));
                    state_ = State::Copying;
                } else {
                    *out.write++ = '%';
                    state_ = State::Literal;
                }
                break;
            case State::Literal:
                if (full()) {
                    return;
                }
                *out.write++ = pending_;
                state_ = State::Copying;
                break;
        }
    }
}

void URLEncoder::Filter(ConstData& in, Buffer& out) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    while (!out.Full() && (left_ != 0 || !in.Empty())) {
        if (left_ != 0) {
            --left_;
            *out.write++ = static_cast<unsigned char>(kDigits[left_ == 1 ? byte_ >> 4 : byte_ & 15]);
        } else if (kUnreserved.Contains(*in.begin)) {
            CopyRun(in, out, kUnreserved.Span(in));
        } else {
            byte_ = *in.begin++;
            left_ = 2;
            *out.write++ = '%';
        }
    }
}
