// The failure of those who ask for what is another's.
#ifndef INSPECTORS_PRIVILEGES_H
#define INSPECTORS_PRIVILEGES_H

#include "evaluator/failure.h"

struct InsufficientPrivileges : InspectorDefinedError {
    InsufficientPrivileges() noexcept : InspectorDefinedError("insufficient privileges") {}
};

#endif
