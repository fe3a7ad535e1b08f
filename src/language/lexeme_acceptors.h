// To whom the lexemes of the framework give what they find.
//
// Each lexeme knows one small pure interface; the parser of a language implements all that its language needs.
// Positions are byte offsets from the start of the stream, `start` of the token's first byte and `end` behind its
// last.  Text handed over as a pair of pointers is valid during the call only.  Any operation may throw; the
// exception passes through Lexer::Data or Finish.
#ifndef LANGUAGE_LEXEME_ACCEPTORS_H
#define LANGUAGE_LEXEME_ACCEPTORS_H

#include <cstdint>

class EndLexemeAcceptor {
public:
    virtual ~EndLexemeAcceptor() = default;
    virtual void Start() {}
    virtual void End(unsigned long position) = 0;
};

class CharacterLexemeAcceptor {
public:
    virtual ~CharacterLexemeAcceptor() = default;
    virtual void Accept(unsigned long start, unsigned long end, unsigned char byte) = 0;
};

// For NumeralLexeme and HexNumeralLexeme.
class NumeralLexemeAcceptor {
public:
    virtual ~NumeralLexemeAcceptor() = default;
    virtual void Accept(unsigned long start, unsigned long end, uint64_t value) = 0;
    virtual void TooLarge(unsigned long start, unsigned long end) = 0;
};

class FloatingPointNumeralLexemeAcceptor {
public:
    virtual ~FloatingPointNumeralLexemeAcceptor() = default;
    virtual void Accept(double value) = 0;
};

class WordLexemeAcceptor {
public:
    virtual ~WordLexemeAcceptor() = default;
    virtual void Accept(unsigned long start, unsigned long end, const unsigned char* textBegin,
                        const unsigned char* textEnd) = 0;
    virtual void TooLong(unsigned long start, unsigned long end) = 0;
};

template <class T>
class ReservedWordAcceptor {
public:
    virtual ~ReservedWordAcceptor() = default;
    virtual void AcceptReserved(unsigned long start, unsigned long end, T value) = 0;
    virtual void Accept(unsigned long start, unsigned long end, const unsigned char* textBegin,
                        const unsigned char* textEnd) = 0;
    virtual void TooLong(unsigned long start, unsigned long end) = 0;
};

// One token may come in several Accept calls, each with a piece of it; End closes it.
class TextLexemeAcceptor {
public:
    virtual ~TextLexemeAcceptor() = default;
    virtual void Accept(unsigned long start, unsigned long end, const unsigned char* textBegin,
                        const unsigned char* textEnd) = 0;
    virtual void End(unsigned long start, unsigned long end) = 0;
};

#endif
