// The keywords of the relevance language.
#ifndef LANGUAGE_GUARD_KEYWORDS_H
#define LANGUAGE_GUARD_KEYWORDS_H

#include <span>

#include "language/guard_parsing_action.h"
#include "language/reserved_word.h"

using GuardTable = std::span<const ReservedWord<const GuardParsingAction*>>;

// Sorted by byte value.  Each keyword is in lower case and ends in a blank.
GuardTable GuardKeywords();

#endif
