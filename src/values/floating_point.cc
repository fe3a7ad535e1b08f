#include "values/floating_point.h"

#include <array>
#include <cfenv>
#include <cmath>

#include "evaluator/adapters.h"
#include "values/floating_point_text.h"

// The functions of the mathematics library are called by their own names: this file is compiled so that the compiler
// knows nothing about those, and the names of <cmath> stand for what it knows.

namespace {

struct Watched {
    long double value;
    unsigned flags;
};

#if defined(__x86_64__) || defined(__i386__)

static_assert(FE_INVALID == floating_point::kInvalid && FE_DIVBYZERO == floating_point::kDividedByZero &&
              FE_OVERFLOW == floating_point::kOverflow && FE_UNDERFLOW == floating_point::kUnderflow &&
              FE_INEXACT == floating_point::kInexact && FE_ALL_EXCEPT == 61);

// The arithmetic is x87 alone, so that the other unit's status, which the library's functions touch too at many times
// the price, has nothing to tell.  `result` goes through the instruction, or the compiler would be free to compute it
// later; and memory does, or it would be free to compute a threshold, which does not count, before.
unsigned StatusAfter(long double& result) {
    unsigned short status;
    asm volatile("fnstsw %0" : "=a"(status), "+t"(result) : : "memory");
    return status & unsigned{FE_ALL_EXCEPT};
}

// One operation, with the exceptions that its operands carry and those that it raises.  Clearing the status costs more
// than the operation.  But the status only ever gathers: what it does not show was not raised, and what the operands
// carry anyway need not be told apart from what was there before.  Only where it shows more is it cleared, and the
// operation done once more; its operands go through the clearing, or the compiler would keep the first result.
template <class Operation>
Watched Watch(long double a, long double b, unsigned carried, Operation operation) {
    long double result = operation(a, b);
    if ((StatusAfter(result) & ~carried) == 0) {
        return {result, carried};
    }
    asm volatile("fnclex" : "+m"(a), "+m"(b) : : "memory");
    result = operation(a, b);
    return {result, carried | StatusAfter(result)};
}

unsigned RaisedExceptions() { return static_cast<unsigned>(std::fetestexcept(FE_ALL_EXCEPT)); }

#else

unsigned RaisedExceptions() {
    const int raised = std::fetestexcept(FE_ALL_EXCEPT);
    return ((raised & FE_INVALID) != 0 ? floating_point::kInvalid : 0u) |
           ((raised & FE_DIVBYZERO) != 0 ? floating_point::kDividedByZero : 0u) |
           ((raised & FE_OVERFLOW) != 0 ? floating_point::kOverflow : 0u) |
           ((raised & FE_UNDERFLOW) != 0 ? floating_point::kUnderflow : 0u) |
           ((raised & FE_INEXACT) != 0 ? floating_point::kInexact : 0u);
}

template <class Operation>
Watched Watch(volatile long double a, volatile long double b, unsigned carried, Operation operation) {
    std::feclearexcept(FE_ALL_EXCEPT);
    const volatile long double result = operation(a, b);
    return {result, carried | RaisedExceptions()};
}

#endif

// What library functions compute: they may raise exceptions in either unit.
template <class Computation>
Watched WatchCalls(Computation computation) {
    std::feclearexcept(FE_ALL_EXCEPT);
    const volatile long double result = computation();
    return {result, RaisedExceptions()};
}

constexpr auto kSum = [](long double a, long double b) { return a + b; };
constexpr auto kDifference = [](long double a, long double b) { return a - b; };
constexpr auto kProduct = [](long double a, long double b) { return a * b; };
constexpr auto kQuotient = [](long double a, long double b) { return a / b; };

// The threshold of a product of two uncertain factors.
long double ProductThreshold(const floating_point& a, const floating_point& b) {
    return ::hypotl(::hypotl(a.Value() * b.Threshold(), b.Value() * a.Threshold()), a.Threshold() * b.Threshold());
}

}  // namespace

floating_point operator-(const floating_point& a) { return {-a.value_, a.threshold_, a.flags_}; }

floating_point operator+(const floating_point& a, const floating_point& b) {
    const Watched sum = Watch(a.value_, b.value_, a.flags_ | b.flags_, kSum);
    return {sum.value, ::hypotl(a.threshold_, b.threshold_), sum.flags};
}

floating_point operator-(const floating_point& a, const floating_point& b) {
    const Watched difference = Watch(a.value_, b.value_, a.flags_ | b.flags_, kDifference);
    return {difference.value, ::hypotl(a.threshold_, b.threshold_), difference.flags};
}

floating_point operator*(const floating_point& a, const floating_point& b) {
    const Watched product = Watch(a.value_, b.value_, a.flags_ | b.flags_, kProduct);
    return {product.value, ProductThreshold(a, b), product.flags};
}

