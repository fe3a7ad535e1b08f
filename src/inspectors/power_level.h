// Where the machine's power comes from, as one adapter's file tells it.
#ifndef INSPECTORS_POWER_LEVEL_H
#define INSPECTORS_POWER_LEVEL_H

#include <optional>
#include <string_view>

// The state's text behind "state:", without blanks around it; none in a text that tells no state.
std::optional<std::string_view> ParsePowerState(std::string_view text);

#endif
