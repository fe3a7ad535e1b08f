// The character sets of the lexing framework are those of the foundation.
#ifndef LANGUAGE_CHARACTER_SET_H
#define LANGUAGE_CHARACTER_SET_H

#include "foundation/character_set.h"

#endif
