// Whether the agent's actions are locked, until when and by whom.
//
// The state is the agent's setting "__LockState": fields between ";", the first "locked" or "unlocked", the others
// "controller=", "expiration=", "effective=" and "text=" with their values.
#ifndef CLIENT_ACTION_LOCK_STATE_H
#define CLIENT_ACTION_LOCK_STATE_H

#include <optional>
#include <string>
#include <string_view>

#include "registry/inspector_type_info.h"
#include "values/moment.h"

class action_lock_state {
public:
    static constexpr char cSettingName[] = "__LockState";

    // Nothing for a text whose first field is neither word.  Of several fields of a kind the first counts, those of no
    // kind are passed over.
    static std::optional<action_lock_state> Parse(std::string&& text);

    bool Locked() const { return locked_; }
    std::string_view Text() const { return locked_ ? "locked" : "unlocked"; }

    // "nobody", "client" or "console"; nothing for any other.
    std::optional<std::string_view> Controller() const;

    // Nothing also for a text that is no time, or one without a zone.
    std::optional<moment> ExpirationDate() const;
    std::optional<moment> EffectiveDate() const;

    std::optional<std::string_view> LockString() const { return Field("text="); }

private:
    action_lock_state(std::string&& text, bool locked) noexcept : text_(std::move(text)), locked_(locked) {}

    std::optional<std::string_view> Field(std::string_view tag) const;

    std::string text_;
    bool locked_;
};

template <>
struct InspectorTypeInfo<action_lock_state> : InspectorTypeBasics<action_lock_state, 0> {
    static constexpr char Name[] = "action lock state";
    static constexpr unsigned Size = sizeof(action_lock_state);
};

#endif
