#include "language/guard_parser.h"

#include <gtest/gtest.h>

#include <new>

#include "language/guard_lexer.h"
#include "language/parse_errors.h"
#include "tests/language/counting_semantics.h"
#include "tests/language/every_cut.h"
#include "tests/language/recording_semantics.h"

namespace {

void Replace(std::string& text, const std::string& from, const std::string& to) {
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
        text.replace(at, from.size(), to);
    }
}

// What the semantics is told of a text, the same for every cut of it, then "!" and the failure's text if it fails.
std::string Parse(std::string_view text) {
    RecordingSemantics semantics;
    GuardParser parser(semantics);
    GuardLexer lexer(parser, parser);
    return OutcomeOfEveryCut(text, [&](const Runs& runs) {
        try {
            Feed(lexer, runs);
            EXPECT_TRUE(parser.Finished());
            EXPECT_TRUE(parser.Ended());
        } catch (const DebuggableException& exception) {
            return semantics.text + (semantics.text.empty() ? "!" : " !") + exception.what();
        }
        return semantics.text;
    });
}

// The same with operands reduced to themselves: what makes plain values and names into items is left out, and so is
// the last Accept.
std::string Outline(std::string_view text) {
    std::string outline = Parse(text);
    Replace(outline, " ValueItem NoOf", "");
    Replace(outline, " NamedAlone NoOf", "");
    if (outline.ends_with(" Accept")) {
        outline.erase(outline.size() - 7);
    }
    return outline;
}

// Each grammar rule.

TEST(GuardParser, Values) {
    EXPECT_EQ(Parse("17"), "17 ValueItem NoOf Accept");
    EXPECT_EQ(Parse("\"foo\""), "'foo' ValueItem NoOf Accept");
    EXPECT_EQ(Parse("it"), "It ValueItem NoOf Accept");
    EXPECT_EQ(Parse("(17)"), "17 ValueItem NoOf ValueItem NoOf Accept");
    EXPECT_EQ(Parse("9223372036854775808"), "9223372036854775808 ValueItem NoOf Accept");
    EXPECT_EQ(Parse("18446744073709551615"), "18446744073709551615 ValueItem NoOf Accept");
    EXPECT_EQ(Parse("18446744073709551616"), "!IntegerConstantTooLarge");
}

TEST(GuardParser, ANameAlone) { EXPECT_EQ(Parse("Operating  System"), "operating system NamedAlone NoOf Accept"); }

TEST(GuardParser, ANameTakesAValueAsArgument) {
    EXPECT_EQ(Parse("file \"x\""), "file 'x' NamedWithArgument NoOf Accept");
    EXPECT_EQ(Parse("item 0"), "item 0 NamedWithArgument NoOf Accept");
    EXPECT_EQ(Parse("file it"), "file It NamedWithArgument NoOf Accept");
}

TEST(GuardParser, ANameTakesAParenthesisAsArgument) {
    EXPECT_EQ(Parse("name (foo)"), "name foo NamedAlone NoOf NamedWithArgument NoOf Accept");
    EXPECT_EQ(Parse("name ((1))"), "name 1 ValueItem NoOf ValueItem NoOf NamedWithArgument NoOf Accept");
    EXPECT_EQ(Outline("name (1, 2)"), "name 1 2 LastTupleElement NamedWithArgument NoOf");
    EXPECT_EQ(Outline("name (if 1 then 2 else 3)"), "name 1 2 3 If NamedWithArgument NoOf");
}

TEST(GuardParser, ANameTakesOneArgumentOnly) {
    EXPECT_EQ(Parse("file \"x\" \"y\""), "file 'x' NamedWithArgument NoOf Accept !ParsingFailure");
    EXPECT_EQ(Parse("file (1) (2)"), "file 1 ValueItem NoOf NamedWithArgument NoOf Accept !ParsingFailure");
}

