// The dated settings of one subsection, as those who know only names and values see them.
#ifndef CLIENT_OSL_SUBSECTION_SETTINGS_H
#define CLIENT_OSL_SUBSECTION_SETTINGS_H

#include <optional>
#include <string>
#include <string_view>

#include "client/settings_paths.h"
#include "values/moment.h"

// `Store` is a SettingStore; it must outlive this object.
template <class Store>
class OSLSubsectionSettings {
public:
    using Setting = typename Store::Setting;
    using Iterator = typename Store::Iterator;

    // The subsection is one of those of SettingsPath, or a site's.
    OSLSubsectionSettings(Store& store, std::string subsection) : store_(store), subsection_(std::move(subsection)) {}

    std::optional<Setting> Find(std::string_view name) const { return store_.Find(PathOf(name)); }
    Iterator Begin() const { return store_.Begin(subsection_); }

    // Writes the value, and then the current time as that since when it holds.  False where either fails; the value may
    // then stand without its date.
    bool Write(std::string_view name, std::string_view value) {
        Setting setting = store_.At(PathOf(name));
        return setting.SetValue(value) && setting.SetEffectiveDate(Now());
    }

    // False where there is no such setting, or the file cannot be written.
    bool Delete(std::string_view name) {
        std::optional<Setting> setting = Find(name);
        return setting && setting->Delete();
    }

private:
    std::string PathOf(std::string_view name) const {
        return std::string(subsection_).append(1, SettingsPath::separator).append(name);
    }

    Store& store_;
    std::string subsection_;
};

#endif
