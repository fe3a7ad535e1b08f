#include "foundation/line_maker.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>

namespace {

// Writes down what it is told: "S0 'a' E1-3 'b' F4".  Text calls that follow each other are joined, since a line may
// come in any number of them.
class Recorder final : public LineReceiver {
public:
    void Start(uint64_t position) override { Say() << 'S' << position; }
    void Text(const unsigned char* begin, const unsigned char* end) override {
        EXPECT_NE(begin, end);
        text_.append(begin, end);
    }
    void EndOfLine(uint64_t start, uint64_t end) override { Say() << " E" << start << '-' << end; }
    void Finish(uint64_t position) override { Say() << " F" << position; }
    std::string Record() { return record_.str(); }

private:
    std::ostream& Say() {
        if (!text_.empty()) {
            record_ << " '" << text_ << '\'';
            text_.clear();
        }
        return record_;
    }

    std::ostringstream record_;
    std::string text_;
};

void Give(LineMaker& lines, std::string_view text) {
    const ConstData data(text);
    lines.Data(data.begin, data.end);
}

std::string WholeRun(std::string_view text) {
    Recorder recorder;
    LineMaker lines(recorder);
    lines.Start();
    Give(lines, text);
    lines.Finish();
    return recorder.Record();
}

std::string CutAt(std::string_view text, size_t first, size_t second) {
    Recorder recorder;
    LineMaker lines(recorder);
    lines.Start();
    Give(lines, text.substr(0, first));
    Give(lines, text.substr(first, second - first));
    Give(lines, text.substr(second));
    lines.Finish();
    return recorder.Record();
}

TEST(LineMaker, ACarriageReturnAndALineFeedAreOneTerminatorAcrossRuns) {
    EXPECT_EQ(CutAt("a\r\nb", 2, 4), "S0 'a' E1-3 'b' F4");
}

TEST(LineMaker, EachTerminatorEndsOneLine) {
    EXPECT_EQ(WholeRun("a\nb"), "S0 'a' E1-2 'b' F3");
    EXPECT_EQ(WholeRun("a\rb"), "S0 'a' E1-2 'b' F3");
    EXPECT_EQ(WholeRun("a\r\nb"), "S0 'a' E1-3 'b' F4");
    EXPECT_EQ(WholeRun("a\n\rb"), "S0 'a' E1-3 'b' F4");
}

TEST(LineMaker, TwoEqualBytesAreTwoTerminators) {
    EXPECT_EQ(WholeRun("\r\r"), "S0 E0-1 E1-2 F2");
    EXPECT_EQ(WholeRun("\n\n"), "S0 E0-1 E1-2 F2");
}

TEST(LineMaker, OfThreeBytesTheFirstTwoBelongTogether) {
    EXPECT_EQ(WholeRun("\n\r\n"), "S0 E0-2 E2-3 F3");
    EXPECT_EQ(WholeRun("\r\n\r"), "S0 E0-2 E2-3 F3");
    EXPECT_EQ(WholeRun("\r\n\n\r"), "S0 E0-2 E2-4 F4");
}

TEST(LineMaker, ATerminatorAtTheEndOfARunIsHeldUntilTheNextByte) {
    Recorder recorder;
    LineMaker lines(recorder);
    lines.Start();
    Give(lines, "a\r");
    EXPECT_EQ(recorder.Record(), "S0");
    Give(lines, "");
    EXPECT_EQ(recorder.Record(), "S0");
    Give(lines, "b");
    EXPECT_EQ(recorder.Record(), "S0 'a' E1-2");
}

TEST(LineMaker, ATerminatorAtTheEndOfTheStreamComesAtFinish) {
    EXPECT_EQ(WholeRun("a\r"), "S0 'a' E1-2 F2");
    EXPECT_EQ(WholeRun("a\n"), "S0 'a' E1-2 F2");
    EXPECT_EQ(WholeRun("a\r\n"), "S0 'a' E1-3 F3");
}

TEST(LineMaker, AStreamWithoutBytesHasNoLine) { EXPECT_EQ(WholeRun(""), "S0 F0"); }

TEST(LineMaker, PositionsCountFromTheStartPosition) {
    Recorder recorder;
    LineMaker lines(recorder);
    lines.Start(0x100000000);
    Give(lines, "a\nb");
    lines.Finish();
    EXPECT_EQ(recorder.Record(), "S4294967296 'a' E4294967297-4294967298 'b' F4294967299");
}

TEST(LineMaker, StartForgetsTheStreamBefore) {
    Recorder recorder;
    LineMaker lines(recorder);
    lines.Start();
    Give(lines, "a\r");
    lines.Start();
    Give(lines, "\nb");
    lines.Finish();
    EXPECT_EQ(recorder.Record(), "S0 'a'S0 E0-1 'b' F2");
}

TEST(LineMaker, EveryCutGivesTheSameLines) {
    for (const std::string_view text : {"a\r\nb", "one\n\ntwo\r\r\n\n\rthree", "\r\n\n\r\r\n", "x", "\n\r\n", "a\r"}) {
        const std::string whole = WholeRun(text);
        for (size_t first = 0; first <= text.size(); ++first) {
            for (size_t second = first; second <= text.size(); ++second) {
                EXPECT_EQ(CutAt(text, first, second), whole) << first << ' ' << second;
            }
        }
    }
}

}  // namespace