TEST(GuardParser, WhoseBindsTightest) {
    EXPECT_EQ(Parse("foo whose (bar)"), "foo NamedAlone bar NamedAlone NoOf Whose NoOf Accept");
    EXPECT_EQ(Parse("foo 1 whose (it)"), "foo 1 NamedWithArgument It ValueItem NoOf Whose NoOf Accept");
    EXPECT_EQ(Parse("foo whose (1) of bar"), "foo NamedAlone 1 ValueItem NoOf Whose bar NamedAlone NoOf Of Accept");
    EXPECT_EQ(Parse("name of (1) whose (2)"),
              "name NamedAlone 1 ValueItem NoOf ValueItem 2 ValueItem NoOf Whose NoOf Of Accept");
}

TEST(GuardParser, WhoseTakesAValue) {
    EXPECT_EQ(Parse("foo whose 1"), "foo NamedAlone 1 Whose NoOf Accept");
    EXPECT_EQ(Parse("foo whose it"), "foo NamedAlone It Whose NoOf Accept");
    EXPECT_EQ(Parse("foo whose bar"), "foo NamedAlone bar NamedAlone NoOf Accept !ParsingFailure");
}

TEST(GuardParser, SeveralWhoseFollowEachOther) {
    EXPECT_EQ(Parse("foo whose (1) whose (2)"),
              "foo NamedAlone 1 ValueItem NoOf Whose 2 ValueItem NoOf Whose NoOf Accept");
}

TEST(GuardParser, OfIsRightAssociative) {
    EXPECT_EQ(Parse("foo of bar of baz"), "foo NamedAlone bar NamedAlone baz NamedAlone NoOf Of Of Accept");
    EXPECT_EQ(Parse("item 0 of (1, 2)"),
              "item 0 NamedWithArgument 1 ValueItem NoOf 2 ValueItem NoOf LastTupleElement ValueItem NoOf Of Accept");
    EXPECT_EQ(Parse("1 of 2"), "1 ValueItem 2 ValueItem NoOf Of Accept");
    EXPECT_EQ(Parse("number of foo"), "number NamedAlone foo NamedAlone NoOf Of Accept");
    EXPECT_EQ(Parse("number 1 of foo"), "number 1 NamedWithArgument foo NamedAlone NoOf Of Accept");
    EXPECT_EQ(Parse("items 1 of foo"), "items 1 NamedWithArgument foo NamedAlone NoOf Of Accept");
}

TEST(GuardParser, AsIsLeftAssociativeAndBindsTighterThanThePrefixes) {
    EXPECT_EQ(Outline("foo as bar"), "foo bar Cast");
    EXPECT_EQ(Outline("foo as bar as baz"), "foo bar Cast baz Cast");
    EXPECT_EQ(Outline("not foo as bar"), "foo bar Cast Not");
    EXPECT_EQ(Outline("- 1 as bar"), "1 bar Cast Negate");
    EXPECT_EQ(Outline("exists foo as bar"), "foo bar Cast Exists");
    EXPECT_EQ(Parse("foo of bar as baz"), "foo NamedAlone bar NamedAlone NoOf Of baz Cast Accept");
    EXPECT_EQ(Outline("1 + 2 as foo"), "1 op0 2 foo Cast BinaryOperator");
}

TEST(GuardParser, TheRightSideOfAsIsAName) {
    EXPECT_EQ(Outline("1 as 2"), "1 2 Accept !ParsingFailure");
    EXPECT_EQ(Outline("1 as (foo)"), "1 foo Accept !ParsingFailure");
    EXPECT_EQ(Outline("1 as foo of bar"), "1 foo Cast Accept !ParsingFailure");
}

TEST(GuardParser, PrefixesNestToTheRight) {
    EXPECT_EQ(Outline("exists foo"), "foo Exists");
    EXPECT_EQ(Outline("exists no foo"), "foo ExistsNo");
    EXPECT_EQ(Outline("there does not exist foo"), "foo ExistsNo");
    EXPECT_EQ(Outline("not foo"), "foo Not");
    EXPECT_EQ(Outline("-1"), "1 Negate");
    EXPECT_EQ(Outline("not exists foo"), "foo Exists Not");
    EXPECT_EQ(Outline("not not - exists no 1"), "1 ExistsNo Negate Not Not");
}

