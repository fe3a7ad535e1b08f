#include "language/floating_point_numeral_lexeme.h"

#include <gtest/gtest.h>

#include "tests/language/every_cut.h"
#include "tests/language/one_lexeme_lexer.h"

namespace {

struct Values final : FloatingPointNumeralLexemeAcceptor {
    std::string log;
    void Accept(double value) override { log += std::to_string(value) + " "; }
};

std::string Lex(std::string_view text) {
    Values values;
    FloatingPointNumeralLexeme lexeme(values);
    OneLexemeLexer lexer(lexeme, CharacterSets::digits | CharacterSet("."), values.log);
    return OutcomeOfEveryCut(text, [&](const Runs& runs) {
        Feed(lexer, runs);
        return values.log;
    });
}

TEST(FloatingPointNumeralLexeme, TakesDigitsAndAFraction) {
    EXPECT_EQ(Lex("0 12 3.25 0.5,10.125"), "0.000000 12.000000 3.250000 0.500000 10.125000 End@20");
}

TEST(FloatingPointNumeralLexeme, APointWithoutDigitsBehindItIsTaken) {
    EXPECT_EQ(Lex("7. 8"), "7.000000 8.000000 End@4");
}

TEST(FloatingPointNumeralLexeme, ASecondPointEndsTheNumeral) { EXPECT_EQ(Lex("1.5.25"), "1.500000 0.250000 End@6"); }

TEST(FloatingPointNumeralLexeme, NarrowsOnceFromExtendedPrecision) {
    struct : FloatingPointNumeralLexemeAcceptor {
        double value = 0;
        void Accept(double accepted) override { value = accepted; }
    } acceptor;
    FloatingPointNumeralLexeme lexeme(acceptor);
    std::string log;
    OneLexemeLexer lexer(lexeme, CharacterSets::digits, log);
    Feed(lexer, {"0.1"});
    EXPECT_EQ(acceptor.value, 0.1);
    Feed(lexer, {"9007199254740993.5"});  // between two doubles, nearer to the upper
    EXPECT_EQ(acceptor.value, 9007199254740994.0);
}

}  // namespace
