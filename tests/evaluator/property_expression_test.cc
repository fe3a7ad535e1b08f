// Properties: the six stages, the shapes of the adapters, the life of states, and memory that stays flat.
#include <gtest/gtest.h>

#include <string>

#include "tests/evaluator/test_vocabulary.h"

namespace {

TEST(PropertyStages, RunInTheirOrderOverEachDriverValue) {
    EXPECT_EQ(Answer("sixes of (1;2)"), "101,102,11,12,21,22,3001,3002");
    EXPECT_EQ(Answer("sixes of counts of 0"), "101,102,1,2");
    EXPECT_EQ(Answer("sixes of count of 0"), "101,102[ArgumentDoesNotExist]");
}

TEST(PropertyStages, AnAggregateOfNothingHasItsEmptyResult) {
    EXPECT_EQ(Answer("sum of (1;2;3)"), "6");
    EXPECT_EQ(Answer("sum of counts of 0"), "0");
    EXPECT_EQ(Answer("sum of count of 0"), "[ArgumentDoesNotExist]");
    EXPECT_EQ(Answer("sum of nothing"), "0");
    EXPECT_EQ(Answer("countdowns of nothing"), "");
    EXPECT_EQ(Answer("countdowns of (1;2)"), "3,2,1");
    EXPECT_EQ(Answer("double of nothing"), "bind[OperationNotDefined double]");
    EXPECT_EQ(Answer("sum of error \"x\""), "[error x]");
    EXPECT_EQ(Answer("sums of (1; broken)"), "[TestFailure]");
    EXPECT_EQ(Answer("(sum of (it; 1)) of (1;2)"), "2,3");
}

TEST(PropertyStages, APropertyWithoutAValueForOneDriverValueGoesOn) {
    EXPECT_EQ(Answer("halves of (1;2;3;4)"), "1,2");
    EXPECT_EQ(Answer("half of (1;2)"), "1");
    EXPECT_EQ(Answer("positives of (-1;0;2)"), "2");
    EXPECT_EQ(Answer("double of (1;2)"), "2[ArgumentNotUnique]");
    EXPECT_EQ(Answer("counts of (0;2;0;1)"), "1,2,1");
}

TEST(PropertyStages, AnIteratorThatHasNothingAtOnceIsEmpty) {
    Script::Set({});
    EXPECT_EQ(Answer("steps"), "");
    EXPECT_EQ(Answer("step"), "[ArgumentDoesNotExist]");
}

TEST(PropertyStages, AnotherFailureThanAbsencePasses) {
    EXPECT_EQ(Answer("failings of (1;13;2)"), "1[TestFailure]");
    Script::Set({1, 2}, [] { throw TestFailure(); });
    EXPECT_EQ(Answer("scripted tokens"), "t1,t2[TestFailure]");
    EXPECT_EQ(Answer("oddly broken"), "[unknown]");
    EXPECT_EQ(Answer("no memory"), "[std::bad_alloc]");
}

TEST(PropertyShapes, TakeTheArgumentsThatTheyAreMadeFor) {
    EXPECT_EQ(Answer("named \"abc\" of 10"), "13");
    EXPECT_EQ(Answer("numbered 4"), "4");
    EXPECT_EQ(Answer("numbered 4 of 3"), "304");
    EXPECT_EQ(Answer("place 4 of 3"), "34");
    EXPECT_EQ(Answer("values of tokens of (1;2)"), "1,2");
    EXPECT_EQ(Answer("value of special of 3"), "3");
}

TEST(PropertyShapes, ANegativeNumberReachesNoFunction) {
    EXPECT_EQ(Answer("numbered (-1)"), "[ArgumentDoesNotExist]");
    EXPECT_EQ(Answer("numbereds (-1;2)"), "2");
    EXPECT_EQ(Answer("numbered (-1) of 3"), "[ArgumentDoesNotExist]");
    EXPECT_EQ(Answer("place (-1) of 3"), "29");
}

TEST(PropertyShapes, AnIndexIsTakenForEachObject) {
    EXPECT_EQ(Answer("places (1;2) of (3;4)"), "31,32,41,42");
    EXPECT_EQ(Answer("places (counts of it) of (1;2)"), "11,21,22");
}

TEST(PropertyState, IsMadeOnceAtBindingAndGoesWithTheTree) {
    Script::Set({1, 2});
    GuardEvaluator evaluator(nullptr);
    evaluator.Feed("scripted tokens; scripted tokens; tokens of sum of steps");
    EXPECT_EQ(Script::statesAlive, 0);
    evaluator.EndOfText();
    EXPECT_EQ(Script::statesAlive, 4);
    EXPECT_EQ(Answer(evaluator), "t1,t2,t1,t2,t3");
    EXPECT_EQ(Answer(evaluator), "t1,t2,t1,t2,t3");
    EXPECT_EQ(Script::statesAlive, 4);
    evaluator.Reset();
    EXPECT_EQ(Script::statesAlive, 0);
    EXPECT_EQ(token::alive, 0);
}

TEST(PropertyState, OfATreeThatDidNotBindGoesToo) {
    EXPECT_EQ(Compiled("(scripted tokens; steps) + 1"), "[IncompatibleTypes]");
    EXPECT_EQ(Script::statesAlive, 0);
    EXPECT_EQ(Answer("if false then nonsense of sum of steps else 1"), "1");
    EXPECT_EQ(Script::statesAlive, 0);
}

// The memory that an evaluation has taken when it gives its value number n.
size_t MemoryAt(GuardEvaluator& evaluator, int n, char** place) {
    const inspector_string* text = nullptr;
    for (int i = 0; i < n; ++i) {
        text = static_cast<const inspector_string*>(i == 0 ? evaluator.First() : evaluator.Next());
    }
    *place = const_cast<char*>(text->start);
    return text->length;
}

TEST(EvaluationMemory, AMillionValuesStandInThePlaceOfTheFirst) {
    GuardEvaluator evaluator(nullptr);
    evaluator.Feed("texts of 1000000");
    evaluator.EndOfText();
    char* first;
    char* last;
    EXPECT_EQ(MemoryAt(evaluator, 1, &first), 64u);
    EXPECT_EQ(MemoryAt(evaluator, 1000000, &last), 64u);
    EXPECT_EQ(first, last);
    EXPECT_EQ(evaluator.Next(), nullptr);
}

TEST(EvaluationMemory, CastsOverAWalkAreReleasedWithIt) {
    GuardEvaluator evaluator(nullptr);
    evaluator.Feed("counts of 100000 as string");
    evaluator.EndOfText();
    char* first;
    char* last;
    MemoryAt(evaluator, 1, &first);
    MemoryAt(evaluator, 100000, &last);
    EXPECT_EQ(first, last);
}

TEST(EvaluationMemory, AFilterTakesNoMoreThanOneCandidate) {
    GuardEvaluator evaluator(nullptr);
    evaluator.Feed("(counts of 100000) whose ((exists (texts of 3) whose (false)) or it = 100000) as string");
    evaluator.EndOfText();
    char* first;
    MemoryAt(evaluator, 1, &first);
    EXPECT_EQ(std::string_view(first, 6), "100000");
    // What the conditions made has gone: the answer still lies in the block inside the evaluator.
    EXPECT_GE(first, reinterpret_cast<char*>(&evaluator));
    EXPECT_LT(first, reinterpret_cast<char*>(&evaluator + 1));
}

}  // namespace
