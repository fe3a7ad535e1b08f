#include "values/integer.h"

#include <algorithm>
#include <charconv>

#include "evaluator/adapters.h"
#include "values/aggregates.h"
#include "values/string.h"

std::optional<integer> AbsoluteValue(integer x) { return x < integer(0) ? -x : x; }

std::optional<integer> SigDigitsI_of(integer n, integer x) {
    constexpr int64_t kMostDigits = 4294967295;
    if (n.Value() > kMostDigits) {
        return std::nullopt;
    }
    const uint64_t magnitude = x.Value() < 0 ? 0 - static_cast<uint64_t>(x.Value()) : static_cast<uint64_t>(x.Value());
    char digits[20];
    const auto count = static_cast<int64_t>(std::to_chars(digits, digits + sizeof digits, magnitude).ptr - digits);
    if (n.Value() >= count) {
        return x;
    }
    const auto kept = static_cast<size_t>(n.Value());
    uint64_t rounded = 0;
    for (size_t i = 0; i < kept; ++i) {
        rounded = rounded * 10 + static_cast<uint64_t>(digits[i] - '0');
    }
    if (digits[kept] >= '5') {
        ++rounded;
    }
    for (int64_t dropped = count - n.Value(); dropped != 0; --dropped) {
        rounded *= 10;
    }
    return integer(static_cast<int64_t>(x.Value() < 0 ? 0 - rounded : rounded));
}

std::optional<integer> ParseInteger(std::string_view text) {
    if (text.empty()) {
        return std::nullopt;
    }
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+') {
        text.remove_prefix(1);
    }
    if (text.empty()) {
        return std::nullopt;
    }
    uint64_t value = 0;
    for (char c : text) {
        if (c < '0' || c > '9') {
            return std::nullopt;
        }
        const auto digit = static_cast<uint64_t>(c - '0');
        if (value > (std::numeric_limits<uint64_t>::max() - digit) / 10) {
            return std::nullopt;
        }
        value = value * 10 + digit;
    }
    const uint64_t limit = static_cast<uint64_t>(integer::kGreatest) + (negative ? 1 : 0);
    if (value > limit) {
        return std::nullopt;
    }
    return integer(static_cast<int64_t>(negative ? 0 - value : value));
}

inspector_string IntegerText(int64_t value) {
    char digits[24];
    const char* end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return CopiedString({digits, static_cast<size_t>(end - digits)});
}

inspector_string HexadecimalText(uint64_t bits) {
    char digits[16];
    const char* end = std::to_chars(digits, digits + sizeof digits, bits, 16).ptr;
    return CopiedString({digits, static_cast<size_t>(end - digits)});
}

namespace {

integer integer_of(integer x) { return x; }

std::optional<integer> asInteger(const inspector_string& text) { return ParseInteger(text.View()); }

// The infinite two's-complement form: beyond bit 63 every bit is the sign.
boolean bit_of(integer n, const integer& x) { return (x.Value() >> std::min<int64_t>(n.Value(), 63) & 1) != 0; }

std::optional<integer> absolute_value(const integer& x) { return AbsoluteValue(x); }

integer GreatestInteger() { return integer::kGreatest; }
integer LeastInteger() { return integer::kLeast; }

std::optional<integer> SignificantDigits(integer n, const integer& x) { return SigDigitsI_of(n, x); }

std::optional<integer> integer_of_hexadecimal(const inspector_string& text) {
    uint64_t value = 0;
    const char* end = text.start + text.length;
    const auto [rest, error] = std::from_chars(text.start, end, value, 16);
    if (error != std::errc() || rest != end || value > static_cast<uint64_t>(integer::kGreatest)) {
        return std::nullopt;
    }
    return integer(static_cast<int64_t>(value));
}

inspector_string asString(const integer& x) { return IntegerText(x.Value()); }

inspector_string AsHexadecimalString(const integer& x) { return HexadecimalText(static_cast<uint64_t>(x.Value())); }

integer Identity(const integer& x) { return x; }

// clang-format off
Type<integer>                                                       type;
ComparableInspectorRegistration<integer>                            comparable;

NumberedGlobalProperty<integer, integer_of>                         integerOfInteger  {"integer", "integers"};
NamedGlobalProperty<integer, asInteger>                             integerOfString   {"integer", "integers"};
NumberedProperty<integer, boolean, bit_of>                          bit               {"bit", "bits"};
Property<integer, integer, absolute_value>                          absolute          {"absolute value", "absolute values"};
GlobalProperty<integer, GreatestInteger>                            greatest          {"greatest integer", "greatest integers"};
GlobalProperty<integer, LeastInteger>                               least             {"least integer", "least integers"};
NumberedProperty<integer, integer, SignificantDigits>               digits            {"significant digits", "significant digitss"};
NamedGlobalProperty<integer, integer_of_hexadecimal>                hexadecimal       {"hexadecimal integer", "hexadecimal integers"};

Cast<integer, inspector_string, asInteger>                          fromString        {"integer"};
Cast<inspector_string, integer, asString>                           toString          {"string"};
Cast<integer, integer, Identity>                                    toInteger         {"integer"};
Cast<inspector_string, integer, AsHexadecimalString>                toHexadecimal     {"hexadecimal"};

UnaryOperatorMinus<integer>                                         negate;
OperatorPlus<integer, integer, integer>                             plus;
BinaryOperatorMinus<integer, integer, integer>                      minus;
OperatorTimes<integer, integer, integer>                            times;
OperatorDivide<integer, integer, integer>                           divide;
OperatorModulo<integer, integer, integer>                           modulo;
// clang-format on

}  // namespace
