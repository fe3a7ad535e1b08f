// The dated settings of the configuration, as inspectors ask for them.
#ifndef CLIENT_INSPECTOR_SETTINGS_H
#define CLIENT_INSPECTOR_SETTINGS_H

#include <string>

#include "client/zendry_options_manager.h"
#include "evaluator/inspector_setting_store.h"

// The settings under a root path, by subsection.  A name is told as the configuration stores it, which is in lower
// case. The settings of the client file come before those of the relay's; one that is in both comes twice, each time
// with the values that hold.
class InspectorSettings final : public InspectorSettingStore {
public:
    // The manager must outlive the settings.
    explicit InspectorSettings(std::string root, ZendryOptionsManager& manager = ZendryOptionsManager::Instance())
        : root_(std::move(root)), manager_(manager) {}

    bool Find(std::string_view subsection, std::string_view name, StoredSetting& setting) override;
    bool Next(std::string_view subsection, size_t& cursor, StoredSetting& setting) override;

private:
    // The path of the subsection, with the separator behind it, as it is stored.
    std::string PrefixOf(std::string_view subsection) const;
    void Fill(const std::string& section, std::string_view name, StoredSetting& setting);

    const std::string root_;
    ZendryOptionsManager& manager_;
};

// The process's own, made at the first call: the machine's settings, and those of the sites.
InspectorSettingStore* OSLSettingStore();
InspectorSettingStore* OSLSitesStore();

#endif
