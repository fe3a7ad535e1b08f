// A set of the numbers 0 to 63.
#ifndef VALUES_BIT_SET_H
#define VALUES_BIT_SET_H

#include <cstdint>
#include <optional>

#include "evaluator/adapters.h"
#include "registry/inspector_type_info.h"
#include "values/integer.h"

// Bit i of the word is set where i is in the set.
class bit_set {
public:
    constexpr bit_set() = default;
    explicit constexpr bit_set(uint64_t bits) : bits_(bits) {}

    constexpr uint64_t Bits() const { return bits_; }
    constexpr bool Empty() const { return bits_ == 0; }

    // The greatest and the least member; the set must not be empty.
    int Most() const { return 63 - __builtin_clzll(bits_); }
    int Least() const { return __builtin_ctzll(bits_); }

    friend constexpr bool operator==(bit_set, bit_set) = default;

    // Union, difference and intersection.
    friend constexpr bit_set operator+(bit_set a, bit_set b) { return bit_set(a.bits_ | b.bits_); }
    friend constexpr bit_set operator-(bit_set a, bit_set b) { return bit_set(a.bits_ & ~b.bits_); }
    friend constexpr bit_set operator*(bit_set a, bit_set b) { return bit_set(a.bits_ & b.bits_); }

private:
    uint64_t bits_ = 0;
};

template <>
struct InspectorTypeInfo<bit_set> : InspectorTypeBasics<bit_set> {
    static constexpr char Name[] = "bit set";
    static constexpr unsigned Size = 8;
};

// A set from binary digits, the greatest member first; leading zeros do not count.  None for more than 64 digits and
// for any other byte.  Kept as it stands: the digits gather in 32 bits, so that of 33 and more only the last 32 count.
std::optional<bit_set> StringAsBitSet(const inspector_string& text);

// The members moved up by n, or down for a negative n.  Moving up refuses to lose a member; moving down loses freely.
std::optional<bit_set> LeftShift(const integer& n, Of, const bit_set& s);
// The members moved down by n, or up for a negative n, under the same rule.
std::optional<bit_set> RightShift(const integer& n, Of, const bit_set& s);

#endif
