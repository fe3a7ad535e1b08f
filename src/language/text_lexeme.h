// Text of any length, delivered in pieces as it comes and held nowhere.
#ifndef LANGUAGE_TEXT_LEXEME_H
#define LANGUAGE_TEXT_LEXEME_H

#include "foundation/character_set.h"
#include "language/lexeme.h"
#include "language/lexeme_acceptors.h"

// The bytes of the set.  Each piece goes to Accept with its own positions; End tells those of the whole token.
class TextLexeme final : public Lexeme {
public:
    TextLexeme(const CharacterSet& set, TextLexemeAcceptor& acceptor) : set_(set), acceptor_(acceptor) {}

    void Take(unsigned long tokenStart, unsigned long position, ConstData& text) override;
    void Finish(unsigned long tokenStart, unsigned long position) override { acceptor_.End(tokenStart, position); }

private:
    const CharacterSet& set_;
    TextLexemeAcceptor& acceptor_;
};

#endif
