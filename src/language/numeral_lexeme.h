// Unsigned decimal and hexadecimal numerals of up to 64 bits.
#ifndef LANGUAGE_NUMERAL_LEXEME_H
#define LANGUAGE_NUMERAL_LEXEME_H

#include <cstdint>

#include "language/lexeme.h"
#include "language/lexeme_acceptors.h"

// Takes all digits, however many; a value of 2^64 or more is told by TooLarge once the digits have ended.
template <unsigned Base>
class BasedNumeralLexeme final : public Lexeme {
    static_assert(Base == 10 || Base == 16);

public:
    explicit BasedNumeralLexeme(NumeralLexemeAcceptor& acceptor) : acceptor_(acceptor) {}

    void Start(unsigned long position) override;
    void Take(unsigned long tokenStart, unsigned long position, ConstData& text) override;
    void Finish(unsigned long tokenStart, unsigned long position) override;

private:
    NumeralLexemeAcceptor& acceptor_;
    uint64_t value_ = 0;
    bool overflow_ = false;
};

extern template class BasedNumeralLexeme<10>;
extern template class BasedNumeralLexeme<16>;

using NumeralLexeme = BasedNumeralLexeme<10>;
using HexNumeralLexeme = BasedNumeralLexeme<16>;

#endif
