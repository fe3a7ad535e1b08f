#include "values/calendar.h"

#include <limits>

namespace Calendar {

std::optional<Date> DateOfDayNumber(int64_t dayNumber) {
    if (dayNumber < 0 || dayNumber >= DaysBeforeYear(kGreatestYear + 1)) {
        return std::nullopt;
    }
    // 146097 days are 400 years.  The even division misses the year by one at most.
    int64_t year = dayNumber * 400 / 146097;
    while (DaysBeforeYear(year) > dayNumber) {
        --year;
    }
    while (DaysBeforeYear(year + 1) <= dayNumber) {
        ++year;
    }
    const auto dayOfYear = static_cast<int>(dayNumber - DaysBeforeYear(year));
    const bool leap = IsLeapYear(year);
    // No month has more than 31 days, so that this is not behind the month, and at most one before it.
    int month = dayOfYear / 31 + 1;
    if (month < 12 && DaysBeforeMonth(month + 1, leap) <= dayOfYear) {
        ++month;
    }
    return Date{year, month, dayOfYear - DaysBeforeMonth(month, leap) + 1};
}

std::optional<int64_t> InstantOf(const Reading& reading, int64_t offset) {
    __extension__ using Wide = __int128;
    const Wide instant =
        Wide{reading.day - kDaysBefore1970} * kMicrosecondsOfADay + reading.microseconds - Wide{offset};
    if (instant < std::numeric_limits<int64_t>::min() || instant > std::numeric_limits<int64_t>::max()) {
        return std::nullopt;
    }
    return static_cast<int64_t>(instant);
}

}  // namespace Calendar