TEST(GuardParser, APrefixTakesAUnary) {
    EXPECT_EQ(Outline("-1 * 2"), "1 Negate op2 2 BinaryOperator");
    EXPECT_EQ(Outline("- foo * bar"), "foo Negate op2 bar BinaryOperator");
    EXPECT_EQ(Outline("1 * -2"), "1 op2 2 Negate BinaryOperator");
    EXPECT_EQ(Outline("not 1 = 2"), "1 Not op6 2 BinaryOperator");
    EXPECT_EQ(Outline("exists 1 and 2"), "1 Exists 2 And");
    EXPECT_EQ(Outline("exists 1 | 2"), "1 Exists 2 Bar");
    EXPECT_EQ(Parse("exists foo of bar"), "foo NamedAlone bar NamedAlone NoOf Of Exists Accept");
}

TEST(GuardParser, TheBarIsLeftAssociative) {
    EXPECT_EQ(Outline("1 | 2"), "1 2 Bar");
    EXPECT_EQ(Outline("1 | 2 | 3"), "1 2 Bar 3 Bar");
    EXPECT_EQ(Outline("1 | - 2"), "1 2 Negate Bar");
}

TEST(GuardParser, ABarMayStandBeforeAProductButNotBehindOne) {
    EXPECT_EQ(Outline("1 | 2 * 3"), "1 2 Bar op2 3 BinaryOperator");
    EXPECT_EQ(Outline("1 * 2 | 3"), "1 op2 2 BinaryOperator Accept !ParsingFailure");
    EXPECT_EQ(Outline("(1 * 2 | 3)"), "1 op2 2 BinaryOperator !ParsingFailure");
    EXPECT_EQ(Outline("1 + 2 | 3"), "1 op0 2 3 Bar BinaryOperator");
    EXPECT_EQ(Outline("1 | 2 + 3"), "1 2 Bar op0 3 BinaryOperator");
}

TEST(GuardParser, ProductsAreLeftAssociative) {
    EXPECT_EQ(Outline("1 * 2 / 3"), "1 op2 2 BinaryOperator op3 3 BinaryOperator");
    EXPECT_EQ(Outline("1 mod 2 & 3"), "1 op4 2 BinaryOperator op5 3 BinaryOperator");
}

TEST(GuardParser, SumsAreLeftAssociativeAndAboveProducts) {
    EXPECT_EQ(Outline("1 + 2 + 3"), "1 op0 2 BinaryOperator op0 3 BinaryOperator");
    EXPECT_EQ(Outline("1 - 2 - 3"), "1 2 Subtract 3 Subtract");
    EXPECT_EQ(Outline("1 - 2 + 3"), "1 2 Subtract op0 3 BinaryOperator");
    EXPECT_EQ(Outline("1 + 2 - 3"), "1 op0 2 BinaryOperator 3 Subtract");
    EXPECT_EQ(Outline("1 + 2 * 3"), "1 op0 2 op2 3 BinaryOperator BinaryOperator");
    EXPECT_EQ(Outline("1 * 2 + 3"), "1 op2 2 BinaryOperator op0 3 BinaryOperator");
    EXPECT_EQ(Outline("1 - 2 * 3"), "1 2 op2 3 BinaryOperator Subtract");
}

TEST(GuardParser, TheMinusSignIsUnaryOrBinaryByItsPlace) {
    EXPECT_EQ(Outline("1 - - 2"), "1 2 Negate Subtract");
    EXPECT_EQ(Outline("- 1 - 2"), "1 Negate 2 Subtract");
    EXPECT_EQ(Outline("1 + - 2"), "1 op0 2 Negate BinaryOperator");
    EXPECT_EQ(Outline("- - 1"), "1 Negate Negate");
    EXPECT_EQ(Outline("foo - 1"), "foo 1 Subtract");
}

