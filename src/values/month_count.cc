#include "values/month_count.h"

#include "values/aggregates.h"
#include "values/time_text.h"

namespace {

template <int64_t Months>
month_count Unit() {
    return month_count(Months);
}

// "-1 years, 2 months"; kept as it stands: no unit has a singular form.
inspector_string AsText(const month_count& months) {
    TimeLine line;
    auto magnitude = static_cast<uint64_t>(months.Count());
    if (months.Count() < 0) {
        line.Add('-');
        magnitude = 0 - magnitude;
    }
    const uint64_t years = magnitude / 12;
    const uint64_t rest = magnitude % 12;
    if (years != 0) {
        line.Add(years, 1).Add(std::string_view(" years"));
    }
    if (years != 0 && rest != 0) {
        line.Add(std::string_view(", "));
    }
    if (years == 0 || rest != 0) {
        line.Add(rest, 1).Add(std::string_view(" months"));
    }
    return line.Text();
}

// clang-format off
Type<month_count>                                                   type;
ComparableInspectorRegistration<month_count>                        comparable;

GlobalProperty<month_count, Unit<1>>                                month     {"month", "months"};
GlobalProperty<month_count, Unit<12>>                               year      {"year", "years"};

Cast<inspector_string, month_count, AsText>                         toString  {"string"};

UnaryOperatorMinus<month_count>                                     negate;
OperatorPlus<month_count, month_count, month_count>                 plus;
BinaryOperatorMinus<month_count, month_count, month_count>          minus;
OperatorModulo<month_count, month_count, month_count>               modulo;
OperatorTimes<month_count, integer, month_count>                    timesInteger;
OperatorTimes<integer, month_count, month_count>                    integerTimes;
OperatorDivide<month_count, month_count, integer>                   ratio;
OperatorDivide<month_count, integer, month_count>                   divide;
// clang-format on

}  // namespace
