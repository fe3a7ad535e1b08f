// An instant: microseconds since the start of 1970 in universal time.
#ifndef VALUES_MOMENT_H
#define VALUES_MOMENT_H

#include "values/time_interval.h"

class moment {
public:
    constexpr moment() = default;
    explicit constexpr moment(int64_t microseconds) : microseconds_(microseconds) {}

    constexpr int64_t Microseconds() const { return microseconds_.Value(); }

    friend constexpr bool operator==(moment, moment) = default;
    friend constexpr auto operator<=>(moment, moment) = default;

    friend std::optional<moment> operator+(moment a, time_interval b) {
        return At(a.microseconds_ + integer(b.Microseconds()));
    }
    friend std::optional<moment> operator-(moment a, time_interval b) {
        return At(a.microseconds_ - integer(b.Microseconds()));
    }
    friend std::optional<time_interval> operator-(moment a, moment b) {
        return time_interval::Of(a.microseconds_ - b.microseconds_);
    }

private:
    static std::optional<moment> At(std::optional<integer> microseconds) {
        return microseconds ? std::optional<moment>(moment(microseconds->Value())) : std::nullopt;
    }

    integer microseconds_;
};

template <>
struct InspectorTypeInfo<moment> : InspectorTypeBasics<moment> {
    static constexpr char Name[] = "time";
    static constexpr unsigned Size = 8;
};

// The system's clock, read now.
moment Now();

// "Tue, 09 Mar 1999 00:00:00 +0000", by the clocks of universal time and of the local time zone, in evaluation memory.
// A part of a second is dropped, towards the earlier.  None outside the years of the calendar.
std::optional<inspector_string> UniversalTimeText(const moment& time);
std::optional<inspector_string> LocalTimeText(const moment& time);

#endif
