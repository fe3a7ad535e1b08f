#include "values/time_of_day.h"

#include "values/aggregates.h"
#include "values/clock_parts.h"
#include "values/stepping.h"
#include "values/time_language.h"
#include "values/time_text.h"

std::optional<time_of_day> ParseTimeOfDay(const inspector_string& text) {
    const TimeText parsed = TimeText::Parsed(TimeGrammar::kTimeOfDay, text.Data());
    return parsed.Good() ? std::optional<time_of_day>(time_of_day::OfSeconds(parsed.ClockSeconds())) : std::nullopt;
}

inspector_string TimeOfDayText(const time_of_day& time) { return TimeLine().AddClock(time.Seconds()).Text(); }

namespace {

time_of_day Midnight() { return time_of_day::OfSeconds(0); }
time_of_day Noon() { return time_of_day::OfSeconds(12 * 3600); }

// clang-format off
Type<time_of_day>                                                   type;
ComparableInspectorRegistration<time_of_day>                        comparable;

GlobalProperty<time_of_day, Midnight>                               midnight    {"midnight", "midnights"};
GlobalProperty<time_of_day, Noon>                                   noon        {"noon", "noons"};
ClockPartsRegistration<time_of_day>                                 parts;
NamedGlobalProperty<time_of_day, ParseTimeOfDay>                    ofString    {"time_of_day", "times_of_day"};

Cast<time_of_day, inspector_string, ParseTimeOfDay>                 fromString  {"time_of_day"};
Cast<inspector_string, time_of_day, TimeOfDayText>                  toString    {"string"};

SteppingRegistration<time_of_day, time_interval>                    stepping;
BinaryOperatorMinus<time_of_day, time_of_day, time_interval>        minus;
// clang-format on

}  // namespace