floating_point operator/(const floating_point& a, const floating_point& b) {
    const Watched quotient = Watch(a.value_, b.value_, a.flags_ | b.flags_, kQuotient);
    return {quotient.value, ProductThreshold(a, b) / b.value_ / b.value_, quotient.flags};
}

floating_point operator+(const floating_point& a, integer n) {
    const Watched sum = Watch(a.value_, floating_point::Exact(n), a.flags_, kSum);
    return {sum.value, a.threshold_, sum.flags};
}

floating_point operator-(const floating_point& a, integer n) {
    const Watched difference = Watch(a.value_, floating_point::Exact(n), a.flags_, kDifference);
    return {difference.value, a.threshold_, difference.flags};
}

// Kept as it stands: a negative factor or divisor makes the threshold negative.
floating_point operator*(const floating_point& a, integer n) {
    const Watched product = Watch(a.value_, floating_point::Exact(n), a.flags_, kProduct);
    return {product.value, a.threshold_ * floating_point::Exact(n), product.flags};
}

floating_point operator/(const floating_point& a, integer n) {
    const Watched quotient = Watch(a.value_, floating_point::Exact(n), a.flags_, kQuotient);
    return {quotient.value, a.threshold_ / floating_point::Exact(n), quotient.flags};
}

floating_point operator+(integer n, const floating_point& a) { return a + n; }

floating_point operator-(integer n, const floating_point& a) {
    const Watched difference = Watch(floating_point::Exact(n), a.value_, a.flags_, kDifference);
    return {difference.value, a.threshold_, difference.flags};
}

floating_point operator*(integer n, const floating_point& a) { return a * n; }

floating_point operator/(integer n, const floating_point& a) {
    const Watched quotient = Watch(floating_point::Exact(n), a.value_, a.flags_, kQuotient);
    return {quotient.value, a.threshold_ * floating_point::Exact(n) / a.value_ / a.value_, quotient.flags};
}

long double NearestInteger(long double x) { return x - ::remainderl(x, 1); }

namespace {

// `whole` is an integer, an infinity or a NaN.
std::optional<integer> IntegerOf(long double whole) {
    if (!(whole >= static_cast<long double>(integer::kLeast) &&
          whole <= static_cast<long double>(integer::kGreatest))) {
        return std::nullopt;
    }
    return integer(static_cast<int64_t>(whole));
}

}  // namespace

std::optional<integer> IntegerFloor(const floating_point& x) { return IntegerOf(::floorl(x.Value())); }
std::optional<integer> IntegerCeiling(const floating_point& x) { return IntegerOf(::ceill(x.Value())); }
std::optional<integer> asRoundedInteger(const floating_point& x) { return IntegerOf(NearestInteger(x.Value())); }

long double PowerOfTen(int64_t n) {
    // Powers far from 1 cost a good part of a microsecond each; the near ones are asked for again and again.
    constexpr int64_t kNear = 80;
    static const auto near = [] {
        std::array<long double, 2 * kNear + 1> powers;
        for (int64_t i = -kNear; i <= kNear; ++i) {
            powers[static_cast<size_t>(i + kNear)] = ::powl(10, static_cast<long double>(i));
        }
        return powers;
    }();
    if (n >= -kNear && n <= kNear) {
        return near[static_cast<size_t>(n + kNear)];
    }
    if (n > std::numeric_limits<long double>::max_exponent10) {
        return std::numeric_limits<long double>::infinity();
    }
    // The least number that is not zero lies one more than its digits below the least normal one.
    constexpr int kLowest =
        std::numeric_limits<long double>::min_exponent10 - std::numeric_limits<long double>::digits10;
    return n < kLowest - 3 ? 0 : ::powl(10, static_cast<long double>(n));
}

