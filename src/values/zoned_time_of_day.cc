#include "values/zoned_time_of_day.h"

#include "values/aggregates.h"
#include "values/clock_parts.h"
#include "values/moment.h"
#include "values/stepping.h"
#include "values/time_language.h"
#include "values/time_text.h"

namespace {

TimeText Parsed(const inspector_string& text) { return TimeText::Parsed(TimeGrammar::kZonedTimeOfDay, text.Data()); }

zoned_time_of_day In(const TimeText& text, time_zone zone) {
    return {time_of_day::OfSeconds(text.ClockSeconds()),
            text.HasZone() ? time_zone::OfSeconds(text.ZoneSeconds()) : zone};
}

std::optional<zoned_time_of_day> Zoned(const inspector_string& text) {
    const TimeText parsed = Parsed(text);
    return parsed.HasZone() ? std::optional<zoned_time_of_day>(In(parsed, time_zone())) : std::nullopt;
}

std::optional<zoned_time_of_day> UniversalZoned(const inspector_string& text) {
    const TimeText parsed = Parsed(text);
    return parsed.Good() ? std::optional<zoned_time_of_day>(In(parsed, time_zone())) : std::nullopt;
}

std::optional<zoned_time_of_day> LocalZoned(const inspector_string& text) {
    const TimeText parsed = Parsed(text);
    return parsed.Good() ? std::optional<zoned_time_of_day>(In(parsed, LocalTimeZone())) : std::nullopt;
}

zoned_time_of_day CurrentTimeOfDay(const time_zone& zone) {
    const Calendar::Reading reading = Calendar::ReadingOf(Now().Microseconds(), zone.Offset().Microseconds());
    return {time_of_day(time_interval(reading.microseconds)), zone};
}

time_of_day Time(const zoned_time_of_day& time) { return time.Time(); }
time_zone Zone(const zoned_time_of_day& time) { return time.Zone(); }

// "09:05:00 -0500"
inspector_string AsText(const zoned_time_of_day& time) {
    return TimeLine().AddClock(time.Time().Seconds()).Add(' ').AddZone(time.Zone().Offset().Microseconds()).Text();
}

// clang-format off
Type<zoned_time_of_day>                                             type;
UniqueValuesInspectorRegistration<zoned_time_of_day>                uniqueValues;

ClockPartsRegistration<zoned_time_of_day>                           parts;
Property<zoned_time_of_day, time_of_day, Time>                      time           {"time", "times"};
Property<zoned_time_of_day, time_zone, Zone>                        zone           {"zone", "zones"};
PropertyByIndexOfWorld<zoned_time_of_day, time_zone, CurrentTimeOfDay>
                                                                    current        {"current time_of_day", "current times_of_day", ByValueOnly};

Cast<zoned_time_of_day, inspector_string, Zoned>                    fromString     {"zoned time_of_day"};
Cast<zoned_time_of_day, inspector_string, LocalZoned>               fromLocal      {"local zoned time_of_day", DependsOn<timeZoneDependency>};
Cast<zoned_time_of_day, inspector_string, UniversalZoned>           fromUniversal  {"universal zoned time_of_day"};
Cast<inspector_string, zoned_time_of_day, AsText>                   toString       {"string"};

RelationEqual<zoned_time_of_day>                                    equal;
SteppingRegistration<zoned_time_of_day, time_interval>              stepping;
BinaryOperatorMinus<zoned_time_of_day, zoned_time_of_day, time_interval>
                                                                    minus;
// clang-format on

}  // namespace
