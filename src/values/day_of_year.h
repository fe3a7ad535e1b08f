// A day of any year: a month and a day in it.  The 29th of February is one.
//
// Its arithmetic knows no year and so refuses to go across the end of February.
#ifndef VALUES_DAY_OF_YEAR_H
#define VALUES_DAY_OF_YEAR_H

#include "values/day_of_month.h"
#include "values/month_of_year.h"

class day_of_year {
public:
    // None where no year has the day.
    static constexpr std::optional<day_of_year> Of(month_of_year month, int64_t day) {
        const std::optional<day_of_month> inMonth = day_of_month::Of(day);
        if (!inMonth || day > Calendar::MonthLength(month.Number(), true)) {
            return std::nullopt;
        }
        return day_of_year(month, *inMonth);
    }

    constexpr month_of_year Month() const { return month_; }
    constexpr day_of_month Day() const { return day_; }

    friend constexpr bool operator==(day_of_year, day_of_year) = default;
    friend constexpr auto operator<=>(day_of_year, day_of_year) = default;

    // By the whole days of the interval.
    friend std::optional<day_of_year> operator+(day_of_year a, time_interval b) { return a.MovedByDays(b.Days()); }
    friend std::optional<day_of_year> operator-(day_of_year a, time_interval b) { return a.MovedByDays(-b.Days()); }
    // The days from the last b to a.
    friend std::optional<time_interval> operator-(day_of_year a, day_of_year b) { return a.Since(b); }

    // The month moves and the day stays; none where the new month is too short for it.
    friend constexpr std::optional<day_of_year> operator+(day_of_year a, month_count b) {
        return Of(a.month_ + b, a.day_.Number());
    }
    friend constexpr std::optional<day_of_year> operator-(day_of_year a, month_count b) {
        return Of(a.month_ - b, a.day_.Number());
    }

private:
    constexpr day_of_year(month_of_year month, day_of_month day) : month_(month), day_(day) {}

    std::optional<day_of_year> MovedByDays(int64_t days) const;
    std::optional<time_interval> Since(day_of_year earlier) const;

    month_of_year month_;
    day_of_month day_;
};

template <>
struct InspectorTypeInfo<day_of_year> : InspectorTypeBasics<day_of_year> {
    static constexpr char Name[] = "day of year";
    static constexpr unsigned Size = 12;

    // The parts alone, without what lies between them in memory.
    static void Fingerprint(Fingerprinter& fingerprinter, const void* value);
};

#endif
