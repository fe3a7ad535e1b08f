// Two integers, a lower and an upper bound, with no rule between them.
#ifndef VALUES_INTEGER_RANGE_H
#define VALUES_INTEGER_RANGE_H

#include "values/integer.h"

struct integer_range {
    integer lower;
    integer upper;
};

template <>
struct InspectorTypeInfo<integer_range> : InspectorTypeBasics<integer_range, 0> {
    static constexpr char Name[] = "integer range";
    static constexpr unsigned Size = 16;
};

#endif
