// Tuple texts: what an item needs to be written, and how texts that nothing wrote are read.
#include "foundation/tuple_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;

std::vector<std::string> Items(std::string_view text) {
    std::vector<std::string> items;
    TupleTextReader reader(text);
    while (!reader.AtEnd()) {
        items.emplace_back(reader.Next());
    }
    return items;
}

std::string Written(std::string_view text) {
    const TupleItemWrapping wrapping = WrappingOfTupleItem(text);
    std::string written(wrapping.Length(text), '#');
    char* end = WriteTupleItem(text, wrapping, written.data());
    EXPECT_EQ(end, written.data() + written.size());
    return written;
}

struct Wrapping {
    const char* text;
    size_t opening;
    size_t closing;
};

// clang-format off
const Wrapping wrappings[] = {
    {"",            0, 0},
    {" ",           0, 0},
    {"a b",         0, 0},
    {"f(x, y)",     0, 0},
    {"(a) b",       0, 0},
    {"a (b)",       0, 0},
    {",",           1, 1},
    {"a,b",         1, 1},
    {"(a),(b) c",   1, 1},
    {"(a)",         1, 1},
    {"()",          1, 1},
    {"(a) (b)",     1, 1},
    {"(",           1, 2},
    {"((a)",        1, 2},
    {"(((",         1, 4},
    {")",           2, 1},
    {")))",         4, 1},
    {")(",          2, 2},
    {"a))b((",      3, 3},
};
// clang-format on

TEST(TupleText, AnItemIsWrappedByWhatItsParenthesesLack) {
    for (const Wrapping& row : wrappings) {
        const TupleItemWrapping wrapping = WrappingOfTupleItem(row.text);
        EXPECT_EQ(wrapping.opening, row.opening) << row.text;
        EXPECT_EQ(wrapping.closing, row.closing) << row.text;
    }
}

TEST(TupleText, AWrappedItemHasABlankOnEachSide) {
    EXPECT_EQ(Written("a"), "a");
    EXPECT_EQ(Written("a, b"), "( a, b )");
    EXPECT_EQ(Written("(c"), "( (c ))");
    EXPECT_EQ(Written("d)"), "(( d) )");
    EXPECT_EQ(Written(")("), "(( )( ))");
}

// Every text of up to five bytes over the bytes that matter reads back as it was written, wherever it stands.
TEST(TupleText, WhatIsWrittenReadsBack) {
    constexpr std::string_view kBytes = "(), a";
    std::vector<std::string> texts{""};
    for (size_t i = 0; texts[i].size() < 5; ++i) {
        for (char c : kBytes) {
            texts.push_back(texts[i] + c);
        }
    }
    for (const std::string& text : texts) {
        EXPECT_THAT(Items(Written(text) + ", z"), ElementsAre(text, "z")) << text;
        EXPECT_THAT(Items("z, " + Written(text)), ElementsAre("z", text)) << text;
    }
}

TEST(TupleText, TheEmptyTextHasNoItemsAndAnEmptyItemIsOne) {
    EXPECT_THAT(Items(""), ElementsAre());
    EXPECT_THAT(Items(", "), ElementsAre("", ""));
    EXPECT_THAT(Items("a, "), ElementsAre("a", ""));
}

TEST(TupleText, AnInsideWithoutBlanksIsTheItem) {
    EXPECT_THAT(Items("a, (b, c), d"), ElementsAre("a", "b, c", "d"));
    EXPECT_THAT(Items("((e))"), ElementsAre("e"));
    EXPECT_THAT(Items("( (f) )"), ElementsAre("(f)"));
}

TEST(TupleText, ABlankOnOneSideOnlyIsAFault) {
    for (const char* text : {"( a)", "(a )", "( )", "()", "(())", "(( ))"}) {
        EXPECT_THROW(Items(text), BadTupleString) << text;
    }
    EXPECT_THAT(Items("(  )"), ElementsAre(""));
}

TEST(TupleText, ACommaNeedsItsBlank) {
    for (const char* text : {"a,b", "a,", ",", ",,", "a,\tb", "(a),(b)"}) {
        EXPECT_THROW(Items(text), BadTupleString) << text;
    }
}

TEST(TupleText, AParenthesisNeedsItsPartner) {
    for (const char* text : {"(", ")", "(a", "a)", "a)(b", "((a)", "a, (b"}) {
        EXPECT_THROW(Items(text), MismatchedParentheses) << text;
    }
}

// A fault behind the item that was taken last is not seen.
TEST(TupleText, NothingIsLookedAtBehindTheItem) {
    TupleTextReader reader("a, b, c,d");
    EXPECT_EQ(reader.Next(), "a");
    EXPECT_EQ(reader.Next(), "b");
    EXPECT_FALSE(reader.AtEnd());
    EXPECT_THROW(reader.Next(), BadTupleString);
}

// However a text is cut off, it is read to its end or refused; what comes before the cut is not read differently.
TEST(TupleText, ATextCutAnywhereIsReadOrRefused) {
    const std::string whole = "a, ( b, c ), f(x, y), (( d) ), (e), z";
    const std::vector<std::string> all = Items(whole);
    for (size_t cut = 0; cut <= whole.size(); ++cut) {
        TupleTextReader reader(std::string_view(whole).substr(0, cut));
        try {
            for (size_t i = 0; !reader.AtEnd(); ++i) {
                const std::string item(reader.Next());
                ASSERT_LT(i, all.size());
                if (!reader.AtEnd()) {
                    EXPECT_EQ(item, all[i]) << cut;
                }
            }
        } catch (const BadTupleString&) {
        } catch (const MismatchedParentheses&) {
        }
    }
    EXPECT_THAT(all, ElementsAre("a", "b, c", "f(x, y)", "d)", "e", "z"));
}

}  // namespace
