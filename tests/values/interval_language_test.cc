// The syntax of time intervals: which texts it admits, what they say, and how they come back.
#include "values/interval_language.h"

#include <gtest/gtest.h>

#include <random>

#include "foundation/stack_allocator.h"
#include "tests/language/every_cut.h"
#include "tests/values/token_texts.h"
#include "values/time_interval.h"

namespace {

std::string Outcome(const Runs& runs) {
    IntervalAutomaton automaton;
    IntervalParser parser(automaton);
    IntervalLexer lexer(parser);
    Feed(lexer, runs);
    EXPECT_NE(parser.Accepted(), parser.Failed());
    return parser.Accepted() ? std::to_string(automaton.Microseconds()) : "refused";
}

std::optional<int64_t> Read(std::string_view text) { return IntervalOfText(ConstData(text)); }

TokenTexts Texts() {
    TokenTexts texts;
    texts.writings = {{'N', {"0", "1", "12", "007", "1.5", ".5", "3.", "."}},
                      {'D', {"day", "days"}},
                      {'W', {"dayx", "week", "Day", "d", "dayday", "abcdefghijklmnop"}},
                      {':', {":"}},
                      {',', {","}},
                      {'S', {"+", "-"}},
                      {'X', {";", "/", "\x80", std::string(1, '\0')}}};
    return texts;
}

TEST(IntervalLanguage, AdmitsWhatItsGrammarDoes) {
    const TokenLanguage intervals("S?(ND|N:N:N|ND,N:N:N)");
    TokenTexts texts = Texts();
    int accepted = 0;
    const auto check = [&](const std::string& tokens) {
        const std::string text = texts.Written(tokens);
        const bool valid = intervals.Admits(tokens);
        accepted += valid ? 1 : 0;
        EXPECT_EQ(Read(text).has_value(), valid) << tokens << " as " << text;
    };
    texts.EverySequence(5, check);
    EXPECT_EQ(accepted, 3);  // ND, SND, N:N:N: those with a comma and with a sign before a clock are longer.
    texts.NearMisses({"ND", "SND", "N:N:N", "SN:N:N", "ND,N:N:N", "SND,N:N:N"}, 30000, check);
    EXPECT_GT(accepted, 5000);
}

TEST(IntervalLanguage, IsTheSameHoweverTheTextIsCut) {
    EXPECT_EQ(OutcomeOfEveryCut("-12 days, 03:04:05.25", Outcome), "-1047845250000");
    EXPECT_EQ(OutcomeOfEveryCut(" + 1.5\tdays\r\n", Outcome), "129600000000");
    EXPECT_EQ(OutcomeOfEveryCut("1:2:3", Outcome), "3723000000");
    for (const char* text :
         {"", "5", "days", "1 dayx", "1 day 2", "1 day, 2 days", "1.2.3 days", "1::2", "abcdefghijklm"}) {
        EXPECT_EQ(OutcomeOfEveryCut(text, Outcome), "refused") << text;
    }
}

TEST(IntervalLanguage, ALexerServesAnyNumberOfTexts) {
    IntervalAutomaton automaton;
    IntervalParser parser(automaton);
    IntervalLexer lexer(parser);
    for (int i = 0; i < 3; ++i) {
        Feed(lexer, {"-1 day, 1:"});
        EXPECT_TRUE(parser.Failed());
        Feed(lexer, {"2 days"});
        EXPECT_TRUE(parser.Accepted());
        EXPECT_EQ(automaton.Microseconds(), 2 * int64_t{86400000000});
    }
}

TEST(IntervalLanguage, WhatPasses64BitsIsTheGreatestOrTheLeast) {
    const std::string nines(5000, '9');
    EXPECT_EQ(Read(nines + " days"), std::numeric_limits<int64_t>::max());
    EXPECT_EQ(Read("-" + nines + " days"), std::numeric_limits<int64_t>::min());
    EXPECT_EQ(Read(nines + " days, " + nines + ":" + nines + ":" + nines), std::numeric_limits<int64_t>::max());
    EXPECT_EQ(Read("0." + nines + " days"), 86400000000);
    EXPECT_EQ(Read("0:0:0." + std::string(6000, '0') + "1"), 0);
}

TEST(IntervalLanguage, LongRubbishIsSkipped) {
    EXPECT_FALSE(Read(std::string(1000000, 'x')));
    EXPECT_FALSE(Read(std::string(1000000, ':')));
    EXPECT_FALSE(Read(std::string(1000000, ' ')));
    EXPECT_FALSE(Read("1 day" + std::string(1000000, '+')));
}

std::string Printed(int64_t microseconds) {
    StackAllocator<4096> memory;
    const AllocatorInstaller installed(memory);
    return std::string(TimeIntervalText(time_interval(microseconds)).View());
}

TEST(IntervalLanguage, WholeSecondsReadBack) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 200000; ++i) {
        const int64_t seconds = static_cast<int64_t>(random() >> (random() % 40)) / 1000000;
        const int64_t microseconds = (i % 2 == 0 ? seconds : -seconds) * 1000000;
        ASSERT_EQ(Read(Printed(microseconds)), microseconds) << Printed(microseconds);
    }
    for (const int64_t ends : {std::numeric_limits<int64_t>::max(), std::numeric_limits<int64_t>::min()}) {
        ASSERT_TRUE(Read(Printed(ends)));
    }
}

// A fraction is summed up in steps of binary numbers and cut to the microsecond, so that some come back one less.  The
// counts are those that the precision of the steps was chosen by.
TEST(IntervalLanguage, FractionsReadBackToTheMicrosecondOrOneLess) {
    int exact = 0;
    for (int64_t i = 1; i < 1000; ++i) {
        const std::optional<int64_t> read = Read(Printed(i * 1000));
        ASSERT_TRUE(read);
        ASSERT_LE(*read, i * 1000);
        ASSERT_GE(*read, i * 1000 - 1);
        exact += *read == i * 1000 ? 1 : 0;
    }
    EXPECT_EQ(exact, 852);
    for (int64_t i = 1; i < 60000000; i += 997) {
        const std::optional<int64_t> read = Read(Printed(i));
        ASSERT_TRUE(read);
        ASSERT_LE(*read, i);
        ASSERT_GE(*read, i - 1);
    }
}

}  // namespace
