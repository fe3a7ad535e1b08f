// The hour, the minute and the second of what a clock shows, for each type that has them.
#ifndef VALUES_CLOCK_PARTS_H
#define VALUES_CLOCK_PARTS_H

#include "evaluator/adapters.h"
#include "values/integer.h"
#include "values/time_text.h"

template <class T>
integer HourOf(const T& time) {
    return time.Hour();
}
template <class T>
integer MinuteOf(const T& time) {
    return time.Minute();
}
template <class T>
integer SecondOf(const T& time) {
    return time.Second();
}

template <class T, auto Part>
inspector_string TwoDigitsOf(const T& time) {
    return TimeLine().Add(static_cast<uint64_t>(Part(time).Value()), 2).Text();
}

template <class T>
struct ClockPartsRegistration {
    Property<T, integer, HourOf<T>> hour{"hour_of_day", "hours_of_day"};
    Property<T, integer, MinuteOf<T>> minute{"minute_of_hour", "minutes_of_hour"};
    Property<T, integer, SecondOf<T>> second{"second_of_minute", "seconds_of_minute"};
    Property<T, inspector_string, TwoDigitsOf<T, HourOf<T>>> twoDigitHour{"two digit hour", "two digit hours"};
    Property<T, inspector_string, TwoDigitsOf<T, MinuteOf<T>>> twoDigitMinute{"two digit minute", "two digit minutes"};
    Property<T, inspector_string, TwoDigitsOf<T, SecondOf<T>>> twoDigitSecond{"two digit second", "two digit seconds"};
};

#endif
