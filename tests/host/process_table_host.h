// A host with a table of processes, storage and settings: each test says what is in them.
//
// The table is a list of runs, the running ones first.  Where `table` is set, the operations that the list does not
// serve are those of that table.
#ifndef TESTS_HOST_PROCESS_TABLE_HOST_H
#define TESTS_HOST_PROCESS_TABLE_HOST_H

#include <map>
#include <string>
#include <vector>

#include "evaluator/inspector_context.h"
#include "evaluator/inspector_process_table_context.h"
#include "evaluator/inspector_setting_store.h"
#include "foundation/file_location.h"

class ProcessTableHost : public InspectorContext,
                         public InspectorProcessTableContext,
                         public InspectorStorageContext,
                         public OSLSettingsContext {
public:
    ProcessTableHost() {
        runs.clear();
        settings.values.clear();
        table = nullptr;
        processName = [](size_t index, std::string& path) {
            if (index < runs.size()) {
                path = runs[index].path;
            }
            return index < runs.size();
        };
        processActive = [](size_t index) { return index < runs.size() && runs[index].active; };
        processActiveByName = [](std::string_view name) {
            for (const ProcessRun& run : runs) {
                if (run.active && Name(run) == name) {
                    return true;
                }
            }
            return false;
        };
        applicationUsage = [](std::string_view name, size_t& index, ProcessRun& run) {
            while (index < runs.size() && Name(runs[index]) != name) {
                ++index;
            }
            if (index == runs.size()) {
                return false;
            }
            run = runs[index++];
            return true;
        };
        tableInstance = []() { return table; };
        getGlobalLocation = []() -> const FileLocation& { return storage; };
        settingStore = []() -> InspectorSettingStore* { return &settings; };
    }

    static std::string_view Name(const ProcessRun& run) {
        return std::string_view(run.path).substr(run.path.rfind('/') + 1);
    }

    // The client's settings.
    class Settings : public InspectorSettingStore {
    public:
        bool Find(std::string_view subsection, std::string_view name, StoredSetting& setting) override {
            const auto found = values.find(std::string(name));
            if (subsection != "Client" || found == values.end()) {
                return false;
            }
            setting.name = found->first;
            setting.value = found->second;
            return true;
        }
        bool Next(std::string_view, size_t&, StoredSetting&) override { return false; }

        std::map<std::string, std::string> values;
    };

    static inline std::vector<ProcessRun> runs;
    static inline Settings settings;
    static inline FileLocation storage;
    static inline ProcessTable* table = nullptr;
};

#endif
