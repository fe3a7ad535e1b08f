#include "values/inspector_date.h"

#include <cstring>

#include "evaluator/inspector_cache.h"
#include "values/aggregates.h"
#include "values/stepping.h"
#include "values/time_language.h"
#include "values/time_text.h"

DependencyNode currentDateDependency("CurrentDateDependency", DependsOnCurrentDate);

void InspectorTypeInfo<inspector_date>::Fingerprint(Fingerprinter& fingerprinter, const void* value) {
    const auto& object = *static_cast<const inspector_date*>(value);
    const int64_t day = object.Day().Number();
    const int32_t month = object.Month().Number();
    const int64_t number = object.Year().Number();
    unsigned char bytes[Size];
    std::memcpy(bytes, &day, sizeof day);
    std::memcpy(bytes + sizeof day, &month, sizeof month);
    std::memcpy(bytes + sizeof day + sizeof month, &number, sizeof number);
    fingerprinter.AddData(ConstData(bytes, sizeof bytes));
}

std::optional<inspector_date> DateOfTime(const time_zone& zone, const moment& time) {
    return inspector_date::OfDayNumber(Calendar::ReadingOf(time.Microseconds(), zone.Offset().Microseconds()).day);
}

std::optional<inspector_date> ParseDate(const inspector_string& text) {
    const TimeText parsed = TimeText::Parsed(TimeGrammar::kDate, text.Data());
    return parsed.Good() ? std::optional<inspector_date>(inspector_date(parsed.Date())) : std::nullopt;
}

inspector_string DateText(const inspector_date& date) {
    return TimeLine().AddDate({date.Year().Number(), date.Month().Number(), date.Day().Number()}).Text();
}

inspector_string NumericDateText(const inspector_date& date) {
    TimeLine line;
    line.Add(static_cast<uint64_t>(date.Year().Number()), 4).Add('-');
    line.Add(static_cast<uint64_t>(date.Month().Number()), 2).Add('-');
    return line.Add(static_cast<uint64_t>(date.Day().Number()), 2).Text();
}

namespace {

ThreadLocalInspectorCache<inspector_date> currentDateCache;

}  // namespace

inspector_date CurrentDate() {
    if (const inspector_date* known = currentDateCache.Get(); known != nullptr) {
        return *known;
    }
    const std::optional<inspector_date> today = DateOfTime(LocalTimeZone(), Now());
    if (!today) {
        NoResults();  // The clock stands before the calendar's first year.
    }
    return currentDateCache.Fill(*today);
}

void DependsOnCurrentDate(Fingerprinter& fingerprinter) {
    const inspector_date today = CurrentDate();
    InspectorTypeInfo<inspector_date>::Fingerprint(fingerprinter, &today);
}

void CurrentDateDependencyNodeFunction(Fingerprinter& fingerprinter) {
    DependsOn<currentDateDependency>(fingerprinter);
}

