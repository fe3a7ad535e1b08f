#include "client/process_table.h"

#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <new>
#include <utility>

#include "evaluator/inspector_context.h"
#include "foundation/file_error.h"
#include "foundation/file_reading_path.h"
#include "foundation/file_stat.h"
#include "inspectors/process_walk.h"
#include "values/moment.h"

namespace {

constexpr int64_t kMicroseconds = 1000000;
constexpr uint64_t kTicksOfASecond = 100;
constexpr size_t kLongestStatText = 10239;

// The first bytes of a file; none where there is no such file any more.
std::optional<std::string> ReadStatText(const std::string& path) {
    try {
        const UnixPlatform::FileReadingPath file{FileLocation(path)};
        std::string text(kLongestStatText, '\0');
        size_t length = 0;
        while (length != text.size()) {
            const ssize_t count = read(file.Descriptor(), text.data() + length, text.size() - length);
            if (count == 0) {
                break;
            }
            if (count < 0 && errno != EINTR) {
                return std::nullopt;
            }
            length += count < 0 ? 0 : static_cast<size_t>(count);
        }
        text.resize(length);
        return text;
    } catch (const FileIOError&) {
        return std::nullopt;
    }
}

int64_t BootTime(int64_t now) {
    struct timespec uptime {};
    clock_gettime(CLOCK_BOOTTIME, &uptime);
    return now - uptime.tv_sec * kMicroseconds - uptime.tv_nsec / 1000;
}

// A start is a time of this machine, so that nothing overflows, but what a listing says is only a text.
int64_t StartTime(int64_t bootTime, uint64_t second) {
    constexpr uint64_t greatest = uint64_t{1} << 40;
    return bootTime + static_cast<int64_t>(std::min(second, greatest)) * kMicroseconds;
}

int64_t SizeOf(const FileLocation& program) {
    const FileStat look(program);
    return look.IsRegular() ? look.Target().st_size : 0;
}

// The kernel marks a program whose file has been deleted while it runs: still the same run.
bool IsSameProgram(std::string_view known, std::string_view path) {
    constexpr std::string_view mark = " (deleted)";
    return path == known ||
           (path.size() == known.size() + mark.size() && path.starts_with(known) && path.ends_with(mark));
}

}  // namespace

// Behind the command's name, which may hold anything, stand the state and then numbers: eighteen are stepped over.
std::optional<uint64_t> ProcessStartSecond(const std::string& statText) {
    constexpr size_t leastOffset = 5;
    constexpr int steps = 18;
    size_t at = statText.rfind(')');
    if (at == std::string::npos || at < leastOffset) {
        return std::nullopt;
    }
    const auto skipBlanks = [&] { at = std::min(statText.find_first_not_of(' ', at), statText.size()); };
    const auto skipField = [&] { at = std::min(statText.find(' ', at), statText.size()); };
    ++at;
    skipBlanks();
    skipField();  // the state
    skipBlanks();
    for (int i = 0; i != steps; ++i) {
        skipField();
        skipBlanks();
    }
    if (at == statText.size()) {
        return std::nullopt;
    }
    return std::strtoull(statText.c_str() + at, nullptr, 10) / kTicksOfASecond;
}

// A hold on a table that is up to date.
class ProcessTable::Hold {
public:
    explicit Hold(ProcessTable& table) : held_(table.mutex_) {
        if (table.expired_) {
            table.Refresh();
        }
    }

private:
    AutoMutexAquisition held_;
};

void ProcessTable::Refresh() {
    CpuBudget unlimited;
    Refresh(unlimited);
}

void ProcessTable::Refresh(CpuBudget& budget) {
    const AutoMutexAquisition held(mutex_);
    const int64_t now = Now().Microseconds();
    if (!bootTime_) {
        bootTime_ = BootTime(now);
    }
    ++refresh_;
    for (ProcessWalk walk(folder_); walk.Next(); budget.Spend()) {
        Meet(walk.Id(), walk.Path(), now);
    }
    EndMissing();
    expired_ = false;
}

void ProcessTable::Meet(const std::string& id, const std::string& path, int64_t now) {
    const std::optional<std::string> text = ReadStatText(std::string(folder_) + id + "/stat");
    const std::optional<uint64_t> second = text ? ProcessStartSecond(*text) : std::nullopt;
    if (!second) {
        return;
    }
    const int64_t number = std::strtoll(id.c_str(), nullptr, 10);
    const auto place = places_.find(number);
    ProcessEntry* known = place == places_.end() ? nullptr : &running_[place->second];
    if (known == nullptr || known->startSecond != *second || !IsSameProgram(known->location.Text(), path)) {
        ProcessEntry entry;
        entry.id = number;
        entry.startSecond = *second;
        entry.startTime = StartTime(*bootTime_, *second);
        entry.name = ApplicationName(path);
        entry.location = FileLocation(path);
        entry.fileSize = SizeOf(entry.location);
        if (known != nullptr) {
            End(*known);
            *known = std::move(entry);
        } else {
            const size_t end = running_.Size();
            places_.emplace(number, end);
            try {
                known = &running_.Append(std::move(entry));
            } catch (...) {
                places_.erase(number);
                throw;
            }
        }
    }
    known->lastTimeSeen = now;
    known->lastRefresh = refresh_;
}

