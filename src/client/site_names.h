// The names of a site's types and of the authorities over its schedule, for who reads them and for who tells them.
#ifndef CLIENT_SITE_NAMES_H
#define CLIENT_SITE_NAMES_H

#include <array>
#include <optional>
#include <string_view>

#include "client/site_map.h"

namespace SiteNames {

template <class Value>
struct Row {
    Value value;
    std::string_view name;
};

inline constexpr std::array<Row<SiteType>, 4> types = {{
    {SiteType::Custom, "Custom Site"},
    {SiteType::Praxel, "Praxel Site"},
    {SiteType::MasterAction, "Master Action Site"},
    {SiteType::Operator, "Operator Site"},
}};

inline constexpr std::array<Row<GatherScheduleAuthority>, 4> authorities = {{
    {GatherScheduleAuthority::Custom, "Custom"},
    {GatherScheduleAuthority::Disable, "Disable"},
    {GatherScheduleAuthority::Manual, "Manual"},
    {GatherScheduleAuthority::Publisher, "Publisher"},
}};

// Nothing for a name that is not in the table to the letter.
template <class Value, size_t Rows>
std::optional<Value> ValueOf(const std::array<Row<Value>, Rows>& table, std::string_view name) {
    for (const Row<Value>& row : table) {
        if (row.name == name) {
            return row.value;
        }
    }
    return std::nullopt;
}

template <class Value, size_t Rows>
std::optional<std::string_view> NameOf(const std::array<Row<Value>, Rows>& table, std::optional<Value> value) {
    for (const Row<Value>& row : table) {
        if (row.value == value) {
            return row.name;
        }
    }
    return std::nullopt;
}

}  // namespace SiteNames

#endif
