#include "language/numeral_lexeme.h"

#include <limits>

#include "foundation/character_set.h"

template <unsigned Base>
void BasedNumeralLexeme<Base>::Start(unsigned long) {
    value_ = 0;
    overflow_ = false;
}

template <unsigned Base>
void BasedNumeralLexeme<Base>::Take(unsigned long tokenStart, unsigned long position, ConstData& text) {
    const CharacterSet& digits = Base == 10 ? CharacterSets::digits : CharacterSets::hexadecimalDigits;
    const unsigned char* const digitsEnd = digits.Span(text);
    const unsigned long end = position + static_cast<unsigned long>(digitsEnd - text.begin);
    for (; text.begin != digitsEnd; ++text.begin) {
        const unsigned digit = HexadecimalDigitValue(*text.begin);
        if (value_ <= (std::numeric_limits<uint64_t>::max() - digit) / Base) {
            value_ = value_ * Base + digit;
        } else {
            overflow_ = true;
        }
    }
    if (!text.Empty()) {
        Finish(tokenStart, end);
    }
}

template <unsigned Base>
void BasedNumeralLexeme<Base>::Finish(unsigned long tokenStart, unsigned long position) {
    if (overflow_) {
        acceptor_.TooLarge(tokenStart, position);
    } else {
        acceptor_.Accept(tokenStart, position, value_);
    }
}

template class BasedNumeralLexeme<10>;
template class BasedNumeralLexeme<16>;
