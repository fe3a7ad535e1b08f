// A time that a clock shows: the length of time since midnight, 0 up to but not including one day.  Its arithmetic goes
// round.
#ifndef VALUES_TIME_OF_DAY_H
#define VALUES_TIME_OF_DAY_H

#include "values/time_interval.h"

class time_of_day {
public:
    // A length of any days since midnight.
    explicit constexpr time_of_day(time_interval sinceMidnight) : sinceMidnight_(sinceMidnight.BesideDays()) {}

    static constexpr time_of_day OfSeconds(int64_t seconds) {
        return time_of_day(time_interval(seconds * Calendar::kMicrosecondsOfASecond));
    }

    constexpr time_interval SinceMidnight() const { return sinceMidnight_; }
    constexpr int Hour() const { return Seconds() / 3600; }
    constexpr int Minute() const { return Seconds() / 60 % 60; }
    constexpr int Second() const { return Seconds() % 60; }

    // Whole seconds since midnight.
    constexpr int Seconds() const {
        return static_cast<int>(sinceMidnight_.Microseconds() / Calendar::kMicrosecondsOfASecond);
    }

    friend constexpr bool operator==(time_of_day, time_of_day) = default;
    friend constexpr auto operator<=>(time_of_day, time_of_day) = default;

    // Going round, no interval is too long.
    friend constexpr time_of_day operator+(time_of_day a, time_interval b) {
        return At(a.sinceMidnight_.Microseconds() + b.BesideDays().Microseconds());
    }
    friend constexpr time_of_day operator-(time_of_day a, time_interval b) {
        return At(a.sinceMidnight_.Microseconds() - b.BesideDays().Microseconds());
    }
    // The time from the last b to a, less than a day.
    friend constexpr time_interval operator-(time_of_day a, time_of_day b) {
        return (a - b.sinceMidnight_).sinceMidnight_;
    }

private:
    static constexpr time_of_day At(int64_t microseconds) { return time_of_day(time_interval(microseconds)); }

    time_interval sinceMidnight_;
};

template <>
struct InspectorTypeInfo<time_of_day> : InspectorTypeBasics<time_of_day> {
    static constexpr char Name[] = "time of day";
    static constexpr unsigned Size = 8;
};

// "9:05", "09:05:07"; none for what the syntax does not admit and for what no clock shows.
std::optional<time_of_day> ParseTimeOfDay(const inspector_string& text);

// "09:05:00", in evaluation memory; a part of a second is dropped.
inspector_string TimeOfDayText(const time_of_day& time);

#endif
