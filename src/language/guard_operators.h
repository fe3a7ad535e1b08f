// The operator signs of the relevance language.
#ifndef LANGUAGE_GUARD_OPERATORS_H
#define LANGUAGE_GUARD_OPERATORS_H

#include "language/guard_keywords.h"

// Sorted by byte value.
GuardTable GuardOperators();

#endif
