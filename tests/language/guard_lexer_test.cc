#include "language/guard_lexer.h"

#include <gtest/gtest.h>

#include "tests/language/token_recorder.h"

namespace {

TEST(GuardLexer, BlanksAndLineEndsSeparateTokens) {
    EXPECT_EQ(Tokens(""), "");
    EXPECT_EQ(Tokens(" \t\r\n"), "");
    EXPECT_EQ(Tokens(" 1\t2\r3\n4 "), "1 2 3 4");
}

TEST(GuardLexer, EveryByteBeginsItsToken) {
    const std::string operators = "!&()*+,-/;<=>|";
    for (int c = 0; c < 256; ++c) {
        const auto byte = static_cast<char>(c);
        const std::string text(1, byte);
        std::string expected = "!UnexpectedCharacter";
        if (c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == 'a' || c == 'A') {
            expected = "";
        } else if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_') {
            expected = "<" + std::string(1, static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c)) + ">";
        } else if (c >= '0' && c <= '9') {
            expected = text;
        } else if (c == '"') {
            expected = "!UnfinishedStringConstant";
        } else if (c == '!') {
            expected = "!InvalidOperator";
        } else if (operators.find(byte) != std::string::npos) {
            continue;  // each has its row in the table of operators
        }
        EXPECT_EQ(Tokens(text), expected) << c;
    }
}

TEST(GuardLexer, AnUnexpectedCharacterIsToldWithItsByteAndPlace) {
    TokenRecorder recorder;
    GuardLexer lexer(recorder, recorder);
    try {
        Feed(lexer, {"foo ", "\xE4"});
        ADD_FAILURE();
    } catch (const UnexpectedCharacter& unexpected) {
        EXPECT_EQ(unexpected.byte, 0xE4);
    }
    EXPECT_EQ(recorder.tokens, "<foo>");
    EXPECT_EQ(recorder.positions, "4-5");
}

TEST(GuardLexer, AnApostropheIsAWordCharacterButBeginsNoWord) {
    EXPECT_EQ(Tokens("it's"), "<it's>");
    EXPECT_EQ(Tokens("it' foo"), "<it' foo>");
    EXPECT_EQ(Tokens("foo 'bar"), "<foo> !UnexpectedCharacter");
}

TEST(GuardLexer, ADigitIsAWordCharacterButBeginsANumeral) {
    EXPECT_EQ(Tokens("name1"), "<name1>");
    EXPECT_EQ(Tokens("1name"), "1 <name>");
    EXPECT_EQ(Tokens("file1 2"), "<file1> 2");
    EXPECT_EQ(Tokens("foo 1 bar"), "<foo> 1 <bar>");
    EXPECT_EQ(Tokens("1e5"), "1 <e5>");
}

TEST(GuardLexer, UnderscoresBeginAndFillWords) { EXPECT_EQ(Tokens("_Foo_ __ x_1"), "<_foo_ __ x_1>"); }

TEST(GuardLexer, NumeralsAreUnsignedAndWhole) {
    EXPECT_EQ(Tokens("0 007 18446744073709551615"), "0 7 18446744073709551615");
    EXPECT_EQ(Tokens("-1"), "11 1");
    EXPECT_EQ(Tokens("1.5"), "1 !UnexpectedCharacter");
}

TEST(GuardLexer, ANumeralOf2ToThe64IsTooLarge) {
    EXPECT_EQ(Tokens("18446744073709551616"), "!IntegerConstantTooLarge");
    EXPECT_EQ(Tokens("1 99999999999999999999 2"), "1 !IntegerConstantTooLarge");
}

TEST(GuardLexer, APhraseStopsAtAnyOtherByte) {
    EXPECT_EQ(Tokens("foo(bar)"), "<foo> 0 <bar> 1");
    EXPECT_EQ(Tokens("foo\"bar\"baz"), "<foo> 'bar' <baz>");
    EXPECT_EQ(Tokens("is(not"), "6:op6 0 2");
    EXPECT_EQ(Tokens("foo;bar,baz"), "<foo> 10 <bar> 9 <baz>");
}

TEST(GuardLexer, AWholeQuestion) {
    EXPECT_EQ(Tokens("(exists file \"/etc/passwd\" whose (size of it > 0))"),
              "0 16 <file> '/etc/passwd' 14 0 <size> 13 21:It 6:op7/1 0 1 1");
}

TEST(GuardLexer, TellsTheEndOfTheStream) { EXPECT_EQ(Positions("foo 12 \n"), "4-6.8"); }

// Whatever token the text before was abandoned in, the next text is lexed as if it were the first.
TEST(GuardLexer, StartForgetsAnAbandonedToken) {
    TokenRecorder recorder;
    GuardLexer lexer(recorder, recorder);
    for (const std::string_view begun : {"foo", "is not", "12", "\"x", "\"%4", "<", "!", "/", "/*", "/* *", " ", "("}) {
        for (const std::string_view next : {"bar", "3", "\"y\"", "=", "/ 2", "/* */ 4", ")"}) {
            const std::string expected = Tokens(next);
            lexer.Start();
            lexer.Data(ConstData(begun).begin, ConstData(begun).end);
            Feed(lexer, {next});
            EXPECT_EQ(recorder.tokens, expected) << begun << " then " << next;
        }
    }
}

}  // namespace
