// The settings of a host, in memory, its program and its storage.
#ifndef TESTS_HOST_HOST_SETTINGS_H
#define TESTS_HOST_HOST_SETTINGS_H

#include <map>
#include <string>
#include <vector>

#include "evaluator/inspector_context.h"
#include "evaluator/inspector_setting_store.h"
#include "foundation/ascii.h"
#include "foundation/file_location.h"
#include "tests/host/current_host.h"

struct MemorySettings final : InspectorSettingStore {
    std::map<std::string, std::vector<StoredSetting>, std::less<>> subsections;

    bool Find(std::string_view subsection, std::string_view name, StoredSetting& setting) override {
        for (size_t cursor = 0; Next(subsection, cursor, setting);) {
            if (Ascii::CompareIgnoringCase(ConstData(setting.name), ConstData(name)) == 0) {
                return true;
            }
        }
        return false;
    }
    bool Next(std::string_view subsection, size_t& cursor, StoredSetting& setting) override {
        const auto found = subsections.find(subsection);
        if (found == subsections.end() || cursor == found->second.size()) {
            return false;
        }
        setting = found->second[cursor++];
        return true;
    }
};

struct HostSettings : OSLSettingsContext {
    MemorySettings ofAgent;
    MemorySettings ofSites;

    HostSettings() {
        settingStore = []() -> InspectorSettingStore* { return &CurrentHost<HostSettings>().ofAgent; };
        sitesStore = []() -> InspectorSettingStore* { return &CurrentHost<HostSettings>().ofSites; };
    }
};

struct HostStorage : InspectorStorageContext {
    FileLocation program;
    FileLocation storage;  // the folder of its data

    HostStorage() {
        getExecutableLocation = []() -> const FileLocation* { return &CurrentHost<HostStorage>().program; };
        getGlobalLocation = []() -> const FileLocation& { return CurrentHost<HostStorage>().storage; };
    }
};

#endif
