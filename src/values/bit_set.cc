#include "values/bit_set.h"

#include <algorithm>

#include "evaluator/adapters.h"

namespace {

std::optional<bit_set> MovedUp(bit_set s, uint64_t n) {
    if (s.Empty()) {
        return s;
    }
    if (n >= 64 - static_cast<uint64_t>(s.Most())) {
        return std::nullopt;
    }
    return bit_set(s.Bits() << n);
}

bit_set MovedDown(bit_set s, uint64_t n) { return n > 63 ? bit_set() : bit_set(s.Bits() >> n); }

// The magnitude of a shift, right for the least integer too.
uint64_t Distance(integer n) {
    return n.Value() < 0 ? 0 - static_cast<uint64_t>(n.Value()) : static_cast<uint64_t>(n.Value());
}

bool IsMember(integer n) { return n.Value() >= 0 && n.Value() <= 63; }

}  // namespace

std::optional<bit_set> StringAsBitSet(const inspector_string& text) {
    std::string_view digits = text.View();
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    if (digits.size() > 64) {
        return std::nullopt;
    }
    uint32_t bits = 0;
    for (char c : digits) {
        if (c != '0' && c != '1') {
            return std::nullopt;
        }
        bits = bits << 1 | static_cast<uint32_t>(c - '0');
    }
    return bit_set(bits);
}

std::optional<bit_set> LeftShift(const integer& n, Of, const bit_set& s) {
    return n.Value() < 0 ? MovedDown(s, Distance(n)) : MovedUp(s, Distance(n));
}

std::optional<bit_set> RightShift(const integer& n, Of, const bit_set& s) {
    return n.Value() < 0 ? MovedUp(s, Distance(n)) : MovedDown(s, Distance(n));
}

namespace {

std::optional<bit_set> NumberedBit(const integer& n) {
    return IsMember(n) ? std::optional<bit_set>(bit_set(uint64_t{1} << n.Value())) : std::nullopt;
}

// Stricter than the same phrase on an integer: a number that no set can hold is not merely absent.
std::optional<boolean> Bit(const integer& n, Of, const bit_set& s) {
    return IsMember(n) ? std::optional<boolean>((s.Bits() >> n.Value() & 1) != 0) : std::nullopt;
}

std::optional<integer> LeastSignificantOneBit(const bit_set& s) {
    return s.Empty() ? std::nullopt : std::optional<integer>(s.Least());
}

std::optional<integer> MostSignificantOneBit(const bit_set& s) {
    return s.Empty() ? std::nullopt : std::optional<integer>(s.Most());
}

class one_bit_iterator {
public:
    void Start(Of, const bit_set& s) { rest_ = s; }
    bool Finished(Of, const bit_set&) const { return rest_.Empty(); }
    integer Next(Of, const bit_set&) {
        const int bit = rest_.Least();
        rest_ = rest_ - bit_set(uint64_t{1} << bit);
        return bit;
    }

private:
    bit_set rest_;
};

integer BitSetAsInteger(const bit_set& s) { return static_cast<int64_t>(s.Bits()); }

bit_set IntegerAsBitSet(const integer& x) { return bit_set(static_cast<uint64_t>(x.Value())); }

// Binary digits, the greatest member first; the empty set is the empty text, not "0".
inspector_string BitSetAsString(const bit_set& s) {
    const size_t length = s.Empty() ? 0 : static_cast<size_t>(s.Most()) + 1;
    char* text = static_cast<char*>(InspectorAllocate(length));
    for (size_t i = 0; i < length; ++i) {
        text[i] = (s.Bits() >> (length - 1 - i) & 1) != 0 ? '1' : '0';
    }
    return {text, length};
}

boolean BitSetContains(const bit_set& a, const bit_set& b) { return (b - a).Empty(); }

// clang-format off
Type<bit_set>                                                       type;

NamedGlobalProperty<bit_set, StringAsBitSet>                        ofString    {"bit set", "bit sets"};
PropertyByIndexOfWorld<bit_set, integer, NumberedBit>               numbered    {"bit", "bits"};
PropertyByIndexOfObject<bit_set, integer, boolean, Bit>             member      {"bit", "bits"};
Property<bit_set, integer, LeastSignificantOneBit>                  least       {"least significant one bit", "least significant one bits"};
Property<bit_set, integer, MostSignificantOneBit>                   most        {"most significant one bit", "most significant one bits"};
PropertyByIndexOfObject<bit_set, integer, bit_set, RightShift>      rightShift  {"right shift", "right shifts"};
PropertyByIndexOfObject<bit_set, integer, bit_set, LeftShift>       leftShift   {"left shift", "left shifts"};
IteratedPropertyOfObject<one_bit_iterator, integer, bit_set, &one_bit_iterator::Next, &one_bit_iterator::Next,
                         &one_bit_iterator::Start, &one_bit_iterator::Finished>
                                                                    oneBits     {"one bit", "one bits"};

Cast<integer, bit_set, BitSetAsInteger>                             toInteger   {"integer"};
Cast<inspector_string, bit_set, BitSetAsString>                     toString    {"string"};
Cast<bit_set, integer, IntegerAsBitSet>                             ofInteger   {"bit set"};
Cast<bit_set, integer, IntegerAsBitSet>                             bits        {"bits"};

RelationEqual<bit_set>                                              equal;
RelationContains<bit_set, bit_set, BitSetContains>                  contains;
OperatorPlus<bit_set, bit_set, bit_set>                             plus;
BinaryOperatorMinus<bit_set, bit_set, bit_set>                      minus;
OperatorTimes<bit_set, bit_set, bit_set>                            times;
// clang-format on

}  // namespace
