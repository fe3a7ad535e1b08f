// Times as the configuration holds them: "Tue, 09 Mar 1999 10:11:12 +0000".
#ifndef CLIENT_SETTING_TIME_H
#define CLIENT_SETTING_TIME_H

#include <optional>
#include <string>
#include <string_view>

#include "values/moment.h"

// Nothing for a text that is no time, or one that does not name its zone.
std::optional<moment> TimeOfSetting(std::string_view text);

// The time in universal time, so that it reads the same wherever the machine is, in whole seconds.  Nothing for a time
// outside the years of the calendar.
std::optional<std::string> TextOfSettingTime(moment time);

#endif
