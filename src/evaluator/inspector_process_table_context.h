// What inspectors ask about the programs that run and have run on the machine.
#ifndef EVALUATOR_INSPECTOR_PROCESS_TABLE_CONTEXT_H
#define EVALUATOR_INSPECTOR_PROCESS_TABLE_CONTEXT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

class ProcessTable;  // client/process_table.h

// One run of a program.  Times are microseconds since the start of 1970.
struct ProcessRun {
    int64_t processId = 0;
    int64_t startTime = 0;
    int64_t lastTimeSeen = 0;
    bool active = false;
    std::string path;
};

// The name of an application: the last component of its program's path.
inline std::string_view ApplicationName(std::string_view path) { return path.substr(path.rfind('/') + 1); }

// What last happened to an application.
enum class ApplicationEvent { None, Started, Ended };

// The table's entries are numbered from 0, those of the running processes and then those of ended ones.  A number
// stands for the same entry until the table is refreshed; one past the end is no entry.  Where a place in the table is
// given by reference, the look starts there and leaves the place at what it found (processByName) or behind it.
class InspectorProcessTableContext {
public:
    virtual ~InspectorProcessTableContext() = default;

    // The path of an entry's program; false past the end.
    bool (*processName)(size_t index, std::string& path) = nullptr;
    // The first entry of that application.
    bool (*processByName)(std::string_view name, size_t& index) = nullptr;
    // Whether it runs now.
    bool (*processActive)(size_t index) = nullptr;
    bool (*processActiveByName)(std::string_view name) = nullptr;
    // The next running process of that application, and the next of its runs, ended ones included.
    bool (*processEntryByName)(std::string_view name, size_t& index, ProcessRun& run) = nullptr;
    ApplicationEvent (*applicationEvent)(std::string_view name) = nullptr;
    bool (*applicationUsage)(std::string_view name, size_t& index, ProcessRun& run) = nullptr;
    // The table itself.
    ProcessTable* (*tableInstance)() = nullptr;
};

#endif
