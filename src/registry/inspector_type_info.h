// How a C++ type stands for a type of the language.
//
// Beside each value class stands a specialisation of InspectorTypeInfo, and nowhere else is its language name spelled:
//
//     template <> struct InspectorTypeInfo<hertz> : InspectorTypeBasics<hertz> {
//         static constexpr char Name[] = "hertz";
//         static constexpr unsigned Size = 8;
//     };
//
// Size is what the language tells of a value; storage is the C++ type's own.  A derived type adds its Parent's name,
// and its C++ class derives from its parent's as its first base, so that a pointer to the one is a pointer to the
// other.
#ifndef REGISTRY_INSPECTOR_TYPE_INFO_H
#define REGISTRY_INSPECTOR_TYPE_INFO_H

#include <type_traits>

#include "registry/core_values.h"
#include "registry/records.h"

template <class T>
struct InspectorTypeInfo;

// FingerprintingChoice 1 gives the type a fingerprint of its value's own bytes, 0 gives none.  What a value points at
// is fingerprinted where the class has `ConstData FingerprintData() const`.
template <class T, int FingerprintingChoice = 1>
struct InspectorTypeBasics {
    static constexpr const char* Parent = nullptr;
    static constexpr int kFingerprintingChoice = FingerprintingChoice;

    static const char* TypeName() { return InspectorTypeInfo<T>::Name; }

    static void Destroy(void* value) { static_cast<T*>(value)->~T(); }

    static void Fingerprint(Fingerprinter& fingerprinter, const void* value) {
        const auto& object = *static_cast<const T*>(value);
        if constexpr (requires { object.FingerprintData(); }) {
            fingerprinter.AddData(object.FingerprintData());
        } else {
            fingerprinter.AddData(ConstData(value, sizeof(T)));
        }
    }
};

// The record of the language type that T stands for.
template <class T>
constexpr GuardType TypeRecord() {
    using Info = InspectorTypeInfo<T>;
    return {Info::TypeName(),
            Info::Size,
            sizeof(T),
            alignof(T),
            std::is_trivially_destructible_v<T> ? nullptr : &Info::Destroy,
            Info::kFingerprintingChoice != 0 ? &Info::Fingerprint : nullptr,
            Info::Parent};
}

template <>
struct InspectorTypeInfo<world> : InspectorTypeBasics<world, 0> {
    static constexpr char Name[] = "";
    static constexpr unsigned Size = 0;
};

template <>
struct InspectorTypeInfo<undefined> : InspectorTypeBasics<undefined, 0> {
    static constexpr char Name[] = "undefined";
    static constexpr unsigned Size = 0;
};

template <>
struct InspectorTypeInfo<boolean> : InspectorTypeBasics<boolean> {
    static constexpr char Name[] = "boolean";
    static constexpr unsigned Size = 1;
};

template <>
struct InspectorTypeInfo<inspector_string> : InspectorTypeBasics<inspector_string> {
    static constexpr char Name[] = "string";
    static constexpr unsigned Size = 8;

    static void Fingerprint(Fingerprinter& fingerprinter, const void* value) {
        fingerprinter.AddData(static_cast<const inspector_string*>(value)->Data());
    }
};

// Type names that are made of others, put together while compiling.
template <size_t Length>
struct JoinedName {
    char text[Length + 1] = {};
};

namespace type_names {

template <size_t... Sizes>
constexpr auto Join(const char (&... pieces)[Sizes]) {
    JoinedName<((Sizes - 1) + ...)> name;
    char* out = name.text;
    (
        [&] {
            for (const char* c = pieces; *c != '\0'; ++c) {
                *out++ = *c;
            }
        }(),
        ...);
    return name;
}

template <class First, class... Rest>
struct ElementNames {
    static constexpr auto kName = [] {
        if constexpr (sizeof...(Rest) == 0) {
            return Join(InspectorTypeInfo<First>::Name);
        } else {
            return Join(InspectorTypeInfo<First>::Name, ", ", ElementNames<Rest...>::kName.text);
        }
    }();
};

}  // namespace type_names

// Typed views of tuple chains, for inspectors that take or give tuples: each node is followed in memory by the next.
template <class... Elements>
struct InspectorTupleOf {
    TupleNode nodes[sizeof...(Elements)];

    InspectorTupleOf() = default;
    // A copy is a chain of its own nodes over the same elements.
    InspectorTupleOf(const InspectorTupleOf& other) {
        for (size_t i = 0; i < sizeof...(Elements); ++i) {
            nodes[i] = {other.nodes[i].first, i + 1 < sizeof...(Elements) ? &nodes[i + 1] : nullptr};
        }
    }
    InspectorTupleOf& operator=(const InspectorTupleOf&) = delete;

    // The chain over elements that live as long as it is used.
    static InspectorTupleOf Over(const Elements&... elements) {
        const void* const values[] = {&elements...};
        InspectorTupleOf tuple;
        for (size_t i = 0; i < sizeof...(Elements); ++i) {
            tuple.nodes[i].first = values[i];
        }
        return tuple;
    }
};

template <class A, class B>
using InspectorTuple2 = InspectorTupleOf<A, B>;
template <class A, class B, class C>
using InspectorTuple3 = InspectorTupleOf<A, B, C>;

// The element n of a tuple value, whichever way its chain was built.
template <class T>
const T& TupleElement(const void* tuple, size_t n) {
    const auto* node = static_cast<const TupleNode*>(tuple);
    for (; n != 0; --n) {
        node = static_cast<const TupleNode*>(node->rest);
    }
    return *static_cast<const T*>(node->first);
}

// "( integer, integer )"
template <class... Elements>
struct InspectorTypeInfo<InspectorTupleOf<Elements...>> {
    static constexpr auto kName = type_names::Join("( ", type_names::ElementNames<Elements...>::kName.text, " )");
    static constexpr const char* TypeName() { return kName.text; }
};

#endif
