// One kind of token, as a small machine that takes the token's bytes as they come.
#ifndef LANGUAGE_LEXEME_H
#define LANGUAGE_LEXEME_H

#include "foundation/const_data.h"

// Lexemes are members of their lexer and restarted for each token; one that was abandoned in the middle of a token is
// as good as new after Start.  `tokenStart` and `position` are byte offsets from the start of the stream, `position`
// that of text.begin.
class Lexeme {
public:
    virtual ~Lexeme() = default;

    virtual void Start(unsigned long position) { static_cast<void>(position); }

    // Consumes what belongs to the token from the front of `text`, which is never empty.  When bytes are left the
    // token has ended before them and its result has been delivered.  When none are left the token may go on in the
    // next run, so a lexeme whose token ended exactly at a run's edge is called again, and then takes nothing.
    virtual void Take(unsigned long tokenStart, unsigned long position, ConstData& text) = 0;

    // The stream has ended with this token under way, or behind it.
    virtual void Finish(unsigned long tokenStart, unsigned long position) = 0;
};

#endif
