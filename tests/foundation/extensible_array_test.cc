// The array that grows without moving what it holds.
#include "foundation/extensible_array.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace {

TEST(ExtensibleArray, ElementsStayWhereTheyWereMade) {
    ExtensibleArray<int> array;
    std::vector<int*> places;
    for (int i = 0; i < 5000; ++i) {
        places.push_back(&array.Append(i));
        EXPECT_EQ(array.Size(), static_cast<size_t>(i) + 1);
    }
    const ExtensibleArray<int>& constant = array;
    for (size_t i = 0; i < 5000; ++i) {
        EXPECT_EQ(&array[i], places[i]);
        EXPECT_EQ(constant[i], static_cast<int>(i));
    }
}

TEST(ExtensibleArray, EachChunkIsTwiceAsLargeAsTheOneBefore) {
    ExtensibleArray<int> array;
    std::vector<size_t> starts;
    const int* previous = nullptr;
    for (size_t i = 0; i < 250; ++i) {
        const int* const place = &array.Append(0);
        if (i == 0 || place != previous + 1) {
            starts.push_back(i);
        }
        previous = place;
    }
    EXPECT_EQ(starts, (std::vector<size_t>{0, 8, 24, 56, 120, 248}));
}

struct Tracked {
    static int alive;
    explicit Tracked(bool fails) {
        if (fails) {
            throw std::runtime_error("refused");
        }
        ++alive;
    }
    Tracked(const Tracked&) = delete;
    ~Tracked() { --alive; }
};
int Tracked::alive = 0;

TEST(ExtensibleArray, AConstructorThatThrowsLeavesItAsItWas) {
    ExtensibleArray<Tracked> array;
    array.Append(false);
    EXPECT_THROW(array.Append(true), std::runtime_error);
    EXPECT_EQ(array.Size(), 1u);
    array.Append(false);
    EXPECT_EQ(array.Size(), 2u);
}

TEST(ExtensibleArray, DestroysEveryElementOnce) {
    {
        ExtensibleArray<Tracked> array;
        for (int i = 0; i < 100; ++i) {
            array.Append(false);
        }
        EXPECT_EQ(Tracked::alive, 100);
    }
    EXPECT_EQ(Tracked::alive, 0);
}

TEST(ExtensibleArray, WhatIsRemovedMakesRoom) {
    {
        ExtensibleArray<Tracked, 32> array;
        for (int round = 0; round != 3; ++round) {
            for (int i = 0; i != 100; ++i) {
                array.Append(false);
            }
            for (int i = 0; i != 99; ++i) {
                array.RemoveLast();
            }
            EXPECT_EQ(array.Size(), static_cast<size_t>(round) + 1);
            EXPECT_EQ(Tracked::alive, round + 1);
        }
    }
    EXPECT_EQ(Tracked::alive, 0);
}

TEST(ExtensibleArray, TheFirstChunkHasTheSizeThatIsAskedFor) {
    ExtensibleArray<int, 32> array;
    const int* first = &array.Append(0);
    for (int i = 1; i != 32; ++i) {
        EXPECT_EQ(&array.Append(i), first + i);
    }
    array.Append(32);
    for (int i = 0; i != 33; ++i) {
        EXPECT_EQ(array[static_cast<size_t>(i)], i);
    }
}

struct alignas(64) Wide {
    char bytes[64];
};

TEST(ExtensibleArray, WideElementsKeepTheirAlignment) {
    ExtensibleArray<Wide> array;
    for (int i = 0; i < 30; ++i) {
        EXPECT_EQ(reinterpret_cast<uintptr_t>(&array.Append()) % alignof(Wide), 0u);
    }
}

}  // namespace
