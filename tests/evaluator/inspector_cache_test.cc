// Caches of inspectors: one copy to a thread, gone when the thread clears its caches or ends.
#include "evaluator/inspector_cache.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>

namespace {

std::atomic<int> alive{0};

struct Fact {
    explicit Fact(int v) : value(v) {
        if (v < 0) {
            throw std::runtime_error("no such fact");
        }
        ++alive;
    }
    Fact(const Fact&) = delete;
    ~Fact() { --alive; }
    int value;
};

TEST(ThreadLocalInspectorCache, IsEmptyUntilFilledAndAfterEveryClearing) {
    ThreadLocalInspectorCache<Fact> cache;
    EXPECT_EQ(cache.Get(), nullptr);
    for (const bool forever : {false, true}) {
        EXPECT_EQ(cache.Fill(7).value, 7);
        ASSERT_NE(cache.Get(), nullptr);
        EXPECT_EQ(cache.Get()->value, 7);
        ClearCaches(forever);
        EXPECT_EQ(cache.Get(), nullptr);
        EXPECT_EQ(alive, 0);
    }
    ClearCaches(true);
}

TEST(ThreadLocalInspectorCache, FillingAgainReplacesTheCopyAndAFailureKeepsIt) {
    ThreadLocalInspectorCache<Fact> cache;
    cache.Fill(1);
    cache.Fill(2);
    EXPECT_EQ(alive, 1);
    EXPECT_THROW(cache.Fill(-1), std::runtime_error);
    EXPECT_EQ(cache.Get()->value, 2);
    EXPECT_EQ(alive, 1);
}

TEST(ThreadLocalInspectorCache, ClearingOnOneThreadLeavesTheCopiesOfOthers) {
    ThreadLocalInspectorCache<Fact> cache;
    cache.Fill(1);
    std::thread([&] {
        EXPECT_EQ(cache.Get(), nullptr);
        cache.Fill(2);
        EXPECT_EQ(alive, 2);
        ClearCaches(true);
        EXPECT_EQ(cache.Get(), nullptr);
        cache.Fill(3);
    }).join();
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(cache.Get()->value, 1);
}

TEST(ThreadLocalInspectorCache, GoesWithItsCopy) {
    {
        ThreadLocalInspectorCache<Fact> first;
        ThreadLocalInspectorCache<Fact> second;
        first.Fill(1);
        second.Fill(2);
    }
    EXPECT_EQ(alive, 0);
    ClearCaches(true);
}

}  // namespace
