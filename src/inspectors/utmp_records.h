// The records of who is logged on, since when the machine runs and at which level, as the system keeps them in utmp.
#ifndef INSPECTORS_UTMP_RECORDS_H
#define INSPECTORS_UTMP_RECORDS_H

#include <utmp.h>

#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

using UtmpRecords = std::vector<utmp>;

// A copy of all records of the system's file, empty where there is none.  Throws std::bad_alloc.
UtmpRecords ReadUtmp();

// A field of fixed width, up to its first zero byte.
template <size_t Width>
std::string_view UtmpText(const char (&field)[Width]) {
    return {field, strnlen(field, Width)};
}

// Seconds since 1970: those of the first record of a boot; without one, those of the oldest record that has a time
// before `now`; 0 where there is none.
int64_t BootSeconds(std::span<const utmp> records, int64_t now);

// The first record of the machine's run level; null for none.
const utmp* RunLevelRecord(std::span<const utmp> records);

// Two characters and a time, in seconds since 1970.
struct RunLevel {
    char value;
    char previous;
    int64_t seconds;
};
RunLevel RunLevelOf(const utmp& record);

#endif
