// Pointers of which each thread has its own.
#include "foundation/thread_local_ptr.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <memory>
#include <thread>
#include <vector>

namespace {

std::atomic<int> alive{0};

struct Counted {
    Counted() { ++alive; }
    ~Counted() { --alive; }
};

TEST(ThreadLocalPtr, IsNullUntilItIsSet) {
    const ThreadLocalPtr<int, DoNotDispose> pointer;
    EXPECT_EQ(pointer.Get(), nullptr);
}

TEST(ThreadLocalPtr, EachThreadHasItsOwn) {
    ThreadLocalPtr<int, DoNotDispose> pointer;
    int here = 0;
    pointer.Set(&here);
    std::thread([&] {
        EXPECT_EQ(pointer.Get(), nullptr);
        int there = 0;
        pointer.Set(&there);
        EXPECT_EQ(pointer.Get(), &there);
    }).join();
    EXPECT_EQ(pointer.Get(), &here);
    pointer.Set(nullptr);
    EXPECT_EQ(pointer.Get(), nullptr);
}

TEST(ThreadLocalPtr, WhatIsNotDisposedOfOutlivesThreadAndPointer) {
    auto object = std::make_unique<Counted>();
    {
        ThreadLocalPtr<Counted, DoNotDispose> pointer;
        std::thread([&] { pointer.Set(object.get()); }).join();
        EXPECT_EQ(alive, 1);
        pointer.Set(object.get());
    }
    EXPECT_EQ(alive, 1);
}

TEST(ThreadLocalPtr, WhatIsDisposedOfGoesWithItsThreadAndWithThePointer) {
    {
        ThreadLocalPtr<Counted, Dispose> pointer;
        std::thread([&] { pointer.Set(new Counted); }).join();
        EXPECT_EQ(alive, 0);
        pointer.Set(new Counted);
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
}

TEST(ThreadLocalPtr, ErrorsOfTheSystemAreToldByClass) {
    EXPECT_NO_THROW(UnixPlatform::CheckThreadLocalResult(0));
    EXPECT_THROW(UnixPlatform::CheckThreadLocalResult(EINVAL), UnixPlatform::InvalidThreadLocalKey);
    EXPECT_THROW(UnixPlatform::CheckThreadLocalResult(EAGAIN), UnixPlatform::TooManyThreadLocalKeys);
    EXPECT_THROW(UnixPlatform::CheckThreadLocalResult(ENOMEM), UnixPlatform::InsufficientMemoryToCreateThreadLocalKey);
    EXPECT_THROW(UnixPlatform::CheckThreadLocalResult(EPERM), UnixPlatform::UnknownThreadLocalError);
}

TEST(ThreadLocalPtr, WhereTheSystemHasNoMoreKeysTheNextIsRefused) {
    std::vector<std::unique_ptr<ThreadLocalPtr<int, DoNotDispose>>> pointers;
    EXPECT_THROW(
        for (int i = 0; i < 100000; ++i) { pointers.push_back(std::make_unique<ThreadLocalPtr<int, DoNotDispose>>()); },
        UnixPlatform::TooManyThreadLocalKeys);
}

}  // namespace
