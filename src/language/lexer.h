// The frame of all lexers: it cuts a stream of bytes into tokens, whatever the runs in which the bytes come.
//
// A language derives from Lexer, holds one of each lexeme that it needs, and says which lexeme a byte begins.  A token
// may be split across any two Data calls; nothing is allocated.
#ifndef LANGUAGE_LEXER_H
#define LANGUAGE_LEXER_H

#include "foundation/data_receiver.h"
#include "language/lexeme.h"
#include "language/lexeme_acceptors.h"

// Built once and used for any number of streams, each begun with Start.  An exception that passes through Data or
// Finish leaves the lexer in no defined state until the next Start.
class Lexer : public DataReceiver {
public:
    // `endAcceptor` is told of the start and the end of each stream; it must outlive the lexer.
    explicit Lexer(EndLexemeAcceptor& endAcceptor) : endAcceptor_(endAcceptor) {}

    void Start() override;
    void Data(const unsigned char* begin, const unsigned char* end) override;
    void Finish() override;

    // The lexeme that `byte` begins.  It must take at least that byte, and stay in place for the next Start.
    virtual Lexeme& ChooseLexeme(unsigned char byte) = 0;

private:
    void Begin(unsigned char byte, unsigned long position);

    Lexeme* current_ = nullptr;
    unsigned long tokenStart_ = 0;
    unsigned long position_ = 0;  // of the next run's first byte
    EndLexemeAcceptor& endAcceptor_;
};

#endif
