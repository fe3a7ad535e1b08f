#include "values/day_of_year.h"

#include <cstring>

#include "values/aggregates.h"
#include "values/stepping.h"
#include "values/time_text.h"

namespace {

constexpr int kFebruary = 2;

constexpr int NextMonth(int month) { return month % 12 + 1; }
constexpr int PreviousMonth(int month) { return month == 1 ? 12 : month - 1; }

}  // namespace

// From month to month, which ends at the latest where a February would be crossed.  The 29th itself goes straight to
// March.
std::optional<day_of_year> day_of_year::MovedByDays(int64_t days) const {
    int64_t day = day_.Number() + days;
    int month = month_.Number();
    if (month == kFebruary && day_.Number() == 29 && day >= 29) {
        if (day == 29) {
            return *this;
        }
        day -= 29;
        month = NextMonth(month);
    }
    while (day > Calendar::MonthLength(month, false)) {
        if (month == kFebruary) {
            return std::nullopt;
        }
        day -= Calendar::MonthLength(month, false);
        month = NextMonth(month);
    }
    while (day < 1) {
        month = PreviousMonth(month);
        if (month == kFebruary) {
            return std::nullopt;
        }
        day += Calendar::MonthLength(month, false);
    }
    return Of(month_of_year(month), day);
}

std::optional<time_interval> day_of_year::Since(day_of_year earlier) const {
    if (month_ == earlier.month_ && day_ < earlier.day_) {
        return std::nullopt;
    }
    int64_t days = day_.Number() - earlier.day_.Number();
    for (int month = earlier.month_.Number(); month != month_.Number(); month = NextMonth(month)) {
        if (month == kFebruary) {
            return std::nullopt;
        }
        days += Calendar::MonthLength(month, false);
    }
    return time_interval::OfDays(days);
}

void InspectorTypeInfo<day_of_year>::Fingerprint(Fingerprinter& fingerprinter, const void* value) {
    const auto& object = *static_cast<const day_of_year*>(value);
    const int32_t month = object.Month().Number();
    const int64_t day = object.Day().Number();
    unsigned char bytes[Size];
    std::memcpy(bytes, &month, sizeof month);
    std::memcpy(bytes + sizeof month, &day, sizeof day);
    fingerprinter.AddData(ConstData(bytes, sizeof bytes));
}

namespace {

day_of_month Day(const day_of_year& day) { return day.Day(); }
month_of_year Month(const day_of_year& day) { return day.Month(); }

// "March 9"
inspector_string AsText(const day_of_year& day) {
    TimeLine line;
    line.Add(NameOfMonth(day.Month().Number())).Add(' ');
    return line.Add(static_cast<uint64_t>(day.Day().Number()), 1).Text();
}

// clang-format off
Type<day_of_year>                                                   type;
ComparableInspectorRegistration<day_of_year>                        comparable;

Property<day_of_year, day_of_month, Day>                            dayOf       {"day", "days"};
Property<day_of_year, month_of_year, Month>                         monthOf     {"month", "months"};

Cast<inspector_string, day_of_year, AsText>                         toString    {"string"};

SteppingRegistration<day_of_year, time_interval>                    steppingDays;
SteppingRegistration<day_of_year, month_count>                      steppingMonths;
BinaryOperatorMinus<day_of_year, day_of_year, time_interval>        minus;
// clang-format on

}  // namespace
