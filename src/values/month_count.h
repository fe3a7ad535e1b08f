// A number of months: a signed 64-bit count, under the arithmetic of integers.
#ifndef VALUES_MONTH_COUNT_H
#define VALUES_MONTH_COUNT_H

#include "values/integer.h"

class month_count {
public:
    explicit constexpr month_count(integer count) : count_(count) {}

    constexpr int64_t Count() const { return count_.Value(); }

    friend constexpr bool operator==(month_count, month_count) = default;
    friend constexpr auto operator<=>(month_count, month_count) = default;

    friend std::optional<month_count> operator+(month_count a, month_count b) { return Of(a.count_ + b.count_); }
    friend std::optional<month_count> operator-(month_count a, month_count b) { return Of(a.count_ - b.count_); }
    friend std::optional<month_count> operator%(month_count a, month_count b) { return Of(a.count_ % b.count_); }
    friend std::optional<month_count> operator*(month_count a, integer b) { return Of(a.count_ * b); }
    friend std::optional<month_count> operator*(integer a, month_count b) { return Of(a * b.count_); }
    friend std::optional<integer> operator/(month_count a, month_count b) { return a.count_ / b.count_; }
    friend std::optional<month_count> operator/(month_count a, integer b) { return Of(a.count_ / b); }
    friend std::optional<month_count> operator-(month_count a) { return Of(-a.count_); }

private:
    static std::optional<month_count> Of(std::optional<integer> count) {
        return count ? std::optional<month_count>(month_count(*count)) : std::nullopt;
    }

    integer count_;
};

template <>
struct InspectorTypeInfo<month_count> : InspectorTypeBasics<month_count> {
    static constexpr char Name[] = "number of months";
    static constexpr unsigned Size = 8;
};

#endif
