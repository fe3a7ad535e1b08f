// A type of the language as one of its values: a handle on the record that was registered.
//
// The entries that can be inspected are records in static storage, or tuple types of the registry, which last as long
// as it; handles on them outlive the registry's tables, which are built anew at any change.
#ifndef VALUES_INSPECTOR_TYPE_H
#define VALUES_INSPECTOR_TYPE_H

#include <optional>

#include "evaluator/adapters.h"
#include "registry/type_registry.h"

struct inspector_type {
    const GuardType* type = nullptr;

    static std::optional<inspector_type> FromEntry(const GuardType* registered) { return inspector_type{registered}; }

    // Types are the same where their records are.
    friend bool operator==(const inspector_type&, const inspector_type&) = default;
};

template <>
struct InspectorTypeInfo<inspector_type> : InspectorTypeBasics<inspector_type, 0> {
    static constexpr char Name[] = "type";
    static constexpr unsigned Size = 4;
};

// The type that stands in an entry; none where the entry leaves it blank, as a phrase of the world does its object.
inline std::optional<inspector_type> TypeUnlessBlank(const GuardType* type) {
    return type == nullptr || type == TypeRegistry::Instance().WorldType() ? std::nullopt
                                                                           : std::optional(inspector_type{type});
}

#endif
