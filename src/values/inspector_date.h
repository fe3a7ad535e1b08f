// A date: a day, a month and a year that the calendar has together.
//
// Today's date is looked up once a thread and kept until the inspector caches are cleared, so that one evaluation sees
// one today.
#ifndef VALUES_INSPECTOR_DATE_H
#define VALUES_INSPECTOR_DATE_H

#include "registry/dependency_node.h"
#include "values/day_of_month.h"
#include "values/day_of_week.h"
#include "values/day_of_year.h"
#include "values/moment.h"
#include "values/month_and_year.h"
#include "values/time_zone.h"

class inspector_date {
public:
    // The parts must exist together.
    explicit constexpr inspector_date(const Calendar::Date& date)
        : year_(date.year), month_(date.month), day_(date.day) {}

    // None where the month of that year is too short for the day.
    static constexpr std::optional<inspector_date> Of(month_and_year month, day_of_month day) {
        const Calendar::Date date{month.Year().Number(), month.Month().Number(), day.Number()};
        return Calendar::Exists(date) ? std::optional<inspector_date>(inspector_date(date)) : std::nullopt;
    }
    // None outside the years of the calendar.
    static std::optional<inspector_date> OfDayNumber(int64_t dayNumber) {
        const std::optional<Calendar::Date> date = Calendar::DateOfDayNumber(dayNumber);
        return date ? std::optional<inspector_date>(inspector_date(*date)) : std::nullopt;
    }

    constexpr day_of_month Day() const { return day_; }
    constexpr month_of_year Month() const { return month_; }
    constexpr year Year() const { return year_; }
    constexpr month_and_year MonthAndYear() const { return {month_, year_}; }
    constexpr day_of_week DayOfWeek() const { return day_of_week(Calendar::DayOfWeek(DayNumber())); }
    constexpr int64_t DayNumber() const {
        return Calendar::DayNumber({year_.Number(), month_.Number(), day_.Number()});
    }

    friend constexpr bool operator==(const inspector_date&, const inspector_date&) = default;
    friend constexpr auto operator<=>(const inspector_date&, const inspector_date&) = default;

    // By the whole days of the interval; none outside the years of the calendar.
    friend std::optional<inspector_date> operator+(const inspector_date& a, time_interval b) {
        return OfDayNumber(a.DayNumber() + b.Days());
    }
    friend std::optional<inspector_date> operator-(const inspector_date& a, time_interval b) {
        return OfDayNumber(a.DayNumber() - b.Days());
    }
    friend std::optional<time_interval> operator-(const inspector_date& a, const inspector_date& b) {
        return time_interval::OfDays(a.DayNumber() - b.DayNumber());
    }

    // The month moves and the day stays; none where the new month is too short for it.
    friend constexpr std::optional<inspector_date> operator+(const inspector_date& a, month_count b) {
        return WithDay(a.MonthAndYear() + b, a.day_);
    }
    friend constexpr std::optional<inspector_date> operator-(const inspector_date& a, month_count b) {
        return WithDay(a.MonthAndYear() - b, a.day_);
    }

private:
    static constexpr std::optional<inspector_date> WithDay(std::optional<month_and_year> month, day_of_month day) {
        return month ? Of(*month, day) : std::nullopt;
    }

    year year_;
    month_of_year month_;
    day_of_month day_;
};

template <>
struct InspectorTypeInfo<inspector_date> : InspectorTypeBasics<inspector_date> {
    static constexpr char Name[] = "date";
    static constexpr unsigned Size = 20;

    // The parts alone, without what lies between them in memory.
    static void Fingerprint(Fingerprinter& fingerprinter, const void* value);
};

// The date that calendars show at that time in that zone; none outside the years of the calendar.
std::optional<inspector_date> DateOfTime(const time_zone& zone, const moment& time);

// "Tue, 09 Mar 1999" and "9 Mar 99"; none for what the syntax of dates does not admit, for what is no date and for
// another day of the week than the date's.
std::optional<inspector_date> ParseDate(const inspector_string& text);

// "Tue, 09 Mar 1999", in evaluation memory.
inspector_string DateText(const inspector_date& date);

// "1999-03-09", in evaluation memory.
inspector_string NumericDateText(const inspector_date& date);

// Today, by the local time zone.
inspector_date CurrentDate();

// Feeds today's date.
void DependsOnCurrentDate(Fingerprinter& fingerprinter);

// Stands for today's date.
extern DependencyNode currentDateDependency;
void CurrentDateDependencyNodeFunction(Fingerprinter& fingerprinter);

#endif
