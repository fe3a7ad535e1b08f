#include "values/day_of_week.h"

#include "values/aggregates.h"
#include "values/stepping.h"
#include "values/time_text.h"

namespace {

template <int Number>
day_of_week Named() {
    return day_of_week(Number);
}

std::optional<day_of_week> OfText(const inspector_string& text) {
    const std::optional<int> number = DayOfWeekNamed(text.View());
    return number ? std::optional<day_of_week>(day_of_week(*number)) : std::nullopt;
}

// The names are constants, so that there is nothing to copy.
inspector_string AsText(const day_of_week& day) { return inspector_string(NameOfDayOfWeek(day.Number())); }
inspector_string ThreeLetters(const day_of_week& day) {
    return inspector_string(ThreeLettersOfDayOfWeek(day.Number()));
}

// clang-format off
Type<day_of_week>                                                   type;
UniqueValuesInspectorRegistration<day_of_week>                      uniqueValues;

GlobalProperty<day_of_week, Named<0>>                               sunday        {"sunday", "sundays"};
GlobalProperty<day_of_week, Named<1>>                               monday        {"monday", "mondays"};
GlobalProperty<day_of_week, Named<2>>                               tuesday       {"tuesday", "tuesdays"};
GlobalProperty<day_of_week, Named<3>>                               wednesday     {"wednesday", "wednesdays"};
GlobalProperty<day_of_week, Named<4>>                               thursday      {"thursday", "thursdays"};
GlobalProperty<day_of_week, Named<5>>                               friday        {"friday", "fridays"};
GlobalProperty<day_of_week, Named<6>>                               saturday      {"saturday", "saturdays"};
Property<day_of_week, inspector_string, ThreeLetters>               threeLetters  {"three letters", "three letterss"};

Cast<day_of_week, inspector_string, OfText>                         fromString    {"day_of_week"};
Cast<inspector_string, day_of_week, AsText>                         toString      {"string"};

RelationEqual<day_of_week>                                          equal;
SteppingRegistration<day_of_week, time_interval>                    stepping;
BinaryOperatorMinus<day_of_week, day_of_week, time_interval>        minus;
// clang-format on

}  // namespace
