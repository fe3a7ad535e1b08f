#include "values/month_of_year.h"

#include "values/aggregates.h"
#include "values/inspector_date.h"
#include "values/stepping.h"
#include "values/time_text.h"

namespace {

std::optional<month_of_year> OfInteger(const integer& number) { return month_of_year::Of(number.Value()); }

std::optional<month_of_year> OfText(const inspector_string& text) {
    const std::optional<int> number = MonthNamed(text.View());
    return number ? std::optional<month_of_year>(month_of_year(*number)) : std::nullopt;
}

integer AsInteger(const month_of_year& month) { return month.Number(); }
// The names are constants, so that there is nothing to copy.
inspector_string AsText(const month_of_year& month) { return inspector_string(NameOfMonth(month.Number())); }
inspector_string ThreeLetters(const month_of_year& month) {
    return inspector_string(ThreeLettersOfMonth(month.Number()));
}
inspector_string TwoDigits(const month_of_year& month) {
    return TimeLine().Add(static_cast<uint64_t>(month.Number()), 2).Text();
}

// "january", "january 5", "january of 2000" and "january 5 of 2000".
template <int Number>
struct MonthWord {
    static month_of_year Alone() { return month_of_year(Number); }
    static std::optional<day_of_year> WithDay(const integer& day) { return day_of_year::Of(Alone(), day.Value()); }
    static std::optional<month_and_year> OfYear(Of, const integer& number) {
        const std::optional<year> in = year::Of(number.Value());
        return in ? std::optional<month_and_year>(month_and_year(Alone(), *in)) : std::nullopt;
    }
    static std::optional<inspector_date> WithDayOfYear(const integer& day, Of, const integer& number) {
        const std::optional<month_and_year> month = OfYear(Of(), number);
        const std::optional<day_of_month> inMonth = day_of_month::Of(day.Value());
        return month && inMonth ? inspector_date::Of(*month, *inMonth) : std::nullopt;
    }

    MonthWord(const char* word, const char* plural)
        : alone{word, plural}, withDay{word, plural}, withDayOfYear{word, plural}, ofYear{word, plural} {}

    GlobalProperty<month_of_year, Alone> alone;
    PropertyByIndexOfWorld<day_of_year, integer, WithDay> withDay;
    PropertyByIndexOfObject<integer, integer, inspector_date, WithDayOfYear> withDayOfYear;
    PropertyOfObject<month_and_year, integer, OfYear> ofYear;
};

// clang-format off
Type<month_of_year>                                                 type;
ComparableInspectorRegistration<month_of_year>                      comparable;

MonthWord<1>                                                        january       {"january", "januarys"};
MonthWord<2>                                                        february      {"february", "februarys"};
MonthWord<3>                                                        march         {"march", "marchs"};
MonthWord<4>                                                        april         {"april", "aprils"};
MonthWord<5>                                                        may           {"may", "mays"};
MonthWord<6>                                                        june          {"june", "junes"};
MonthWord<7>                                                        july          {"july", "julys"};
MonthWord<8>                                                        august        {"august", "augusts"};
MonthWord<9>                                                        september     {"september", "septembers"};
MonthWord<10>                                                       october       {"october", "octobers"};
MonthWord<11>                                                       november      {"november", "novembers"};
MonthWord<12>                                                       december      {"december", "decembers"};
PropertyByIndexOfWorld<month_of_year, integer, OfInteger>           ofInteger     {"month", "months"};
Property<month_of_year, inspector_string, ThreeLetters>             threeLetters  {"three letters", "three letterss"};
Property<month_of_year, inspector_string, TwoDigits>                twoDigits     {"two digits", "two digitss"};

Cast<month_of_year, integer, OfInteger>                             fromInteger   {"month"};
Cast<month_of_year, inspector_string, OfText>                       fromString    {"month"};
Cast<integer, month_of_year, AsInteger>                             toInteger     {"integer"};
Cast<inspector_string, month_of_year, AsText>                       toString      {"string"};

SteppingRegistration<month_of_year, month_count>                    stepping;
BinaryOperatorMinus<month_of_year, month_of_year, month_count>      minus;
// clang-format on

}  // namespace
