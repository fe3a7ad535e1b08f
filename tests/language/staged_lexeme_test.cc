#include "language/staged_lexeme.h"

#include <gtest/gtest.h>

#include "language/numeral_lexeme.h"
#include "language/text_lexeme.h"
#include "tests/language/every_cut.h"
#include "tests/language/one_lexeme_lexer.h"

namespace {

struct Numerals final : NumeralLexemeAcceptor {
    std::string& log;
    explicit Numerals(std::string& text) : log(text) {}
    void Accept(unsigned long start, unsigned long end, uint64_t value) override {
        log += std::to_string(value) + At(start, end) + " ";
    }
    void TooLarge(unsigned long, unsigned long) override {}
};

// A token of numerals and dots, with a stage for each; at most three stages.
struct Dotted final : StagedLexeme {
    static constexpr CharacterSet dots{"."};
    std::string log;
    Numerals numerals{log};
    NumeralLexeme numeral{numerals};
    IgnoredTextLexeme separator{dots};
    int stages = 0;

    void Start(unsigned long position) override {
        StagedLexeme::Start(position);
        stages = 0;
        log += "Start@" + std::to_string(position) + " ";
    }
    Lexeme* ChooseStage(unsigned long tokenStart, unsigned long position, unsigned char byte) override {
        log += "Stage" + At(tokenStart, position) + " ";
        if (++stages > 3) {
            return nullptr;
        }
        return CharacterSets::digits.Contains(byte) ? static_cast<Lexeme*>(&numeral)
               : dots.Contains(byte)                ? &separator
                                                    : nullptr;
    }
};

struct StagedLexemeTest : testing::Test {
    Dotted lexeme;
    OneLexemeLexer lexer{lexeme, CharacterSets::digits | CharacterSet("."), lexeme.log};

    std::string Lex(std::string_view text) {
        return OutcomeOfEveryCut(text, [this](const Runs& runs) {
            Feed(lexer, runs);
            return lexeme.log;
        });
    }
};

TEST_F(StagedLexemeTest, EachStageHasItsOwnStart) {
    EXPECT_EQ(Lex("12..34 5"),
              "Start@0 Stage@0-0 12@0-2 Stage@0-2 Stage@0-4 34@4-6 Stage@0-6 Start@7 Stage@7-7 5@7-8 End@8");
}

TEST_F(StagedLexemeTest, AStageThatIsRefusedEndsTheTokenBeforeItsByte) {
    EXPECT_EQ(Lex("1.2."), "Start@0 Stage@0-0 1@0-1 Stage@0-1 Stage@0-2 2@2-3 Stage@0-3 Start@3 Stage@3-3 End@4");
}

TEST_F(StagedLexemeTest, FinishWithoutAStageDeliversNothing) {
    lexeme.Start(0);
    lexeme.log.clear();
    lexeme.Finish(0, 0);
    EXPECT_EQ(lexeme.log, "");
}

}  // namespace
