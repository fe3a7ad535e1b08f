// To whom GuardLexer gives its tokens: the interfaces of its own lexemes, and their union, which a parser of the
// relevance language implements.
#ifndef LANGUAGE_GUARD_LEXEME_ACCEPTOR_H
#define LANGUAGE_GUARD_LEXEME_ACCEPTOR_H

#include "language/guard_parsing_action.h"
#include "language/lexeme_acceptors.h"

// For PhraseLexeme<T>.  A name is in lower case, its words joined by single blanks.
template <class T>
class PhraseAcceptor {
public:
    virtual ~PhraseAcceptor() = default;
    virtual void Keyword(T action) = 0;
    virtual void Name(const unsigned char* begin, const unsigned char* end) = 0;
    virtual void PhraseTooLong() = 0;
    virtual void WordTooLong() = 0;
};

// For OperatorLexeme<T>.
template <class T>
class OperatorLexemeAcceptor {
public:
    virtual ~OperatorLexemeAcceptor() = default;
    virtual void Accept(unsigned long start, unsigned long end, T action) = 0;
    virtual void Invalid(unsigned long start, unsigned long end) = 0;
};

class GuardStringLexemeAcceptor {
public:
    virtual ~GuardStringLexemeAcceptor() = default;
    virtual void Accept(unsigned long start, unsigned long end, const unsigned char* textBegin,
                        const unsigned char* textEnd) = 0;
    virtual void TooLong(unsigned long start, unsigned long end) = 0;
    virtual void Unfinished(unsigned long start, unsigned long end) = 0;
    virtual void BadEscape(unsigned long start, unsigned long end) = 0;
};

// None of the operations that report a bad token should return; the lexer does not promise sensible tokens after one.
class GuardLexemeAcceptor : public PhraseAcceptor<const GuardParsingAction*>,
                            public OperatorLexemeAcceptor<const GuardParsingAction*>,
                            public GuardStringLexemeAcceptor,
                            public NumeralLexemeAcceptor,
                            public CharacterLexemeAcceptor {
public:
    virtual void UnfinishedComment() = 0;
};

#endif
