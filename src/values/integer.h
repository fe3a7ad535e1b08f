// The exact number of the language: signed, 64 bits, and never wrapping.
//
// What does not fit, a division by zero among it, has no value: the operators give std::optional, and the checks stand
// in the arithmetic itself.  Division is floored and mod takes the sign of the divisor, so that
// a = (a / b) * b + (a mod b) for every pair that has both.
#ifndef VALUES_INTEGER_H
#define VALUES_INTEGER_H

#include <compare>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

#include "registry/inspector_type_info.h"

class integer {
public:
    static constexpr int64_t kGreatest = std::numeric_limits<int64_t>::max();
    static constexpr int64_t kLeast = std::numeric_limits<int64_t>::min();

    constexpr integer() = default;
    constexpr integer(int64_t value) : value_(value) {}  // NOLINT: a number is an integer.

    constexpr int64_t Value() const { return value_; }

    friend constexpr bool operator==(integer, integer) = default;
    friend constexpr auto operator<=>(integer, integer) = default;

    friend std::optional<integer> operator+(integer a, integer b) {
        int64_t result;
        return __builtin_add_overflow(a.value_, b.value_, &result) ? std::nullopt : std::optional<integer>(result);
    }
    friend std::optional<integer> operator-(integer a, integer b) {
        int64_t result;
        return __builtin_sub_overflow(a.value_, b.value_, &result) ? std::nullopt : std::optional<integer>(result);
    }
    friend std::optional<integer> operator*(integer a, integer b) {
        int64_t result;
        return __builtin_mul_overflow(a.value_, b.value_, &result) ? std::nullopt : std::optional<integer>(result);
    }
    friend std::optional<integer> operator/(integer a, integer b) {
        if (b.value_ == 0 || (b.value_ == -1 && a.value_ == kLeast)) {
            return std::nullopt;
        }
        const int64_t quotient = a.value_ / b.value_;
        const bool inexact = a.value_ % b.value_ != 0;
        return integer(inexact && (a.value_ < 0) != (b.value_ < 0) ? quotient - 1 : quotient);
    }
    // The least integer mod -1 is 0 and does not fail.
    friend std::optional<integer> operator%(integer a, integer b) {
        if (b.value_ == 0) {
            return std::nullopt;
        }
        if (b.value_ == -1) {
            return integer(0);
        }
        const int64_t remainder = a.value_ % b.value_;
        return integer(remainder != 0 && (a.value_ < 0) != (b.value_ < 0) ? remainder + b.value_ : remainder);
    }
    friend std::optional<integer> operator-(integer a) {
        return a.value_ == kLeast ? std::nullopt : std::optional<integer>(-a.value_);
    }

private:
    int64_t value_ = 0;
};

template <>
struct InspectorTypeInfo<integer> : InspectorTypeBasics<integer> {
    static constexpr char Name[] = "integer";
    static constexpr unsigned Size = 8;
};

// The magnitude; none for the least integer.
std::optional<integer> AbsoluteValue(integer x);

// x rounded to n significant decimal digits, half up on the magnitude.  None where n passes 4294967295.  Kept as it
// stands: n = 0 rounds on the first digit, and the result is not tested for overflow but wraps.
std::optional<integer> SigDigitsI_of(integer n, integer x);

// A decimal number with an optional sign, and nothing else: no blanks anywhere.
std::optional<integer> ParseInteger(std::string_view text);

// The decimal text in evaluation memory.  Throws NoInspectorAllocator, std::bad_alloc.
inspector_string IntegerText(int64_t value);

// The 64 bits as lower-case hexadecimal digits without leading zeros, in evaluation memory.
inspector_string HexadecimalText(uint64_t bits);

#endif
