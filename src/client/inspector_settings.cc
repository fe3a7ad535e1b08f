#include "client/inspector_settings.h"

#include <mutex>

#include "client/reg_imp_setting.h"
#include "client/settings_paths.h"

namespace {

constexpr char kEnabled[] = "enabled";

// A setting lies directly in its subsection.
bool IsName(std::string_view name) {
    return !name.empty() && name.find(SettingsPath::separator) == std::string_view::npos;
}

}  // namespace

bool InspectorSettings::Find(std::string_view subsection, std::string_view name, StoredSetting& setting) {
    const std::string stored = IniFile::Lowered(name);
    const std::string section = PrefixOf(subsection) + stored;
    const std::lock_guard lock(manager_.AccessLock());
    if (!IsName(stored) || !manager_.SectionExists(section)) {
        return false;
    }
    Fill(section, stored, setting);
    return true;
}

bool InspectorSettings::Next(std::string_view subsection, size_t& cursor, StoredSetting& setting) {
    const std::string prefix = PrefixOf(subsection);
    const std::lock_guard lock(manager_.AccessLock());
    for (const char* section = nullptr; manager_.NextSection(cursor, section);) {
        const std::string_view path = section;
        if (path.starts_with(prefix) && IsName(path.substr(prefix.size()))) {
            Fill(std::string(path), path.substr(prefix.size()), setting);
            return true;
        }
    }
    return false;
}

std::string InspectorSettings::PrefixOf(std::string_view subsection) const {
    std::string path = root_ + SettingsPath::separator;
    if (!subsection.empty()) {
        path.append(subsection).append(1, SettingsPath::separator);
    }
    return IniFile::Lowered(path);
}

void InspectorSettings::Fill(const std::string& section, std::string_view name, StoredSetting& setting) {
    const auto text = [&](const char* key) {
        const char* found = nullptr;
        return manager_.ReadString(section, key, found) ? std::optional<std::string>(found) : std::nullopt;
    };
    setting.name = name;
    setting.value = text(RegImpSetting::cValueString);
    setting.effectiveDate = text(RegImpSetting::cEffectiveDateString);
    setting.enabled = text(kEnabled);
}

InspectorSettingStore* OSLSettingStore() {
    static InspectorSettings settings(SettingsPath::Settings());
    return &settings;
}

InspectorSettingStore* OSLSitesStore() {
    static InspectorSettings settings(SettingsPath::SiteSettings());
    return &settings;
}
