#include "language/guard_string_lexeme.h"

#include <gtest/gtest.h>

#include "tests/language/one_lexeme_lexer.h"
#include "tests/language/token_recorder.h"

namespace {

TEST(GuardStringLexeme, HoldsAnyByteButItsQuoteAndThePercentSign) {
    EXPECT_EQ(Tokens("\"\""), "''");
    EXPECT_EQ(Tokens("\"foo\""), "'foo'");
    EXPECT_EQ(Tokens("\"a b\r\n\tC'd\""), "'a b\r\n\tC'd'");
    std::string all;
    for (int c = 0; c < 256; ++c) {
        if (c != '"' && c != '%') {
            all += static_cast<char>(c);
        }
    }
    EXPECT_EQ(Tokens("\"" + all + "\""), "'" + all + "'");
}

TEST(GuardStringLexeme, DecodesEveryByteInBothCases) {
    for (int c = 0; c < 256; ++c) {
        char lower[8];
        char upper[8];
        std::snprintf(lower, sizeof lower, "\"%%%02x\"", static_cast<unsigned>(c));
        std::snprintf(upper, sizeof upper, "\"%%%02X\"", static_cast<unsigned>(c));
        const std::string expected = "'" + std::string(1, static_cast<char>(c)) + "'";
        EXPECT_EQ(Tokens(lower), expected);
        EXPECT_EQ(Tokens(upper), expected);
    }
}

TEST(GuardStringLexeme, AnEscapeMayStandAnywhere) {
    EXPECT_EQ(Tokens("\"%41\""), "'A'");
    EXPECT_EQ(Tokens("\"x%22y%25%25z\""), "'x\"y%%z'");
    EXPECT_EQ(Tokens("\"%2541\""), "'%41'");
}

TEST(GuardStringLexeme, APercentSignWithoutTwoHexadecimalDigitsIsABadEscape) {
    EXPECT_EQ(Tokens("\"%4\""), "!StringEncodingError");
    EXPECT_EQ(Tokens("\"%\""), "!StringEncodingError");
    EXPECT_EQ(Tokens("\"%%\""), "!StringEncodingError");
    EXPECT_EQ(Tokens("\"%g1\""), "!StringEncodingError");
    EXPECT_EQ(Tokens("\"%1g\""), "!StringEncodingError");
    EXPECT_EQ(Tokens("\"foo% 41\""), "!StringEncodingError");
}

TEST(GuardStringLexeme, TheEndOfTheTextInsideIsUnfinished) {
    EXPECT_EQ(Tokens("\""), "!UnfinishedStringConstant");
    EXPECT_EQ(Tokens("\"foo"), "!UnfinishedStringConstant");
    EXPECT_EQ(Tokens("\"foo%"), "!UnfinishedStringConstant");
    EXPECT_EQ(Tokens("\"foo%4"), "!UnfinishedStringConstant");
    EXPECT_EQ(Tokens("\"foo\" \""), "'foo' !UnfinishedStringConstant");
    EXPECT_EQ(Tokens("\"" + std::string(600, 'x')), "!UnfinishedStringConstant");
}

TEST(GuardStringLexeme, FiveHundredAndTwelveBytesAreAcceptedAndOneMoreIsTooLong) {
    const std::string longest(512, 'x');
    EXPECT_EQ(Tokens("\"" + longest + "\""), "'" + longest + "'");
    EXPECT_EQ(Tokens("\"" + longest + "y\""), "!StringConstantTooLong");
}

TEST(GuardStringLexeme, TheLimitCountsDecodedBytes) {
    std::string escapes;
    for (int i = 0; i < 512; ++i) {
        escapes += "%41";
    }
    EXPECT_EQ(Tokens("\"" + escapes + "\""), "'" + std::string(512, 'A') + "'");
    EXPECT_EQ(Tokens("\"" + escapes + "%41\""), "!StringConstantTooLong");
}

// Even where what follows the run that did not fit would fit.
TEST(GuardStringLexeme, ARunThatDoesNotFitMakesTheWholeTooLong) {
    EXPECT_EQ(Tokens("\"" + std::string(600, 'x') + "%41\""), "!StringConstantTooLong");
    EXPECT_EQ(Tokens("\"%41" + std::string(512, 'x') + "%41b\""), "!StringConstantTooLong");
}

TEST(GuardStringLexeme, ABadEscapeInAStringThatIsTooLongIsTheBadEscape) {
    EXPECT_EQ(Tokens("\"" + std::string(600, 'x') + "%zz\""), "!StringEncodingError");
}

TEST(GuardStringLexeme, TheConstantEndsAtItsQuote) {
    EXPECT_EQ(Tokens("\"foo\"bar\"baz\""), "'foo' <bar> 'baz'");
    EXPECT_EQ(Tokens("\"foo\"\"bar\""), "'foo' 'bar'");
}

TEST(GuardStringLexeme, KnowsItsPlace) { EXPECT_EQ(Positions(" \"f%41o\"\"\""), "1-8 8-10.10"); }

// Acceptors that do not throw.
struct Patient final : GuardStringLexemeAcceptor {
    std::string log;
    void Accept(unsigned long start, unsigned long end, const unsigned char* textBegin,
                const unsigned char* textEnd) override {
        log += std::string(textBegin, textEnd) + At(start, end) + " ";
    }
    void TooLong(unsigned long start, unsigned long end) override { log += "TooLong" + At(start, end) + " "; }
    void Unfinished(unsigned long start, unsigned long end) override { log += "Unfinished" + At(start, end) + " "; }
    void BadEscape(unsigned long start, unsigned long end) override { log += "BadEscape" + At(start, end) + " "; }
};

std::string LexPatiently(std::string_view text) {
    Patient patient;
    GuardStringLexeme lexeme(patient);
    OneLexemeLexer lexer(lexeme, CharacterSet("\"'"), patient.log);
    return OutcomeOfEveryCut(text, [&](const Runs& runs) {
        Feed(lexer, runs);
        return patient.log;
    });
}

TEST(GuardStringLexeme, TheByteThatBeginsItEndsIt) {
    EXPECT_EQ(LexPatiently("'a\"b' \"c'd\""), "a\"b@0-5 c'd@6-11 End@11");
}

TEST(GuardStringLexeme, WhereABadEscapeIsForgivenTheRestIsSkippedToTheQuote) {
    EXPECT_EQ(LexPatiently("'a%zz%41' 'b'"), "BadEscape@0-3 b@10-13 End@13");
    EXPECT_EQ(LexPatiently("'a%4' 'b'"), "BadEscape@0-4 b@6-9 End@9");
    EXPECT_EQ(LexPatiently("'%' 'b'"), "BadEscape@0-2 b@4-7 End@7");
    EXPECT_EQ(LexPatiently("'%x"), "BadEscape@0-2 Unfinished@0-3 End@3");
}

TEST(GuardStringLexeme, StartAfterAnAbandonedStringForgetsIt) {
    TokenRecorder recorder;
    GuardLexer lexer(recorder, recorder);
    const std::string begun = "\"" + std::string(600, 'x') + "%4";
    lexer.Start();
    lexer.Data(ConstData(begun).begin, ConstData(begun).end);
    Feed(lexer, {"\"y\""});
    EXPECT_EQ(recorder.tokens, "'y'");
}

}  // namespace
