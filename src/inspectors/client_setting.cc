#include "inspectors/client_setting.h"

#include <new>

#include "evaluator/inspector_context.h"
#include "evaluator/inspector_setting_store.h"
#include "foundation/ascii.h"

namespace {

std::optional<std::string> Value(std::string_view name) {
    auto& settings = ContextInterface<OSLSettingsContext, InspectorSettingsContextError>();
    InspectorSettingStore* store = settings.settingStore == nullptr ? nullptr : settings.settingStore();
    StoredSetting setting;
    return store != nullptr && store->Find("Client", name, setting) ? std::move(setting.value) : std::nullopt;
}

}  // namespace

bool ClientSettingIs(std::string_view name, std::string_view value) {
    try {
        const std::optional<std::string> set = Value(name);
        return set && Ascii::EqualIgnoringCase(*set, value);
    } catch (...) {
        return false;
    }
}

std::optional<std::string> ClientSettingText(std::string_view name) {
    try {
        return Value(name);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (...) {
        return std::nullopt;
    }
}
