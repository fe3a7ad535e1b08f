// The number of a day in its month, 1 to 31.
#ifndef VALUES_DAY_OF_MONTH_H
#define VALUES_DAY_OF_MONTH_H

#include "values/time_interval.h"

class day_of_month {
public:
    explicit constexpr day_of_month(int day) : day_(day) {}

    // None outside 1 to 31.
    static constexpr std::optional<day_of_month> Of(int64_t day) {
        return day >= 1 && day <= 31 ? std::optional<day_of_month>(day_of_month(static_cast<int>(day))) : std::nullopt;
    }

    constexpr int Number() const { return static_cast<int>(day_); }

    friend constexpr bool operator==(day_of_month, day_of_month) = default;
    friend constexpr auto operator<=>(day_of_month, day_of_month) = default;

    // By the whole days of the interval; none outside 1 to 31.
    friend constexpr std::optional<day_of_month> operator+(day_of_month a, time_interval b) {
        return Of(a.day_ + b.Days());
    }
    friend constexpr std::optional<day_of_month> operator-(day_of_month a, time_interval b) {
        return Of(a.day_ - b.Days());
    }
    friend constexpr time_interval operator-(day_of_month a, day_of_month b) {
        return time_interval((a.day_ - b.day_) * Calendar::kMicrosecondsOfADay);
    }

private:
    int64_t day_;
};

template <>
struct InspectorTypeInfo<day_of_month> : InspectorTypeBasics<day_of_month> {
    static constexpr char Name[] = "day of month";
    static constexpr unsigned Size = 8;
};

#endif
