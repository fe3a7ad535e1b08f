// Floating points against exact rational arithmetic, and what the language cannot show of them.
#include "values/floating_point.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstddef>
#include <ostream>
#include <string>

#include "foundation/const_data.h"
#include "registry/type_registry.h"
#include "values/floating_point_text.h"

namespace {

// What the table is made of: exact numbers, an infinity where the exponent is beyond every number.
struct Number {
    uint64_t significand;
    int exponent;
    bool negative = false;

    long double Value() const {
        const long double magnitude = std::ldexp(static_cast<long double>(significand), exponent);
        return negative ? -magnitude : magnitude;
    }
};

struct Operation {
    char sign;
    Number a;
    Number b;
    Number result;
    unsigned flags;
};

// A null text is too large for the form; an empty one is left to the mathematics library.
struct Written {
    Number value;
    Number threshold;
    const char* standard;
    const char* scientific;
    const char* plain;
};

struct Numeral {
    const char* text;
    Number value;
    Number threshold;
    unsigned flags;
    bool exact;
};

struct Stream {
    Number numbers[6];
    Number sum;
    unsigned sumFlags;
    Number product;
    unsigned productFlags;
};

#include "tests/values/floating_point_table.inc"

constexpr unsigned kAllFlags = 61;

floating_point Certain(long double value) { return {value, 1, 0}; }

floating_point Compute(char sign, const floating_point& a, const floating_point& b) {
    switch (sign) {
        case '+':
            return a + b;
        case '-':
            return a - b;
        case '*':
            return a * b;
        default:
            return a / b;
    }
}

TEST(FloatingPointArithmetic, GivesTheNearestNumberAndItsExceptions) {
    for (const Operation& operation : kOperations) {
        const floating_point a = Certain(operation.a.Value());
        const floating_point b = Certain(operation.b.Value());
        const floating_point result = Compute(operation.sign, a, b);
        EXPECT_EQ(result.Value(), operation.result.Value()) << a.Value() << operation.sign << b.Value();
        EXPECT_EQ(result.Flags(), operation.flags) << a.Value() << operation.sign << b.Value();
    }
}

// What other code left in the processor's status is not a number's own.
TEST(FloatingPointArithmetic, SeesOnlyItsOwnExceptions) {
    std::feraiseexcept(FE_ALL_EXCEPT);
    EXPECT_EQ((Certain(1) + Certain(1)).Flags(), 0u);
    std::feraiseexcept(FE_ALL_EXCEPT);
    EXPECT_EQ((Certain(1) / Certain(3)).Flags(), floating_point::kInexact);
    EXPECT_EQ((Certain(1) / integer(0)).Flags(), floating_point::kDividedByZero);
    EXPECT_EQ((integer(1) / Certain(0)).Flags(), floating_point::kDividedByZero);
    EXPECT_EQ((Certain(1) * integer(3)).Flags(), 0u);
    std::feclearexcept(FE_ALL_EXCEPT);
    EXPECT_EQ((Certain(1) - Certain(1)).Flags(), 0u);
}

TEST(FloatingPointArithmetic, JoinsTheExceptionsOfBothSides) {
    const floating_point a(1, 1, floating_point::kInvalid);
    const floating_point b(3, 1, floating_point::kUnderflow);
    for (char sign : {'+', '-', '*'}) {
        EXPECT_EQ(Compute(sign, a, b).Flags(), unsigned{floating_point::kInvalid | floating_point::kUnderflow});
    }
    EXPECT_EQ((a / b).Flags(),
              unsigned{floating_point::kInvalid | floating_point::kUnderflow | floating_point::kInexact});
    EXPECT_EQ((-a).Flags(), unsigned{floating_point::kInvalid});
    const floating_point all(1, 1, kAllFlags);
    for (const floating_point& result : {all + integer(1), all - integer(1), all * integer(2), all / integer(2),
                                         integer(1) + all, integer(1) - all, integer(2) * all, integer(2) / all}) {
        EXPECT_EQ(result.Flags(), kAllFlags);
    }
}

// Thresholds that are Pythagorean triples, so that every root is a whole number.
TEST(FloatingPointArithmetic, CarriesTheThresholdAlong) {
    const floating_point a(100, 3, 0);
    const floating_point b(200, 4, 0);
    EXPECT_EQ((a + b).Threshold(), 5);
    EXPECT_EQ((a - b).Threshold(), 5);
    EXPECT_EQ((-a).Threshold(), 3);
    // a * tb = 3, b * ta = 4, ta * tb = 12.
    const floating_point c(1, 4, 0);
    const floating_point d(1, 3, 0);
    EXPECT_EQ((c * d).Threshold(), 13);
    EXPECT_EQ((c / d).Threshold(), 13);
    // a * tb = 12, b * ta = 16, ta * tb = 48: the root of 2704.
    const floating_point e(2, 8, 0);
    const floating_point f(2, 6, 0);
    EXPECT_EQ((e * f).Threshold(), 52);
    EXPECT_EQ((e / f).Threshold(), 13);
}

TEST(FloatingPointArithmetic, TakesAnIntegerForExact) {
    const floating_point a(8, 3, 0);
    for (const floating_point& result : {a + integer(2), integer(2) + a, a - integer(2), integer(2) - a}) {
        EXPECT_EQ(result.Threshold(), 3);
    }
    EXPECT_EQ((a * integer(-2)).Threshold(), -6);
    EXPECT_EQ((integer(-2) * a).Threshold(), -6);
    EXPECT_EQ((a / integer(-2)).Threshold(), -1.5L);
    EXPECT_EQ((integer(-64) / a).Threshold(), -3);
    EXPECT_EQ((integer(2) - a).Value(), -6);
    EXPECT_EQ((integer(16) / a).Value(), 2);
}

// The result of an aggregate over the stream, each number at the threshold 1.
floating_point Aggregated(const char* phrase, const Stream& stream) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    const PropertyAccessor& accessor =
        *registry.Property(registry.TypeByName("floating point"), phrase, registry.WorldType()).accessor;
    alignas(std::max_align_t) unsigned char state[256];
    EXPECT_LE(accessor.stateSize, sizeof state);
    accessor.constructState(state);
    accessor.firstInitial(nullptr, nullptr, nullptr, state, accessor.data);
    for (const Number& number : stream.numbers) {
        const floating_point value = Certain(number.Value());
        accessor.firstMiddle(nullptr, nullptr, &value, state, accessor.data);
    }
    floating_point result;
    EXPECT_TRUE(accessor.firstFinal(&result, nullptr, nullptr, state, accessor.data));
    accessor.destroyState(state);
    return result;
}

