#include "language/guard_operators.h"

#include <gtest/gtest.h>

#include "tests/language/token_recorder.h"

namespace {

struct Row {
    const char* text;
    const char* action;
};

const Row rows[] = {
    {"!=", "6:op6/256"}, {"&", "4:op5"},   {"(", "0"},        {")", "1"},  {"*", "4:op2"}, {"+", "5:op0"},
    {",", "9"},          {"-", "11"},      {"/", "4:op3"},    {";", "10"}, {"<", "6:op7"}, {"<=", "6:op8"},
    {"=", "6:op6"},      {">", "6:op7/1"}, {">=", "6:op8/1"}, {"|", "3"},
};

TEST(GuardOperators, AreThe16OfTheLanguageInTheirOrder) {
    const GuardTable table = GuardOperators();
    ASSERT_EQ(table.size(), 16u);
    ASSERT_EQ(std::size(rows), 16u);
    for (size_t i = 0; i < table.size(); ++i) {
        EXPECT_STREQ(table[i].word, rows[i].text);
        EXPECT_EQ(Describe(*table[i].value), rows[i].action) << rows[i].text;
    }
}

TEST(GuardOperators, EachIsOneTokenAloneAndBetweenNumerals) {
    for (const Row& row : rows) {
        const std::string text = row.text;
        EXPECT_EQ(Tokens(text), row.action) << text;
        EXPECT_EQ(Tokens("1" + text + "2"), "1 " + std::string(row.action) + " 2") << text;
        EXPECT_EQ(Tokens("1 " + text + " 2"), "1 " + std::string(row.action) + " 2") << text;
    }
}

TEST(OperatorLexeme, ALoneExclamationMarkIsInvalid) {
    EXPECT_EQ(Tokens("!"), "!InvalidOperator");
    EXPECT_EQ(Tokens("! ="), "!InvalidOperator");
    EXPECT_EQ(Tokens("1 !<"), "1 !InvalidOperator");
    EXPECT_EQ(Tokens("!!="), "!InvalidOperator");
}

TEST(OperatorLexeme, TheLongestOperatorWins) {
    EXPECT_EQ(Tokens("<="), "6:op8");
    EXPECT_EQ(Tokens("<>"), "6:op7 6:op7/1");
    EXPECT_EQ(Tokens("=="), "6:op6 6:op6");
    EXPECT_EQ(Tokens("=<"), "6:op6 6:op7");
    EXPECT_EQ(Tokens("< ="), "6:op7 6:op6");
    EXPECT_EQ(Tokens("<=="), "6:op8 6:op6");
    EXPECT_EQ(Tokens("())"), "0 1 1");
}

// The rows of the table end in a zero byte, which a text may hold too.
TEST(OperatorLexeme, AZeroByteEndsItLikeAnyOtherByte) {
    for (const Row& row : rows) {
        const std::string text = row.text;
        EXPECT_EQ(Tokens(text + std::string(3, '\0')), std::string(row.action) + " !UnexpectedCharacter") << text;
    }
    EXPECT_EQ(Tokens(std::string("!\0", 2)), "!InvalidOperator");
}

TEST(OperatorLexeme, KnowsThePlaceOfEach) { EXPECT_EQ(Positions("( <= )>/"), "0-1 2-4 5-6 6-7 7-8.8"); }

}  // namespace
