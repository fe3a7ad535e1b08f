#include "values/time_text.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "evaluator/failure.h"
#include "foundation/ascii.h"
#include "values/string.h"

namespace {

constexpr std::string_view kDays[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
constexpr std::string_view kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                        "July",    "August",   "September", "October", "November", "December"};

// The place of a name, or of its three letters, among the names.
template <size_t Count>
std::optional<int> PlaceOf(std::string_view text, const std::string_view (&names)[Count]) {
    for (size_t i = 0; i < Count; ++i) {
        const std::string_view name = text.size() == 3 ? names[i].substr(0, 3) : names[i];
        if (text.size() == name.size() && Ascii::CompareIgnoringCase(ConstData(text), ConstData(name)) == 0) {
            return static_cast<int>(i);
        }
    }
    return std::nullopt;
}

}  // namespace

std::string_view NameOfDayOfWeek(int day) { return kDays[day]; }
std::string_view NameOfMonth(int month) { return kMonths[month - 1]; }
std::string_view ThreeLettersOfDayOfWeek(int day) { return kDays[day].substr(0, 3); }
std::string_view ThreeLettersOfMonth(int month) { return kMonths[month - 1].substr(0, 3); }

std::optional<int> DayOfWeekNamed(std::string_view name) { return PlaceOf(name, kDays); }

std::optional<int> MonthNamed(std::string_view name) {
    const std::optional<int> place = PlaceOf(name, kMonths);
    return place ? std::optional<int>(*place + 1) : std::nullopt;
}

TimeLine& TimeLine::Add(std::string_view text) {
    end_ = std::copy(text.begin(), text.end(), end_);
    return *this;
}

TimeLine& TimeLine::Add(uint64_t number, int width) {
    if (width == 2 && number < 100) {
        *end_++ = static_cast<char>('0' + number / 10);
        *end_++ = static_cast<char>('0' + number % 10);
        return *this;
    }
    char digits[20];
    const char* const last = std::to_chars(digits, digits + sizeof digits, number).ptr;
    end_ = std::fill_n(end_, std::max<ptrdiff_t>(width - (last - digits), 0), '0');
    end_ = std::copy(static_cast<const char*>(digits), last, end_);
    return *this;
}

TimeLine& TimeLine::AddDate(const Calendar::Date& date) {
    Add(ThreeLettersOfDayOfWeek(Calendar::DayOfWeek(Calendar::DayNumber(date)))).Add(std::string_view(", "));
    Add(static_cast<uint64_t>(date.day), 2).Add(' ').Add(ThreeLettersOfMonth(date.month)).Add(' ');
    return Add(static_cast<uint64_t>(date.year), 4);
}

TimeLine& TimeLine::AddClock(int64_t seconds) {
    const auto whole = static_cast<uint64_t>(seconds);
    return Add(whole / 3600, 2).Add(':').Add(whole / 60 % 60, 2).Add(':').Add(whole % 60, 2);
}

TimeLine& TimeLine::AddZone(int64_t offset) {
    const uint64_t magnitude = offset < 0 ? 0 - static_cast<uint64_t>(offset) : static_cast<uint64_t>(offset);
    const uint64_t minutes = magnitude / (60 * Calendar::kMicrosecondsOfASecond);
    return Add(offset < 0 ? '-' : '+').Add(minutes / 60, 2).Add(minutes % 60, 2);
}

inspector_string TimeLine::Text() const { return CopiedString(View()); }
