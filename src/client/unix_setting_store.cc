#include "client/unix_setting_store.h"

#include <cstring>

#include "client/settings_paths.h"

namespace {

// A path as the files have it.
std::string Stored(std::string_view path) { return IniFile::Lowered(path); }

std::string Joined(std::string_view root, std::string_view path) {
    std::string joined(root);
    if (!path.empty()) {
        joined.append(1, SettingsPath::separator).append(path);
    }
    return joined;
}

}  // namespace

bool UnixSetting::Exists() const { return IsOpen() && manager_->SectionExists(SectionPath()); }

std::optional<std::string> UnixSetting::Value() const {
    const std::lock_guard lock(manager_->AccessLock());
    const char* text = nullptr;
    return IsOpen() && manager_->ReadString(SectionPath(), cValueString, text) ? std::optional<std::string>(text)
                                                                               : std::nullopt;
}

std::optional<moment> UnixSetting::EffectiveDate() const {
    moment date;
    return IsOpen() && manager_->ReadTime(SectionPath(), cEffectiveDateString, date) ? std::optional<moment>(date)
                                                                                     : std::nullopt;
}

bool UnixSetting::SetValue(std::string_view value) {
    return IsOpen() && manager_->WriteString(SectionPath(), cValueString, value);
}

bool UnixSetting::SetEffectiveDate(moment date) {
    return IsOpen() && manager_->WriteTime(SectionPath(), cEffectiveDateString, date);
}

bool UnixSetting::Delete() {
    const bool deleted = IsOpen() && manager_->DeleteSection(SectionPath());
    if (deleted) {
        MarkDeleted();
    }
    return deleted;
}

UnixSettingIterator::UnixSettingIterator(ZendryOptionsManager& manager, std::string storeRoot, std::string_view prefix)
    : manager_(&manager), storeRoot_(std::move(storeRoot)), prefix_(Stored(prefix)) {
    Next();
}

void UnixSettingIterator::Next() {
    current_.reset();
    const std::lock_guard lock(manager_->AccessLock());
    for (const char* section = nullptr; manager_->NextSection(cursor_, section);) {
        if (std::strncmp(section, prefix_.c_str(), prefix_.size()) != 0) {
            continue;
        }
        const char* const name = section + prefix_.size();
        if (*name != '\0' && std::strchr(name, SettingsPath::separator) == nullptr) {
            current_.emplace(*manager_, storeRoot_, section);
            return;
        }
    }
}

namespace UnixPlatform {

UnixSetting UnixSettingStore::At(std::string_view path) const { return {manager_, root_, Stored(Joined(root_, path))}; }

std::optional<UnixSetting> UnixSettingStore::Find(std::string_view path) const {
    UnixSetting setting = At(path);
    return setting.Exists() ? std::optional<UnixSetting>(std::move(setting)) : std::nullopt;
}

UnixSettingIterator UnixSettingStore::Begin(std::string_view subsection) const {
    return {manager_, root_, Joined(root_, subsection) + SettingsPath::separator};
}

SettingStore<UnixSettingIterator>& MachineSettings() {
    static UnixSettingStore store(SettingsPath::Settings());
    return store;
}

SettingStore<UnixSettingIterator>& SiteSettings() {
    static UnixSettingStore store(SettingsPath::SiteSettings());
    return store;
}

}  // namespace UnixPlatform
