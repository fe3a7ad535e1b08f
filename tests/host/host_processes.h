// The processes of a host: a list of runs, the running ones first.
//
// Where `table` is set, the operations that the list does not serve are those of that table.
#ifndef TESTS_HOST_HOST_PROCESSES_H
#define TESTS_HOST_HOST_PROCESSES_H

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "evaluator/inspector_process_table_context.h"
#include "tests/host/current_host.h"

struct HostProcesses : InspectorProcessTableContext {
    std::vector<ProcessRun> runs;
    ProcessTable* table = nullptr;

    HostProcesses() {
        processName = [](size_t index, std::string& path) {
            const std::vector<ProcessRun>& all = Runs();
            if (index < all.size()) {
                path = all[index].path;
            }
            return index < all.size();
        };
        processActive = [](size_t index) { return index < Runs().size() && Runs()[index].active; };
        processActiveByName = [](std::string_view name) {
            return std::any_of(Runs().begin(), Runs().end(),
                               [=](const ProcessRun& run) { return run.active && Name(run) == name; });
        };
        applicationUsage = [](std::string_view name, size_t& index, ProcessRun& run) {
            const std::vector<ProcessRun>& all = Runs();
            while (index < all.size() && Name(all[index]) != name) {
                ++index;
            }
            if (index == all.size()) {
                return false;
            }
            run = all[index++];
            return true;
        };
        tableInstance = []() { return CurrentHost<HostProcesses>().table; };
    }

private:
    static const std::vector<ProcessRun>& Runs() { return CurrentHost<HostProcesses>().runs; }
    static std::string_view Name(const ProcessRun& run) { return ApplicationName(run.path); }
};

#endif