TEST(GuardParser, RelationsAreAboveSumsAndNotAssociative) {
    EXPECT_EQ(Outline("1 + 2 = 3 - 4"), "1 op0 2 BinaryOperator op6 3 4 Subtract BinaryOperator");
    EXPECT_EQ(Outline("1 = 2 = 3"), "1 op6 2 BinaryOperator Accept !ParsingFailure");
    EXPECT_EQ(Outline("(1 = 2 = 3)"), "1 op6 2 BinaryOperator !ParsingFailure");
    EXPECT_EQ(Outline("1 < 2 is 3"), "1 op7 2 BinaryOperator Accept !ParsingFailure");
    EXPECT_EQ(Parse("(1 = 2) = 3"),
              "1 ValueItem NoOf op6 2 ValueItem NoOf BinaryOperator ValueItem NoOf op6 3 ValueItem NoOf "
              "BinaryOperator Accept");
}

TEST(GuardParser, RelationalKeywordsCarryTheirFlags) {
    EXPECT_EQ(Outline("1 is not 2"), "1 op6/256 2 BinaryOperator");
    EXPECT_EQ(Outline("1 > 2"), "1 op7/1 2 BinaryOperator");
    EXPECT_EQ(Outline("1 is not less than or equal to 2"), "1 op8/256 2 BinaryOperator");
    EXPECT_EQ(Outline("foo contains bar"), "foo op11 bar BinaryOperator");
    EXPECT_EQ(Outline("bar is contained by foo"), "bar op11/1 foo BinaryOperator");
}

TEST(GuardParser, AndBindsTighterThanOr) {
    EXPECT_EQ(Outline("1 and 2 and 3"), "1 2 And 3 And");
    EXPECT_EQ(Outline("1 or 2 or 3"), "1 2 Or 3 Or");
    EXPECT_EQ(Outline("1 or 2 and 3"), "1 2 3 And Or");
    EXPECT_EQ(Outline("1 and 2 or 3 and 4"), "1 2 And 3 4 And Or");
    EXPECT_EQ(Outline("1 = 2 and 3 = 4"), "1 op6 2 BinaryOperator 3 op6 4 BinaryOperator And");
}

TEST(GuardParser, TheCommaIsRightAssociative) {
    EXPECT_EQ(Outline("1, 2"), "1 2 LastTupleElement");
    EXPECT_EQ(Outline("1, 2, 3"), "1 2 3 LastTupleElement TupleElement");
    EXPECT_EQ(Outline("1, 2, 3, 4"), "1 2 3 4 LastTupleElement TupleElement TupleElement");
    EXPECT_EQ(Outline("1 or 2, 3"), "1 2 Or 3 LastTupleElement");
}

TEST(GuardParser, TheSemicolonIsLeftAssociativeAndBelowTheComma) {
    EXPECT_EQ(Outline("1; 2"), "1 2 Collection");
    EXPECT_EQ(Outline("1; 2; 3"), "1 2 Collection 3 Collection");
    EXPECT_EQ(Outline("1; 2, 3; 4"), "1 2 3 LastTupleElement Collection 4 Collection");
    EXPECT_EQ(Outline("1, 2; 3, 4"), "1 2 LastTupleElement 3 4 LastTupleElement Collection");
}

TEST(GuardParser, IfBindsLoosestAndItsBranchesAreWholeExpressions) {
    EXPECT_EQ(Outline("if 1 then 2 else 3"), "1 2 3 If");
    EXPECT_EQ(Outline("if 1, 2 then 3; 4 else 5; 6"), "1 2 LastTupleElement 3 4 Collection 5 6 Collection If");
    EXPECT_EQ(Outline("if 1 then 2 else if 3 then 4 else 5"), "1 2 3 4 5 If If");
    EXPECT_EQ(Outline("if 1 then if 2 then 3 else 4 else 5"), "1 2 3 4 If 5 If");
    EXPECT_EQ(Outline("if if 1 then 2 else 3 then 4 else 5"), "1 2 3 If 4 5 If");
}

