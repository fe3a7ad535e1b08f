#include "foundation/header_maker.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "foundation/line_maker.h"
#include "tests/foundation/cut_everywhere.h"

namespace {

// Writes down what it is told: "subject={a value} |12| body line/ |20|", with the position of each turn.
class Recorder final : public HeaderReceiver, private DataReceiver, private LineReceiver {
public:
    DataReceiver& StartHeader(ConstData name) override {
        record.append(name.View()).append("=");
        return *this;
    }
    LineReceiver& EndHeaders(uint64_t position) override {
        record += "|" + std::to_string(position) + "|";
        return *this;
    }
    std::string record;

private:
    void Start() override { record += '{'; }
    void Data(const unsigned char* begin, const unsigned char* end) override { record.append(begin, end); }
    void Finish() override { record += "} "; }
    void Start(uint64_t position) override { record += "<" + std::to_string(position) + ":"; }
    void Text(const unsigned char* begin, const unsigned char* end) override { record.append(begin, end); }
    void EndOfLine(uint64_t, uint64_t) override { record += '/'; }
    void Finish(uint64_t position) override { record += ":" + std::to_string(position) + ">"; }
};

std::string Read(std::string_view text) {
    return CutEverywhere(text, [](const Runs& runs) {
        Recorder recorder;
        HeaderMaker headers(recorder);
        LineMaker lines(headers);
        lines.Start();
        for (const std::string_view run : runs) {
            const ConstData data(run);
            lines.Data(data.begin, data.end);
        }
        lines.Finish();
        return recorder.record;
    });
}

TEST(HeaderMaker, CutsNamesAndValues) {
    EXPECT_EQ(Read("Subject: hello\r\nFrom:me\r\n\r\n"), "subject={hello} from={me} |27|<27::27>");
}

TEST(HeaderMaker, NamesAreInLowerCaseAndValuesAsTheyStand) {
    EXPECT_EQ(Read("X-OSL-Thing: A b C\n\n"), "x-osl-thing={A b C} |20|<20::20>");
}

TEST(HeaderMaker, WhiteSpaceAfterTheColonIsEatenAndThatAtTheEndKept) {
    EXPECT_EQ(Read("a: \t b \n\n"), "a={b } |9|<9::9>");
}

TEST(HeaderMaker, AnyFoldIsOneBlank) { EXPECT_EQ(Read("a: b\n \t  c\n\td\n\n"), "a={b c d} |15|<15::15>"); }

TEST(HeaderMaker, AFoldAfterAnEmptyValueIsOneBlankToo) { EXPECT_EQ(Read("a:\n b\n\n"), "a={ b} |7|<7::7>"); }

TEST(HeaderMaker, ALineOfBlanksContinuesAndDoesNotEndTheHeaders) {
    EXPECT_EQ(Read("a: b\n \t\nc: d\n\n"), "a={b } c={d} |14|<14::14>");
}

TEST(HeaderMaker, ValuesMayBeEmptyAndHoldColons) { EXPECT_EQ(Read("a:\nb: x:y:z\n\n"), "a={} b={x:y:z} |13|<13::13>"); }

TEST(HeaderMaker, AnEmptyNameIsAName) { EXPECT_EQ(Read(": b\n\n"), "={b} |5|<5::5>"); }

TEST(HeaderMaker, ABlankBeforeTheColonBelongsToTheName) { EXPECT_EQ(Read("a : b\n\n"), "a ={b} |7|<7::7>"); }

TEST(HeaderMaker, TheFirstLineContinuesNothing) { EXPECT_EQ(Read(" a: b\n\n"), " a={b} |7|<7::7>"); }

TEST(HeaderMaker, ALineWithoutAColonIsDroppedWithItsContinuations) {
    EXPECT_EQ(Read("a: b\nnothing\n more: x\nc: d\n\n"), "a={b} c={d} |28|<28::28>");
}

TEST(HeaderMaker, ANameOfTheBuffersLengthIsTakenAndALongerOneDropped) {
    const std::string longest(HeaderMaker::kLongestName, 'n');
    EXPECT_EQ(Read(longest + ": b\n\n"), longest + "={b} |45|<45::45>");
    EXPECT_EQ(Read(longest + "n: b\n c: d\ne: f\n\n"), "e={f} |57|<57::57>");
    EXPECT_EQ(Read(std::string(100, 'n') + "\ne: f\n\n"), "e={f} |107|<107::107>");
}

TEST(HeaderMaker, TheBodyIsHandedOnAsItIs) {
    EXPECT_EQ(Read("a: b\r\n\r\nc: d\r\n\r\n e"), "a={b} |8|<8:c: d// e:18>");
}

TEST(HeaderMaker, AMessageMayHaveNoHeaders) { EXPECT_EQ(Read("\nbody\n"), "|1|<1:body/:6>"); }

TEST(HeaderMaker, TheEndOfTheStreamEndsTheHeadersToo) {
    EXPECT_EQ(Read(""), "|0|<0::0>");
    EXPECT_EQ(Read("a: b"), "a={b} |4|<4::4>");
    EXPECT_EQ(Read("a: b\n"), "a={b} |5|<5::5>");
    EXPECT_EQ(Read("a"), "|1|<1::1>");
}

TEST(HeaderMaker, AllBytesButLineEndsPass) {
    const std::string value("\x01\xff\0\x80", 4);
    EXPECT_EQ(Read("a: " + value + "\n\n"), "a={" + value + "} |9|<9::9>");
}

TEST(HeaderMaker, ServesOneMessageAfterTheOther) {
    Recorder recorder;
    HeaderMaker headers(recorder);
    LineMaker lines(headers);
    for (int i = 0; i < 2; ++i) {
        const ConstData data(std::string_view("a: b\n\nc\n"));
        lines.Start(100);
        lines.Data(data.begin, data.end);
        lines.Finish();
    }
    EXPECT_EQ(recorder.record, "a={b} |106|<106:c/:108>a={b} |106|<106:c/:108>");
}

}  // namespace
