// A property asked of a value that a test has made, for types that the language makes of the machine alone.
#ifndef TESTS_INSPECTORS_PROPERTY_OF_H
#define TESTS_INSPECTORS_PROPERTY_OF_H

#include <gtest/gtest.h>

#include <optional>
#include <string_view>

#include "registry/inspector_type_info.h"
#include "registry/type_registry.h"

// The value of a phrase without an index, as it is registered for the object's type; none where the phrase has none.
// Needs an allocator where the value lies in evaluation memory.
template <class R, class O>
std::optional<R> PropertyOf(const O& object, std::string_view phrase) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    const PropertyAccessor& accessor =
        *registry.Property(registry.TypeByName(InspectorTypeInfo<O>::Name), phrase, registry.WorldType()).accessor;
    EXPECT_EQ(accessor.resultType->Name(), InspectorTypeInfo<R>::Name) << phrase;
    R result{};
    const bool exists = accessor.firstMiddle(&result, nullptr, &object, nullptr, accessor.data);
    return exists ? std::optional<R>(result) : std::nullopt;
}

#endif
