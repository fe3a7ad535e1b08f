// A time that a clock shows, and the zone that the clock goes by.
#ifndef VALUES_ZONED_TIME_OF_DAY_H
#define VALUES_ZONED_TIME_OF_DAY_H

#include "values/time_of_day.h"
#include "values/time_zone.h"

class zoned_time_of_day {
public:
    constexpr zoned_time_of_day(time_of_day time, time_zone zone) : time_(time), zone_(zone) {}

    constexpr time_of_day Time() const { return time_; }
    constexpr time_zone Zone() const { return zone_; }

    constexpr int Hour() const { return time_.Hour(); }
    constexpr int Minute() const { return time_.Minute(); }
    constexpr int Second() const { return time_.Second(); }

    // By the time and then the zone: the order of unique values, which the language does not have.
    friend constexpr bool operator==(zoned_time_of_day, zoned_time_of_day) = default;
    friend constexpr auto operator<=>(zoned_time_of_day, zoned_time_of_day) = default;

    friend constexpr zoned_time_of_day operator+(zoned_time_of_day a, time_interval b) {
        return {a.time_ + b, a.zone_};
    }
    friend constexpr zoned_time_of_day operator-(zoned_time_of_day a, time_interval b) {
        return {a.time_ - b, a.zone_};
    }
    friend constexpr time_interval operator-(zoned_time_of_day a, zoned_time_of_day b) { return a.time_ - b.time_; }

private:
    time_of_day time_;
    time_zone zone_;
};

template <>
struct InspectorTypeInfo<zoned_time_of_day> : InspectorTypeBasics<zoned_time_of_day> {
    static constexpr char Name[] = "time of day with time zone";
    static constexpr unsigned Size = 16;
};

#endif
