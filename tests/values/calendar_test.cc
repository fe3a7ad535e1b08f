// The calendar against the C library, on every day that both have in four digits and at the far ends.
#include "values/calendar.h"

#include <gtest/gtest.h>

#include <ctime>
#include <limits>

namespace {

using Calendar::Date;

void ExpectDayOf(time_t day) {
    const time_t seconds = day * 86400;
    tm expected{};
    ASSERT_NE(gmtime_r(&seconds, &expected), nullptr);
    const int64_t number = day + Calendar::kDaysBefore1970;
    const std::optional<Date> date = Calendar::DateOfDayNumber(number);
    ASSERT_TRUE(date) << day;
    ASSERT_EQ(date->year, expected.tm_year + int64_t{1900}) << day;
    ASSERT_EQ(date->month, expected.tm_mon + 1) << day;
    ASSERT_EQ(date->day, expected.tm_mday) << day;
    ASSERT_EQ(Calendar::DayOfWeek(number), expected.tm_wday) << day;
    ASSERT_EQ(Calendar::DayNumber(*date), number) << day;
    ASSERT_TRUE(Calendar::Exists(*date)) << day;
    const bool leap = Calendar::IsLeapYear(date->year);
    ASSERT_EQ(Calendar::DaysBeforeMonth(date->month, leap) + date->day - 1, expected.tm_yday) << day;
}

time_t DayOf(int64_t yearNumber, int month, int day) {
    tm fields{};
    fields.tm_year = static_cast<int>(yearNumber - 1900);
    fields.tm_mon = month - 1;
    fields.tm_mday = day;
    return timegm(&fields) / 86400;
}

TEST(Calendar, EveryDayOfTheYears0To10000IsTheCLibrarys) {
    const time_t last = DayOf(10000, 12, 31);
    for (time_t day = DayOf(0, 1, 1); day <= last && !HasFatalFailure(); ++day) {
        ExpectDayOf(day);
    }
}

TEST(Calendar, DaysOfLaterYearsAreTheCLibrarys) {
    for (int64_t y = 10000; y <= Calendar::kGreatestYear && !HasFatalFailure(); y += 97) {
        ExpectDayOf(DayOf(y, 1, 1));
        ExpectDayOf(DayOf(y, 2, 28));
        ExpectDayOf(DayOf(y, 2, 28) + 1);
        ExpectDayOf(DayOf(y, 12, 31));
    }
    ExpectDayOf(DayOf(999999, 12, 31));
}

TEST(Calendar, HasNoDayOutsideItsYears) {
    EXPECT_FALSE(Calendar::DateOfDayNumber(-1));
    EXPECT_FALSE(Calendar::DateOfDayNumber(Calendar::DaysBeforeYear(1000000)));
    EXPECT_FALSE(Calendar::DateOfDayNumber(std::numeric_limits<int64_t>::max()));
    EXPECT_FALSE(Calendar::DateOfDayNumber(std::numeric_limits<int64_t>::min()));
    const std::optional<Date> first = Calendar::DateOfDayNumber(0);
    ASSERT_TRUE(first);
    EXPECT_EQ(first->year, 0);
    EXPECT_EQ(first->month, 1);
    EXPECT_EQ(first->day, 1);
}

TEST(Calendar, ADateExistsWhereItsMonthIsLongEnough) {
    const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (const int64_t y : {0, 4, 100, 400, 1900, 1999, 2000, 2004, 999999}) {
        const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
        for (int month = 1; month <= 12; ++month) {
            const int length = lengths[month - 1] + (leap && month == 2 ? 1 : 0);
            EXPECT_FALSE(Calendar::Exists({y, month, 0}));
            EXPECT_TRUE(Calendar::Exists({y, month, 1}));
            EXPECT_TRUE(Calendar::Exists({y, month, length}));
            EXPECT_FALSE(Calendar::Exists({y, month, length + 1}));
        }
        EXPECT_FALSE(Calendar::Exists({y, 0, 1}));
        EXPECT_FALSE(Calendar::Exists({y, 13, 1}));
    }
    EXPECT_FALSE(Calendar::Exists({-1, 1, 1}));
    EXPECT_FALSE(Calendar::Exists({1000000, 1, 1}));
}

TEST(Calendar, AReadingIsFlooredAndOverflowsNowhere) {
    constexpr int64_t kDay = Calendar::kMicrosecondsOfADay;
    const struct {
        int64_t instant;
        int64_t offset;
        int64_t day;
        int64_t microseconds;
    } rows[] = {
        {0, 0, 0, 0},
        {-1, 0, -1, kDay - 1},
        {kDay - 1, 1, 1, 0},
        {0, -1, -1, kDay - 1},
        {-kDay, 0, -1, 0},
        {kDay - 1, kDay - 1, 1, kDay - 2},
        {std::numeric_limits<int64_t>::max(), std::numeric_limits<int64_t>::max(), 213503982, 28909551614},
        {std::numeric_limits<int64_t>::min(), std::numeric_limits<int64_t>::min(), -213503983, kDay - 28909551616},
    };
    for (const auto& row : rows) {
        const Calendar::Reading reading = Calendar::ReadingOf(row.instant, row.offset);
        EXPECT_EQ(reading.day - Calendar::kDaysBefore1970, row.day) << row.instant;
        EXPECT_EQ(reading.microseconds, row.microseconds) << row.instant;
        EXPECT_EQ(Calendar::InstantOf(reading, row.offset), row.instant);
    }
    EXPECT_FALSE(Calendar::InstantOf({Calendar::DaysBeforeYear(999999), 0}, 0));
    EXPECT_FALSE(Calendar::InstantOf({Calendar::kDaysBefore1970, 0}, std::numeric_limits<int64_t>::min()));
    EXPECT_EQ(Calendar::InstantOf({Calendar::kDaysBefore1970, 0}, std::numeric_limits<int64_t>::max()),
              -std::numeric_limits<int64_t>::max());
}

}  // namespace