TEST(GuardParser, AnIfIsNoOperand) {
    EXPECT_EQ(Outline("1 + if 2 then 3 else 4"), "1 op0 2 3 4 If Accept !ParsingFailure");
    EXPECT_EQ(Outline("1 + (if 2 then 3 else 4)"), "1 op0 2 3 4 If BinaryOperator");
}

// The order of things.

TEST(GuardParser, TheSemanticsHearsOfATokenAfterItsReductionsAndBeforeItIsShifted) {
    // Each operand's NoOf comes before the operator that causes it; each ValueItem comes after its numeral.
    EXPECT_EQ(Parse("1 + 2"), "1 ValueItem NoOf op0 2 ValueItem NoOf BinaryOperator Accept");
    EXPECT_EQ(Parse("foo = bar"), "foo NamedAlone NoOf op6 bar NamedAlone NoOf BinaryOperator Accept");
}

TEST(GuardParser, ATokenBehindACompleteExpressionIsNotTold) {
    EXPECT_EQ(Parse("1 2"), "1 ValueItem NoOf Accept !ParsingFailure");
    EXPECT_EQ(Parse("1 \"foo\""), "1 ValueItem NoOf Accept !ParsingFailure");
    EXPECT_EQ(Parse("1 foo"), "1 ValueItem NoOf Accept !ParsingFailure");
    EXPECT_EQ(Parse("1 it"), "1 ValueItem NoOf Accept !ParsingFailure");
    EXPECT_EQ(Parse("1)"), "1 ValueItem NoOf Accept !ParsingFailure");
}

// The last token in a text that an operation refuses: it is neither shifted nor are its rules reduced.
TEST(GuardParser, ARefusedTokenIsNotShifted) {
    RecordingSemantics semantics;
    GuardParser parser(semantics);
    GuardLexer lexer(parser, parser);
    for (const std::string refused : {"2", "op0", "NoOf", "BinaryOperator", "Accept"}) {
        semantics.refused = refused;
        EXPECT_THROW(Feed(lexer, {"1 + 2"}), RecordingSemantics::Refusal) << refused;
        EXPECT_TRUE(semantics.text.ends_with(refused)) << semantics.text;
        EXPECT_FALSE(parser.Finished());
        semantics.refused.clear();
        Feed(lexer, {"3"});
        EXPECT_EQ(semantics.text, "3 ValueItem NoOf Accept");
    }
}

TEST(GuardParser, ACompleteItemInFrontOfMoreIsBoundFirst) {
    // The console wraps its questions in parentheses; the item behind the first is accepted inside them.
    EXPECT_EQ(Parse("(1 foo)"), "1 ValueItem NoOf foo NamedAlone NoOf Accept !ParsingFailure");
    EXPECT_EQ(Parse("(1e5)"), "1 ValueItem NoOf e5 NamedAlone NoOf Accept !ParsingFailure");
    EXPECT_EQ(Parse("(foo))"), "foo NamedAlone NoOf ValueItem NoOf Accept !ParsingFailure");
    EXPECT_EQ(Parse("((foo)"), "foo NamedAlone NoOf ValueItem NoOf !ParsingFailure");
}

TEST(GuardParser, AFailureInAcceptTakesPrecedence) {
    RecordingSemantics semantics;
    GuardParser parser(semantics);
    GuardLexer lexer(parser, parser);
    semantics.refused = "Accept";
    EXPECT_THROW(Feed(lexer, {"(1 foo)"}), RecordingSemantics::Refusal);
    EXPECT_THROW(Feed(lexer, {"(foo))"}), RecordingSemantics::Refusal);
    EXPECT_THROW(Feed(lexer, {"(1e5)"}), RecordingSemantics::Refusal);
    EXPECT_THROW(Feed(lexer, {"1 2"}), RecordingSemantics::Refusal);
    EXPECT_THROW(Feed(lexer, {"(1 +)"}), ParsingFailure);
}

