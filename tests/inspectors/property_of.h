// A property asked of a value that a test has made, for types that the language makes of the machine alone.
#ifndef TESTS_INSPECTORS_PROPERTY_OF_H
#define TESTS_INSPECTORS_PROPERTY_OF_H

#include <gtest/gtest.h>

#include <optional>
#include <string_view>

#include "registry/inspector_type_info.h"
#include "registry/type_registry.h"

// The value of a phrase, as it is registered for the types of the object and of the index; none where it has none.
// Needs an allocator where the value lies in evaluation memory.
template <class R, class O, class I>
std::optional<R> PropertyOf(const O& object, std::string_view phrase, const I& index) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    const PropertyAccessor& accessor = *registry
                                            .Property(registry.TypeByName(InspectorTypeInfo<O>::Name), phrase,
                                                      registry.TypeByName(InspectorTypeInfo<I>::Name))
                                            .accessor;
    EXPECT_EQ(accessor.resultType->Name(), InspectorTypeInfo<R>::Name) << phrase;
    R result{};
    const bool exists = accessor.firstMiddle(&result, &index, &object, nullptr, accessor.data);
    return exists ? std::optional<R>(result) : std::nullopt;
}
template <class R, class O>
std::optional<R> PropertyOf(const O& object, std::string_view phrase) {
    return PropertyOf<R>(object, phrase, world());
}

#endif
