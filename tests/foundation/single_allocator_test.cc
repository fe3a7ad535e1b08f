// The two small fixed buffers.
#include "foundation/single_allocator.h"

#include <gtest/gtest.h>

namespace {

TEST(SingleAllocator, HandsOutItsBufferOnceAtATime) {
    char buffer[16];
    SingleAllocator allocator(buffer, sizeof buffer);
    EXPECT_FALSE(allocator.Used());
    EXPECT_EQ(allocator.Allocate(16), buffer);
    EXPECT_TRUE(allocator.Used());
    EXPECT_THROW(allocator.Allocate(1), SingleAllocatorFull);
    allocator.Free();
    EXPECT_FALSE(allocator.Used());
    EXPECT_EQ(allocator.Allocate(0), buffer);
}

TEST(SingleAllocator, MoreThanTheBufferIsRefusedAndTakesNothing) {
    char buffer[16];
    SingleAllocator allocator(buffer, sizeof buffer);
    EXPECT_THROW(allocator.Allocate(17), SingleAllocatorFull);
    EXPECT_FALSE(allocator.Used());
    EXPECT_EQ(allocator.Allocate(1), buffer);
}

TEST(FixedStack, GivesBackInReverseOrderAndTellsWhenItIsFull) {
    FixedStack<int, 3> stack;
    EXPECT_TRUE(stack.Empty());
    for (int i = 0; i < 3; ++i) {
        stack.Push(i);
        EXPECT_EQ(stack.Size(), static_cast<size_t>(i) + 1);
    }
    EXPECT_THROW(stack.Push(3), StackFull);
    for (int i = 2; i >= 0; --i) {
        EXPECT_EQ(stack.Top(), i);
        stack.Pop();
    }
    EXPECT_TRUE(stack.Empty());
    stack.Push(7);
    EXPECT_EQ(stack.Top(), 7);
}

}  // namespace
