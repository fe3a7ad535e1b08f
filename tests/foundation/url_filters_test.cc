#include "foundation/url_filters.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/foundation/cut_everywhere.h"

namespace {

// All that comes out with rooms of `room` bytes, and what IsFinished says at the end.
std::string Filtered(DataFilter& filter, const Runs& runs, size_t room) {
    std::string result;
    unsigned char space[64];
    const auto step = [&](ConstData& in) {
        Buffer out(space, space + room);
        filter.Filter(in, out);
        result.append(out.Filled().View());
    };
    for (const std::string_view run : runs) {
        ConstData in(run);
        while (!in.Empty()) {
            step(in);
        }
    }
    filter.Finish();
    while (!filter.IsFinished()) {
        ConstData nothing;
        step(nothing);
    }
    return result;
}

template <class Filter>
std::string WithEveryRoom(std::string_view text) {
    std::string whole;
    for (const size_t room : {64, 1, 2, 3, 4, 5}) {
        const std::string result = CutEverywhere(text, [&](const Runs& runs) {
            Filter filter;
            return Filtered(filter, runs, room);
        });
        if (room == 64) {
            whole = result;
        }
        EXPECT_EQ(result, whole) << "room " << room;
    }
    return whole;
}

std::string Decoded(std::string_view text) { return WithEveryRoom<URLDecoder>(text); }
std::string Encoded(std::string_view text) { return WithEveryRoom<URLEncoder>(text); }

TEST(URLDecoder, CopiesWhatIsNoEscape) {
    EXPECT_EQ(Decoded(""), "");
    EXPECT_EQ(Decoded("a+b/c?d"), "a+b/c?d");
}

TEST(URLDecoder, TwoDigitsOfEitherCaseAreAByte) {
    EXPECT_EQ(Decoded("%41%4a%4A%7e"), "AJJ~");
    EXPECT_EQ(Decoded("x%20y"), "x y");
    EXPECT_EQ(Decoded("%00%ff%25"), std::string("\0\xff%", 3));
    EXPECT_EQ(Decoded("%2541"), "%41");
}

TEST(URLDecoder, APercentBeforeNoDigitIsCopied) {
    EXPECT_EQ(Decoded("%zz"), "%zz");
    EXPECT_EQ(Decoded("%g1%G1%/1%:1%@1%`1"), "%g1%G1%/1%:1%@1%`1");
}

TEST(URLDecoder, APercentAndOneDigitAreCopied) {
    EXPECT_EQ(Decoded("%4z"), "%4z");
    EXPECT_EQ(Decoded("%fg"), "%fg");
}

TEST(URLDecoder, TheByteAfterABrokenEscapeIsReadNormally) {
    EXPECT_EQ(Decoded("%%41"), "%A");
    EXPECT_EQ(Decoded("%4%41"), "%4A");
    EXPECT_EQ(Decoded("%%%41"), "%%A");
    EXPECT_EQ(Decoded("%4%4%41"), "%4%4A");
}

TEST(URLDecoder, AnEscapeThatTheInputLeavesUnfinishedIsNotWritten) {
    EXPECT_EQ(Decoded("a%"), "a");
    EXPECT_EQ(Decoded("a%4"), "a");
    EXPECT_EQ(Decoded("%4%4"), "%4");
}

TEST(URLDecoder, AnUnfinishedEscapeStaysPendingForTheNextCall) {
    URLDecoder decoder;
    unsigned char space[8];
    Buffer out(space, space + sizeof space);
    ConstData in(std::string_view("%4"));
    decoder.Filter(in, out);
    EXPECT_TRUE(in.Empty());
    EXPECT_TRUE(out.Filled().Empty());
    EXPECT_TRUE(decoder.IsFinished());
    in = ConstData(std::string_view("1"));
    decoder.Filter(in, out);
    EXPECT_EQ(out.Filled().View(), "A");
}

TEST(URLDecoder, ResetForgetsWhatIsPending) {
    URLDecoder decoder;
    unsigned char space[8];
    Buffer out(space, space + sizeof space);
    ConstData in(std::string_view("%4"));
    decoder.Filter(in, out);
    decoder.Reset();
    in = ConstData(std::string_view("1"));
    decoder.Filter(in, out);
    EXPECT_EQ(out.Filled().View(), "1");
}

TEST(URLDecoder, ALiteralByteThatFoundNoRoomIsHeldBack) {
    URLDecoder decoder;
    unsigned char space[1];
    Buffer out(space, space + 1);
    ConstData in(std::string_view("%4z"));
    decoder.Filter(in, out);
    EXPECT_EQ(out.Filled().View(), "%");
    EXPECT_EQ(in.View(), "z");
    EXPECT_FALSE(decoder.IsFinished());
    ConstData nothing;
    out.write = out.begin;
    decoder.Filter(nothing, out);
    EXPECT_EQ(out.Filled().View(), "4");
    EXPECT_TRUE(decoder.IsFinished());
}

TEST(URLDecoder, NoRoomForAByteIsAnOverflowThatLosesNothing) {
    for (const std::string_view text : {"a", "%41", "%z", "%4z"}) {
        URLDecoder decoder;
        unsigned char space[8];
        Buffer none(space, space);
        ConstData in(text);
        EXPECT_THROW(decoder.Filter(in, none), DataOverflow) << text;
        Buffer out(space, space + sizeof space);
        decoder.Filter(in, out);
        EXPECT_EQ(out.Filled().View(), text == "%41" ? "A" : text);
    }
}

TEST(URLDecoder, ACallThatHasNothingToWriteNeedsNoRoom) {
    URLDecoder decoder;
    Buffer none;
    ConstData in(std::string_view("%4"));
    EXPECT_NO_THROW(decoder.Filter(in, none));
    EXPECT_TRUE(in.Empty());
}

TEST(URLEncoder, CopiesTheUnreservedBytesAndEscapesAllOthers) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        const bool unreserved = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                                (byte >= 'a' && byte <= 'z') || byte == '-' || byte == '.' || byte == '_' ||
                                byte == '~';
        char escape[4];
        std::snprintf(escape, sizeof escape, "%%%02X", byte);
        const std::string text(1, static_cast<char>(byte));
        EXPECT_EQ(Encoded(text), unreserved ? text : escape) << byte;
    }
}

