// The Base64 filters with their input and their output cut at every byte.
#include "values/base64.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// What a filter makes of the text when it is given in two pieces and its output is taken `room` bytes at a time.
std::string Filtered(DataFilter& filter, std::string_view text, size_t cut, size_t room) {
    std::string made;
    unsigned char block[64];
    const auto drain = [&](ConstData in, bool untilFinished) {
        do {
            Buffer out(block, block + room);
            filter.Filter(in, out);
            made.append(out.begin, out.write);
            if (untilFinished && out.write == out.begin && !filter.IsFinished()) {
                ADD_FAILURE() << "the filter neither writes nor ends";
                return;
            }
        } while (!in.Empty() || (untilFinished && !filter.IsFinished()));
    };
    drain(ConstData(text.substr(0, cut)), false);
    drain(ConstData(text.substr(cut)), false);
    filter.Finish();
    drain(ConstData(), true);
    return made;
}

struct Pair {
    std::string plain;
    std::string encoded;
};

const Pair pairs[] = {
    {"", ""},
    {"f", "Zg=="},
    {"fo", "Zm8="},
    {"foo", "Zm9v"},
    {"foob", "Zm9vYg=="},
    {"fooba", "Zm9vYmE="},
    {"foobar", "Zm9vYmFy"},
    {std::string("\0\0\0\0", 4), "AAAAAA=="},
    {"\xff\xff\xff\xff\xff", "//////8="},
    {"\xfb\xef\xbe", "++++"},
};

TEST(Base64Encoder, CutAnywhereItWritesTheSame) {
    for (const Pair& pair : pairs) {
        for (size_t cut = 0; cut <= pair.plain.size(); ++cut) {
            for (size_t room : {1, 2, 3, 4, 5, 64}) {
                Base64Encoder encoder;
                EXPECT_EQ(Filtered(encoder, pair.plain, cut, room), pair.encoded) << cut << " " << room;
            }
        }
        EXPECT_EQ(Base64Encoder::EncodedLength(pair.plain.size()), pair.encoded.size());
    }
}

TEST(Base64Decoder, CutAnywhereItWritesTheSame) {
    for (const Pair& pair : pairs) {
        for (size_t cut = 0; cut <= pair.encoded.size(); ++cut) {
            for (size_t room : {1, 2, 3, 64}) {
                Base64Decoder decoder;
                EXPECT_EQ(Filtered(decoder, pair.encoded, cut, room), pair.plain) << cut << " " << room;
            }
        }
    }
}

TEST(Base64Decoder, WhatIsNotOfTheAlphabetIsPassedOver) {
    const std::string text =
        "Z=m 9\r\nv-_\xff\x80"
        "=YmFy=";
    for (size_t cut = 0; cut <= text.size(); ++cut) {
        Base64Decoder decoder;
        EXPECT_EQ(Filtered(decoder, text, cut, 1), "foobar") << cut;
    }
}

// A text whose last digits make no byte, with nothing to spare in the memory that its length asks for.
TEST(Base64Decoder, TheLengthToldIsRoomEnough) {
    for (size_t length = 0; length <= 40; ++length) {
        for (size_t junk = 0; junk <= length; ++junk) {
            std::string text(length, 'Q');
            if (junk < length) {
                text[junk] = '=';
            }
            std::string block(Base64Decoder::DecodedLength(length), '#');
            auto* bytes = reinterpret_cast<unsigned char*>(block.data());
            ConstData in(text);
            Buffer out(bytes, bytes + block.size());
            Base64Decoder decoder;
            decoder.Filter(in, out);
            EXPECT_TRUE(in.Empty()) << length << " " << junk;
            const size_t digits = length - (junk < length ? 1 : 0);
            EXPECT_EQ(out.Filled().Length(), digits * 6 / 8) << length << " " << junk;
        }
    }
}

TEST(Base64Encoder, IsFinishedWhenNothingIsHeldBack) {
    Base64Encoder encoder;
    unsigned char block[8];
    EXPECT_TRUE(encoder.IsFinished());
    ConstData in(std::string_view("a"));
    Buffer out(block, block + sizeof block);
    encoder.Filter(in, out);
    EXPECT_EQ(out.Filled().View(), "Y");
    EXPECT_FALSE(encoder.IsFinished());
    encoder.Finish();
    EXPECT_FALSE(encoder.IsFinished());
    encoder.Filter(in, out);
    EXPECT_EQ(out.Filled().View(), "YQ==");
    EXPECT_TRUE(encoder.IsFinished());
}

}  // namespace
