// Evaluation memory: rounding, blocks, marks, the one spare block, and the thread's current allocator.
#include "foundation/stack_allocator.h"

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <stdexcept>
#include <thread>

#include "tests/foundation/failing_allocation.h"

namespace {

template <size_t Size>
bool Inside(const StackAllocator<Size>& allocator, const void* address) {
    const auto* begin = reinterpret_cast<const char*>(&allocator);
    return address >= begin && address < begin + sizeof allocator;
}

template <class Allocator>
bool CanGrowWithoutTheHeap(Allocator& allocator, size_t size) {
    const FailingAllocation failing(1);
    try {
        allocator.Allocate(size);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

TEST(StackAllocator, SizesAreRoundedUpToFour) {
    StackAllocator<256> allocator;
    const struct {
        size_t size;
        ptrdiff_t taken;
    } rows[] = {{0, 4}, {1, 4}, {3, 4}, {4, 4}, {5, 8}, {7, 8}, {8, 8}, {9, 12}};
    for (const auto& row : rows) {
        char* const before = allocator.Top();
        EXPECT_EQ(allocator.Allocate(row.size), before);
        EXPECT_EQ(allocator.Top() - before, row.taken) << row.size;
    }
}

TEST(StackAllocator, NoBytesGetAnAddressOfTheirOwn) {
    StackAllocator<64> allocator;
    void* const first = allocator.Allocate(0);
    EXPECT_NE(allocator.Allocate(0), first);
}

TEST(StackAllocator, AddressesAreAlignedToFourAndWiderWhereAsked) {
    StackAllocator<64> allocator;
    for (size_t i = 0; i < 200; ++i) {
        EXPECT_EQ(reinterpret_cast<uintptr_t>(allocator.Allocate(i % 7)) % 4, 0u);
        const size_t alignment = size_t{1} << (i % 5);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(allocator.Allocate(i % 11, alignment)) % alignment, 0u);
    }
}

TEST(StackAllocator, ExactlyTheFirstBlockStaysInsideTheOwner) {
    StackAllocator<64> allocator;
    EXPECT_TRUE(Inside(allocator, allocator.Allocate(60)));
    EXPECT_TRUE(Inside(allocator, allocator.Allocate(4)));
    EXPECT_FALSE(Inside(allocator, allocator.Allocate(0)));
}

TEST(StackAllocator, WhatRemainsOfAnOldBlockIsLeftUnused) {
    StackAllocator<64> allocator;
    allocator.Allocate(60);
    EXPECT_FALSE(Inside(allocator, allocator.Allocate(8)));
    EXPECT_FALSE(Inside(allocator, allocator.Allocate(4)));
}

TEST(StackAllocator, ABlockHasTwiceTheSpaceOfTheOneBefore) {
    StackAllocator<64> allocator;
    allocator.Allocate(64);
    allocator.Allocate(4);
    EXPECT_TRUE(CanGrowWithoutTheHeap(allocator, 124));
    EXPECT_FALSE(CanGrowWithoutTheHeap(allocator, 4));
    allocator.Allocate(256);
    EXPECT_FALSE(CanGrowWithoutTheHeap(allocator, 4));
}

TEST(StackAllocator, AnAllocationLargerThanTwiceTheBlockGetsABlockOfJustThatSize) {
    StackAllocator<64> allocator;
    allocator.Allocate(1000);
    EXPECT_FALSE(CanGrowWithoutTheHeap(allocator, 1));
}

TEST(StackAllocator, ReleasingToAMarkGivesTheSameMemoryAgain) {
    StackAllocator<64> allocator;
    allocator.Allocate(8);
    char* const mark = allocator.Top();
    void* const first = allocator.Allocate(16);
    allocator.ReleaseTo(mark);
    EXPECT_EQ(allocator.Top(), mark);
    EXPECT_EQ(allocator.Allocate(16), first);
}

TEST(StackAllocator, AMarkAtTheEndOfABlockIsInsideIt) {
    StackAllocator<64> allocator;
    allocator.Allocate(64);
    char* const mark = allocator.Top();
    allocator.Allocate(4);
    allocator.ReleaseTo(mark);
    EXPECT_EQ(allocator.Top(), mark);
}

TEST(StackAllocator, AMarkInAnEarlierBlockFreesTheLaterOnesAndKeepsOne) {
    StackAllocator<64> allocator;
    allocator.Allocate(8);
    char* const mark = allocator.Top();
    allocator.Allocate(64);   // A block of 128.
    allocator.Allocate(200);  // A block of 256.
    allocator.Allocate(500);  // A block of 512.
    allocator.ReleaseTo(mark);
    EXPECT_EQ(allocator.Top(), mark);
    // The block popped last, which is the one of 128, is kept.
    EXPECT_TRUE(CanGrowWithoutTheHeap(allocator, 128));
    EXPECT_FALSE(CanGrowWithoutTheHeap(allocator, 4));
}

TEST(StackAllocator, ASpareThatIsTooSmallGivesWay) {
    StackAllocator<64> allocator;
    char* const mark = (allocator.Allocate(8), allocator.Top());
    allocator.Allocate(64);
    allocator.ReleaseTo(mark);
    allocator.Allocate(300);  // More than the spare's 128.
    EXPECT_FALSE(CanGrowWithoutTheHeap(allocator, 4));
    allocator.ReleaseTo(mark);
    EXPECT_TRUE(CanGrowWithoutTheHeap(allocator, 300));
}

TEST(StackAllocator, WorkAtABlocksEdgeDoesNotGoToTheHeapAgain) {
    StackAllocator<64> allocator;
    allocator.Allocate(64);
    char* const mark = allocator.Top();
    allocator.Allocate(4);
    for (int i = 0; i < 10; ++i) {
        allocator.ReleaseTo(mark);
        EXPECT_TRUE(CanGrowWithoutTheHeap(allocator, 100));
    }
}

// The mark at the very start of a heap block pops that block too.
TEST(StackAllocator, TheVeryStartOfAHeapBlockPopsIt) {
    StackAllocator<64> allocator;
    allocator.Allocate(8);
    auto* const start = static_cast<char*>(allocator.Allocate(100));
    allocator.Allocate(4);
    allocator.ReleaseTo(start);
    EXPECT_TRUE(Inside(allocator, allocator.Top() - 1));
    // The earlier block's remainder stays unused: its top is its end.
    EXPECT_EQ(allocator.Allocate(100), start);
}

TEST(StackAllocator, TheVeryStartOfTheFirstBlockFreesTheSpare) {
    StackAllocator<64> allocator;
    char* const start = allocator.Top();
    allocator.Allocate(64);
    allocator.Allocate(64);
    allocator.ReleaseTo(start);
    EXPECT_EQ(allocator.Top(), start);
    EXPECT_TRUE(CanGrowWithoutTheHeap(allocator, 64));
    EXPECT_FALSE(CanGrowWithoutTheHeap(allocator, 64));
}

TEST(StackAllocator, FreeLastUndoesTheLastAllocation) {
    StackAllocator<64> allocator;
    allocator.Allocate(8);
    char* const top = allocator.Top();
    allocator.FreeLast(allocator.Allocate(20));
    EXPECT_EQ(allocator.Top(), top);
}

TEST(StackAllocator, FreeLastOfAFreshBlockPopsIt) {
    StackAllocator<64> allocator;
    allocator.Allocate(8);
    allocator.FreeLast(allocator.Allocate(100));
    EXPECT_TRUE(Inside(allocator, allocator.Top() - 1));
    EXPECT_TRUE(CanGrowWithoutTheHeap(allocator, 100));
}

TEST(StackAllocator, ReleaseAllEmptiesItDownToTheFirstBlock) {
    StackAllocator<64> allocator;
    char* const start = allocator.Top();
    for (int i = 0; i < 100; ++i) {
        allocator.Allocate(50);
    }
    allocator.ReleaseAll();
    EXPECT_EQ(allocator.Top(), start);
    EXPECT_TRUE(CanGrowWithoutTheHeap(allocator, 64));
    EXPECT_FALSE(CanGrowWithoutTheHeap(allocator, 4));
    allocator.ReleaseAll();
    allocator.ReleaseAll();
    EXPECT_EQ(allocator.Top(), start);
}

TEST(StackAllocator, ARefusalOfTheHeapLeavesItAsItWas) {
    StackAllocator<64> allocator;
    allocator.Allocate(40);
    char* const top = allocator.Top();
    {
        const FailingAllocation failing(1);
        EXPECT_THROW(allocator.Allocate(100), std::bad_alloc);
    }
    EXPECT_EQ(allocator.Top(), top);
    EXPECT_EQ(allocator.Allocate(24), top);
    {
        const FailingAllocation failing(1);
        EXPECT_THROW(allocator.Allocate(8, 8), std::bad_alloc);
    }
    EXPECT_NO_THROW(allocator.Allocate(100));
}

TEST(StackAllocator, SizesThatNoMachineHasAreRefused) {
    StackAllocator<64> allocator;
    allocator.Allocate(4);
    char* const top = allocator.Top();
    for (size_t less = 0; less < 80; ++less) {
        const size_t size = std::numeric_limits<size_t>::max() - less;
        EXPECT_THROW(allocator.Allocate(size), std::bad_alloc) << less;
        EXPECT_THROW(allocator.Allocate(size, 16), std::bad_alloc) << less;
    }
    EXPECT_EQ(allocator.Top(), top);
}

TEST(InspectorAllocate, WithoutAnAllocatorThereIsNone) {
    ASSERT_EQ(currentAllocator.Get(), nullptr);
    EXPECT_THROW(InspectorAllocate(4), NoInspectorAllocator);
}

TEST(InspectorAllocate, TakesFromTheThreadsAllocator) {
    StackAllocator<64> allocator;
    const AllocatorInstaller installed(allocator);
    char* const top = allocator.Top();
    EXPECT_EQ(InspectorAllocate(5), top);
    EXPECT_EQ(allocator.Top(), top + 8);
    std::thread([] { EXPECT_THROW(InspectorAllocate(4), NoInspectorAllocator); }).join();
}

TEST(AllocatorInstaller, ScopesNestAndPutTheEarlierOneBack) {
    StackAllocator<64> outer;
    StackAllocator<64> inner;
    {
        const AllocatorInstaller first(outer);
        EXPECT_EQ(currentAllocator.Get(), &outer);
        {
            const AllocatorInstaller second(inner);
            EXPECT_EQ(currentAllocator.Get(), &inner);
            const AllocatorInstaller same(inner);
            EXPECT_EQ(currentAllocator.Get(), &inner);
        }
        EXPECT_EQ(currentAllocator.Get(), &outer);
    }
    EXPECT_EQ(currentAllocator.Get(), nullptr);
}

TEST(AllocatorInstaller, AnExceptionPutsTheEarlierOneBack) {
    StackAllocator<64> allocator;
    EXPECT_THROW(
        {
            const AllocatorInstaller installed(allocator);
            throw std::runtime_error("passing");
        },
        std::runtime_error);
    EXPECT_EQ(currentAllocator.Get(), nullptr);
}

}  // namespace

namespace {

TEST(GrowingText, TheTextMadeLastGrowsWhereItStands) {
    StackAllocator<256> allocator;
    char* const text = allocator.AllocateText(5);
    char* const behind = allocator.Top();
    EXPECT_EQ(behind, text + 8);
    ASSERT_TRUE(allocator.GrowText(text + 5, 3)) << "into the rounding";
    EXPECT_EQ(allocator.Top(), behind);
    ASSERT_TRUE(allocator.GrowText(text + 8, 1)) << "beyond it";
    EXPECT_EQ(allocator.Top(), text + 12);
    ASSERT_TRUE(allocator.GrowText(text + 9, 0));
    EXPECT_EQ(allocator.Allocate(4), text + 12) << "what comes next lies behind the whole text";
}

TEST(GrowingText, NoOtherTextGrows) {
    StackAllocator<256> allocator;
    char* const text = allocator.AllocateText(6);
    EXPECT_FALSE(allocator.GrowText(text + 5, 1)) << "a beginning of it, whose next byte is the text's own";
    EXPECT_FALSE(allocator.GrowText(nullptr, 0));
    ASSERT_TRUE(allocator.GrowText(text + 6, 1));
    EXPECT_FALSE(allocator.GrowText(text + 6, 1)) << "it was lengthened already, by another";
    allocator.Allocate(1);
    EXPECT_FALSE(allocator.GrowText(text + 7, 1)) << "something lies behind it";
}

TEST(GrowingText, IsForgottenByEveryRollback) {
    StackAllocator<256> allocator;
    char* const mark = allocator.Top();
    char* text = allocator.AllocateText(6);
    allocator.ReleaseTo(allocator.Top());
    EXPECT_FALSE(allocator.GrowText(text + 6, 1));
    allocator.ReleaseTo(mark);
    text = allocator.AllocateText(6);
    allocator.FreeLast(text);
    allocator.Allocate(8);
    EXPECT_FALSE(allocator.GrowText(text + 6, 1));
    text = allocator.AllocateText(6);
    allocator.ReleaseAll();
    EXPECT_FALSE(allocator.GrowText(text + 6, 1));
}

TEST(GrowingText, StaysInsideItsBlock) {
    StackAllocator<64> allocator;
    char* const text = allocator.AllocateText(60);
    EXPECT_FALSE(allocator.GrowText(text + 60, 5));
    ASSERT_TRUE(allocator.GrowText(text + 60, 4));
    EXPECT_EQ(allocator.Top(), text + 64);
    EXPECT_FALSE(allocator.GrowText(text + 64, 1));
    EXPECT_TRUE(allocator.GrowText(text + 64, 0));
}

}  // namespace
