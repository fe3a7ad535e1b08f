// The values that the machinery itself makes and reads: the world, strings, booleans and the nodes of tuples.
#ifndef REGISTRY_CORE_VALUES_H
#define REGISTRY_CORE_VALUES_H

#include <cstddef>
#include <string_view>

#include "foundation/const_data.h"

// The one object of the world; it has no content.
struct world {};

// A value that is never there; the type of what only ever fails.
struct undefined {};

using boolean = bool;

// A counted sequence of bytes, neither terminated nor owned: the bytes lie in evaluation memory, in the expression tree
// or in the value that they were taken from, and outlive this view of them.
struct inspector_string {
    const char* start = nullptr;
    size_t length = 0;

    constexpr inspector_string() = default;
    constexpr inspector_string(const char* first, size_t count) : start(first), length(count) {}
    explicit constexpr inspector_string(std::string_view text) : start(text.data()), length(text.size()) {}

    std::string_view View() const { return {start, length}; }
    ConstData Data() const { return {start, length}; }
};

// The value of a tuple type: this element's value, and the value of the tuple that remains.  The last `rest` is the
// world's value, or null where a typed inspector built the chain.
struct TupleNode {
    const void* first = nullptr;
    const void* rest = nullptr;
};

#endif
