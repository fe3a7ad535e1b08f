#include "language/reserved_word_lexeme.h"

#include <gtest/gtest.h>

#include "foundation/ascii.h"
#include "tests/language/every_cut.h"
#include "tests/language/one_lexeme_lexer.h"

namespace {

struct Words final : ReservedWordAcceptor<int> {
    std::string log;
    void AcceptReserved(unsigned long start, unsigned long end, int value) override {
        log += "#" + std::to_string(value) + At(start, end) + " ";
    }
    void Accept(unsigned long start, unsigned long end, const unsigned char* textBegin,
                const unsigned char* textEnd) override {
        log += std::string(textBegin, textEnd) + At(start, end) + " ";
    }
    void TooLong(unsigned long start, unsigned long end) override { log += "TooLong" + At(start, end) + " "; }
};

constexpr ReservedWord<int> months[] = {
    {"apr", 4},
    {"feb", 2},
    {"january", 1},
    {"march", 3},
};
static_assert(IsSorted(months));
constexpr ReservedWord<int> unsorted[] = {
    {"b", 1},
    {"a", 2},
};
static_assert(!IsSorted(unsorted));
constexpr ReservedWord<int> twice[] = {
    {"a", 1},
    {"a", 2},
};
static_assert(!IsSorted(twice));

std::string Lex(std::string_view text, DataFilter* filter = nullptr) {
    Words words;
    unsigned char buffer[10];
    ReservedWordLexeme<int> lexeme(CharacterSets::letters, Buffer(buffer, buffer + sizeof buffer), months, words,
                                   filter);
    OneLexemeLexer lexer(lexeme, CharacterSets::letters, words.log);
    return OutcomeOfEveryCut(text, [&](const Runs& runs) {
        Feed(lexer, runs);
        return words.log;
    });
}

TEST(ReservedWordLexeme, EveryRowIsFound) {
    EXPECT_EQ(Lex("apr feb january march"), "#4@0-3 #2@4-7 #1@8-15 #3@16-21 End@21");
}

TEST(ReservedWordLexeme, AnyOtherWordIsHandedOverAsItStands) {
    EXPECT_EQ(Lex("a zzz ap aprx mar"), "a@0-1 zzz@2-5 ap@6-8 aprx@9-13 mar@14-17 End@17");
}

TEST(ReservedWordLexeme, CaseCountsWithoutAFilter) {
    Ascii::CaseLoweringFilter lowering;
    EXPECT_EQ(Lex("APR Feb"), "APR@0-3 Feb@4-7 End@7");
    EXPECT_EQ(Lex("APR Feb", &lowering), "#4@0-3 #2@4-7 End@7");
}

TEST(ReservedWordLexeme, TooLongIsPassedOn) { EXPECT_EQ(Lex("abcdefghij"), "TooLong@0-10 End@10"); }

}  // namespace
