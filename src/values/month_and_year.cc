#include "values/month_and_year.h"

#include <cstring>

#include "values/aggregates.h"
#include "values/stepping.h"
#include "values/time_text.h"

void InspectorTypeInfo<month_and_year>::Fingerprint(Fingerprinter& fingerprinter, const void* value) {
    const auto& object = *static_cast<const month_and_year*>(value);
    const int32_t month = object.Month().Number();
    const int64_t number = object.Year().Number();
    unsigned char bytes[Size];
    std::memcpy(bytes, &month, sizeof month);
    std::memcpy(bytes + sizeof month, &number, sizeof number);
    fingerprinter.AddData(ConstData(bytes, sizeof bytes));
}

namespace {

month_of_year Month(const month_and_year& month) { return month.Month(); }
year Year(const month_and_year& month) { return month.Year(); }
std::optional<time_interval> Length(const month_and_year& month) { return time_interval::OfDays(month.Days()); }

// "March 1999"
inspector_string AsText(const month_and_year& month) {
    TimeLine line;
    line.Add(NameOfMonth(month.Month().Number())).Add(' ');
    return line.Add(static_cast<uint64_t>(month.Year().Number()), 1).Text();
}

// clang-format off
Type<month_and_year>                                                type;
ComparableInspectorRegistration<month_and_year>                     comparable;

Property<month_and_year, time_interval, Length>                     length        {"length", "lengths"};
Property<month_and_year, month_of_year, Month>                      monthOf       {"month", "months"};
Property<month_and_year, year, Year>                                yearOf        {"year", "years"};

Cast<inspector_string, month_and_year, AsText>                      toString      {"string"};

SteppingRegistration<month_and_year, month_count>                   stepping;
BinaryOperatorMinus<month_and_year, month_and_year, month_count>    minus;
// clang-format on

}  // namespace
