#include "inspectors/line_window.h"

#include <gtest/gtest.h>

#include "evaluator/inspector_context.h"
#include "tests/inspectors/naive_lines.h"
#include "tests/inspectors/text_reader.h"

namespace {

std::vector<NaiveLine> WindowLines(TextReader reader) {
    std::vector<unsigned char> buffer(kLineWindow);
    LineWindow window(reader, Buffer(buffer.data(), buffer.data() + buffer.size()));
    std::vector<NaiveLine> lines;
    while (window.Next()) {
        EXPECT_EQ(window.EndOffset(), window.StartOffset() + window.Text().size());
        lines.push_back({std::string(window.Text()), window.StartOffset(), window.NextOffset()});
    }
    EXPECT_FALSE(window.Next());
    return lines;
}

std::vector<NaiveLine> WindowLines(std::string_view text, size_t piece) { return WindowLines(TextReader(text, piece)); }

void ExpectNaive(const std::string& text, const std::string& what) {
    const std::vector<NaiveLine> expected = NaiveLines(text);
    for (const size_t piece : {size_t{1}, size_t{3}, size_t{1000}, kLineWindow, SIZE_MAX}) {
        ASSERT_EQ(WindowLines(text, piece), expected) << what << ", read by " << piece;
    }
}

std::vector<std::string> Texts(std::string_view text) {
    std::vector<std::string> texts;
    for (const NaiveLine& line : WindowLines(text, SIZE_MAX)) {
        texts.push_back(line.text);
    }
    return texts;
}

using Lines = std::vector<std::string>;

TEST(LineWindow, TwoDifferentEndsAreOneAndTwoEqualEndsAreTwo) {
    EXPECT_EQ(Texts(""), Lines({}));
    EXPECT_EQ(Texts("a"), Lines({"a"}));
    EXPECT_EQ(Texts("a\n"), Lines({"a"}));
    EXPECT_EQ(Texts("a\n\nb"), Lines({"a", "", "b"}));
    EXPECT_EQ(Texts("a\r\nb\n\rc\rd\ne"), Lines({"a", "b", "c", "d", "e"}));
    EXPECT_EQ(Texts("\r\r"), Lines({"", ""}));
    EXPECT_EQ(Texts("\r\n"), Lines({""}));
    EXPECT_EQ(Texts("\r\n\r\n"), Lines({"", ""}));
    EXPECT_EQ(Texts("\n\r\n"), Lines({"", ""}));
    EXPECT_EQ(Texts(std::string_view("a\0b\n\xff", 5)), Lines({std::string("a\0b", 3), "\xff"}));
}

TEST(LineWindow, ALineThatFillsItIsCut) {
    const std::string x2047(2047, 'x');
    const std::string x2048(2048, 'x');
    EXPECT_EQ(Texts(x2047 + "\ny"), Lines({x2047, "y"}));
    EXPECT_EQ(Texts(x2047 + "\r\ny"), Lines({x2047, "y"}));
    EXPECT_EQ(Texts(x2047 + "\n\ny"), Lines({x2047, "", "y"}));
    EXPECT_EQ(Texts(x2048 + "\ny"), Lines({x2048, "", "y"}));
    EXPECT_EQ(Texts(x2048), Lines({x2048}));
    EXPECT_EQ(Texts(x2048 + "y"), Lines({x2048, "y"}));
    EXPECT_EQ(Texts(x2048 + x2048 + "\r\n"), Lines({x2048, x2048, ""}));
}

// All texts of one to `most` line feeds and carriage returns.
std::vector<std::string> MixesOfEnds(size_t most) {
    std::vector<std::string> mixes;
    for (size_t length = 1; length <= most; ++length) {
        for (unsigned bits = 0; bits < 1U << length; ++bits) {
            std::string mix;
            for (size_t i = 0; i < length; ++i) {
                mix += (bits >> i & 1) != 0 ? '\r' : '\n';
            }
            mixes.push_back(mix);
        }
    }
    return mixes;
}

TEST(LineWindow, EveryMixOfEndsAtEveryPlaceAroundTheBorder) {
    for (const std::string& end : MixesOfEnds(4)) {
        for (size_t before = 2040; before <= 2056; ++before) {
            const std::string what = std::to_string(before);
            ExpectNaive(std::string(before, 'x') + end, what);
            ExpectNaive(std::string(before, 'x') + end + "tail", what);
            ExpectNaive(std::string(before, 'x') + end + std::string(before, 'y') + end + "tail", what);
            // The border of a window that has moved.
            ExpectNaive("ab\n" + std::string(before - 3, 'x') + end + "tail", what);
            ExpectNaive("ab\r\n" + std::string(before, 'x') + end + "tail", what);
        }
    }
}

// The reading may stop behind any byte.
TEST(LineWindow, EveryMixOfEndsCutAtEveryByte) {
    for (const std::string& end : MixesOfEnds(4)) {
        for (const size_t before : {0, 1, 3, 2043, 2044, 2045, 2046, 2047, 2048, 2049}) {
            const std::string text = std::string(before, 'x') + end + "ab" + end + "c";
            const std::vector<NaiveLine> expected = NaiveLines(text);
            for (size_t cut = before - std::min<size_t>(before, 3); cut <= text.size(); ++cut) {
                if (cut != 0) {
                    ASSERT_EQ(WindowLines(TextReader(text, cut, SIZE_MAX)), expected) << before << ", cut at " << cut;
                    ASSERT_EQ(WindowLines(TextReader(text, cut, 1)), expected) << before << ", cut at " << cut;
                }
            }
        }
    }
}

TEST(LineWindow, RandomTextsHaveTheLinesOfTheRule) {
    std::mt19937 random(20260101);
    for (const unsigned density : {0u, 1u, 2u, 20u, 400u, 4000u}) {
        for (int i = 0; i < 40; ++i) {
            ExpectNaive(RandomText(random, random() % 9000, density), "density " + std::to_string(density));
        }
    }
}

TEST(LineWindow, OffsetsCountFromWhereTheReaderStands) {
    constexpr uint64_t kFar = uint64_t{5} << 32;
    TextReader reader("a\r\nbc");
    unsigned char buffer[kLineWindow];
    LineWindow window(reader, Buffer(buffer, buffer + sizeof buffer), kFar);
    ASSERT_TRUE(window.Next());
    EXPECT_EQ(window.StartOffset(), kFar);
    EXPECT_EQ(window.EndOffset(), kFar + 1);
    EXPECT_EQ(window.NextOffset(), kFar + 3);
    ASSERT_TRUE(window.Next());
    EXPECT_EQ(window.StartOffset(), kFar + 3);
    EXPECT_EQ(window.NextOffset(), kFar + 5);
    EXPECT_FALSE(window.Next());
}

class Impatient : public InspectorContext, public InspectorInterrupter {
public:
    explicit Impatient(int checks) : left(checks) {}
    bool ShouldContinue() override { return left-- > 0; }
    void Interrupted() override { throw InspectorInterruption(); }
    int left;
};

TEST(LineWindow, AReadingCanBeInterrupted) {
    const std::string text(100000, 'x');
    Impatient host(3);
    InspectorContextMaintainer installed(&host);
    EXPECT_THROW(WindowLines(text, SIZE_MAX), InspectorInterruption);
}

}  // namespace
