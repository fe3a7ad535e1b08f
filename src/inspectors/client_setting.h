// One setting of the agent, for inspectors that it can switch off.
#ifndef INSPECTORS_CLIENT_SETTING_H
#define INSPECTORS_CLIENT_SETTING_H

#include <string_view>

// Whether the client's setting `name` has this value, without regard to ASCII case.  False where there is no such
// setting, and whatever goes wrong on the way to it: no context, no settings, no memory.
bool ClientSettingIs(std::string_view name, std::string_view value);

#endif
