// The constructs of the language in its own words: what each decides about binding, absence and failure.
#include <gtest/gtest.h>

#include "tests/evaluator/test_vocabulary.h"

namespace {

struct Row {
    const char* text;
    const char* answer;
};
void ExpectAnswers(std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
        EXPECT_EQ(Answer(row.text), row.answer) << row.text;
    }
}
void ExpectCompiled(std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
        EXPECT_EQ(Compiled(row.text), row.answer) << row.text;
    }
}

TEST(Binding, TypesAndPlurals) {
    ExpectCompiled({
        {"1", "integer"},
        {"\"a\"", "string"},
        {"1;2", "integers"},
        {"counts of 2", "integers"},
        {"count of 2", "integer"},
        {"count of (1;2)", "integer"},
        {"counts of 1", "integers"},
        {"exists (1;2)", "boolean"},
        {"number of (1;2)", "integer"},
        {"not true", "boolean"},
        {"1 + 2", "integer"},
        {"1 = 2", "boolean"},
        {"1 | 2", "integer"},
        {"1 | error \"\"", "integer"},
        {"if true then 1 else error \"\"", "integer"},
        {"if true then (1;2) else 3", "integers"},
        {"if true then special of 1 else token of 1", "token"},
        {"token of 1; special of 1", "tokens"},
        {"(1;2) as token", "tokens"},
        {"1 as token", "token"},
        {"1, \"a\"", "( integer, string )"},
        {"(1;2), \"a\"", "( integer, string )s"},
        {"item 1 of (1, \"a\")", "string"},
        {"items 1 of (1, \"a\")", "strings"},
        {"item 0 of ((1;2), \"a\")", "integer"},
        {"it of 1", "integer"},
        {"(it) of (1;2)", "integers"},
        {"(1;2) whose (true)", "integers"},
        {"1 whose (true)", "integer"},
        {"sum of (1;2)", "integer"},
    });
}

TEST(Binding, Failures) {
    ExpectCompiled({
        {"it", "[ItUsedWithoutWhose]"},
        {"it whose (true)", "[ItUsedWithoutWhose]"},
        {"(it; 1) whose (true)", "[ItUsedWithoutWhose]"},
        {"(1;2) + 1", "[SingularExpressionRequired]"},
        {"1 + (1;2)", "[SingularExpressionRequired]"},
        {"(1;2) + true", "[SingularExpressionRequired]"},
        {"1 + true", "[OperationNotDefined <integer> + <boolean>]"},
        {"- true", "[OperationNotDefined - <boolean>]"},
        {"- (1;2)", "[SingularExpressionRequired]"},
        {"not 1", "[BooleanExpressionRequired]"},
        {"not (1;2)", "[BooleanExpressionRequired]"},
        {"not (true;false)", "[SingularExpressionRequired]"},
        {"1 and true", "[BooleanExpressionRequired]"},
        {"true and 1", "[BooleanExpressionRequired]"},
        {"(1;2) and true", "[BooleanExpressionRequired]"},
        {"(true;true) or true", "[SingularExpressionRequired]"},
        {"true or (true;true)", "[SingularExpressionRequired]"},
        {"if 1 then 1 else 1", "[BooleanExpressionRequired]"},
        {"if (1;2) then 1 else 1", "[BooleanExpressionRequired]"},
        {"if (true;true) then 1 else 1", "[SingularExpressionRequired]"},
        {"if true then 1 else \"a\"", "[IncompatibleTypes]"},
        {"if true then 1 + true else nonsense", "[OperationNotDefined nonsense]"},
        {"1 whose (1)", "[BooleanExpressionRequired]"},
        {"1 whose (it)", "[BooleanExpressionRequired]"},
        {"(1;2) | 3", "[SingularExpressionRequired]"},
        {"3 | (1;2)", "[SingularExpressionRequired]"},
        {"1 | \"a\"", "[IncompatibleTypes]"},
        {"1 ; \"a\"", "[IncompatibleTypes]"},
        {"1 as nonsense", "[OperationNotDefined nonsense]"},
        {"nonsense", "[OperationNotDefined nonsense]"},
        {"nonsense of 1", "[OperationNotDefined nonsense]"},
        {"nonsense 1 of 2", "[OperationNotDefined nonsense]"},
        {"double of true", "[OperationNotDefined double]"},
        {"item (1 - 1) of (1, 2)", "[TupleIndexNotAnIntegerLiteral]"},
        {"item \"0\" of (1, 2)", "[TupleIndexNotAnIntegerLiteral]"},
        {"item 9223372036854775808 of (1, 2)", "[TupleIndexNotAnIntegerLiteral]"},
        {"item 2 of (1, 2)", "[TupleIndexOutOfRange]"},
        {"item 4294967295 of (1, 2)", "[TupleIndexOutOfRange]"},
        {"item 4294967296 of (1, 2)", "[TupleIndexOutOfRange]"},
        {"item 0 of 5", "[TupleIndexOutOfRange]"},
        {"item 0 of item 0 of (1, 2)", "[TupleIndexOutOfRange]"},
        {"(1, 2) = (1, 2, 3)", "[OperationNotDefined <( integer, integer )> = <( integer, integer, integer )>]"},
    });
}

