#include "language/numeral_lexeme.h"

#include <gtest/gtest.h>

#include "tests/language/every_cut.h"
#include "tests/language/one_lexeme_lexer.h"

namespace {

struct Numerals final : NumeralLexemeAcceptor {
    std::string log;
    void Accept(unsigned long start, unsigned long end, uint64_t value) override {
        log += std::to_string(value) + At(start, end) + " ";
    }
    void TooLarge(unsigned long start, unsigned long end) override { log += "TooLarge" + At(start, end) + " "; }
};

template <class LexemeClass>
std::string Lex(const CharacterSet& begins, std::string_view text) {
    Numerals numerals;
    LexemeClass lexeme(numerals);
    OneLexemeLexer lexer(lexeme, begins, numerals.log);
    return OutcomeOfEveryCut(text, [&](const Runs& runs) {
        Feed(lexer, runs);
        return numerals.log;
    });
}

std::string LexDecimal(std::string_view text) { return Lex<NumeralLexeme>(CharacterSets::digits, text); }
std::string LexHex(std::string_view text) { return Lex<HexNumeralLexeme>(CharacterSets::hexadecimalDigits, text); }

TEST(NumeralLexeme, GivesItsValueAndPlace) { EXPECT_EQ(LexDecimal("0 12, 907"), "0@0-1 12@2-4 907@6-9 End@9"); }

TEST(NumeralLexeme, LeadingZerosCountForNothing) {
    EXPECT_EQ(LexDecimal("000000000000000000000000000017"), "17@0-30 End@30");
}

TEST(NumeralLexeme, TheLargestValueOf64BitsIsAccepted) {
    EXPECT_EQ(LexDecimal("18446744073709551615"), "18446744073709551615@0-20 End@20");
}

TEST(NumeralLexeme, OneMoreIsTooLarge) { EXPECT_EQ(LexDecimal("18446744073709551616"), "TooLarge@0-20 End@20"); }

TEST(NumeralLexeme, DigitsBehindAnOverflowAreConsumed) {
    EXPECT_EQ(LexDecimal("184467440737095516160000 5"), "TooLarge@0-24 5@25-26 End@26");
}

// The digit that overflows is left out, and a smaller one behind it must not make the numeral fit again.
TEST(NumeralLexeme, ASmallDigitAfterAnOverflowDoesNotRepairIt) {
    EXPECT_EQ(LexDecimal("1844674407370955161990"), "TooLarge@0-22 End@22");
    EXPECT_EQ(LexDecimal("18446744073709551619 0"), "TooLarge@0-20 0@21-22 End@22");
}

TEST(NumeralLexeme, StartAfterAnAbandonedNumeralForgetsIt) {
    Numerals numerals;
    NumeralLexeme lexeme(numerals);
    OneLexemeLexer lexer(lexeme, CharacterSets::digits, numerals.log);
    const std::string_view huge = "99999999999999999999999";
    lexer.Start();
    lexer.Data(ConstData(huge).begin, ConstData(huge).end);
    Feed(lexer, {"7"});
    EXPECT_EQ(numerals.log, "7@0-1 End@1");
}

TEST(HexNumeralLexeme, TakesDigitsOfBothCases) { EXPECT_EQ(LexHex("ff FF 1aB0"), "255@0-2 255@3-5 6832@6-10 End@10"); }

TEST(HexNumeralLexeme, TheLargestValueOf64BitsIsAcceptedAndOneMoreTooLarge) {
    EXPECT_EQ(LexHex("ffffffffffffffff"), "18446744073709551615@0-16 End@16");
    EXPECT_EQ(LexHex("10000000000000000"), "TooLarge@0-17 End@17");
}

}  // namespace
