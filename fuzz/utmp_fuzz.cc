// Feeds arbitrary bytes as records of utmp: fields end with their width, and a boot time is a record's own or none.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "fuzz/expect.h"
#include "inspectors/session_info.h"
#include "inspectors/utmp_records.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    UtmpRecords records(size / sizeof(utmp));
    if (!records.empty()) {
        std::memcpy(records.data(), data, records.size() * sizeof(utmp));
    }
    const int64_t boot = BootSeconds(records, 1000000000);
    Expect(boot == 0 || std::any_of(records.begin(), records.end(),
                                    [boot](const utmp& record) { return record.ut_tv.tv_sec == boot; }));
    if (const utmp* level = RunLevelRecord(records)) {
        Expect(RunLevelOf(*level).seconds == level->ut_tv.tv_sec);
    }
    for (const utmp& record : records) {
        Expect(UtmpText(record.ut_user).size() <= sizeof record.ut_user);
        Expect(UtmpText(record.ut_line).size() <= sizeof record.ut_line);
        Expect(UtmpText(record.ut_host).size() <= sizeof record.ut_host);
    }
    const ConsolePlaces places = {FileLocation("/"), [](const std::string&) { return std::nullopt; }};
    Expect(!FindConsoleUser(places, records));
    return 0;
}
