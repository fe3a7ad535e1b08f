// A month of a certain year.
#ifndef VALUES_MONTH_AND_YEAR_H
#define VALUES_MONTH_AND_YEAR_H

#include "values/month_of_year.h"
#include "values/time_interval.h"
#include "values/year.h"

class month_and_year {
public:
    constexpr month_and_year(month_of_year month, year inYear) : year_(inYear), month_(month) {}

    constexpr month_of_year Month() const { return month_; }
    constexpr year Year() const { return year_; }

    constexpr int Days() const { return Calendar::MonthLength(month_.Number(), Calendar::IsLeapYear(year_.Number())); }

    friend constexpr bool operator==(month_and_year, month_and_year) = default;
    friend constexpr auto operator<=>(month_and_year, month_and_year) = default;

    // None outside the years of the calendar.
    friend constexpr std::optional<month_and_year> operator+(month_and_year a, month_count b) {
        return a.MovedBy(b.Count());
    }
    // The negative of the least count leads as far out of the calendar as that of the next.
    friend constexpr std::optional<month_and_year> operator-(month_and_year a, month_count b) {
        return a.MovedBy(b.Count() == integer::kLeast ? integer::kGreatest : -b.Count());
    }
    friend constexpr month_count operator-(month_and_year a, month_and_year b) {
        return month_count(a.Number() - b.Number());
    }

private:
    // Months since the first of all.
    constexpr int64_t Number() const { return 12 * year_.Number() + month_.Number() - 1; }

    constexpr std::optional<month_and_year> MovedBy(int64_t months) const {
        constexpr int64_t kAllMonths = 12 * (Calendar::kGreatestYear + 1);
        if (months <= -kAllMonths || months >= kAllMonths || Number() + months < 0 || Number() + months >= kAllMonths) {
            return std::nullopt;
        }
        const int64_t moved = Number() + months;
        return month_and_year(month_of_year(static_cast<int>(moved % 12) + 1), year(moved / 12));
    }

    year year_;
    month_of_year month_;
};

template <>
struct InspectorTypeInfo<month_and_year> : InspectorTypeBasics<month_and_year> {
    static constexpr char Name[] = "month and year";
    static constexpr unsigned Size = 12;

    // The parts alone, without what lies between them in memory.
    static void Fingerprint(Fingerprinter& fingerprinter, const void* value);
};

#endif
