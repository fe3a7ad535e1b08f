#include "language/floating_point_numeral_lexeme.h"

#include "foundation/character_set.h"

void FloatingPointNumeralLexeme::Start(unsigned long) {
    value_ = 0;
    scale_ = 1;
    inFraction_ = false;
}

bool FloatingPointNumeralLexeme::TakeByte(unsigned char byte) {
    if (byte == '.' && !inFraction_) {
        inFraction_ = true;
        scale_ = 1;
        return true;
    }
    if (!CharacterSets::digits.Contains(byte)) {
        return false;
    }
    const int digit = byte - '0';
    if (inFraction_) {
        scale_ /= 10;
        value_ += static_cast<long double>(digit) * scale_;
    } else {
        value_ = value_ * 10 + digit;
    }
    return true;
}

void FloatingPointNumeralLexeme::Take(unsigned long tokenStart, unsigned long position, ConstData& text) {
    while (!text.Empty() && TakeByte(*text.begin)) {
        ++text.begin;
    }
    if (!text.Empty()) {
        Finish(tokenStart, position);
    }
}

void FloatingPointNumeralLexeme::Finish(unsigned long, unsigned long) { acceptor_.Accept(static_cast<double>(value_)); }
