// One setting of the agent, for inspectors that it can switch on and off.
#ifndef INSPECTORS_CLIENT_SETTING_H
#define INSPECTORS_CLIENT_SETTING_H

#include <optional>
#include <string>
#include <string_view>

// Whether the client's setting `name` has this value, without regard to ASCII case.  False where there is no such
// setting, and whatever goes wrong on the way to it: no context, no settings, no memory.
bool ClientSettingIs(std::string_view name, std::string_view value);

// The value of the client's setting `name`.  None where there is no such setting, and whatever goes wrong on the way to
// it, but for memory: throws std::bad_alloc.
std::optional<std::string> ClientSettingText(std::string_view name);

#endif