TEST(Constants, HaveTheirValues) { ExpectAnswers({{"0", "0"}, {"\"\"", ""}, {"\"a b\"", "a b"}, {"zero", "0"}}); }

TEST(It, IsTheNearestEnclosingSource) {
    ExpectAnswers({
        {"(it + 1) of 2", "3"},
        {"(it + 1) of (1;2)", "2,3"},
        {"(it; it + 1) of (1;5)", "1,2,5,6"},
        {"(1;2;3) whose (it > 1)", "2,3"},
        {"(1;2;3) whose (exists (1;2) whose (it = 2))", "1,2,3"},
        {"((1;it) whose (it = 7)) of 7", "7"},
        {"(it + (it | 0) of 5) of 1", "6"},
        {"((it + 10) of (it + 1)) of 1", "12"},
        {"(1;2;3;4) whose (it = 2 or (it + 1) of it = 5)", "2,4"},
        {"((1;2) whose (it = 2)) whose (it = 2)", "2"},
        {"(1;2;3;4) whose (it > 1) whose (it < 4)", "2,3"},
        {"(it) of \"x\"", "x"},
        {"place (it + 1) of 3", "34"},
        {"places (it; it + 1) of (3;4)", "33,34,44,45"},
    });
}

TEST(Whose, DropsACandidateForEveryTroubleOfASingularCondition) {
    ExpectAnswers({
        {"(1;2) whose (it = 2)", "2"},
        {"(1;2) whose (if it = 1 then error \"x\" else true)", "2"},
        {"(1;2) whose (if it = 1 then nothing else true)", "2"},
        {"(1;2;3) whose (exists half of it)", "2"},
        {"(1;2;3;4) whose (half of it = 2)", "4"},
        {"(1;13;2) whose (failing of it > 0)", "1,2"},
        {"(1;2) whose (oddly broken = 1)", ""},
        {"(1;2) whose (no memory = 1)", ""},
        {"(1;2) whose (count of it = 1)", "1"},
    });
}

TEST(Whose, APluralConditionHoldsWhereAllItsValuesDoAndWhereThereAreNone) {
    ExpectAnswers({
        {"(1;2;3) whose (evens of counts of it)", ""},
        {"(0;1;2) whose (evens of counts of it)", "0"},
        {"(1;2) whose (true;true)", "1,2"},
        {"(1;2) whose (true;false)", ""},
        {"(1;2) whose (evens of counts of 0)", "1,2"},
        {"(1;2) whose ((true; error \"x\" | true))", "1,2"},
        {"(1;2) whose (true; error \"x\" of it = 1)", "bind[OperationNotDefined error]"},
    });
}

TEST(Whose, KeepsTheNumberOfWhatItFilters) {
    ExpectAnswers({{"(count of 3) whose (it = 2)", "2"},
                   {"(count of 3) whose (it >= 2)", "2[ArgumentNotUnique]"},
                   {"(count of 3) whose (it > 3)", "[ArgumentDoesNotExist]"},
                   {"(counts of 3) whose (it > 3)", ""}});
}

