// A store of dated settings.
#ifndef CLIENT_SETTING_STORE_H
#define CLIENT_SETTING_STORE_H

#include <optional>
#include <string_view>

// Settings lie under a root path, in subsections: `path` is the subsection and the setting's name, joined by "\".
// `SettingIterator` walks over the settings of one subsection and names their type.
template <class SettingIterator>
class SettingStore {
public:
    using Iterator = SettingIterator;
    using Setting = typename SettingIterator::Setting;

    virtual ~SettingStore() = default;

    // The setting of that path, there or not, to be written.
    virtual Setting At(std::string_view path) const = 0;

    // The setting of that path where it is there, in any case of letters, under the name that the file has for it.
    virtual std::optional<Setting> Find(std::string_view path) const = 0;

    // The settings directly in `subsection`; those of the root where it is empty.
    virtual SettingIterator Begin(std::string_view subsection) const = 0;
};

#endif
