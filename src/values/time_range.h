// A stretch of time from one moment to another that is not before it; both belong to it.
#ifndef VALUES_TIME_RANGE_H
#define VALUES_TIME_RANGE_H

#include <algorithm>

#include "values/moment.h"

class time_range {
public:
    // The moments in any order.
    constexpr time_range(moment a, moment b) : start_(std::min(a, b)), end_(std::max(a, b)) {}

    constexpr moment Start() const { return start_; }
    constexpr moment End() const { return end_; }
    std::optional<time_interval> Length() const { return end_ - start_; }

    constexpr bool Contains(moment time) const { return start_ <= time && time <= end_; }
    constexpr bool Contains(const time_range& other) const { return start_ <= other.start_ && other.end_ <= end_; }

    friend constexpr bool operator==(const time_range&, const time_range&) = default;
    // By the start and then the end: the order of unique values, which the language does not have.
    friend constexpr auto operator<=>(const time_range&, const time_range&) = default;

    // The smallest range that holds both.
    friend constexpr time_range operator+(const time_range& a, const time_range& b) {
        return {std::min(a.start_, b.start_), std::max(a.end_, b.end_)};
    }
    // What both hold; none where they have no moment in common.
    friend constexpr std::optional<time_range> operator*(const time_range& a, const time_range& b) {
        const moment start = std::max(a.start_, b.start_);
        const moment end = std::min(a.end_, b.end_);
        return start <= end ? std::optional<time_range>(time_range(start, end)) : std::nullopt;
    }

private:
    moment start_;
    moment end_;
};

template <>
struct InspectorTypeInfo<time_range> : InspectorTypeBasics<time_range> {
    static constexpr char Name[] = "time range";
    static constexpr unsigned Size = 16;
};

#endif
