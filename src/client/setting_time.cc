#include "client/setting_time.h"

#include "values/calendar.h"
#include "values/time_language.h"
#include "values/time_text.h"

std::optional<moment> TimeOfSetting(std::string_view text) {
    const TimeText parsed = TimeText::Parsed(TimeGrammar::kTime, ConstData(text));
    if (!parsed.HasZone()) {
        return std::nullopt;
    }
    const Calendar::Reading reading = {Calendar::DayNumber(parsed.Date()),
                                       parsed.ClockSeconds() * Calendar::kMicrosecondsOfASecond};
    const std::optional<int64_t> instant =
        Calendar::InstantOf(reading, parsed.ZoneSeconds() * Calendar::kMicrosecondsOfASecond);
    return instant ? std::optional<moment>(moment(*instant)) : std::nullopt;
}

std::optional<std::string> TextOfSettingTime(moment time) {
    const Calendar::Reading reading = Calendar::ReadingOf(time.Microseconds(), 0);
    const std::optional<Calendar::Date> date = Calendar::DateOfDayNumber(reading.day);
    if (!date) {
        return std::nullopt;
    }
    TimeLine line;
    line.AddDate(*date).Add(' ').AddClock(reading.microseconds / Calendar::kMicrosecondsOfASecond).Add(' ').AddZone(0);
    return std::string(line.View());
}
