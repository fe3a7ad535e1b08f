// A token of one byte.
#ifndef LANGUAGE_CHARACTER_LEXEME_H
#define LANGUAGE_CHARACTER_LEXEME_H

#include "language/lexeme.h"
#include "language/lexeme_acceptors.h"

class CharacterLexeme final : public Lexeme {
public:
    explicit CharacterLexeme(CharacterLexemeAcceptor& acceptor) : acceptor_(acceptor) {}

    // Past the token's own byte there is nothing to take: the byte was the last of its run.
    void Take(unsigned long tokenStart, unsigned long position, ConstData& text) override {
        if (position == tokenStart) {
            acceptor_.Accept(tokenStart, tokenStart + 1, *text.begin);
            ++text.begin;
        }
    }
    void Finish(unsigned long, unsigned long) override {}

private:
    CharacterLexemeAcceptor& acceptor_;
};

#endif
