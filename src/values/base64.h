// Base64 with the alphabet of RFC 4648, as filters that take their input cut anywhere.
#ifndef VALUES_BASE64_H
#define VALUES_BASE64_H

#include <cstdint>

#include "foundation/data_filter.h"

// Encodes one text, in one line, padded with "=" to a multiple of 4.  What is held back when the text ends is written
// by the calls of Filter that follow Finish, until IsFinished.
class Base64Encoder final : public DataFilter {
public:
    // The bytes that a text of this length becomes.
    static constexpr size_t EncodedLength(size_t length) { return (length + 2) / 3 * 4; }

    void Filter(ConstData& in, Buffer& out) override;
    bool IsFinished() const override { return bits_ == 0 && written_ % 4 == 0; }
    void Finish() override { ended_ = true; }

private:
    void Put(Buffer& out, unsigned char c) {
        *out.write++ = c;
        ++written_;
    }

    uint32_t accumulator_ = 0;  // Its low bits_ bits are still to be written.
    unsigned bits_ = 0;
    unsigned written_ = 0;  // Only its remainder by 4 counts.
    bool ended_ = false;
};

// Decodes whatever it is given: a byte outside the alphabet, "=" and line ends among them, is passed over and ends
// nothing; bits that do not make a whole byte are dropped.
class Base64Decoder final : public DataFilter {
public:
    // The most bytes that a text of this length can become.
    static constexpr size_t DecodedLength(size_t length) { return length / 4 * 3 + length % 4 * 3 / 4; }

    void Filter(ConstData& in, Buffer& out) override;

private:
    uint32_t accumulator_ = 0;
    unsigned bits_ = 0;
};

#endif
