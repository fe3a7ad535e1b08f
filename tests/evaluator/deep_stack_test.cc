// Trees too deep for the thread's own stack.
#include "evaluator/deep_stack.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <limits>
#include <new>
#include <stdexcept>
#include <string>

#include "tests/evaluator/test_vocabulary.h"

namespace {

std::string Times(std::string_view text, size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    for (size_t i = 0; i < count; ++i) {
        all.append(text);
    }
    return all;
}

constexpr size_t kDeep = 100000;

TEST(DeepTrees, OfEveryShapeAnswer) {
    const struct {
        std::string text;
        const char* answer;
    } rows[] = {
        {Times("not ", kDeep) + "true", "true"},
        {Times("not (", kDeep) + "true" + Times(")", kDeep), "true"},
        {"1" + Times(" as integer as token", 0) + Times(" + 1", kDeep), "100001"},
        {Times("1 + (", kDeep) + "1" + Times(")", kDeep), "100001"},
        {"1 as token" + Times(" as integer as token", kDeep / 2), "t1"},
        {Times("positive of ", kDeep) + "1", "1"},
        {Times("- ", 0) + Times("-(", kDeep) + "1" + Times(")", kDeep), "1"},
        {"1" + Times(";1", kDeep), nullptr},
        {"half of 1" + Times(" | half of 1", kDeep) + " | 5", "5"},
        {Times("exists ", kDeep) + "1", "true"},
        {Times("if true then ", 0) + Times("if true then (", kDeep) + "1" + Times(") else 2", kDeep), "1"},
        {"true" + Times(" and true", kDeep), "true"},
        {"(1" + Times(") whose (true", 0) + ")" + Times(" whose (true)", kDeep), "1"},
        {Times("(it) of (", kDeep) + "1" + Times(")", kDeep), "1"},
        {Times("sum of ", kDeep) + "(1;2)", "3"},
    };
    for (const auto& row : rows) {
        GuardEvaluator evaluator(nullptr);
        evaluator.Feed(row.text);
        evaluator.EndOfText();
        if (row.answer == nullptr) {
            EXPECT_EQ(Answer(evaluator).size(), 2 * kDeep + 1);
        } else {
            EXPECT_EQ(Answer(evaluator), row.answer) << row.text.substr(0, 40);
        }
    }
}

TEST(DeepTrees, AFailureComesOutOfTheDepth) {
    EXPECT_EQ(Answer(Times("positive of ", kDeep) + "broken"), "[TestFailure]");
    EXPECT_EQ(Answer(Times("positive of ", kDeep) + "count of 0"), "[ArgumentDoesNotExist]");
    EXPECT_EQ(Answer(Times("positive of ", kDeep) + "nonsense"), "bind[OperationNotDefined nonsense]");
}

TEST(DeepStack, WorkRunsWhereverItHasRoom) {
    DeepStack stack;
    for (const size_t depth : {size_t{0}, DeepStack::kOrdinaryDepth, DeepStack::kOrdinaryDepth + 1, size_t{1000000}}) {
        bool ran = false;
        stack.Run(depth, [&] { ran = true; });
        EXPECT_TRUE(ran) << depth;
        EXPECT_THROW(stack.Run(depth, [] { throw TestFailure(); }), TestFailure) << depth;
    }
    stack.Release();
    bool ran = false;
    stack.Run(1000, [&] { ran = true; });
    EXPECT_TRUE(ran);
}

TEST(DeepStack, AnAbsurdDepthIsRefusedAsMemoryIs) {
    DeepStack stack;
    for (const size_t depth : {std::numeric_limits<size_t>::max(), std::numeric_limits<size_t>::max() / 1024,
                               size_t{1} << 50, size_t{1} << 40}) {
        EXPECT_THROW(stack.Run(depth, [] { FAIL(); }), std::bad_alloc) << depth;
    }
    bool ran = false;
    stack.Run(1000, [&] { ran = true; });
    EXPECT_TRUE(ran);
}

#ifndef __SANITIZE_ADDRESS__
// The address space is held to what stands, so that no further stack is to be had.
TEST(DeepTrees, WhereTheSystemRefusesTheStackTheAnswerIsThatThereIsNoMemory) {
    const std::string text = Times("not ", kDeep) + "true";
    GuardEvaluator evaluator(nullptr);
    evaluator.Feed(text);
    rlimit old{};
    getrlimit(RLIMIT_AS, &old);
    const rlimit tight{size_t{64} << 20, old.rlim_max};
    setrlimit(RLIMIT_AS, &tight);
    EXPECT_THROW(evaluator.EndOfText(), std::bad_alloc);
    setrlimit(RLIMIT_AS, &old);
    evaluator.Reset();
    evaluator.Feed(text);
    evaluator.EndOfText();
    EXPECT_EQ(Answer(evaluator), "true");
}
#endif

}  // namespace
