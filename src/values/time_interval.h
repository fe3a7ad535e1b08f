// A length of time: a signed 64-bit count of microseconds, under the arithmetic of integers.
#ifndef VALUES_TIME_INTERVAL_H
#define VALUES_TIME_INTERVAL_H

#include "values/calendar.h"
#include "values/integer.h"

class time_interval {
public:
    constexpr time_interval() = default;
    explicit constexpr time_interval(integer microseconds) : microseconds_(microseconds) {}

    constexpr int64_t Microseconds() const { return microseconds_.Value(); }

    // Whole days, towards the lesser number.
    constexpr int64_t Days() const {
        return Calendar::FlooredQuotient(microseconds_.Value(), Calendar::kMicrosecondsOfADay);
    }
    // What is left of it beside whole days: 0 up to but not including one day.
    constexpr time_interval BesideDays() const {
        return time_interval(Calendar::FlooredRemainder(microseconds_.Value(), Calendar::kMicrosecondsOfADay));
    }
    // So many days; none where they do not fit.
    static std::optional<time_interval> OfDays(integer days) {
        return Of(days * integer(Calendar::kMicrosecondsOfADay));
    }

    friend constexpr bool operator==(time_interval, time_interval) = default;
    friend constexpr auto operator<=>(time_interval, time_interval) = default;

    friend std::optional<time_interval> operator+(time_interval a, time_interval b) {
        return Of(a.microseconds_ + b.microseconds_);
    }
    friend std::optional<time_interval> operator-(time_interval a, time_interval b) {
        return Of(a.microseconds_ - b.microseconds_);
    }
    friend std::optional<time_interval> operator%(time_interval a, time_interval b) {
        return Of(a.microseconds_ % b.microseconds_);
    }
    friend std::optional<time_interval> operator*(time_interval a, integer b) { return Of(a.microseconds_ * b); }
    friend std::optional<time_interval> operator*(integer a, time_interval b) { return Of(a * b.microseconds_); }
    friend std::optional<integer> operator/(time_interval a, time_interval b) {
        return a.microseconds_ / b.microseconds_;
    }
    friend std::optional<time_interval> operator/(time_interval a, integer b) { return Of(a.microseconds_ / b); }
    friend std::optional<time_interval> operator-(time_interval a) { return Of(-a.microseconds_); }

    // The length of the count, none for none.
    static std::optional<time_interval> Of(std::optional<integer> count) {
        return count ? std::optional<time_interval>(time_interval(*count)) : std::nullopt;
    }

private:
    integer microseconds_;
};

template <>
struct InspectorTypeInfo<time_interval> : InspectorTypeBasics<time_interval> {
    static constexpr char Name[] = "time interval";
    static constexpr unsigned Size = 8;
};

// "2 days, 03:00:00", "-00:00:01.500"; none for what the syntax of intervals does not admit.  What passes 64 bits is
// the greatest or the least interval.
std::optional<time_interval> ParseTimeInterval(const inspector_string& text);

// The text in evaluation memory, whole days first, with as many digits of a fraction as it needs: none, 3 or 6.
inspector_string TimeIntervalText(const time_interval& interval);

#endif
