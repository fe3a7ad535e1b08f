#include "language/phrase_maker.h"

#include <gtest/gtest.h>

#include "tests/language/token_recorder.h"

namespace {

std::string Repeated(const std::string& text, size_t count) {
    std::string repeated;
    for (size_t i = 0; i < count; ++i) {
        repeated += text;
    }
    return repeated;
}

// `count` bytes of words: 50 bytes each with the blank behind, the last one shorter.
std::string WordsOf(size_t count) {
    std::string words = Repeated(std::string(49, 'w') + " ", count / 50);
    if (count % 50 != 0) {
        words += std::string(count % 50 - 1, 'x') + " ";
    }
    return words;
}

TEST(NoiseWords, EachIsDroppedWhereverItStands) {
    for (const std::string noise : {"a", "an", "the", "A", "AN", "The", "tHE"}) {
        EXPECT_EQ(Tokens(noise), "") << noise;
        EXPECT_EQ(Tokens(noise + " foo"), "<foo>") << noise;
        EXPECT_EQ(Tokens("foo " + noise), "<foo>") << noise;
        EXPECT_EQ(Tokens("foo " + noise + " bar"), "<foo bar>") << noise;
        EXPECT_EQ(Tokens("is " + noise + " not " + noise + " foo"), "6:op6/256 <foo>") << noise;
        EXPECT_EQ(Tokens(noise + " (" + noise + ")"), "0 1") << noise;
    }
}

TEST(NoiseWords, WordsThatOnlyLookLikeThemStay) {
    EXPECT_EQ(Tokens("ab th them anx a_ a1 a' _a"), "<ab th them anx a_ a1 a' _a>");
}

TEST(PhraseMaker, ANameHoldsAnyNumberOfWordsJoinedBySingleBlanks) {
    EXPECT_EQ(Tokens("one   two\t\n three"), "<one two three>");
}

TEST(PhraseMaker, WordsOnBothSidesOfAKeywordAreTwoNames) {
    EXPECT_EQ(Tokens("The Name Of A File"), "<name> 13 <file>");
    EXPECT_EQ(Tokens("foo bar of the baz qux of quux"), "<foo bar> 13 <baz qux> 13 <quux>");
}

TEST(PhraseMaker, CaseIsFoldedBeforeMatching) {
    EXPECT_EQ(Tokens("IS NOT"), "6:op6/256");
    EXPECT_EQ(Tokens("Foo IS nOt BAR"), "<foo> 6:op6/256 <bar>");
}

TEST(PhraseMaker, AKeywordAtTheVeryEndIsOne) {
    EXPECT_EQ(Tokens("is"), "6:op6");
    EXPECT_EQ(Tokens("foo is"), "<foo> 6:op6");
}

TEST(PhraseMaker, TheLongestKeywordWins) {
    EXPECT_EQ(Tokens("is not greater than or equal to foo"), "6:op8/257 <foo>");
    EXPECT_EQ(Tokens("is not greater than or equal foo"), "6:op7/257 8 <equal foo>");
    EXPECT_EQ(Tokens("is not greater than or"), "6:op7/257 8");
    EXPECT_EQ(Tokens("is not greater than"), "6:op7/257");
    EXPECT_EQ(Tokens("is not greater"), "6:op6/256 <greater>");
    EXPECT_EQ(Tokens("is not foo"), "6:op6/256 <foo>");
    EXPECT_EQ(Tokens("is foo"), "6:op6 <foo>");
    EXPECT_EQ(Tokens("there exists no foo"), "17 <foo>");
    EXPECT_EQ(Tokens("there exists foo"), "16 <foo>");
    EXPECT_EQ(Tokens("exist not"), "16 2");
}

TEST(PhraseMaker, AFallenBackKeywordIsFollowedByOthers) {
    EXPECT_EQ(Tokens("is is"), "6:op6 6:op6");
    EXPECT_EQ(Tokens("is not is not"), "6:op6/256 6:op6/256");
    EXPECT_EQ(Tokens("is equal of foo"), "6:op6 <equal> 13 <foo>");
    EXPECT_EQ(Tokens("is less if it"), "6:op6 <less> 18 21:It");
    EXPECT_EQ(Tokens("of of whose of"), "13 13 14 13");
}

TEST(PhraseMaker, AWordThatOnlyBeginsKeywordsIsPartOfAName) {
    EXPECT_EQ(Tokens("there is foo"), "<there> 6:op6 <foo>");
    EXPECT_EQ(Tokens("there there exists foo"), "<there> 16 <foo>");
    EXPECT_EQ(Tokens("does foo"), "<does foo>");
    EXPECT_EQ(Tokens("foo does of bar"), "<foo does> 13 <bar>");
    EXPECT_EQ(Tokens("starts foo"), "<starts foo>");
    EXPECT_EQ(Tokens("does not foo"), "<does> 2 <foo>");
}

TEST(PhraseMaker, AKeywordBegunAndNotCompletedAtTheEndBecomesAName) {
    EXPECT_EQ(Tokens("there"), "<there>");
    EXPECT_EQ(Tokens("does"), "<does>");
    EXPECT_EQ(Tokens("there do not"), "<there do> 2");
    EXPECT_EQ(Tokens("does not"), "<does> 2");
    EXPECT_EQ(Tokens("foo starts"), "<foo starts>");
    EXPECT_EQ(Tokens("foo there (bar"), "<foo there> 0 <bar>");
    EXPECT_EQ(Tokens("does not start"), "<does> 2 <start>");
    EXPECT_EQ(Tokens("there there"), "<there there>");
    EXPECT_EQ(Tokens("is greater"), "6:op6 <greater>");
    EXPECT_EQ(Tokens("is there"), "6:op6 <there>");
}

TEST(PhraseMaker, KeywordsAreWholeWords) {
    EXPECT_EQ(Tokens("island ors ofx itself wh is_ is1 is'"), "<island ors ofx itself wh is_ is1 is'>");
}

TEST(PhraseMaker, A63ByteWordIsAcceptedAndOneOf64IsTooLong) {
    const std::string longest(63, 'x');
    EXPECT_EQ(Tokens(longest), "<" + longest + ">");
    EXPECT_EQ(Tokens(longest + "x"), "!WordTooLong");
    EXPECT_EQ(Tokens("foo of " + longest + "xyz of bar"), "<foo> 13 !WordTooLong");
}

TEST(PhraseMaker, APhraseOf511BytesIsAccepted) {
    const std::string words = WordsOf(511);
    ASSERT_EQ(words.size(), 511u);
    EXPECT_EQ(Tokens(words), "<" + words.substr(0, 510) + ">");
}

TEST(PhraseMaker, ABlankThatFillsTheBufferIsPhraseTooLong) {
    ASSERT_EQ(WordsOf(512).size(), 512u);
    EXPECT_EQ(Tokens(WordsOf(512)), "!PhraseTooLong");
}

TEST(PhraseMaker, AWordThatFillsTheBufferIsDataOverflow) {
    const std::string words = WordsOf(500);
    EXPECT_EQ(Tokens(words + std::string(12, 'x')), "!DataOverflow");
    EXPECT_EQ(Tokens(words + std::string(13, 'x')), "!DataOverflow");
    EXPECT_EQ(Tokens(words + std::string(11, 'x')), "!PhraseTooLong");
}

TEST(PhraseMaker, ANoiseWordTakesNoRoom) {
    const std::string words = WordsOf(511);
    EXPECT_EQ(Tokens(words + "the a an"), "<" + words.substr(0, 510) + ">");
}

TEST(PhraseMaker, AKeywordFreesTheBuffer) {
    const std::string words = WordsOf(500);
    const std::string name = "<" + words.substr(0, 499) + ">";
    EXPECT_EQ(Tokens(words + "of " + words + "of " + words), name + " 13 " + name + " 13 " + name);
}

// "is" may go on, so it and the name before it stay until the next word decides.
TEST(PhraseMaker, ANameSharesTheBufferUntilTheKeywordBehindItIsEmitted) {
    const std::string words = WordsOf(500);
    const std::string name = "<" + words.substr(0, 499) + ">";
    EXPECT_EQ(Tokens(words + "is it"), name + " 6:op6 21:It");
    EXPECT_EQ(Tokens(words + "is abcdefgh"), name + " !PhraseTooLong");
    EXPECT_EQ(Tokens(words + "is abcdefghi"), name + " !DataOverflow");
    EXPECT_EQ(Tokens(words + "of abcdefghijk"), name + " 13 <abcdefghijk>");
}

TEST(PhraseMaker, AnAbandonedPhraseLeavesNothingBehind) {
    TokenRecorder recorder;
    GuardLexer lexer(recorder, recorder);
    const std::string_view begun = "foo is not gre";
    lexer.Start();
    lexer.Data(ConstData(begun).begin, ConstData(begun).end);
    Feed(lexer, {"bar"});
    EXPECT_EQ(recorder.tokens, "<bar>");
}

}  // namespace
