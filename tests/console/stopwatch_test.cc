#include "console/stopwatch.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

TEST(Stopwatch, ReadsNothingBeforeItIsStarted) {
    const Stopwatch watch;
    usleep(2000);
    EXPECT_EQ(watch.Reading(), 0);
}

TEST(Stopwatch, CountsMicrosecondsAndRunsOnWhenRead) {
    Stopwatch watch;
    watch.RestartFromZero();
    usleep(20000);
    const int64_t first = watch.Reading();
    EXPECT_GE(first, 20000);
    EXPECT_LT(first, 20000000);
    usleep(2000);
    EXPECT_GE(watch.Reading(), first + 2000);
}

TEST(Stopwatch, StartsFromZeroEachTime) {
    Stopwatch watch;
    watch.RestartFromZero();
    usleep(50000);
    watch.RestartFromZero();
    EXPECT_LT(watch.Reading(), 50000);
}

}  // namespace
