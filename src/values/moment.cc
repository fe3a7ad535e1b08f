#include "values/moment.h"

#include <ctime>

#include "values/aggregates.h"
#include "values/stepping.h"
#include "values/time_language.h"
#include "values/time_text.h"
#include "values/time_zone.h"

moment Now() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return moment(now.tv_sec * Calendar::kMicrosecondsOfASecond + now.tv_nsec / 1000);
}

namespace {

std::optional<inspector_string> TextInZone(const moment& time, const time_zone& zone) {
    const int64_t offset = zone.Offset().Microseconds();
    const Calendar::Reading reading = Calendar::ReadingOf(time.Microseconds(), offset);
    const std::optional<Calendar::Date> date = Calendar::DateOfDayNumber(reading.day);
    if (!date) {
        return std::nullopt;
    }
    TimeLine line;
    line.AddDate(*date).Add(' ').AddClock(reading.microseconds / Calendar::kMicrosecondsOfASecond).Add(' ');
    return line.AddZone(offset).Text();
}

}  // namespace

std::optional<inspector_string> UniversalTimeText(const moment& time) { return TextInZone(time, time_zone()); }
std::optional<inspector_string> LocalTimeText(const moment& time) { return TextInZone(time, LocalTimeZone()); }

namespace {

// The instant of a text, which says date, clock and zone; `zone` is the one of a text that names none.
std::optional<moment> InstantOf(const TimeText& text, time_zone zone) {
    const time_zone in = text.HasZone() ? time_zone::OfSeconds(text.ZoneSeconds()) : zone;
    const std::optional<int64_t> instant =
        Calendar::InstantOf({Calendar::DayNumber(text.Date()), text.ClockSeconds() * Calendar::kMicrosecondsOfASecond},
                            in.Offset().Microseconds());
    return instant ? std::optional<moment>(moment(*instant)) : std::nullopt;
}

std::optional<moment> ZonedTime(const inspector_string& text) {
    const TimeText parsed = TimeText::Parsed(TimeGrammar::kTime, text.Data());
    return parsed.HasZone() ? InstantOf(parsed, time_zone()) : std::nullopt;
}

std::optional<moment> UniversalTime(const inspector_string& text) {
    const TimeText parsed = TimeText::Parsed(TimeGrammar::kTime, text.Data());
    return parsed.Good() ? InstantOf(parsed, time_zone()) : std::nullopt;
}

std::optional<moment> LocalTime(const inspector_string& text) {
    const TimeText parsed = TimeText::Parsed(TimeGrammar::kTime, text.Data());
    return parsed.Good() ? InstantOf(parsed, LocalTimeZone()) : std::nullopt;
}

constexpr DependencyFunction DependsOnZone = DependsOn<timeZoneDependency>;

// clang-format off
Type<moment>                                                        type;
ComparableInspectorRegistration<moment>                             comparable;

NamedGlobalProperty<moment, ZonedTime>                              ofString          {"time", "times"};
NamedGlobalProperty<moment, LocalTime>                              ofLocalString     {"local time", "local times", DependsOnZone};
NamedGlobalProperty<moment, UniversalTime>                          ofUniversalString {"universal time", "universal times"};
GlobalProperty<moment, Now>                                         now               {"now", "nows", ByValueOnly};

Cast<moment, inspector_string, ZonedTime>                           fromString        {"time"};
Cast<moment, inspector_string, LocalTime>                           fromLocal         {"local time", DependsOnZone};
Cast<moment, inspector_string, UniversalTime>                       fromUniversal     {"universal time"};
Cast<inspector_string, moment, LocalTimeText>                       toString          {"string", DependsOnZone};
Cast<inspector_string, moment, LocalTimeText>                       toLocal           {"local string", DependsOnZone};
Cast<inspector_string, moment, UniversalTimeText>                   toUniversal       {"universal string"};

SteppingRegistration<moment, time_interval>                         stepping;
BinaryOperatorMinus<moment, moment, time_interval>                  minus;
// clang-format on

}  // namespace
