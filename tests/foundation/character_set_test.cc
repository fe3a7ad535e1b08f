#include "foundation/character_set.h"

#include <gtest/gtest.h>

#include <cctype>

namespace {

struct Expectation {
    const char* name;
    const CharacterSet& set;
    bool (*contains)(int c);
};

const Expectation expectations[] = {
    {"white space", CharacterSets::whiteSpace, [](int c) { return c == ' ' || c == '\t'; }},
    {"line white space", CharacterSets::lineWhiteSpace,
     [](int c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }},
    {"digits", CharacterSets::digits, [](int c) { return std::isdigit(c) != 0; }},
    {"hexadecimal digits", CharacterSets::hexadecimalDigits, [](int c) { return std::isxdigit(c) != 0; }},
    {"upper letters", CharacterSets::upperLetters, [](int c) { return std::isupper(c) != 0; }},
    {"lower letters", CharacterSets::lowerLetters, [](int c) { return std::islower(c) != 0; }},
    {"letters", CharacterSets::letters, [](int c) { return std::isalpha(c) != 0; }},
    {"letters and digits", CharacterSets::lettersAndDigits, [](int c) { return std::isalnum(c) != 0; }},
    {"letters and underscore", CharacterSets::lettersAndUnderscore,
     [](int c) { return std::isalpha(c) != 0 || c == '_'; }},
    {"word characters", CharacterSets::wordCharacters, [](int c) { return std::isalnum(c) != 0 || c == '_'; }},
    {"punctuation", CharacterSets::punctuation, [](int c) { return std::ispunct(c) != 0; }},
    {"low half", CharacterSets::lowHalf, [](int c) { return c < 128; }},
    {"high half", CharacterSets::highHalf, [](int c) { return c >= 128; }},
};

TEST(CharacterSet, EveryNamedSetHoldsItsMembersAndNoOthers) {
    for (const Expectation& expectation : expectations) {
        for (int c = 0; c < 256; ++c) {
            EXPECT_EQ(expectation.set.Contains(static_cast<unsigned char>(c)), expectation.contains(c))
                << expectation.name << " " << c;
        }
    }
}

TEST(CharacterSet, AnEmptySetContainsNothing) {
    for (int c = 0; c < 256; ++c) {
        EXPECT_FALSE(CharacterSet().Contains(static_cast<unsigned char>(c)));
    }
}

TEST(CharacterSet, SpanStopsAtTheFirstByteOutside) {
    const ConstData text(std::string_view("123a4"));
    EXPECT_EQ(CharacterSets::digits.Span(text), text.begin + 3);
    EXPECT_EQ(CharacterSets::letters.Span(text), text.begin);
    EXPECT_EQ(CharacterSets::lettersAndDigits.Span(text), text.end);
}

TEST(HexadecimalDigitValue, KnowsBothCases) {
    const std::string_view lower = "0123456789abcdef";
    const std::string_view upper = "0123456789ABCDEF";
    for (unsigned i = 0; i < 16; ++i) {
        EXPECT_EQ(HexadecimalDigitValue(static_cast<unsigned char>(lower[i])), i);
        EXPECT_EQ(HexadecimalDigitValue(static_cast<unsigned char>(upper[i])), i);
    }
}

}  // namespace
