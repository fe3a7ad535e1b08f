#include "client/action_lock_state.h"

#include <algorithm>
#include <utility>

#include "client/host_values.h"
#include "client/setting.h"
#include "client/setting_time.h"
#include "client/settings_paths.h"
#include "evaluator/adapters.h"

namespace {

constexpr char separator = ';';

}  // namespace

std::optional<action_lock_state> action_lock_state::Parse(std::string&& text) {
    const std::string_view word = std::string_view(text).substr(0, text.find(separator));
    if (word != "locked" && word != "unlocked") {
        return std::nullopt;
    }
    const bool locked = word == "locked";
    return action_lock_state(std::move(text), locked);
}

std::optional<std::string_view> action_lock_state::Field(std::string_view tag) const {
    std::string_view rest = text_;
    while (!rest.empty()) {
        const std::string_view field = rest.substr(0, rest.find(separator));
        if (field.substr(0, tag.size()) == tag) {
            return field.substr(tag.size());
        }
        rest.remove_prefix(std::min(field.size() + 1, rest.size()));
    }
    return std::nullopt;
}

std::optional<std::string_view> action_lock_state::Controller() const {
    const std::optional<std::string_view> controller = Field("controller=");
    return controller == "nobody" || controller == "client" || controller == "console" ? controller : std::nullopt;
}

std::optional<moment> action_lock_state::ExpirationDate() const {
    const std::optional<std::string_view> date = Field("expiration=");
    return date ? TimeOfSetting(*date) : std::nullopt;
}

std::optional<moment> action_lock_state::EffectiveDate() const {
    const std::optional<std::string_view> date = Field("effective=");
    return date ? TimeOfSetting(*date) : std::nullopt;
}

namespace {

std::optional<action_lock_state> ActionLockState_of_world() {
    StoredSetting stored;
    return ClientSettings().Find(SettingsPath::client, action_lock_state::cSettingName, stored) && stored.value
               ? action_lock_state::Parse(std::move(*stored.value))
               : std::nullopt;
}

boolean Locked(const action_lock_state& state) { return state.Locked(); }
std::optional<moment> ExpirationDate(const action_lock_state& state) { return state.ExpirationDate(); }
std::optional<moment> EffectiveDate(const action_lock_state& state) { return state.EffectiveDate(); }
std::optional<inspector_string> Controller(const action_lock_state& state) {
    return HostValue::Text(state.Controller());
}
std::optional<inspector_string> LockString(const action_lock_state& state) {
    return HostValue::Text(state.LockString());
}
inspector_string AsString(const action_lock_state& state) { return inspector_string(state.Text()); }

// clang-format off
Type<action_lock_state>                                             type;

GlobalProperty<action_lock_state, ActionLockState_of_world>         ofWorld        {"action lock state", "action lock states", ByValueOnly};
Property<action_lock_state, boolean, Locked>                        locked         {"locked", "lockeds"};
Property<action_lock_state, moment, ExpirationDate>                 expirationDate {"expiration date", "expiration dates"};
Property<action_lock_state, moment, EffectiveDate>                  effectiveDate  {"effective date", "effective dates"};
Property<action_lock_state, inspector_string, Controller>           controller     {"controller", "controllers"};
Property<action_lock_state, inspector_string, LockString>           lockString     {"lock string", "lock strings"};
Cast<inspector_string, action_lock_state, AsString>                 text           {"string"};
// clang-format on

}  // namespace