// Remembers a run among those that have ended, and sums it up.
void ProcessTable::End(const ProcessEntry& entry) {
    ended_.push_back({entry.id, entry.startTime, entry.lastTimeSeen, entry.name, entry.location});
    if (ended_.size() > kMostEnded) {
        ended_.pop_front();
    }
    if (const auto tracked = tracked_.find(entry.name); tracked != tracked_.end()) {
        StatRecord run;
        run.firstStartTime = entry.startTime;
        run.lastStartTime = entry.startTime;
        run.lastTimeSeen = entry.lastTimeSeen;
        run.totalDuration = std::max(entry.lastTimeSeen - entry.startTime, int64_t{0});
        run.totalRunCount = 1;
        run.fileSize = entry.fileSize;
        AddUse(tracked->second, run);
    }
}

// The last entry takes the place of one that goes.
void ProcessTable::EndMissing() {
    for (size_t i = running_.Size(); i-- != 0;) {
        if (running_[i].lastRefresh == refresh_) {
            continue;
        }
        End(running_[i]);
        places_.erase(running_[i].id);
        const size_t last = running_.Size() - 1;
        if (i != last) {
            running_[i] = std::move(running_[last]);
            places_[running_[i].id] = i;
        }
        running_.RemoveLast();
    }
}

void ProcessTable::Expire() {
    const AutoMutexAquisition held(mutex_);
    expired_ = true;
}

void ProcessTable::Track(std::vector<std::string> names) {
    const AutoMutexAquisition held(mutex_);
    decltype(tracked_) tracked;
    for (std::string& name : names) {
        const auto before = tracked_.find(name);
        tracked.emplace(std::move(name),
                        before == tracked_.end() ? std::vector<StatRecord>() : std::move(before->second));
    }
    tracked_ = std::move(tracked);
}

std::vector<StatRecord> ProcessTable::UseToAdd(std::string_view name) {
    const Hold held(*this);
    const auto tracked = tracked_.find(name);
    return tracked == tracked_.end() ? std::vector<StatRecord>() : tracked->second;
}

void ProcessTable::Store(const FileLocation& statDir) {
    const AutoMutexAquisition held(mutex_);
    for (auto& [name, use] : tracked_) {
        const std::optional<FileLocation> location = StatFileLocation(statDir, name);
        if (use.empty() || !location) {
            continue;
        }
        std::vector<StatRecord> records = ReadStatFile(*location);
        for (const StatRecord& run : use) {
            AddUse(records, run);
        }
        WriteStatFile(*location, records);
        use.clear();
    }
}

const std::string& ProcessTable::NameOf(size_t index) const {
    return index < running_.Size() ? running_[index].name : ended_[index - running_.Size()].name;
}

ProcessRun ProcessTable::RunOf(size_t index) const {
    const auto run = [](const auto& entry, bool active) {
        return ProcessRun{entry.id, entry.startTime, entry.lastTimeSeen, active, std::string(entry.location.Text())};
    };
    return index < running_.Size() ? run(running_[index], true) : run(ended_[index - running_.Size()], false);
}

bool ProcessTable::Find(std::string_view name, size_t& index, size_t end) const {
    while (index < end && NameOf(index) != name) {
        ++index;
    }
    return index < end;
}

bool ProcessTable::GetProcessName(size_t index, std::string& path) {
    const Hold held(*this);
    if (index >= Size()) {
        return false;
    }
    path = RunOf(index).path;
    return true;
}

bool ProcessTable::GetProcessByName(std::string_view name, size_t& index) {
    const Hold held(*this);
    return Find(name, index, Size());
}

bool ProcessTable::GetProcessActive(size_t index) {
    const Hold held(*this);
    return index < running_.Size();
}

bool ProcessTable::GetProcessActiveByName(std::string_view name) {
    const Hold held(*this);
    size_t index = 0;
    return Find(name, index, running_.Size());
}

bool ProcessTable::GetProcessEntryByName(std::string_view name, size_t& index, ProcessRun& run) {
    const Hold held(*this);
    if (!Find(name, index, running_.Size())) {
        return false;
    }
    run = RunOf(index++);
    return true;
}

ApplicationEvent ProcessTable::GetAppEvent(std::string_view name) {
    const Hold held(*this);
    size_t index = 0;
    if (!Find(name, index, Size())) {
        return ApplicationEvent::None;
    }
    return index < running_.Size() ? ApplicationEvent::Started : ApplicationEvent::Ended;
}

bool ProcessTable::GetAppUsage(std::string_view name, size_t& index, ProcessRun& run) {
    const Hold held(*this);
    if (!Find(name, index, Size())) {
        return false;
    }
    run = RunOf(index++);
    return true;
}

ProcessTable* ProcessTable::SGetInstance() {
    static ProcessTable table;
    return &table;
}

bool ProcessTable::SGetProcessName(size_t index, std::string& path) {
    return SGetInstance()->GetProcessName(index, path);
}
bool ProcessTable::SGetProcessByName(std::string_view name, size_t& index) {
    return SGetInstance()->GetProcessByName(name, index);
}
bool ProcessTable::SGetProcessActive(size_t index) { return SGetInstance()->GetProcessActive(index); }
bool ProcessTable::SGetProcessActiveByName(std::string_view name) {
    return SGetInstance()->GetProcessActiveByName(name);
}
bool ProcessTable::SGetProcessEntryByName(std::string_view name, size_t& index, ProcessRun& run) {
    return SGetInstance()->GetProcessEntryByName(name, index, run);
}
ApplicationEvent ProcessTable::SGetAppEvent(std::string_view name) { return SGetInstance()->GetAppEvent(name); }
bool ProcessTable::SGetAppUsage(std::string_view name, size_t& index, ProcessRun& run) {
    return SGetInstance()->GetAppUsage(name, index, run);
}
