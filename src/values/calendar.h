// The calendar: day numbers, leap years and the lengths of months, by the rule of today for all years from 0 to 999999.
//
// Days are numbered from the first day of the year 0.  Months are 1 to 12, days of the week 0, a Sunday, to 6.  Plain
// numbers go in and out; the types of the language stand on top.
#ifndef VALUES_CALENDAR_H
#define VALUES_CALENDAR_H

#include <cstdint>
#include <optional>

namespace Calendar {

inline constexpr int64_t kGreatestYear = 999999;
inline constexpr int64_t kMicrosecondsOfASecond = 1000000;
inline constexpr int64_t kSecondsOfADay = 86400;
inline constexpr int64_t kMicrosecondsOfADay = kSecondsOfADay * kMicrosecondsOfASecond;

struct Date {
    int64_t year = 0;
    int month = 1;
    int day = 1;
};

// A time as a calendar and a clock show it: the number of the day, and the microseconds since its midnight.
struct Reading {
    int64_t day = 0;
    int64_t microseconds = 0;
};

// The quotient towards the lesser number, and what then remains; b is above 0.
constexpr int64_t FlooredQuotient(int64_t a, int64_t b) { return a / b - (a % b < 0 ? 1 : 0); }
constexpr int64_t FlooredRemainder(int64_t a, int64_t b) { return a % b + (a % b < 0 ? b : 0); }

constexpr bool IsLeapYear(int64_t year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

inline constexpr int kMonthLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
inline constexpr int kDaysBeforeMonths[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};

constexpr int MonthLength(int month, bool leap) { return kMonthLengths[month - 1] + (leap && month == 2 ? 1 : 0); }
constexpr int DaysBeforeMonth(int month, bool leap) {
    return kDaysBeforeMonths[month - 1] + (leap && month > 2 ? 1 : 0);
}

// The number of the year's first day.
constexpr int64_t DaysBeforeYear(int64_t year) {
    return year == 0 ? 0 : 365 * year + (year - 1) / 4 + 1 + (year - 1) / 400 - (year - 1) / 100;
}

// Whether there is such a date; the numbers may be any.
constexpr bool Exists(const Date& date) {
    return date.year >= 0 && date.year <= kGreatestYear && date.month >= 1 && date.month <= 12 && date.day >= 1 &&
           date.day <= MonthLength(date.month, IsLeapYear(date.year));
}

constexpr int64_t DayNumber(const Date& date) {
    return DaysBeforeYear(date.year) + DaysBeforeMonth(date.month, IsLeapYear(date.year)) + date.day - 1;
}

constexpr int DayOfWeek(int64_t dayNumber) { return static_cast<int>((dayNumber + 6) % 7); }

inline constexpr int64_t kDaysBefore1970 = DayNumber({1970, 1, 1});

// The date of a day's number; none outside the years 0 to 999999.
std::optional<Date> DateOfDayNumber(int64_t dayNumber);

// What calendar and clock show, at an instant in microseconds since 1970, where they go `offset` microseconds ahead of
// universal time.  The day may lie outside the calendar's years; nothing overflows.
constexpr Reading ReadingOf(int64_t instant, int64_t offset) {
    const int64_t rest = FlooredRemainder(instant, kMicrosecondsOfADay) + FlooredRemainder(offset, kMicrosecondsOfADay);
    const bool carry = rest >= kMicrosecondsOfADay;
    return {kDaysBefore1970 + FlooredQuotient(instant, kMicrosecondsOfADay) +
                FlooredQuotient(offset, kMicrosecondsOfADay) + (carry ? 1 : 0),
            rest - (carry ? kMicrosecondsOfADay : 0)};
}

// The instant of a reading; none where it does not fit 64 bits.
std::optional<int64_t> InstantOf(const Reading& reading, int64_t offset);

}  // namespace Calendar

#endif