TEST(FloatingPointAggregates, RoundAtEveryStep) {
    for (const Stream& stream : kStreams) {
        const floating_point sum = Aggregated("sum", stream);
        EXPECT_EQ(sum.Value(), stream.sum.Value());
        EXPECT_EQ(sum.Flags(), stream.sumFlags);
        EXPECT_LE(std::fabs(sum.Threshold() - std::sqrt(6.0L)), 0x1p-60L);
        const floating_point product = Aggregated("product", stream);
        EXPECT_EQ(product.Value(), stream.product.Value());
        EXPECT_EQ(product.Flags(), stream.productFlags);
    }
}

std::string TextIn(FloatingPointText (*form)(const floating_point&), const floating_point& x) {
    try {
        return std::string(form(x).View());
    } catch (const TooLargeForStandardNotation&) {
        return "too large";
    }
}

void ExpectText(FloatingPointText (*form)(const floating_point&), const Written& sample, const char* expected) {
    if (expected == nullptr || *expected != '\0') {
        EXPECT_EQ(TextIn(form, floating_point(sample.value.Value(), sample.threshold.Value(), 0)),
                  expected == nullptr ? "too large" : expected)
            << sample.value.Value() << " at " << sample.threshold.Value();
    }
}

TEST(FloatingPointTexts, AreCutFromTheExactNumber) {
    for (const Written& sample : kWritten) {
        ExpectText(StandardNotation, sample, sample.standard);
        ExpectText(ScientificNotation, sample, sample.scientific);
        ExpectText(TextOf, sample, sample.plain);
    }
}

