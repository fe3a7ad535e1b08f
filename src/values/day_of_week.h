// A day of the week: 0, a Sunday, to 6.  Its arithmetic goes round.
#ifndef VALUES_DAY_OF_WEEK_H
#define VALUES_DAY_OF_WEEK_H

#include "values/time_interval.h"

class day_of_week {
public:
    explicit constexpr day_of_week(int number) : number_(number) {}

    constexpr int Number() const { return number_; }

    friend constexpr bool operator==(day_of_week, day_of_week) = default;
    // The order of unique values, which the language does not have.
    friend constexpr auto operator<=>(day_of_week, day_of_week) = default;

    // By the whole days of the interval.
    friend constexpr day_of_week operator+(day_of_week a, time_interval b) { return a.MovedBy(b.Days() % 7); }
    friend constexpr day_of_week operator-(day_of_week a, time_interval b) { return a.MovedBy(-(b.Days() % 7)); }
    // The days from the last b to a: 0 to 6.
    friend constexpr time_interval operator-(day_of_week a, day_of_week b) {
        return time_interval(a.MovedBy(-b.number_).number_ * Calendar::kMicrosecondsOfADay);
    }

private:
    // `days` is more than -7.
    constexpr day_of_week MovedBy(int64_t days) const {
        return day_of_week(static_cast<int>((number_ + days + 7) % 7));
    }

    int32_t number_;
};

template <>
struct InspectorTypeInfo<day_of_week> : InspectorTypeBasics<day_of_week> {
    static constexpr char Name[] = "day of week";
    static constexpr unsigned Size = 4;
};

#endif
