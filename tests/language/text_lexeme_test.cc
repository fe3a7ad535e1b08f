#include "language/text_lexeme.h"

#include <gtest/gtest.h>

#include "tests/language/every_cut.h"
#include "tests/language/one_lexeme_lexer.h"

namespace {

struct Pieces final : TextLexemeAcceptor {
    std::string log;
    void Accept(unsigned long start, unsigned long end, const unsigned char* textBegin,
                const unsigned char* textEnd) override {
        log += std::string(textBegin, textEnd) + At(start, end) + " ";
    }
    void End(unsigned long start, unsigned long end) override { log += "End" + At(start, end) + " "; }
};

// The pieces differ with the runs, which is the point of the lexeme; the tokens do not.
struct Joined final : TextLexemeAcceptor {
    std::string log;
    void Accept(unsigned long, unsigned long, const unsigned char* textBegin, const unsigned char* textEnd) override {
        log.append(textBegin, textEnd);
    }
    void End(unsigned long start, unsigned long end) override { log += At(start, end) + " "; }
};

TEST(TextLexeme, DeliversEachRunAsItGoes) {
    Pieces pieces;
    TextLexeme lexeme(CharacterSets::letters, pieces);
    OneLexemeLexer lexer(lexeme, CharacterSets::letters, pieces.log);
    Feed(lexer, {"ab", "cd e", " "});
    EXPECT_EQ(pieces.log, "ab@0-2 cd@2-4 End@0-4 e@5-6 End@5-6 End@7");
}

TEST(TextLexeme, ATokenThatEndsAtARunsEdgeGetsNoEmptyPiece) {
    Pieces pieces;
    TextLexeme lexeme(CharacterSets::letters, pieces);
    OneLexemeLexer lexer(lexeme, CharacterSets::letters, pieces.log);
    Feed(lexer, {"ab", " "});
    EXPECT_EQ(pieces.log, "ab@0-2 End@0-2 End@3");
}

TEST(TextLexeme, TheTokensDoNotDependOnTheRuns) {
    Joined joined;
    TextLexeme lexeme(CharacterSets::letters, joined);
    OneLexemeLexer lexer(lexeme, CharacterSets::letters, joined.log);
    EXPECT_EQ(OutcomeOfEveryCut("abc de  f",
                                [&](const Runs& runs) {
                                    Feed(lexer, runs);
                                    return joined.log;
                                }),
              "abc@0-3 de@4-6 f@8-9 End@9");
}

}  // namespace