namespace {

floating_point Itself(const floating_point& x) { return x; }

floating_point FromInteger(const integer& n) { return floating_point(n); }

// The exceptions of x are not those of its threshold, which stands here as it is.
floating_point significance_threshold(const floating_point& x) { return {x.Threshold(), x.Threshold() * 0.01, 0}; }

// The decimal place down to which the digits mean something, counted from the point and from the first digit.
constexpr long double kPlaceThreshold = 0.01;

floating_point absolute_significance(const floating_point& x) {
    const Watched place = WatchCalls([&x] { return ::log10l(x.Threshold()); });
    return {place.value, kPlaceThreshold, place.flags};
}

floating_point relative_significance(const floating_point& x) {
    const Watched place = WatchCalls([&x] { return ::log10l(::fabsl(x.Value())) - ::log10l(x.Threshold()); });
    return {place.value, kPlaceThreshold, place.flags};
}

floating_point WithThreshold(const floating_point& x, long double threshold) {
    return {x.Value(), threshold, x.Flags()};
}

floating_point more_digits(integer n, const floating_point& x) {
    return WithThreshold(x, x.Threshold() / PowerOfTen(n.Value()));
}
floating_point fewer_digits(integer n, const floating_point& x) {
    return WithThreshold(x, x.Threshold() * PowerOfTen(n.Value()));
}
floating_point absolute_significance_of(integer n, const floating_point& x) {
    return WithThreshold(x, PowerOfTen(n.Value()));
}
floating_point relative_significance_of(integer n, const floating_point& x) {
    return WithThreshold(x, ::fabsl(x.Value()) / PowerOfTen(n.Value()));
}

template <floating_point::Flag Bit>
boolean Raised(const floating_point& x) {
    return (x.Flags() & Bit) != 0;
}

boolean Finite(const floating_point& x) { return ::fabsl(x.Value()) <= floating_point::kGreatest; }
boolean Infinite(const floating_point& x) { return ::fabsl(x.Value()) > floating_point::kGreatest; }
boolean NotANumber(const floating_point& x) { return x.Value() != x.Value(); }
boolean Normal(const floating_point& x) { return Finite(x) && ::fabsl(x.Value()) >= floating_point::kLeastNormal; }

std::optional<floating_point> MakeFloatingPoint(const inspector_string& text) { return asFloatingPoint(text); }

// clang-format off
using F = floating_point;

Type<F>                                                        type;

NamedGlobalProperty<F, MakeFloatingPoint>                      ofString          {"floating point", "floating points"};
PropertyByIndexOfWorld<F, F, Itself>                           ofItself          {"floating point", "floating points"};
Property<F, F, significance_threshold>                         threshold         {"significance threshold", "significance thresholds"};
Property<F, F, absolute_significance>                          place             {"significance place", "significance places"};
Property<F, F, relative_significance>                          relativePlace     {"relative significance place", "relative significance places"};
NumberedProperty<F, F, more_digits>                            moreDigits        {"more significance", "more significances"};
NumberedProperty<F, F, fewer_digits>                           fewerDigits       {"less significance", "less significances"};
NumberedProperty<F, F, absolute_significance_of>               toPlace           {"significance place", "significance places"};
NumberedProperty<F, F, relative_significance_of>               toRelativePlace   {"relative significance place", "relative significance places"};
Property<F, boolean, Raised<F::kDividedByZero>>                dividedByZero     {"divided by zero", "divided by zeroes"};
Property<F, boolean, Raised<F::kInexact>>                      inexact           {"inexact", "inexacts"};
Property<F, boolean, Raised<F::kInvalid>>                      invalid           {"invalid", "invalids"};
Property<F, boolean, Raised<F::kOverflow>>                     overflow          {"overflow", "overflows"};
Property<F, boolean, Raised<F::kUnderflow>>                    underflow         {"underflow", "underflows"};
Property<F, boolean, Finite>                                   finite            {"finite", "finites"};
Property<F, boolean, Infinite>                                 infinite          {"infinite", "infinites"};
Property<F, boolean, NotANumber>                               nan               {"nan", "nans"};
Property<F, boolean, Normal>                                   normal            {"normal", "normals"};
Property<F, integer, IntegerFloor>                             integerFloor      {"integer floor", "integer floors"};
Property<F, integer, IntegerCeiling>                           integerCeiling    {"integer ceiling", "integer ceilings"};

Cast<F, integer, FromInteger>                                  fromInteger       {"floating point"};
Cast<F, inspector_string, asFloatingPoint>                     fromString        {"floating point"};
Cast<F, F, Itself>                                             identity          {"floating point"};
Cast<integer, F, asRoundedInteger>                             toInteger         {"integer"};
Cast<inspector_string, F, asString>                            toString          {"string"};
Cast<inspector_string, F, asScientificNotation>                toScientific      {"scientific notation"};
Cast<inspector_string, F, asStandardNotation>                  toStandard        {"standard notation"};

UnaryOperatorMinus<F>                                          negate;
OperatorPlus<F, F, F>                                          plus;
BinaryOperatorMinus<F, F, F>                                   minus;
OperatorTimes<F, F, F>                                         times;
OperatorDivide<F, F, F>                                        divide;
OperatorPlus<F, integer, F>                                    plusInteger;
BinaryOperatorMinus<F, integer, F>                             minusInteger;
OperatorTimes<F, integer, F>                                   timesInteger;
OperatorDivide<F, integer, F>                                  divideByInteger;
OperatorPlus<integer, F, F>                                    integerPlus;
BinaryOperatorMinus<integer, F, F>                             integerMinus;
OperatorTimes<integer, F, F>                                   integerTimes;
OperatorDivide<integer, F, F>                                  integerDivide;
RelationEqual<F, integer>                                      equalInteger;
RelationLess<F, integer>                                       lessInteger;
RelationLessOrEqual<F, integer>                                lessOrEqualInteger;
RelationEqual<integer, F>                                      integerEqual;
RelationLess<integer, F>                                       integerLess;
RelationLessOrEqual<integer, F>                                integerLessOrEqual;
// clang-format on

}  // namespace
