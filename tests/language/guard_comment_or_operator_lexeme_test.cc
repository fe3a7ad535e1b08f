#include "language/guard_comment_or_operator_lexeme.h"

#include <gtest/gtest.h>

#include "tests/language/token_recorder.h"

namespace {

TEST(GuardCommentOrOperatorLexeme, ASlashDivides) {
    EXPECT_EQ(Tokens("foo / bar"), "<foo> 4:op3 <bar>");
    EXPECT_EQ(Tokens("foo/bar"), "<foo> 4:op3 <bar>");
    EXPECT_EQ(Tokens("/"), "4:op3");
    EXPECT_EQ(Tokens("6/3"), "6 4:op3 3");
    EXPECT_EQ(Tokens("//"), "4:op3 4:op3");
    EXPECT_EQ(Tokens("/ *"), "4:op3 4:op2");
    EXPECT_EQ(Tokens("*/"), "4:op2 4:op3");
    EXPECT_EQ(Tokens("/=/("), "4:op3 6:op6 4:op3 0");
}

TEST(GuardCommentOrOperatorLexeme, KnowsThePlaceOfASlash) { EXPECT_EQ(Positions("1 / 2/"), "0-1 2-3 4-5 5-6.6"); }

TEST(GuardCommentLexeme, IsNoToken) {
    EXPECT_EQ(Tokens("/**/"), "");
    EXPECT_EQ(Tokens("/***/"), "");
    EXPECT_EQ(Tokens("/* ** / * */1"), "1");
    EXPECT_EQ(Tokens("1/* \"%zz # ! \n \xFF */2"), "1 2");
    EXPECT_EQ(Tokens("/* x *//* y */1"), "1");
    EXPECT_EQ(Tokens("/****/1"), "1");
}

TEST(GuardCommentLexeme, EndsThePhraseBeforeIt) {
    EXPECT_EQ(Tokens("a /* x */ b"), "<b>");
    EXPECT_EQ(Tokens("foo /* x */ bar"), "<foo> <bar>");
    EXPECT_EQ(Tokens("is /* x */ not"), "6:op6 2");
}

TEST(GuardCommentLexeme, TheOpeningStarDoesNotCloseIt) {
    EXPECT_EQ(Tokens("/*/"), "!UnfinishedCommentError");
    EXPECT_EQ(Tokens("/*/ 1 */ 2"), "2");
}

TEST(GuardCommentLexeme, DoesNotNest) { EXPECT_EQ(Tokens("/* /* */ 1 */"), "1 4:op2 4:op3"); }

TEST(GuardCommentLexeme, TheEndOfTheTextInsideIsAnError) {
    EXPECT_EQ(Tokens("/*"), "!UnfinishedCommentError");
    EXPECT_EQ(Tokens("1 /* foo *"), "1 !UnfinishedCommentError");
    EXPECT_EQ(Tokens("1 /* foo * /"), "1 !UnfinishedCommentError");
}

}  // namespace
