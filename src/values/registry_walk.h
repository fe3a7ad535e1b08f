// What the units that inspect the registry share: the walk over one of its tables, and text put together from pieces.
#ifndef VALUES_REGISTRY_WALK_H
#define VALUES_REGISTRY_WALK_H

#include <cstddef>
#include <optional>
#include <string_view>

#include "registry/core_values.h"
#include "registry/type_registry.h"

// Walks the table that `Table`, a member of TypeRegistry, gives.  It keeps its place as a number and asks for the table
// at each step: a table that is built anew meanwhile is walked on from there, and nothing of the old one is touched.
// Value is the handle that an entry is given as.
template <class Value, auto Table>
class registry_walk {
public:
    // The first value that `accept` takes, and the first behind the one given last.
    template <class Accept>
    std::optional<Value> First(Accept accept) {
        place_ = 0;
        return Seek(accept);
    }
    template <class Accept>
    std::optional<Value> Next(Accept accept) {
        ++place_;
        return Seek(accept);
    }

private:
    template <class Accept>
    std::optional<Value> Seek(Accept accept) {
        const auto& entries = (TypeRegistry::Instance().*Table)();
        for (; place_ < entries.size(); ++place_) {
            if (const std::optional<Value> value = Value::FromEntry(entries[place_]); value && accept(*value)) {
                return value;
            }
        }
        return std::nullopt;
    }

    size_t place_ = 0;
};

// Takes every entry.
inline constexpr auto kAnyEntry = [](const auto&) { return true; };

#endif
