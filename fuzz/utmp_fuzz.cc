// Feeds arbitrary bytes as records of utmp: fields end with their width, a boot time is a record's own or none, and who
// is found at the console has a record of a user's process at a place that the console is looked for at.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "fuzz/expect.h"
#include "inspectors/session_info.h"
#include "inspectors/utmp_records.h"

namespace {

// A folder with the socket of a display and with the key of one, which is everybody's home.
std::string Home() {
    const std::filesystem::path home = std::filesystem::temp_directory_path() / "zendry_utmp_fuzz";
    std::filesystem::create_directories(home);
    std::ofstream(home / "X0") << "socket";
    std::ofstream(home / ".Xauthority") << "key";
    return home.string();
}

bool IsAt(const utmp& record, const ConsoleUser& user) {
    const std::string_view line = UtmpText(record.ut_line);
    const std::string_view host = UtmpText(record.ut_host);
    return record.ut_type == USER_PROCESS && record.ut_pid == user.processId && line == user.line &&
           UtmpText(record.ut_user) == user.name &&
           (line == ":0" || line == "console" || host == ":0" || (line == "tty1" && host.empty()));
}

}  // namespace

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
    static const std::string home = Home();
    const auto homeOf = [](const std::string&) { return std::optional<std::string>(home); };
    const std::optional<ConsoleUser> found = FindConsoleUser({FileLocation(home), homeOf}, records);
    Expect(found.has_value() == std::any_of(records.begin(), records.end(), [&](const utmp& record) {
               return IsAt(record, {std::string(UtmpText(record.ut_user)), std::string(UtmpText(record.ut_line)),
                                    record.ut_pid});
           }));
    Expect(!found ||
           std::any_of(records.begin(), records.end(), [&](const utmp& record) { return IsAt(record, *found); }));
    Expect(!FindConsoleUser({FileLocation(home + "/none"), homeOf}, records));
    return 0;
}
