#include "values/day_of_month.h"

#include "values/aggregates.h"
#include "values/stepping.h"
#include "values/time_text.h"

namespace {

std::optional<day_of_month> OfInteger(const integer& number) { return day_of_month::Of(number.Value()); }

std::optional<day_of_month> OfText(const inspector_string& text) {
    const std::optional<integer> number = ParseInteger(text.View());
    return number ? OfInteger(*number) : std::nullopt;
}

integer AsInteger(const day_of_month& day) { return day.Number(); }
inspector_string AsText(const day_of_month& day) { return IntegerText(day.Number()); }
inspector_string TwoDigits(const day_of_month& day) {
    return TimeLine().Add(static_cast<uint64_t>(day.Number()), 2).Text();
}

// clang-format off
Type<day_of_month>                                                  type;
ComparableInspectorRegistration<day_of_month>                       comparable;

PropertyByIndexOfWorld<day_of_month, integer, OfInteger>            ofInteger    {"day_of_month", "days_of_month"};
Property<day_of_month, inspector_string, TwoDigits>                 twoDigits    {"two digits", "two digitss"};

Cast<day_of_month, integer, OfInteger>                              fromInteger  {"day_of_month"};
Cast<day_of_month, inspector_string, OfText>                        fromString   {"day_of_month"};
Cast<integer, day_of_month, AsInteger>                              toInteger    {"integer"};
Cast<inspector_string, day_of_month, AsText>                        toString     {"string"};

SteppingRegistration<day_of_month, time_interval>                   stepping;
BinaryOperatorMinus<day_of_month, day_of_month, time_interval>      minus;
// clang-format on

}  // namespace
