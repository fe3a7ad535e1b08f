// Settings, as the language has them, and how inspectors find them in the stores of the host.
#ifndef CLIENT_SETTING_H
#define CLIENT_SETTING_H

#include <optional>
#include <string_view>
#include <utility>

#include "evaluator/inspector_context.h"
#include "evaluator/inspector_setting_store.h"
#include "registry/inspector_type_info.h"

// A setting as it was when it was asked for.
class setting {
public:
    explicit setting(StoredSetting&& stored) noexcept : stored_(std::move(stored)) {}

    const StoredSetting& Stored() const { return stored_; }

private:
    StoredSetting stored_;
};

template <>
struct InspectorTypeInfo<setting> : InspectorTypeBasics<setting, 0> {
    static constexpr char Name[] = "setting";
    static constexpr unsigned Size = sizeof(setting);
};

// The host's settings of the agent and of the sites.  Throw NoInspectorContext, and InspectorSettingsContextError for a
// host that has no such store.
InspectorSettingStore& ClientSettings();
InspectorSettingStore& SiteSettings();

// The setting of a name in a subsection.
std::optional<setting> SettingOf(InspectorSettingStore& store, std::string_view subsection, std::string_view name);

// Walks over the settings of one subsection.
class SettingWalk {
public:
    void Restart() { cursor_ = 0; }
    std::optional<setting> Next(InspectorSettingStore& store, std::string_view subsection);

private:
    size_t cursor_ = 0;
};

#endif
