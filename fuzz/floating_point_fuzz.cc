// Feeds arbitrary text to the reading of floating points, and what it gives, and any other number at any other
// threshold, to the three forms of writing.
//
// Whatever was read has a threshold of a real size and the flags of one range; what is written is read again, as a
// number no further from the first than its threshold allows; and the same goes for all that arithmetic makes of it.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>

#include "fuzz/expect.h"
#include "values/floating_point.h"
#include "values/floating_point_text.h"

namespace {

constexpr long double kInfinity = std::numeric_limits<long double>::infinity();

bool Same(long double a, long double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

// Standard notation ends at the 63rd place behind the point, where the number may have gone on.
void CheckReadAgain(const floating_point& x, std::string_view text) {
    const auto again = ParseFloatingPoint(text);
    Expect(again.has_value());
    const long double value = x.Value();
    if (!std::isfinite(value)) {
        Expect(Same(again->Value(), value));
    } else if (std::isfinite(x.Threshold())) {
        const long double magnitude = std::fabs(value);
        const long double ulp = std::fmax(magnitude - std::nextafter(magnitude, -1.0L), floating_point::kLeastNormal);
        const long double allowed = 0.6L * std::fmax(x.Threshold(), ulp) + magnitude * 1e-15L;
        const long double cut = text.find('e') == text.npos && magnitude < 1e-40L ? 1e-63L : 0;
        Expect(!std::isfinite(allowed) || std::fabs(again->Value() - value) <= allowed + cut);
    }
}

void CheckWritten(const floating_point& x) {
    for (auto* form : {StandardNotation, ScientificNotation, TextOf}) {
        try {
            const FloatingPointText text = form(x);
            Expect(!text.View().empty());
            Expect(form(x).View() == text.View());
            CheckReadAgain(x, text.View());
        } catch (const TooLargeForStandardNotation&) {
            Expect(form != ScientificNotation && std::fabs(x.Value()) > 0.999L * PowerOfTen(64));
        }
    }
}

void CheckRead(const floating_point& x) {
    constexpr unsigned kTooLarge = floating_point::kOverflow | floating_point::kInexact;
    constexpr unsigned kTooSmall = floating_point::kUnderflow | floating_point::kInexact;
    Expect(x.Threshold() >= floating_point::kLeastNormal);
    Expect(x.Flags() == 0 || (x.Flags() == kTooLarge && std::isinf(x.Value())) ||
           (x.Flags() == kTooSmall && std::fabs(x.Value()) < floating_point::kLeastNormal));
}

void CheckInteger(const floating_point& x) {
    const auto down = IntegerFloor(x);
    const auto up = IntegerCeiling(x);
    const auto nearest = asRoundedInteger(x);
    Expect(!down || (*down <= x && x < floating_point(*down) + integer(1)));
    Expect(!up || x <= *up);
    Expect(!down || !up || (nearest && *down <= *nearest && *nearest <= *up));
}

void CheckArithmetic(const floating_point& a, const floating_point& b) {
    for (const floating_point& result :
         {-a, a + b, a - b, a * b, a / b, a + integer(3), integer(3) - a, a * integer(-7), integer(7) * a,
          a / integer(-7), integer(7) / a, a / integer(0)}) {
        Expect((result.Flags() & a.Flags()) == a.Flags() && (result.Flags() & ~61u) == 0);
        CheckWritten(result);
        CheckInteger(result);
    }
    Expect(Same((a + b).Value(), (b + a).Value()) && Same((a * b).Value(), (b * a).Value()));
    Expect(!(a < b) || (a <= b && !(b < a) && !(a == b)));
}

// Any number of the format, from 11 bytes.
long double AnyNumber(const uint8_t* data) {
    uint64_t significand;
    uint16_t exponent;
    std::memcpy(&significand, data, sizeof significand);
    std::memcpy(&exponent, data + sizeof significand, sizeof exponent);
    if (data[10] == 255) {
        return std::numeric_limits<long double>::quiet_NaN();
    }
    const long double magnitude =
        data[10] == 254 ? kInfinity
                        : std::ldexp(static_cast<long double>(significand), static_cast<int>(exponent % 33000) - 16500);
    return data[10] % 2 == 0 ? magnitude : -magnitude;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    floating_point other(1.5L, 0.1L, 0);
    if (size >= 22) {
        other = floating_point(AnyNumber(data), AnyNumber(data + 11), 0);
        CheckWritten(other);
    }
    if (const auto number = ParseFloatingPoint(text)) {
        CheckRead(*number);
        CheckWritten(*number);
        CheckArithmetic(*number, other);
    }
    CheckArithmetic(other, floating_point(3, 1, floating_point::kInvalid));
    return 0;
}
