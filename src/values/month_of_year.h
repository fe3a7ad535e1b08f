// A month of the year: 1, January, to 12.  Its arithmetic goes round.
#ifndef VALUES_MONTH_OF_YEAR_H
#define VALUES_MONTH_OF_YEAR_H

#include "values/calendar.h"
#include "values/month_count.h"

class month_of_year {
public:
    explicit constexpr month_of_year(int number) : number_(number) {}

    // None outside 1 to 12.
    static constexpr std::optional<month_of_year> Of(int64_t number) {
        return number >= 1 && number <= 12 ? std::optional<month_of_year>(month_of_year(static_cast<int>(number)))
                                           : std::nullopt;
    }

    constexpr int Number() const { return number_; }

    friend constexpr bool operator==(month_of_year, month_of_year) = default;
    friend constexpr auto operator<=>(month_of_year, month_of_year) = default;

    friend constexpr month_of_year operator+(month_of_year a, month_count b) { return a.MovedBy(b.Count() % 12); }
    friend constexpr month_of_year operator-(month_of_year a, month_count b) { return a.MovedBy(-(b.Count() % 12)); }
    // The months from the last b to a: 0 to 11.
    friend constexpr month_count operator-(month_of_year a, month_of_year b) {
        return month_count((a.number_ - b.number_ + 12) % 12);
    }

private:
    // `months` is more than -12.
    constexpr month_of_year MovedBy(int64_t months) const {
        return month_of_year(static_cast<int>((number_ - 1 + months + 12) % 12) + 1);
    }

    int32_t number_;
};

template <>
struct InspectorTypeInfo<month_of_year> : InspectorTypeBasics<month_of_year> {
    static constexpr char Name[] = "month";
    static constexpr unsigned Size = 4;
};

#endif