TEST(GuardParser, ParenthesesThatMeetInTheMiddleAreAnExpression) {
    EXPECT_EQ(Outline("(1) + (2)"), "1 op0 2 BinaryOperator");
    EXPECT_EQ(Parse("1) + (2"), "1 ValueItem NoOf Accept !ParsingFailure");
}

// The ways to fail.

TEST(GuardParser, NothingIsNoExpression) {
    EXPECT_EQ(Parse(""), "!ParsingFailure");
    EXPECT_EQ(Parse(" /* */ "), "!ParsingFailure");
    EXPECT_EQ(Parse("the"), "!ParsingFailure");
    EXPECT_EQ(Parse("()"), "!ParsingFailure");
    EXPECT_EQ(Parse("(())"), "!ParsingFailure");
    EXPECT_EQ(Parse("(a)"), "!ParsingFailure");
}

TEST(GuardParser, ATokenThatNeitherGoesOnNorBeginsARuleFails) {
    for (const std::string token :
         {")", "|", "*", "/", "&", "mod", "+", "=", "is", "and", "or", ",", ";", "of", "whose", "as", "then", "else"}) {
        EXPECT_EQ(Parse(token), "!ParsingFailure") << token;
        EXPECT_EQ(Parse("(" + token + " 1"), "!ParsingFailure") << token;
    }
    EXPECT_EQ(Parse("1 + * 2"), "1 ValueItem NoOf op0 !ParsingFailure");
    EXPECT_EQ(Parse("(1 then 2)"), "1 ValueItem NoOf !ParsingFailure");
}

TEST(GuardParser, ATextThatStopsInsideARuleFails) {
    EXPECT_EQ(Parse("("), "!ParsingFailure");
    EXPECT_EQ(Parse("(1"), "1 ValueItem NoOf !ParsingFailure");
    EXPECT_EQ(Parse("1 +"), "1 ValueItem NoOf op0 !ParsingFailure");
    EXPECT_EQ(Parse("1 -"), "1 ValueItem NoOf !ParsingFailure");
    EXPECT_EQ(Parse("1,"), "1 ValueItem NoOf !ParsingFailure");
    EXPECT_EQ(Parse("1;"), "1 ValueItem NoOf !ParsingFailure");
    EXPECT_EQ(Parse("not"), "!ParsingFailure");
    EXPECT_EQ(Parse("foo of"), "foo NamedAlone !ParsingFailure");
    EXPECT_EQ(Parse("foo whose"), "foo NamedAlone !ParsingFailure");
    EXPECT_EQ(Parse("foo as"), "foo NamedAlone NoOf !ParsingFailure");
    EXPECT_EQ(Parse("name (1"), "name 1 ValueItem NoOf !ParsingFailure");
    EXPECT_EQ(Parse("if 1"), "1 ValueItem NoOf !ParsingFailure");
    EXPECT_EQ(Outline("if 1 then 2"), "1 2 !ParsingFailure");
    EXPECT_EQ(Outline("if 1 then 2 else"), "1 2 !ParsingFailure");
}

TEST(GuardParser, ACompleteExpressionOnAnUnfinishedStackFails) {
    EXPECT_EQ(Outline("1 + foo whose 2 3"), "1 op0 foo NamedAlone 2 Whose NoOf BinaryOperator Accept !ParsingFailure");
    EXPECT_EQ(Parse("(1 2)"), "1 ValueItem NoOf 2 ValueItem NoOf Accept !ParsingFailure");
}

