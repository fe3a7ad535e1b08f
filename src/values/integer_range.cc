#include "values/integer_range.h"

#include "evaluator/adapters.h"

namespace {

integer LowerBound(const integer_range& range) { return range.lower; }
integer UpperBound(const integer_range& range) { return range.upper; }

// clang-format off
Type<integer_range>                                                 type;

Property<integer_range, integer, LowerBound>                        lower  {"lower bound", "lower bounds"};
Property<integer_range, integer, UpperBound>                        upper  {"upper bound", "upper bounds"};
// clang-format on

}  // namespace
