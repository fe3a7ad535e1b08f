#include "inspectors/client_setting.h"

#include "evaluator/inspector_context.h"
#include "evaluator/inspector_setting_store.h"
#include "foundation/ascii.h"

bool ClientSettingIs(std::string_view name, std::string_view value) {
    try {
        auto& settings = ContextInterface<OSLSettingsContext, InspectorSettingsContextError>();
        InspectorSettingStore* store = settings.settingStore == nullptr ? nullptr : settings.settingStore();
        StoredSetting setting;
        return store != nullptr && store->Find("Client", name, setting) && setting.value &&
               Ascii::EqualIgnoringCase(*setting.value, value);
    } catch (...) {
        return false;
    }
}
