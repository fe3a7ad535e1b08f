#include "language/lexer.h"

#include <gtest/gtest.h>

#include "language/character_lexeme.h"
#include "tests/language/every_cut.h"
#include "tests/language/one_lexeme_lexer.h"

namespace {

struct Characters final : CharacterLexemeAcceptor {
    std::string log;
    void Accept(unsigned long start, unsigned long end, unsigned char byte) override {
        log += std::string(1, static_cast<char>(byte)) + At(start, end) + " ";
        if (byte == '!') {
            throw 1;
        }
    }
};

struct LexerTest : testing::Test {
    Characters characters;
    CharacterLexeme lexeme{characters};
    OneLexemeLexer lexer{lexeme, CharacterSet("ab!"), characters.log};

    std::string Lex(std::string_view text) {
        return OutcomeOfEveryCut(text, [this](const Runs& runs) {
            Feed(lexer, runs);
            return characters.log;
        });
    }
};

TEST_F(LexerTest, FinishRightAfterStartCallsOnlyEnd) {
    lexer.Start();
    lexer.Finish();
    EXPECT_EQ(characters.log, "End@0");
}

TEST_F(LexerTest, AnEmptyRunChangesNothing) {
    const unsigned char text[] = "a";
    lexer.Start();
    lexer.Data(text, text);
    lexer.Data(text, text + 1);
    lexer.Data(text, text);
    lexer.Data(nullptr, nullptr);
    lexer.Data(text, text + 1);
    lexer.Finish();
    EXPECT_EQ(characters.log, "a@0-1 a@1-2 End@2");
}

TEST_F(LexerTest, EachByteIsATokenOfItsOwn) { EXPECT_EQ(Lex("ab  a"), "a@0-1 b@1-2 a@4-5 End@5"); }

TEST_F(LexerTest, PositionsGoOnOverIgnoredText) { EXPECT_EQ(Lex(" ,;a, "), "a@3-4 End@6"); }

TEST_F(LexerTest, StartAfterAnExceptionBeginsAnew) {
    EXPECT_THROW(Feed(lexer, {"a! b"}), int);
    Feed(lexer, {"b"});
    EXPECT_EQ(characters.log, "b@0-1 End@1");
}

TEST_F(LexerTest, StartAfterAnAbandonedStreamBeginsAnew) {
    const unsigned char text[] = "a ";
    lexer.Start();
    lexer.Data(text, text + 2);
    Feed(lexer, {"b"});
    EXPECT_EQ(characters.log, "b@0-1 End@1");
}

}  // namespace