TEST(FloatingPointTexts, LoseEveryDigitAtAThresholdThatIsNoNumber) {
    constexpr long double kInfinity = std::numeric_limits<long double>::infinity();
    constexpr long double kNaN = std::numeric_limits<long double>::quiet_NaN();
    for (long double threshold : {kInfinity, kNaN, -kNaN, floating_point::kGreatest}) {
        for (auto* form : {StandardNotation, ScientificNotation, TextOf}) {
            EXPECT_EQ(TextIn(form, {5, threshold, 0}), "0");
            EXPECT_EQ(TextIn(form, {-1e-30L, threshold, 0}), "-0");
            EXPECT_EQ(TextIn(form, {0, threshold, 0}), "0.0");
            EXPECT_EQ(TextIn(form, {kInfinity, threshold, 0}), "+infinity");
            EXPECT_EQ(TextIn(form, {-kInfinity, threshold, 0}), "-infinity");
            EXPECT_EQ(TextIn(form, {kNaN, threshold, 0}), "NaN");
            EXPECT_EQ(TextIn(form, {floating_point::kGreatest, threshold, 0}), "0");
        }
    }
    EXPECT_EQ(TextIn(StandardNotation, {5, -kInfinity, 0}), "5.0000000000000000000");
    EXPECT_EQ(TextIn(StandardNotation, {5, 0, 0}), "5.0000000000000000000");
}

// Read and written again, every power of ten is itself.
TEST(FloatingPointTexts, KeepEveryPowerOfTen) {
    for (int n = -4931; n <= 4932; ++n) {
        const std::string exponent = n == 0 ? "" : (n > 0 ? "e+" : "e") + std::to_string(n);
        for (const char* mantissa : {"1", "1.0", "1.0000"}) {
            // The last digit that a number so near to the least normal one has.
            if (n > -4926 || mantissa[1] == '\0') {
                const std::string text = mantissa + exponent;
                EXPECT_EQ(TextIn(ScientificNotation, *ParseFloatingPoint(text + (n == 0 ? "e0" : ""))), text);
            }
        }
    }
}

TEST(FloatingPointTexts, RefuseWhatDoesNotFit) {
    FloatingPointText text;
    text.Append('0', FloatingPointText::kCapacity);
    text.Append("");
    EXPECT_THROW(text.Append("1"), ConstDataCapacityExceeded);
    EXPECT_THROW(text.Append('1'), ConstDataCapacityExceeded);
    EXPECT_EQ(text.View(), std::string(FloatingPointText::kCapacity, '0'));
}

TEST(FloatingPointNumerals, AreTheSumOfTheirDigits) {
    for (const Numeral& numeral : kNumerals) {
        const auto number = ParseFloatingPoint(numeral.text);
        ASSERT_TRUE(number) << numeral.text;
        EXPECT_EQ(number->Flags(), numeral.flags) << numeral.text;
        const long double value = numeral.value.Value();
        const long double threshold = numeral.threshold.Value();
        if (numeral.exact || std::isinf(value)) {
            EXPECT_EQ(number->Value(), value) << numeral.text;
        } else {
            // Powers of ten are right to an ulp or two, and so is each step of the sum.
            EXPECT_LE(std::fabs(number->Value() - value), std::fabs(value) * 0x1p-58L) << numeral.text;
        }
        if (std::isinf(threshold)) {
            EXPECT_EQ(number->Threshold(), threshold) << numeral.text;
        } else {
            EXPECT_LE(std::fabs(number->Threshold() - threshold), threshold * 0x1p-60L) << numeral.text;
        }
    }
}

TEST(FloatingPointNumerals, TellZerosByTheirSigns) {
    for (const char* text : {"-0", "-0.00", " - 0e5", "-.0", "-0e-99999999999999999999"}) {
        const auto zero = ParseFloatingPoint(text);
        ASSERT_TRUE(zero) << text;
        EXPECT_EQ(zero->Value(), 0);
        EXPECT_TRUE(std::signbit(zero->Value())) << text;
        EXPECT_EQ(zero->Flags(), 0u);
    }
    EXPECT_FALSE(std::signbit(ParseFloatingPoint("0")->Value()));
    EXPECT_TRUE(std::signbit(ParseFloatingPoint("-1e-5000")->Value()));
}

