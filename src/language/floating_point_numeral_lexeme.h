// Unsigned decimal numerals with an optional fraction: digits, then "." and digits.
#ifndef LANGUAGE_FLOATING_POINT_NUMERAL_LEXEME_H
#define LANGUAGE_FLOATING_POINT_NUMERAL_LEXEME_H

#include "language/lexeme.h"
#include "language/lexeme_acceptors.h"

// Sums the digits in extended precision and narrows once, on delivery.  A second "." ends the numeral, and there is no
// exponent.
//
// The scale of a fraction is a double and not a number of extended precision: a time interval is cut to the
// microsecond, so that a sum which falls short of its decimal loses one, and of the 999 printed milliseconds 852 read
// back exactly with the one and 506 with the other.
class FloatingPointNumeralLexeme final : public Lexeme {
public:
    explicit FloatingPointNumeralLexeme(FloatingPointNumeralLexemeAcceptor& acceptor) : acceptor_(acceptor) {}

    void Start(unsigned long position) override;
    void Take(unsigned long tokenStart, unsigned long position, ConstData& text) override;
    void Finish(unsigned long tokenStart, unsigned long position) override;

private:
    bool TakeByte(unsigned char byte);

    FloatingPointNumeralLexemeAcceptor& acceptor_;
    long double value_ = 0;
    double scale_ = 1;  // of the last fraction digit
    bool inFraction_ = false;
};

#endif