TEST(Exists, ForgivesNothingButAbsenceAtTheTop) {
    ExpectAnswers({
        {"exists nothing", "false"},
        {"exists not nothing", "bind[BooleanExpressionRequired]"},
        {"exists counts of 0", "false"},
        {"exists count of 0", "false"},
        {"exists count of 3", "true"},
        {"exists double of count of 0", "[ArgumentDoesNotExist]"},
        {"exists doubles of counts of 0", "false"},
        {"exists double of count of 2", "[ArgumentNotUnique]"},
        {"exists broken", "[TestFailure]"},
        {"exists error \"x\"", "[error x]"},
        {"not exists nothing", "true"},
        {"exists no nothing", "true"},
        {"exists (1; broken)", "true"},
    });
}

TEST(NumberOf, CountsAndForgivesNothing) {
    ExpectAnswers({
        {"number of nothing", "0"},
        {"number of (1;1;2)", "3"},
        {"number of count of 7", "7"},
        {"number of counts of 0", "0"},
        {"number of failings of (1;2;13;4)", "[TestFailure]"},
        {"number of double of count of 0", "[ArgumentDoesNotExist]"},
        {"number of double of count of 2", "[ArgumentNotUnique]"},
    });
}

TEST(If, FailsForABrokenBranchOnlyWhereItIsTaken) {
    ExpectAnswers({
        {"if true then 1 else 2", "1"},
        {"if false then 1 else 2", "2"},
        {"if true then (1;2) else 3", "1,2"},
        {"if false then error \"x\" else 1", "1"},
        {"if true then error \"x\" else 1", "[error x]"},
        {"if false then nonsense else 1", "1"},
        {"if true then nonsense else 1", "[OperationNotDefined nonsense]"},
        {"if false then 1 else nonsense", "[OperationNotDefined nonsense]"},
        {"if true then 1 else nonsense", "1"},
        {"if true then 1 + (1;2) else 1", "[SingularExpressionRequired]"},
        {"if true then not 1 else false", "[BooleanExpressionRequired]"},
        {"if true then it else 1", "[ItUsedWithoutWhose]"},
        {"if true then 1 ; \"a\" else 1", "[IncompatibleTypes]"},
        {"if true then item 5 of (1, 2) else 1", "[TupleIndexOutOfRange]"},
        {"if false then (if true then nonsense else 3) else 1", "1"},
        {"if true then (if false then nonsense else 3) else 1", "3"},
        {"if count of 2 = 1 then 1 else 2", "[ArgumentNotUnique]"},
        {"if nothing = 1 then 1 else 2", "bind[OperationNotDefined <undefined> = <integer>]"},
        {"if half of 1 = 1 then 1 else 2", "[ArgumentDoesNotExist]"},
        {"if true then half of 1 else 2", "[ArgumentDoesNotExist]"},
        {"if true then halves of 1 else 2", ""},
        {"if true then count of 2 else 2", "1[ArgumentNotUnique]"},
        {"(if it = 1 then error \"x\" else it; 9) of (2;1)", "2,9[error x]"},
    });
}

TEST(If, AKeptFailureIsThrownEachTime) {
    GuardEvaluator evaluator(nullptr);
    evaluator.Feed("if true then nonsense else 1");
    evaluator.EndOfText();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Answer(evaluator), "[OperationNotDefined nonsense]");
    }
}

TEST(Logic, TheLeftSideDecidesFirst) {
    ExpectAnswers({
        {"true and true", "true"},
        {"true and false", "false"},
        {"false or false", "false"},
        {"false or true", "true"},
        {"true or broken = 1", "true"},
        {"false and broken = 1", "false"},
        {"broken = 1 or true", "[TestFailure]"},
        {"true and broken = 1", "[TestFailure]"},
        {"half of 1 = 1 and false", "[ArgumentDoesNotExist]"},
        {"count of 2 = 1 and true", "[ArgumentNotUnique]"},
        {"not true", "false"},
        {"not (half of 1 = 1)", "[ArgumentDoesNotExist]"},
        {"not (count of 2 = 1)", "false[ArgumentNotUnique]"},
    });
}

