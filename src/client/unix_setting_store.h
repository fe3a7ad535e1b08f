// Dated settings as sections of the client file.
#ifndef CLIENT_UNIX_SETTING_STORE_H
#define CLIENT_UNIX_SETTING_STORE_H

#include <optional>
#include <string>
#include <string_view>

#include "client/reg_imp_setting.h"
#include "client/setting_store.h"
#include "client/zendry_options_manager.h"

class UnixSetting final : public RegImpSetting {
public:
    // The manager must outlive the setting.
    UnixSetting(ZendryOptionsManager& manager, std::string storeRoot, std::string sectionPath)
        : RegImpSetting(std::move(storeRoot), std::move(sectionPath)), manager_(&manager) {}

    bool Exists() const override;
    std::optional<std::string> Value() const override;
    std::optional<moment> EffectiveDate() const override;
    bool SetValue(std::string_view value) override;
    bool SetEffectiveDate(moment date) override;
    bool Delete() override;

private:
    bool IsOpen() const { return GetState() == State::Open; }

    ZendryOptionsManager* manager_;
};

// Walks over the settings of one subsection, first those of the client file and then those of the relay's; one that is
// in both comes twice, with the same values.  What is written meanwhile may be missed.
class UnixSettingIterator {
public:
    using Setting = UnixSetting;

    // `prefix` is the path of the subsection, with the "\" behind it.
    UnixSettingIterator(ZendryOptionsManager& manager, std::string storeRoot, std::string_view prefix);

    // Whether the iterator stands on a setting, which Current() then gives.
    bool Valid() const { return current_.has_value(); }
    const UnixSetting& Current() const { return *current_; }
    void Next();

private:
    ZendryOptionsManager* manager_;
    std::string storeRoot_;
    std::string prefix_;
    size_t cursor_ = 0;
    std::optional<UnixSetting> current_;
};

namespace UnixPlatform {

class UnixSettingStore final : public SettingStore<UnixSettingIterator> {
public:
    // The manager must outlive the store and what it gives.
    explicit UnixSettingStore(std::string root, ZendryOptionsManager& manager = ZendryOptionsManager::Instance())
        : root_(std::move(root)), manager_(manager) {}

    const std::string& Root() const { return root_; }

    UnixSetting At(std::string_view path) const override;
    std::optional<UnixSetting> Find(std::string_view path) const override;
    UnixSettingIterator Begin(std::string_view subsection) const override;

private:
    std::string root_;
    ZendryOptionsManager& manager_;
};

// The process's stores: the machine's settings and the sites', each made at its first call.
SettingStore<UnixSettingIterator>& MachineSettings();
SettingStore<UnixSettingIterator>& SiteSettings();

}  // namespace UnixPlatform

#endif
