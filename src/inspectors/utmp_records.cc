#include "inspectors/utmp_records.h"

#include <algorithm>

UtmpRecords ReadUtmp() {
    struct Close {
        ~Close() { endutent(); }
    };
    UtmpRecords records;
    setutent();
    const Close close;
    while (const utmp* record = getutent()) {
        records.push_back(*record);
    }
    return records;
}

namespace {

const utmp* FirstOfType(std::span<const utmp> records, short type) {
    const auto found =
        std::find_if(records.begin(), records.end(), [type](const utmp& record) { return record.ut_type == type; });
    return found == records.end() ? nullptr : &*found;
}

}  // namespace

int64_t BootSeconds(std::span<const utmp> records, int64_t now) {
    if (const utmp* boot = FirstOfType(records, BOOT_TIME)) {
        return boot->ut_tv.tv_sec;
    }
    int64_t limit = now;
    int64_t oldest = 0;
    for (const utmp& record : records) {
        const int64_t seconds = record.ut_tv.tv_sec;
        if (seconds != 0 && seconds < limit) {
            limit = seconds;
            oldest = seconds;
        }
    }
    return oldest;
}

const utmp* RunLevelRecord(std::span<const utmp> records) { return FirstOfType(records, RUN_LVL); }

RunLevel RunLevelOf(const utmp& record) {
    const auto levels = static_cast<unsigned>(record.ut_pid);
    return {static_cast<char>(levels & 0xff), static_cast<char>(levels >> 8 & 0xff), record.ut_tv.tv_sec};
}
