#include "foundation/segmented_stack.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

TEST(SegmentedStack, GivesBackInReverseOrder) {
    SegmentedStack<int, 2> stack;
    EXPECT_TRUE(stack.Empty());
    for (int i = 0; i < 1000; ++i) {
        stack.Push(i);
    }
    EXPECT_EQ(stack.Size(), 1000u);
    for (int i = 999; i >= 0; --i) {
        EXPECT_EQ(stack.Top(), i);
        stack.Pop();
    }
    EXPECT_TRUE(stack.Empty());
}

TEST(SegmentedStack, TheSecondElementIsFoundAcrossEveryEdge) {
    SegmentedStack<int, 1> stack;
    stack.Push(0);
    for (int i = 1; i < 200; ++i) {
        stack.Push(i);
        EXPECT_EQ(stack.Second(), i - 1);
    }
    for (int i = 199; i >= 1; --i) {
        EXPECT_EQ(stack.Second(), i - 1);
        stack.Pop();
    }
}

TEST(SegmentedStack, ElementsStayWhereTheyAreUntilPopped) {
    SegmentedStack<int, 3> stack;
    std::vector<int*> places;
    for (int i = 0; i < 100; ++i) {
        stack.Push(i);
        places.push_back(&stack.Top());
    }
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(*places[static_cast<size_t>(i)], i);
    }
}

TEST(SegmentedStack, SwingingAcrossAnEdgeKeepsTheBlock) {
    SegmentedStack<int, 2> stack;
    stack.Push(1);
    stack.Push(2);
    stack.Push(3);
    const int* const place = &stack.Top();
    for (int i = 0; i < 10; ++i) {
        stack.Pop();
        stack.Push(i);
        EXPECT_EQ(&stack.Top(), place);
        EXPECT_EQ(stack.Top(), i);
    }
}

TEST(SegmentedStack, PoppingManyAndClearingLeaveTheRest) {
    SegmentedStack<int, 2> stack;
    for (int i = 0; i < 50; ++i) {
        stack.Push(i);
    }
    stack.Pop(45);
    EXPECT_EQ(stack.Size(), 5u);
    EXPECT_EQ(stack.Top(), 4);
    stack.Clear();
    EXPECT_TRUE(stack.Empty());
    stack.Push(7);
    EXPECT_EQ(stack.Top(), 7);
}

struct alignas(16) Wide {
    int value;
};

TEST(SegmentedStack, WideElementsKeepTheirAlignment) {
    SegmentedStack<Wide, 2> stack;
    for (int i = 0; i < 20; ++i) {
        stack.Push({i});
        EXPECT_EQ(reinterpret_cast<uintptr_t>(&stack.Top()) % alignof(Wide), 0u);
    }
}

}  // namespace