TEST(URLEncoder, WritesInPieces) {
    EXPECT_EQ(Encoded("a b/c%d~"), "a%20b%2Fc%25d~");
    EXPECT_EQ(Encoded("\xc3\xa9\xff"), "%C3%A9%FF");
    EXPECT_EQ(Encoded(""), "");
}

TEST(URLEncoder, AFilledRangeReturnsWithTheStateKept) {
    URLEncoder encoder;
    unsigned char space[2];
    Buffer out(space, space + 2);
    ConstData in(std::string_view("/"));
    encoder.Filter(in, out);
    EXPECT_EQ(out.Filled().View(), "%2");
    EXPECT_FALSE(encoder.IsFinished());
    ConstData nothing;
    encoder.Filter(nothing, out);
    EXPECT_EQ(out.Filled().View(), "%2");
    out.write = out.begin;
    encoder.Filter(nothing, out);
    EXPECT_EQ(out.Filled().View(), "F");
    EXPECT_TRUE(encoder.IsFinished());
}

TEST(URLFilters, DecodingUndoesEncodingThroughTheBlocksOfAFilterer) {
    std::string text;
    for (int i = 0; i < 5000; ++i) {
        text += static_cast<char>(i * 7);
    }
    std::string encoded;
    std::string decoded;
    StringReceiver decodedReceiver(decoded);
    StringReceiver encodedReceiver(encoded);
    URLEncoder encoder;
    URLDecoder decoder;
    DataFilterer encode(encoder, encodedReceiver);
    DataFilterer decode(decoder, decodedReceiver);
    const ConstData data{std::string_view(text)};
    encode.Start();
    encode.Data(data.begin, data.end);
    encode.Finish();
    const ConstData back{std::string_view(encoded)};
    decode.Start();
    decode.Data(back.begin, back.end);
    decode.Finish();
    EXPECT_EQ(decoded, text);
    EXPECT_GT(encoded.size(), text.size());
}

}  // namespace
