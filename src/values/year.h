// A year of the calendar, 0 to 999999.
#ifndef VALUES_YEAR_H
#define VALUES_YEAR_H

#include "values/calendar.h"
#include "values/month_count.h"

class year {
public:
    explicit constexpr year(int64_t number) : number_(number) {}

    // None outside 0 to 999999.
    static constexpr std::optional<year> Of(int64_t number) {
        return number >= 0 && number <= Calendar::kGreatestYear ? std::optional<year>(year(number)) : std::nullopt;
    }

    constexpr int64_t Number() const { return number_; }

    friend constexpr bool operator==(year, year) = default;
    friend constexpr auto operator<=>(year, year) = default;

    // By the whole years of the count, towards the lesser number.
    friend constexpr std::optional<year> operator+(year a, month_count b) {
        return Of(a.number_ + Calendar::FlooredQuotient(b.Count(), 12));
    }
    friend constexpr std::optional<year> operator-(year a, month_count b) {
        return Of(a.number_ - Calendar::FlooredQuotient(b.Count(), 12));
    }
    friend constexpr month_count operator-(year a, year b) { return month_count(12 * (a.number_ - b.number_)); }

private:
    int64_t number_;
};

template <>
struct InspectorTypeInfo<year> : InspectorTypeBasics<year> {
    static constexpr char Name[] = "year";
    static constexpr unsigned Size = 8;
};

#endif
