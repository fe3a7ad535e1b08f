// The inside of a comment, up to and with the closing "*/".
#ifndef LANGUAGE_GUARD_COMMENT_LEXEME_H
#define LANGUAGE_GUARD_COMMENT_LEXEME_H

#include "language/guard_lexeme_acceptor.h"
#include "language/lexeme.h"

// Begins behind the opening "/*", whose "*" cannot be half of the closing sign.  Comments do not nest.
class GuardCommentLexeme final : public Lexeme {
public:
    explicit GuardCommentLexeme(GuardLexemeAcceptor& acceptor) : acceptor_(acceptor) {}

    void Start(unsigned long position) override;
    void Take(unsigned long tokenStart, unsigned long position, ConstData& text) override;
    void Finish(unsigned long tokenStart, unsigned long position) override;

private:
    GuardLexemeAcceptor& acceptor_;
    bool afterStar_ = false;
    bool closed_ = false;
};

#endif
