#include "inspectors/power_level.h"

#include "evaluator/adapters.h"
#include "foundation/stdio_file.h"
#include "values/string.h"

std::optional<std::string_view> ParsePowerState(std::string_view text) {
    constexpr std::string_view kKey = "state:";
    constexpr std::string_view kBlanks = " \t\r\n";
    const size_t key = text.find(kKey);
    if (key == std::string_view::npos) {
        return std::nullopt;
    }
    text.remove_prefix(key + kKey.size());
    text = text.substr(0, text.find('\n'));
    const size_t begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) {
        return std::nullopt;
    }
    return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

// The state's text lies in evaluation memory.
struct power_level {
    inspector_string state;
};

template <>
struct InspectorTypeInfo<power_level> : InspectorTypeBasics<power_level, 0> {
    static constexpr char Name[] = "power level";
    static constexpr unsigned Size = 8;
};

namespace {

std::optional<power_level> PowerLevel() {
    const StdioFile file = OpenStdioFile("/proc/acpi/ac_adapter/ACAD/state");
    if (file == nullptr) {
        return std::nullopt;
    }
    char text[1024];
    const std::optional<std::string_view> state = ParsePowerState({text, fread(text, 1, sizeof text, file.get())});
    return state ? std::optional<power_level>(power_level{CopiedString(*state)}) : std::nullopt;
}

inspector_string AsString(const power_level& level) { return level.state; }

// clang-format off
Type<power_level>                                                   type;

GlobalProperty<power_level, PowerLevel>                             level     {"power level", "power levels", ByValueOnly};

Cast<inspector_string, power_level, AsString>                       toString  {"string"};
// clang-format on

}  // namespace