TEST(Bar, CatchesWhatTheLeftSidesFirstStepReports) {
    ExpectAnswers({
        {"error \"x\" | 1", "1"},
        {"1 | error \"x\"", "1"},
        {"nothing | 1", "1"},
        {"half of 1 | 1", "1"},
        {"broken | 1", "1"},
        {"oddly broken | 1", "1"},
        {"no memory | 1", "1"},
        {"double of half of 1 | 7", "7"},
        {"count of 2 | 9", "1[ArgumentNotUnique]"},
        {"exists double of count of 2 | true", "true"},
        {"half of 1 | half of 3", "[ArgumentDoesNotExist]"},
        {"broken | error \"x\"", "[error x]"},
        {"half of 1 | broken | 3", "3"},
        {"(1 | 2) + (nothing | 2)", "3"},
        {"(it + 1 | 5) of (1;2)", "2,3"},
    });
}

TEST(Collection, GivesAllOfTheLeftAndThenAllOfTheRight) {
    ExpectAnswers({
        {"1;1;2", "1,1,2"},
        {"counts of 0; 1; counts of 2", "1,1,2"},
        {"half of 1; 2", "[ArgumentDoesNotExist]"},
        {"2; half of 1", "2[ArgumentDoesNotExist]"},
        {"halves of 1; 2", "2"},
        {"count of 2; 2", "1[ArgumentNotUnique]"},
        {"(1;(2;3));((4;5);6)", "1,2,3,4,5,6"},
        {"(counts of 0; counts of 0)", ""},
        {"exists (counts of 0; counts of 0)", "false"},
        {"(1; broken; 2) | 1", "bind[SingularExpressionRequired]"},
        {"1; broken; 2", "1[TestFailure]"},
    });
}

TEST(Tuples, AreCrossProductsTakenApartByItem) {
    ExpectAnswers({
        {"1, \"a\"", "(1 a)"},
        {"(1;2), (3;4)", "(1 3),(1 4),(2 3),(2 4)"},
        {"1, 2, 3", "(1 2 3)"},
        {"(1, 2), 3", "((1 2) 3)"},
        {"(1;2), counts of 0", ""},
        {"item 0 of (1, \"a\")", "1"},
        {"item 1 of (1, \"a\")", "a"},
        {"item (0) of (1, 2)", "1"},
        {"items 0 of ((1;2), 3)", "1,2"},
        {"item 0 of ((1;2), 3)", "1[ArgumentNotUnique]"},
        {"item 2 of (1, 2, 3)", "3"},
        {"item 0 of item 1 of (1, (2, 3))", "2"},
        {"(item 1 of it, item 0 of it) of (1, \"a\")", "(a 1)"},
        {"(1, half of 1)", "[ArgumentDoesNotExist]"},
        {"(half of 1, 1)", "[ArgumentDoesNotExist]"},
        {"(1, 2) = (1, 2)", "true"},
        {"(1, 2) < (1, 3)", "true"},
        {"(1, 2) <= (1, 1)", "false"},
        {"counts of 2, doubles of counts of 2", "(1 2),(1 4),(2 2),(2 4)"},
        {"((1;2), (3;4)) whose (item 0 of it = 2)", "(2 3),(2 4)"},
    });
}

TEST(Casts, SkipWhatDoesNotConvert) {
    ExpectAnswers({
        {"1 as string", "1"},
        {"(1; -1; 2) as string", "1,2"},
        {"(-1) as string", "[ArgumentDoesNotExist]"},
        {"half of 1 as string", "[ArgumentDoesNotExist]"},
        {"count of 2 as string", "1[ArgumentNotUnique]"},
        {"half of 1 as string | \"x\"", "x"},
        {"exists (-1) as string", "false"},
        {"special of 3 as integer", "3"},
        {"13 as failing", "[TestFailure]"},
        {"1 as token as integer as string", "1"},
    });
}

TEST(Operators, LearnOfASecondValueAfterTheFirstAnswer) {
    ExpectAnswers({
        {"count of 2 + 1", "2[ArgumentNotUnique]"},
        {"1 + count of 2", "2[ArgumentNotUnique]"},
        {"1 / 0", "[ArgumentDoesNotExist]"},
        {"exists (1 / 0)", "false"},
        {"(1 / 0) | 5", "5"},
        {"- count of 2", "-1[ArgumentNotUnique]"},
        {"1 > 2", "false"},
        {"1 >= 1", "true"},
        {"1 is not 2", "true"},
        {"1 is not greater than 2", "true"},
        {"5 - 3", "2"},
    });
}

}  // namespace
