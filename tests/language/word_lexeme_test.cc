#include "language/word_lexeme.h"

#include <gtest/gtest.h>

#include "foundation/ascii.h"
#include "tests/language/every_cut.h"
#include "tests/language/one_lexeme_lexer.h"

namespace {

struct Words final : WordLexemeAcceptor {
    std::string log;
    const unsigned char* last = nullptr;
    void Accept(unsigned long start, unsigned long end, const unsigned char* textBegin,
                const unsigned char* textEnd) override {
        log += std::string(textBegin, textEnd) + At(start, end) + " ";
        last = textBegin;
    }
    void TooLong(unsigned long start, unsigned long end) override { log += "TooLong" + At(start, end) + " "; }
};

struct WordLexemeTest : testing::TestWithParam<bool> {
    Words words;
    unsigned char buffer[8];
    Ascii::CaseLoweringFilter lowering;
    WordLexeme lexeme{CharacterSets::letters, Buffer(buffer, buffer + sizeof buffer), words,
                      GetParam() ? &lowering : nullptr};
    OneLexemeLexer lexer{lexeme, CharacterSets::letters, words.log};

    std::string Lex(std::string_view text) {
        return OutcomeOfEveryCut(text, [this](const Runs& runs) {
            Feed(lexer, runs);
            return words.log;
        });
    }
};

INSTANTIATE_TEST_SUITE_P(WithAndWithoutFilter, WordLexemeTest, testing::Bool());

TEST_P(WordLexemeTest, GivesEachWordAndItsPlace) { EXPECT_EQ(Lex("ab c, def"), "ab@0-2 c@3-4 def@6-9 End@9"); }

TEST_P(WordLexemeTest, OneByteLessThanTheBufferIsAccepted) {
    EXPECT_EQ(Lex("abcdefg"), "abcdefg@0-7 End@7");
    EXPECT_EQ(Lex("abcdefg "), "abcdefg@0-7 End@8");
}

TEST_P(WordLexemeTest, AWordOfExactlyTheBufferIsTooLong) {
    EXPECT_EQ(Lex("abcdefgh"), "TooLong@0-8 End@8");
    EXPECT_EQ(Lex("abcdefgh "), "TooLong@0-8 End@9");
}

TEST_P(WordLexemeTest, AMuchLongerWordIsTooLongToo) {
    EXPECT_EQ(Lex("abcdefghijklmnopqrstuvwxyz a"), "TooLong@0-26 a@27-28 End@28");
}

TEST_P(WordLexemeTest, StartAfterAnAbandonedWordForgetsIt) {
    lexer.Start();
    lexer.Data(ConstData(std::string_view("abc")).begin, ConstData(std::string_view("abc")).begin + 3);
    Feed(lexer, {"d"});
    EXPECT_EQ(words.log, "d@0-1 End@1");
}

TEST_P(WordLexemeTest, AWordWholeInOneRunIsHandedOverInPlaceUnlessFiltered) {
    const unsigned char text[] = "ab ";
    lexer.Start();
    lexer.Data(text, text + 3);
    EXPECT_EQ(words.last, GetParam() ? buffer : text);
}

TEST_P(WordLexemeTest, TheFilterMapsTheBytes) {
    EXPECT_EQ(Lex("AbC D"), GetParam() ? "abc@0-3 d@4-5 End@5" : "AbC@0-3 D@4-5 End@5");
}

}  // namespace
