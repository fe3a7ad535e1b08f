#include "values/hertz.h"

#include <charconv>

#include "evaluator/adapters.h"
#include "values/aggregates.h"
#include "values/string.h"

namespace {

template <int64_t Count>
hertz Unit() {
    return hertz(Count);
}

std::optional<hertz> AbsoluteValueH(const hertz& x) { return hertz::Of(AbsoluteValue(x.Count())); }

std::optional<hertz> SigDigitsH_of(integer n, const hertz& x) { return hertz::Of(SigDigitsI_of(n, x.Count())); }

// The count and the unit, with no singular form: "1 hertz".
inspector_string AsString(const hertz& x) {
    constexpr std::string_view kUnit = " hertz";
    char digits[24];
    const char* end = std::to_chars(digits, digits + sizeof digits, x.Count().Value()).ptr;
    const auto count = static_cast<size_t>(end - digits);
    return JoinedString({{digits, count}, kUnit});
}

// clang-format off
Type<hertz>                                                         type;
ComparableInspectorRegistration<hertz>                              comparable;

GlobalProperty<hertz, Unit<1>>                                      hz        {"hz", "hzs"};
GlobalProperty<hertz, Unit<1000>>                                   khz       {"khz", "khzs"};
GlobalProperty<hertz, Unit<1000000>>                                mhz       {"mhz", "mhzs"};
GlobalProperty<hertz, Unit<1000000000>>                             ghz       {"ghz", "ghzs"};
GlobalProperty<hertz, Unit<integer::kGreatest>>                     greatest  {"greatest hz", "greatest hzs"};
GlobalProperty<hertz, Unit<integer::kLeast>>                        least     {"least hz", "least hzs"};
Property<hertz, hertz, AbsoluteValueH>                              absolute  {"absolute value", "absolute values"};
NumberedProperty<hertz, hertz, SigDigitsH_of>                       digits    {"significant digits", "significant digitss"};

Cast<inspector_string, hertz, AsString>                             toString  {"string"};

UnaryOperatorMinus<hertz>                                           negate;
OperatorPlus<hertz, hertz, hertz>                                   plus;
BinaryOperatorMinus<hertz, hertz, hertz>                            minus;
OperatorModulo<hertz, hertz, hertz>                                 modulo;
OperatorTimes<hertz, integer, hertz>                                timesInteger;
OperatorTimes<integer, hertz, hertz>                                integerTimes;
OperatorDivide<hertz, hertz, integer>                               ratio;
OperatorDivide<hertz, integer, hertz>                               divide;
// clang-format on

}  // namespace
