#include "inspectors/session_info.h"

#include <pwd.h>
#include <sys/stat.h>

#include <algorithm>
#include <mutex>

#include "foundation/file_loop.h"

std::vector<SessionInfo> SessionInfo::msSessionList;
bool SessionInfo::msInitialized = false;

namespace {

// Nobody, until a refresh has found somebody.
struct ConsoleRecord {
    std::string name;
    int32_t id = -1;
};

std::mutex accessLock;
ConsoleRecord consoleRecord;

constexpr size_t kHomeBytes = 1024;

std::optional<std::string> HomeOf(const std::string& name) {
    struct passwd entry;
    struct passwd* found = nullptr;
    char buffer[kHomeBytes];
    if (getpwnam_r(name.c_str(), &entry, buffer, sizeof buffer, &found) != 0 || found == nullptr) {
        return std::nullopt;
    }
    return std::string(entry.pw_dir);
}

bool HasDisplaySocket(const FileLocation& folder) {
    try {
        return UnixPlatform::FileLoop(folder, "X0*").Valid();
    } catch (const FileIOError&) {
        return false;
    }
}

bool HasDisplayKey(const std::optional<std::string>& home) {
    if (!home) {
        return false;
    }
    const std::string path = *home + (home->ends_with('/') ? ".Xauthority" : "/.Xauthority");
    struct stat64 status {};
    return stat64(path.c_str(), &status) == 0 && status.st_size > 0;
}

template <class Test>
std::optional<ConsoleUser> FirstUser(std::span<const utmp> records, const Test& test) {
    const auto found = std::find_if(records.begin(), records.end(),
                                    [&](const utmp& record) { return record.ut_type == USER_PROCESS && test(record); });
    if (found == records.end()) {
        return std::nullopt;
    }
    return ConsoleUser{std::string(UtmpText(found->ut_user)), std::string(UtmpText(found->ut_line)), found->ut_pid};
}

}  // namespace

ConsolePlaces SystemConsolePlaces() { return {FileLocation("/tmp/.X11-unix"), HomeOf}; }

std::optional<ConsoleUser> FindConsoleUser(const ConsolePlaces& places, std::span<const utmp> records) {
    if (!HasDisplaySocket(places.socketFolder)) {
        return std::nullopt;
    }
    auto atDisplay = FirstUser(records, [](const utmp& record) {
        const std::string_view line = UtmpText(record.ut_line);
        return line == ":0" || UtmpText(record.ut_host) == ":0" || line == "console";
    });
    if (atDisplay) {
        return atDisplay;
    }
    return FirstUser(records, [&](const utmp& record) {
        return UtmpText(record.ut_host).empty() && UtmpText(record.ut_line) == "tty1" &&
               HasDisplayKey(places.homeOf(std::string(UtmpText(record.ut_user))));
    });
}

void SessionInfo::Update() {
    constexpr size_t kLongestName = 255;
    std::vector<SessionInfo> present;
    {
        const std::lock_guard<std::mutex> lock(accessLock);
        if (!consoleRecord.name.empty()) {
            present.push_back({consoleRecord.name.substr(0, kLongestName), consoleRecord.id});
        }
    }
    const bool same = std::equal(present.begin(), present.end(), msSessionList.begin(), msSessionList.end(),
                                 [](const auto& a, const auto& b) { return a.processId == b.processId; });
    if (!same) {
        msSessionList = std::move(present);
    }
}

std::optional<SessionInfo> CurrentSession(const ConsolePlaces& places) {
    const std::optional<ConsoleUser> user = FindConsoleUser(places, ReadUtmp());
    if (!user || user->name.empty()) {
        return std::nullopt;
    }
    SessionInfo::Update();
    const auto& all = SessionInfo::msSessionList;
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const auto& entry) { return entry.name == user->name; });
    return found == all.end() ? std::nullopt : std::optional(*found);
}

void RefreshConsole(const ConsolePlaces& places) {
    const std::optional<ConsoleUser> found = FindConsoleUser(places, ReadUtmp());
    ConsoleRecord present = found ? ConsoleRecord{found->name, found->processId} : ConsoleRecord{};
    const std::lock_guard<std::mutex> lock(accessLock);
    if (present.name != consoleRecord.name || present.id != consoleRecord.id) {
        consoleRecord = std::move(present);
    }
}
