// The programs that run on the machine and those that ran a while ago, as the kernel's listing of processes shows them.
//
// The table learns of a process when a refresh meets it and of its end when a refresh meets it no more; what began and
// ended between two refreshes it never sees.  A process that becomes another program ends its run and begins a new one.
#ifndef CLIENT_PROCESS_TABLE_H
#define CLIENT_PROCESS_TABLE_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "client/stat_file.h"
#include "evaluator/inspector_process_table_context.h"
#include "foundation/extensible_array.h"
#include "foundation/file_location.h"
#include "foundation/mutex.h"

class CpuBudget;

// The second since boot in which a process started, from the text of its file "stat".  None for a text that has no such
// field, and where the command's name ends before the sixth byte.
std::optional<uint64_t> ProcessStartSecond(const std::string& statText);

// A process that runs.
struct ProcessEntry {
    int64_t id = 0;
    uint64_t startSecond = 0;  // since boot
    int64_t startTime = 0;     // microseconds since the start of 1970
    int64_t lastTimeSeen = 0;  // the same
    int64_t fileSize = 0;      // of the program, when the run was first seen
    uint64_t lastRefresh = 0;  // the number of the refresh that met it last
    std::string name;          // the last component of the path
    FileLocation location;     // of the program
};

// A run that has ended.
struct TrickleProcessEntry {
    int64_t id = 0;
    int64_t startTime = 0;
    int64_t lastTimeSeen = 0;
    std::string name;
    FileLocation location;
};

// Every operation takes the table's mutex, so that one thread may refresh it while another reads.
class ProcessTable {
public:
    // How many ended runs are remembered, the latest of them.
    static constexpr size_t kMostEnded = 1024;

    // `folder` is where the kernel shows the processes; it ends in "/" and outlives the table.
    explicit ProcessTable(std::string_view folder = "/proc/") : folder_(folder) {}
    ProcessTable(const ProcessTable&) = delete;
    ProcessTable& operator=(const ProcessTable&) = delete;

    // Looks at the machine now; the budget is told of each process.  Throws FileIOError where the processes cannot be
    // listed, after which every run that was known is known still.
    void Refresh(CpuBudget& budget);
    void Refresh();

    // From now on the table is out of date, and whoever asks it next has it refreshed first.  A new table is.
    void Expire();

    // The applications whose use is summed, in the place of those before.  Sums of others are forgotten.
    void Track(std::vector<std::string> names);

    // What the ended runs of a tracked application have added to its use and Store has not yet written.
    std::vector<StatRecord> UseToAdd(std::string_view name);

    // Adds that to the applications' files in `statDir`.  Throws the exceptions of the file layer; what was not written
    // stays to be written.
    void Store(const FileLocation& statDir);

    // The operations of InspectorProcessTableContext.
    bool GetProcessName(size_t index, std::string& path);
    bool GetProcessByName(std::string_view name, size_t& index);
    bool GetProcessActive(size_t index);
    bool GetProcessActiveByName(std::string_view name);
    bool GetProcessEntryByName(std::string_view name, size_t& index, ProcessRun& run);
    ApplicationEvent GetAppEvent(std::string_view name);
    bool GetAppUsage(std::string_view name, size_t& index, ProcessRun& run);

    // The same of the process's one table, which lives until exit.
    static ProcessTable* SGetInstance();
    static bool SGetProcessName(size_t index, std::string& path);
    static bool SGetProcessByName(std::string_view name, size_t& index);
    static bool SGetProcessActive(size_t index);
    static bool SGetProcessActiveByName(std::string_view name);
    static bool SGetProcessEntryByName(std::string_view name, size_t& index, ProcessRun& run);
    static ApplicationEvent SGetAppEvent(std::string_view name);
    static bool SGetAppUsage(std::string_view name, size_t& index, ProcessRun& run);

private:
    class Hold;

    void Meet(const std::string& id, const std::string& path, int64_t now);
    void End(const ProcessEntry& entry);
    void EndMissing();
    size_t Size() const { return running_.Size() + ended_.size(); }
    const std::string& NameOf(size_t index) const;
    ProcessRun RunOf(size_t index) const;
    bool Find(std::string_view name, size_t& index, size_t end) const;

    std::string_view folder_;
    Mutex mutex_;
    bool expired_ = true;
    uint64_t refresh_ = 0;
    std::optional<int64_t> bootTime_;  // as it was first worked out, so that a run's start never moves
    ExtensibleArray<ProcessEntry, 32> running_;
    std::unordered_map<int64_t, size_t> places_;  // in running_, by process
    std::deque<TrickleProcessEntry> ended_;       // the latest last
    std::map<std::string, std::vector<StatRecord>, std::less<>> tracked_;
};

#endif
