#include "language/parse_errors.h"

#include <gtest/gtest.h>

namespace {

TEST(ParseErrors, TheTextOfEachIsItsName) {
    EXPECT_STREQ(ParsingFailure().what(), "ParsingFailure");
    EXPECT_STREQ(WordTooLong().what(), "WordTooLong");
    EXPECT_STREQ(PhraseTooLong().what(), "PhraseTooLong");
    EXPECT_STREQ(StringConstantTooLong().what(), "StringConstantTooLong");
    EXPECT_STREQ(UnfinishedStringConstant().what(), "UnfinishedStringConstant");
    EXPECT_STREQ(StringEncodingError().what(), "StringEncodingError");
    EXPECT_STREQ(IntegerConstantTooLarge().what(), "IntegerConstantTooLarge");
    EXPECT_STREQ(InvalidOperator().what(), "InvalidOperator");
    EXPECT_STREQ(UnexpectedCharacter('#').what(), "UnexpectedCharacter");
    EXPECT_STREQ(UnfinishedCommentError().what(), "UnfinishedCommentError");
}

TEST(ParseErrors, AnUnexpectedCharacterKnowsItsByte) { EXPECT_EQ(UnexpectedCharacter(0xE4).byte, 0xE4); }

}  // namespace
