// The inexact number of the language: a number that knows how far its digits mean anything, and what befell it.
//
// Beside the number stand a significance threshold, the size below which its digits mean nothing, and the
// floating-point exceptions met on the way to it.  Arithmetic carries both along and never fails: what goes wrong shows
// in the flags. Numbers are in the x87 format, 64 bits of significand; on a machine without it they are the widest
// float at hand.
#ifndef VALUES_FLOATING_POINT_H
#define VALUES_FLOATING_POINT_H

#include <limits>
#include <optional>

#include "evaluator/adapters.h"
#include "registry/inspector_type_info.h"
#include "values/integer.h"

class floating_point {
public:
    static constexpr long double kGreatest = std::numeric_limits<long double>::max();
    static constexpr long double kLeastNormal = std::numeric_limits<long double>::min();

    // The exceptions, by their bits in the status word of the processor.
    enum Flag : unsigned { kInvalid = 1, kDividedByZero = 4, kOverflow = 8, kUnderflow = 16, kInexact = 32 };

    constexpr floating_point() = default;
    constexpr floating_point(long double value, long double threshold, unsigned flags)
        : value_(value), threshold_(threshold), flags_(flags) {}
    // Known to the unit, and exact.
    explicit constexpr floating_point(integer n) : value_(Exact(n)), threshold_(1) {}

    constexpr long double Value() const { return value_; }
    // In the units of the value.  Not forced positive: a negative factor makes a negative threshold.
    constexpr long double Threshold() const { return threshold_; }
    constexpr unsigned Flags() const { return flags_; }

    // Only the numbers compare; a NaN is neither equal to nor less than anything.
    friend constexpr bool operator==(const floating_point& a, const floating_point& b) { return a.value_ == b.value_; }
    friend constexpr bool operator<(const floating_point& a, const floating_point& b) { return a.value_ < b.value_; }
    friend constexpr bool operator<=(const floating_point& a, const floating_point& b) { return a.value_ <= b.value_; }
    friend constexpr bool operator==(const floating_point& a, integer n) { return a.value_ == Exact(n); }
    friend constexpr bool operator<(const floating_point& a, integer n) { return a.value_ < Exact(n); }
    friend constexpr bool operator<=(const floating_point& a, integer n) { return a.value_ <= Exact(n); }
    friend constexpr bool operator<(integer n, const floating_point& a) { return Exact(n) < a.value_; }
    friend constexpr bool operator<=(integer n, const floating_point& a) { return Exact(n) <= a.value_; }

    // An integer counts as exact: it brings no uncertainty of its own.
    friend floating_point operator-(const floating_point& a);
    friend floating_point operator+(const floating_point& a, const floating_point& b);
    friend floating_point operator-(const floating_point& a, const floating_point& b);
    friend floating_point operator*(const floating_point& a, const floating_point& b);
    friend floating_point operator/(const floating_point& a, const floating_point& b);
    friend floating_point operator+(const floating_point& a, integer n);
    friend floating_point operator-(const floating_point& a, integer n);
    friend floating_point operator*(const floating_point& a, integer n);
    friend floating_point operator/(const floating_point& a, integer n);
    friend floating_point operator+(integer n, const floating_point& a);
    friend floating_point operator-(integer n, const floating_point& a);
    friend floating_point operator*(integer n, const floating_point& a);
    friend floating_point operator/(integer n, const floating_point& a);

private:
    static_assert(std::numeric_limits<long double>::digits >= 63, "an integer must be exact as a floating point");
    static constexpr long double Exact(integer n) { return static_cast<long double>(n.Value()); }

    long double value_ = 0;
    long double threshold_ = 0;
    unsigned flags_ = 0;
};

template <>
struct InspectorTypeInfo<floating_point> : InspectorTypeBasics<floating_point, 0> {
    static constexpr char Name[] = "floating point";
    static constexpr unsigned Size = 28;
};

// The nearest integer, of two the even one, as a number.
long double NearestInteger(long double x);

// The greatest integer that is not above, the least that is not below, and the nearest, of two the even one.  None
// where that is no integer of the language, NaN and the infinities among it.
std::optional<integer> IntegerFloor(const floating_point& x);
std::optional<integer> IntegerCeiling(const floating_point& x);
std::optional<integer> asRoundedInteger(const floating_point& x);

// 10 to the n, as powl has it.
long double PowerOfTen(int64_t n);

#endif
