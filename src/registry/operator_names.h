// How operators are named and written, by their codes.
#ifndef REGISTRY_OPERATOR_NAMES_H
#define REGISTRY_OPERATOR_NAMES_H

#include "registry/records.h"

struct OperatorName {
    const char* name;
    const char* symbol;
};

inline constexpr OperatorName kBinaryOperatorNames[kBinaryOperators] = {
    {"plus", "+"},
    {"minus", "-"},
    {"times", "*"},
    {"divide", "/"},
    {"mod", "%"},
    {"concatenate", "&"},
    {"equal", "="},
    {"less than", "<"},
    {"less than or equal", "<="},
    {"starts with", "starts with"},
    {"ends with", "ends with"},
    {"contains", "contains"},
};

inline constexpr OperatorName kUnaryOperatorNames[kUnaryOperators] = {
    {"minus", "-"},
};

#endif
