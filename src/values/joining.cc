// "&" over the calendar and clock types: it puts together the parts of a date, of a time and of a range, in either
// operand order.
#include "evaluator/adapters.h"
#include "values/inspector_date.h"
#include "values/time_range.h"
#include "values/zoned_time_of_day.h"

namespace {

std::optional<day_of_year> MonthAndDay(const month_of_year& month, const day_of_month& day) {
    return day_of_year::Of(month, day.Number());
}

month_and_year MonthAndYear(const month_of_year& month, const year& inYear) { return {month, inYear}; }

std::optional<inspector_date> DayAndMonth(const day_of_month& day, const month_and_year& month) {
    return inspector_date::Of(month, day);
}

std::optional<inspector_date> DayAndYear(const day_of_year& day, const year& inYear) {
    return inspector_date::Of({day.Month(), inYear}, day.Day());
}

// The month is told twice and has to be the same.
std::optional<inspector_date> DayOfYearAndMonth(const day_of_year& day, const month_and_year& month) {
    return day.Month() == month.Month() ? inspector_date::Of(month, day.Day()) : std::nullopt;
}

std::optional<moment> DateAndTime(const inspector_date& date, const zoned_time_of_day& time) {
    const std::optional<int64_t> instant = Calendar::InstantOf(
        {date.DayNumber(), time.Time().SinceMidnight().Microseconds()}, time.Zone().Offset().Microseconds());
    return instant ? std::optional<moment>(moment(*instant)) : std::nullopt;
}

zoned_time_of_day TimeAndZone(const time_of_day& time, const time_zone& zone) { return {time, zone}; }

// The clock keeps its reading.
zoned_time_of_day TimeAndNewZone(const zoned_time_of_day& time, const time_zone& zone) { return {time.Time(), zone}; }

time_range TimeAndTime(const moment& a, const moment& b) { return {a, b}; }

// A range has no negative length.
std::optional<time_range> TimeAndLength(const moment& start, const time_interval& length) {
    const std::optional<moment> end = start + length;
    return end && start <= *end ? std::optional<time_range>(time_range(start, *end)) : std::nullopt;
}

std::optional<time_range> LengthAndTime(const time_interval& length, const moment& end) {
    const std::optional<moment> start = end - length;
    return start && *start <= end ? std::optional<time_range>(time_range(*start, end)) : std::nullopt;
}

time_range RangeAndTime(const time_range& range, const moment& time) { return range + time_range(time, time); }

time_range RangeAndRange(const time_range& a, const time_range& b) { return a + b; }

template <auto F>
constexpr auto kTurned = [](const auto& a, const auto& b) { return F(b, a); };

template <class A, class B, class R, auto F>
struct Joining {
    OperatorConcatenate<A, B, R, F> asTold;
    OperatorConcatenate<B, A, R, kTurned<F>> turned;
};

// clang-format off
Joining<month_of_year, day_of_month, day_of_year, MonthAndDay>                      monthAndDay;
Joining<month_of_year, year, month_and_year, MonthAndYear>                          monthAndYear;
Joining<day_of_month, month_and_year, inspector_date, DayAndMonth>                  dayAndMonth;
Joining<day_of_year, year, inspector_date, DayAndYear>                              dayAndYear;
Joining<day_of_year, month_and_year, inspector_date, DayOfYearAndMonth>             dayOfYearAndMonth;
Joining<inspector_date, zoned_time_of_day, moment, DateAndTime>                     dateAndTime;
Joining<time_of_day, time_zone, zoned_time_of_day, TimeAndZone>                     timeAndZone;
Joining<zoned_time_of_day, time_zone, zoned_time_of_day, TimeAndNewZone>            timeAndNewZone;

OperatorConcatenate<moment, moment, time_range, TimeAndTime>                        timeAndTime;
OperatorConcatenate<moment, time_interval, time_range, TimeAndLength>               timeAndLength;
OperatorConcatenate<time_interval, moment, time_range, LengthAndTime>               lengthAndTime;
Joining<time_range, moment, time_range, RangeAndTime>                               rangeAndTime;
OperatorConcatenate<time_range, time_range, time_range, RangeAndRange>              rangeAndRange;
// clang-format on

}  // namespace