// A far exponent is brought back by as many digits, and by no fewer.
TEST(FloatingPointNumerals, WeighLongTextsAgainstFarExponents) {
    EXPECT_EQ(ParseFloatingPoint("1" + std::string(100000, '0') + "e-100000")->Value(), 1);
    EXPECT_EQ(ParseFloatingPoint("." + std::string(99999, '0') + "1e100000")->Value(), 1);
    EXPECT_EQ(ParseFloatingPoint(std::string(100000, ' ') + "1" + std::string(100000, ' '))->Value(), 1);
    EXPECT_EQ(ParseFloatingPoint(std::string(1000000, '0') + "1")->Value(), 1);
    EXPECT_TRUE(std::isinf(ParseFloatingPoint(std::string(1000000, '9'))->Value()));
    EXPECT_EQ(ParseFloatingPoint("." + std::string(1000000, '9'))->Value(), 1);
    for (const char* far : {"9223372036854775807", "9223372036854775808", "18446744073709551616", "100000000000000000",
                            "99999999999999999999999999999999999999999"}) {
        EXPECT_TRUE(std::isinf(ParseFloatingPoint(std::string("1.5e") + far)->Value())) << far;
        EXPECT_EQ(ParseFloatingPoint(std::string("1.5e-") + far)->Value(), 0) << far;
        EXPECT_EQ(ParseFloatingPoint(std::string("0.0e") + far)->Value(), 0) << far;
    }
}

// One byte that no rule knows, anywhere in a numeral, is no numeral.
TEST(FloatingPointNumerals, TakeNoByteThatHasNoMeaning) {
    const std::string text = " - 1 2.3 4e + 5 ";
    ASSERT_EQ(ParseFloatingPoint(text)->Value(), -1234000);
    for (size_t i = 0; i <= text.size(); ++i) {
        for (int c = 0; c < 256; ++c) {
            const char byte = static_cast<char>(c);
            const bool known = byte == ' ' || (byte >= '0' && byte <= '9') || byte == '-' || byte == '+' ||
                               byte == '.' || byte == 'e' || byte == 'E';
            std::string changed = text;
            changed.insert(i, 1, byte);
            const auto number = ParseFloatingPoint(changed);
            EXPECT_FALSE(number && !known) << changed;
            EXPECT_EQ(byte == ' ' && !number, false) << changed;
        }
    }
}

// 10 to the n is exact as far as the format holds it; the place of every digit rests on that.
TEST(PowersOfTen, AreExactWhereTheyCanBe) {
    long double power = 1;
    for (int n = 0; n <= 27; ++n, power *= 10) {
        EXPECT_EQ(PowerOfTen(n), power) << n;
    }
    EXPECT_TRUE(std::isinf(PowerOfTen(4933)));
    EXPECT_TRUE(std::isinf(PowerOfTen(integer::kGreatest)));
    EXPECT_EQ(PowerOfTen(-4952), 0);
    EXPECT_EQ(PowerOfTen(integer::kLeast), 0);
    EXPECT_GT(PowerOfTen(-4950), 0);
    for (int n = -4931; n <= 4931; ++n) {
        EXPECT_LT(PowerOfTen(n), PowerOfTen(n + 1)) << n;
    }
}

TEST(FloatingPointType, IsRegisteredWithItsSizeAndNoFingerprint) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    const GuardType* type = registry.TypeByName("floating point");
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->size, 28u);
    EXPECT_EQ(type->fingerprint, nullptr);
    const GuardType* counted = registry.TypeByName("floating point with multiplicity");
    ASSERT_NE(counted, nullptr);
    EXPECT_EQ(counted->size, 36u);
    EXPECT_EQ(counted->fingerprint, nullptr);
}

}  // namespace
