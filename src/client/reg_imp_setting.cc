#include "client/reg_imp_setting.h"

#include "client/settings_paths.h"

std::string_view RegImpSetting::Name() const {
    const std::string_view path = sectionPath_;
    return path.substr(path.rfind(SettingsPath::separator) + 1);
}

std::string AsText(const RegImpSetting& setting) {
    return std::string(setting.Name()).append("=").append(setting.Value().value_or(std::string()));
}