TEST(GuardParser, WhatIsNoTokenFailsByItsName) {
    EXPECT_EQ(Parse("#"), "!UnexpectedCharacter");
    EXPECT_EQ(Parse("!"), "!InvalidOperator");
    EXPECT_EQ(Parse("\"foo"), "!UnfinishedStringConstant");
    EXPECT_EQ(Parse("\"%\""), "!StringEncodingError");
    EXPECT_EQ(Parse("\"" + std::string(513, 'x') + "\""), "!StringConstantTooLong");
    EXPECT_EQ(Parse("/*"), "!UnfinishedCommentError");
    EXPECT_EQ(Parse(std::string(64, 'x')), "!WordTooLong");
    std::string phrase;
    for (int i = 0; i < 256; ++i) {
        phrase += "x ";
    }
    EXPECT_EQ(Parse(phrase), "!PhraseTooLong");
    EXPECT_EQ(Parse(phrase.substr(2) + "xy"), "!DataOverflow");
}

TEST(GuardParser, AnUnexpectedCharacterKnowsItsByte) {
    RecordingSemantics semantics;
    GuardParser parser(semantics);
    GuardLexer lexer(parser, parser);
    try {
        Feed(lexer, {"1 \x80"});
        ADD_FAILURE();
    } catch (const UnexpectedCharacter& unexpected) {
        EXPECT_EQ(unexpected.byte, 0x80);
    }
}

// Life.

TEST(GuardParser, StartResetsTheSemanticsAndForgetsWhatWasBegun) {
    RecordingSemantics semantics;
    GuardParser parser(semantics);
    GuardLexer lexer(parser, parser);
    EXPECT_EQ(semantics.resets, 0);
    EXPECT_THROW(Feed(lexer, {"((1 + (2"}), ParsingFailure);
    EXPECT_TRUE(parser.Ended());
    EXPECT_EQ(semantics.resets, 1);
    lexer.Start();
    EXPECT_EQ(semantics.resets, 2);
    EXPECT_EQ(semantics.text, "");
    EXPECT_FALSE(parser.Ended());
    Feed(lexer, {"1"});
    EXPECT_EQ(semantics.text, "1 ValueItem NoOf Accept");
    EXPECT_TRUE(parser.Finished());
    Feed(lexer, {"2"});
    EXPECT_EQ(semantics.text, "2 ValueItem NoOf Accept");
    EXPECT_EQ(semantics.resets, 4);
}

// Depth.

std::string Repeated(const std::string& text, size_t count) {
    std::string repeated;
    for (size_t i = 0; i < count; ++i) {
        repeated += text;
    }
    return repeated;
}

class GuardParserDepth : public testing::Test {
protected:
    CountingSemantics semantics;
    GuardParser parser{semantics};
    GuardLexer lexer{parser, parser};

    void ExpectParses(const std::string& text) {
        Feed(lexer, {text});
        EXPECT_TRUE(parser.Finished());
        EXPECT_TRUE(semantics.Balanced());
    }
};

constexpr size_t million = 1000000;

TEST_F(GuardParserDepth, AMillionNestedParenthesesParse) {
    ExpectParses(Repeated("(", million) + "1" + Repeated(")", million));
    EXPECT_THROW(Feed(lexer, {Repeated("(", million) + "1" + Repeated(")", million - 1)}), ParsingFailure);
    ExpectParses("1");
}

TEST_F(GuardParserDepth, AMillionPrefixesParse) {
    ExpectParses(Repeated("not ", million) + "1");
    ExpectParses(Repeated("-", million) + "1");
    ExpectParses(Repeated("there does not exist ", million / 10) + "1");
}

TEST_F(GuardParserDepth, LongChainsParse) {
    ExpectParses(Repeated("foo of ", million / 10) + "1");
    ExpectParses(Repeated("1, ", million / 10) + "1");
    ExpectParses(Repeated("1; ", million / 10) + "1");
    ExpectParses(Repeated("1 + ", million / 10) + "1");
    ExpectParses(Repeated("if 1 then 2 else ", million / 10) + "1");
    ExpectParses("foo" + Repeated(" whose (it)", million / 10));
    ExpectParses(Repeated("foo whose (", million / 10) + "1" + Repeated(")", million / 10));
    ExpectParses(Repeated("foo (", million / 10) + "1" + Repeated(")", million / 10));
}

}  // namespace
