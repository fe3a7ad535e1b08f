#include "values/base64.h"

#include <array>

#include "evaluator/adapters.h"
#include "values/string.h"

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

unsigned char Digit(uint32_t value) { return static_cast<unsigned char>(kAlphabet[value & 63]); }

// The value of each byte of the alphabet, -1 for any other.
constexpr auto kValues = [] {
    std::array<short, 256> values{};
    values.fill(-1);
    for (short i = 0; i < 64; ++i) {
        values[static_cast<unsigned char>(kAlphabet[i])] = i;
    }
    return values;
}();

}  // namespace

void Base64Encoder::Filter(ConstData& in, Buffer& out) {
    while (!out.Full()) {
        if (bits_ >= 6) {
            bits_ -= 6;
            Put(out, Digit(accumulator_ >> bits_));
        } else if (!in.Empty()) {
            accumulator_ = accumulator_ << 8 | *in.begin++;
            bits_ += 8;
        } else if (ended_ && bits_ != 0) {
            Put(out, Digit(accumulator_ << (6 - bits_)));
            bits_ = 0;
        } else if (ended_ && written_ % 4 != 0) {
            Put(out, '=');
        } else {
            return;
        }
    }
}

void Base64Decoder::Filter(ConstData& in, Buffer& out) {
    // With less than two bits in hand the next byte of the alphabet makes no byte yet, and needs no room.
    while (!in.Empty() && (bits_ < 2 || !out.Full())) {
        const int value = kValues[*in.begin++];
        if (value < 0) {
            continue;
        }
        accumulator_ = accumulator_ << 6 | static_cast<uint32_t>(value);
        bits_ += 6;
        if (bits_ >= 8) {
            bits_ -= 8;
            *out.write++ = static_cast<unsigned char>(accumulator_ >> bits_);
        }
    }
}

namespace {

inspector_string Base64Encoded(const inspector_string& bytes) {
    Base64Encoder encoder;
    return FilteredString(bytes, encoder, Base64Encoder::EncodedLength(bytes.length));
}

inspector_string Base64Decoded(const inspector_string& text) {
    Base64Decoder decoder;
    return FilteredString(text, decoder, Base64Decoder::DecodedLength(text.length));
}

// clang-format off
NamedGlobalProperty<inspector_string, Base64Encoded>                encoded  {"base64 encode", "base64 encodes"};
NamedGlobalProperty<inspector_string, Base64Decoded>                decoded  {"base64 decode", "base64 decodes"};
// clang-format on

}  // namespace