namespace {

day_of_month DayOfMonth(const inspector_date& date) { return date.Day(); }
month_of_year Month(const inspector_date& date) { return date.Month(); }
year Year(const inspector_date& date) { return date.Year(); }
day_of_week DayOfWeek(const inspector_date& date) { return date.DayOfWeek(); }
day_of_year DayOfYear(const inspector_date& date) { return *day_of_year::Of(date.Month(), date.Day().Number()); }
month_and_year MonthAndYear(const inspector_date& date) { return date.MonthAndYear(); }

std::optional<inspector_date> DateInZone(const time_zone& zone, Of, const moment& time) {
    return DateOfTime(zone, time);
}

// The first such day of the month is one of its first seven.
std::optional<inspector_date> FirstOf(const day_of_week& day, Of, const month_and_year& month) {
    const int first = Calendar::DayOfWeek(Calendar::DayNumber({month.Year().Number(), month.Month().Number(), 1}));
    return inspector_date::Of(month, day_of_month((day.Number() - first + 7) % 7 + 1));
}

template <int Day>
std::optional<inspector_date> FirstNamed(Of, const month_and_year& month) {
    return FirstOf(day_of_week(Day), Of(), month);
}

// A part of today.
template <auto Part>
auto Current() {
    return Part(CurrentDate());
}

constexpr DependencyFunction DependsOnToday = CurrentDateDependencyNodeFunction;

// clang-format off
Type<inspector_date>                                                type;
ComparableInspectorRegistration<inspector_date>                     comparable;

Property<inspector_date, day_of_month, DayOfMonth>                  dayOfMonth          {"day_of_month", "days_of_month"};
Property<inspector_date, month_of_year, Month>                      month               {"month", "months"};
Property<inspector_date, year, Year>                                yearOf              {"year", "years"};
Property<inspector_date, day_of_week, DayOfWeek>                    dayOfWeek           {"day_of_week", "days_of_week"};
Property<inspector_date, day_of_year, DayOfYear>                    dayOfYear           {"day_of_year", "days_of_year"};
Property<inspector_date, month_and_year, MonthAndYear>              monthAndYear        {"month_and_year", "months_and_years"};
NamedGlobalProperty<inspector_date, ParseDate>                      ofString            {"date", "dates"};
PropertyByIndexOfObject<moment, time_zone, inspector_date, DateInZone>
                                                                    inZone              {"date", "dates"};
PropertyByIndexOfObject<month_and_year, day_of_week, inspector_date, FirstOf>
                                                                    first               {"first", "firsts"};
PropertyOfObject<inspector_date, month_and_year, FirstNamed<0>>     firstSunday         {"first sunday", "first sundays"};
PropertyOfObject<inspector_date, month_and_year, FirstNamed<1>>     firstMonday         {"first monday", "first mondays"};
PropertyOfObject<inspector_date, month_and_year, FirstNamed<2>>     firstTuesday        {"first tuesday", "first tuesdays"};
PropertyOfObject<inspector_date, month_and_year, FirstNamed<3>>     firstWednesday      {"first wednesday", "first wednesdays"};
PropertyOfObject<inspector_date, month_and_year, FirstNamed<4>>     firstThursday       {"first thursday", "first thursdays"};
PropertyOfObject<inspector_date, month_and_year, FirstNamed<5>>     firstFriday         {"first friday", "first fridays"};
PropertyOfObject<inspector_date, month_and_year, FirstNamed<6>>     firstSaturday       {"first saturday", "first saturdays"};
GlobalProperty<inspector_date, CurrentDate>                         currentDate         {"current date", "current dates", DependsOnToday};
GlobalProperty<day_of_week, Current<DayOfWeek>>                     currentDayOfWeek    {"current day_of_week", "current days_of_week", DependsOnToday};
GlobalProperty<day_of_month, Current<DayOfMonth>>                   currentDayOfMonth   {"current day_of_month", "current days_of_month", DependsOnToday};
GlobalProperty<month_of_year, Current<Month>>                       currentMonth        {"current month", "current months", DependsOnToday};
GlobalProperty<year, Current<Year>>                                 currentYear         {"current year", "current years", DependsOnToday};
GlobalProperty<day_of_year, Current<DayOfYear>>                     currentDayOfYear    {"current day_of_year", "current days_of_year", DependsOnToday};
GlobalProperty<month_and_year, Current<MonthAndYear>>               currentMonthAndYear {"current month_and_year", "current months_and_years", DependsOnToday};

Cast<inspector_date, inspector_string, ParseDate>                   fromString          {"date"};
Cast<inspector_string, inspector_date, DateText>                    toString            {"string"};

SteppingRegistration<inspector_date, time_interval>                 steppingDays;
SteppingRegistration<inspector_date, month_count>                   steppingMonths;
BinaryOperatorMinus<inspector_date, inspector_date, time_interval>  minus;
// clang-format on

}  // namespace
