#include "values/year.h"

#include "values/aggregates.h"
#include "values/stepping.h"
#include "values/time_interval.h"

namespace {

std::optional<year> OfInteger(const integer& number) { return year::Of(number.Value()); }

std::optional<year> OfText(const inspector_string& text) {
    const std::optional<integer> number = ParseInteger(text.View());
    return number ? OfInteger(*number) : std::nullopt;
}

integer AsInteger(const year& y) { return y.Number(); }
inspector_string AsText(const year& y) { return IntegerText(y.Number()); }
boolean Leap(const year& y) { return Calendar::IsLeapYear(y.Number()); }
std::optional<time_interval> Length(const year& y) {
    return time_interval::OfDays(Calendar::IsLeapYear(y.Number()) ? 366 : 365);
}

// clang-format off
Type<year>                                                          type;
ComparableInspectorRegistration<year>                               comparable;

PropertyByIndexOfWorld<year, integer, OfInteger>                    ofInteger    {"year", "years"};
Property<year, time_interval, Length>                               length       {"length", "lengths"};
Property<year, boolean, Leap>                                       leap         {"leap", "leaps"};

Cast<year, integer, OfInteger>                                      fromInteger  {"year"};
Cast<year, inspector_string, OfText>                                fromString   {"year"};
Cast<integer, year, AsInteger>                                      toInteger    {"integer"};
Cast<inspector_string, year, AsText>                                toString     {"string"};

SteppingRegistration<year, month_count>                             stepping;
BinaryOperatorMinus<year, year, month_count>                        minus;
// clang-format on

}  // namespace
