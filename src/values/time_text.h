// The printed forms of calendar and clock: the names of days and months, fixed-width numbers, and the line that they
// are put together on.
#ifndef VALUES_TIME_TEXT_H
#define VALUES_TIME_TEXT_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "registry/core_values.h"
#include "values/calendar.h"

// The names by the numbers of the calendar: days 0 to 6, months 1 to 12.
std::string_view NameOfDayOfWeek(int day);
std::string_view NameOfMonth(int month);
std::string_view ThreeLettersOfDayOfWeek(int day);
std::string_view ThreeLettersOfMonth(int month);

// The number of a full name or of its three letters, in any case; none for any other text.
std::optional<int> DayOfWeekNamed(std::string_view name);
std::optional<int> MonthNamed(std::string_view name);

// A line of at most 128 bytes that is built up and then copied into evaluation memory.  No time's text is longer.
class TimeLine {
public:
    TimeLine& Add(char c) {
        *end_++ = c;
        return *this;
    }
    TimeLine& Add(std::string_view text);
    // The number with zeros before it, in as many digits as it takes but no fewer than `width`.
    TimeLine& Add(uint64_t number, int width);

    // "Tue, 09 Mar 1999"
    TimeLine& AddDate(const Calendar::Date& date);
    // "09:05:00"
    TimeLine& AddClock(int64_t seconds);
    // "-0500"; a part of a minute is dropped.
    TimeLine& AddZone(int64_t offset);

    std::string_view View() const { return {text_, static_cast<size_t>(end_ - text_)}; }
    // Throws NoInspectorAllocator, std::bad_alloc.
    inspector_string Text() const;

private:
    char text_[128];
    char* end_ = text_;
};

#endif
