// Text that separates tokens and is not delivered.
#ifndef LANGUAGE_IGNORED_TEXT_LEXEME_H
#define LANGUAGE_IGNORED_TEXT_LEXEME_H

#include "foundation/character_set.h"
#include "language/lexeme.h"

class IgnoredTextLexeme final : public Lexeme {
public:
    explicit IgnoredTextLexeme(const CharacterSet& set) : set_(set) {}

    void Take(unsigned long, unsigned long, ConstData& text) override { text.begin = set_.Span(text); }
    void Finish(unsigned long, unsigned long) override {}

private:
    const CharacterSet& set_;
};

#endif
