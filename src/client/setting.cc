#include "client/setting.h"

#include <string>

#include "client/host_values.h"
#include "client/setting_time.h"
#include "client/settings_paths.h"
#include "client/site.h"
#include "evaluator/adapters.h"
#include "evaluator/host_function.h"

namespace {

template <auto Entry>
InspectorSettingStore& Store() {
    InspectorSettingStore* const store = HostFunction<Entry, InspectorSettingsContextError>()();
    if (store == nullptr) {
        throw InspectorSettingsContextError();
    }
    return *store;
}

}  // namespace

InspectorSettingStore& ClientSettings() { return Store<&OSLSettingsContext::settingStore>(); }
InspectorSettingStore& SiteSettings() { return Store<&OSLSettingsContext::sitesStore>(); }

std::optional<setting> SettingOf(InspectorSettingStore& store, std::string_view subsection, std::string_view name) {
    StoredSetting stored;
    return store.Find(subsection, name, stored) ? std::optional<setting>(std::in_place, std::move(stored))
                                                : std::nullopt;
}

std::optional<setting> SettingWalk::Next(InspectorSettingStore& store, std::string_view subsection) {
    StoredSetting stored;
    return store.Next(subsection, cursor_, stored) ? std::optional<setting>(std::in_place, std::move(stored))
                                                   : std::nullopt;
}

namespace {

// The texts lie in the setting itself.
inspector_string Name(const setting& s) { return inspector_string(s.Stored().name); }

std::optional<inspector_string> Value(const setting& s) { return HostValue::Text(s.Stored().value); }

std::optional<moment> EffectiveDate(const setting& s) {
    return s.Stored().effectiveDate ? TimeOfSetting(*s.Stored().effectiveDate) : std::nullopt;
}

// A setting is disabled by an explicit "0" alone.
boolean Enabled(const setting& s) { return s.Stored().enabled != "0"; }

inspector_string AsString(const setting& s) {
    const std::string& name = s.Stored().name;
    const std::string_view value = s.Stored().value ? std::string_view(*s.Stored().value) : std::string_view();
    const size_t length = name.size() + 1 + value.size();
    char* const text = static_cast<char*>(InspectorAllocate(length));
    name.copy(text, name.size());
    text[name.size()] = '=';
    value.copy(text + name.size() + 1, value.size());
    return {text, length};
}

class setting_of_site {
public:
    std::optional<setting> First(const site& of) {
        walk_.Restart();
        return Next(of);
    }
    std::optional<setting> Next(const site& of) { return walk_.Next(SiteSettings(), of.Map().name); }

private:
    SettingWalk walk_;
};

std::optional<setting> NamedSettingOfSite(const inspector_string& name, const site& of) {
    return SettingOf(SiteSettings(), of.Map().name, name.View());
}

std::optional<moment> CustomSiteSubscriptionEffectiveDate(const inspector_string& name) {
    const std::optional<setting> found = SettingOf(ClientSettings(), SettingsPath::customSites, name.View());
    return found ? EffectiveDate(*found) : std::nullopt;
}

// clang-format off
Type<setting>                                                       type;

Property<setting, inspector_string, Name>                           name           {"name", "names"};
Property<setting, inspector_string, Value>                          value          {"value", "values"};
Property<setting, moment, EffectiveDate>                            effectiveDate  {"effective date", "effective dates"};
Property<setting, boolean, Enabled>                                 enabled        {"enabled", "enableds"};
Cast<inspector_string, setting, AsString>                           text           {"string"};
IteratedProperty<setting_of_site, site, setting>                    ofSite         {"setting", "settings", ByValueOnly};
NamedProperty<site, setting, NamedSettingOfSite>                    namedOfSite    {"setting", "settings", ByValueOnly};
NamedGlobalProperty<moment, CustomSiteSubscriptionEffectiveDate>    subscription   {"custom site subscription effective date", "custom site subscription effective dates", ByValueOnly};
// clang-format on

}  // namespace
