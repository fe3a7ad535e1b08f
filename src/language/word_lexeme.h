// Words of bounded length.
#ifndef LANGUAGE_WORD_LEXEME_H
#define LANGUAGE_WORD_LEXEME_H

#include "foundation/character_set.h"
#include "foundation/data_filter.h"
#include "language/lexeme.h"
#include "language/lexeme_acceptors.h"

// The bytes of the set, gathered in a buffer that the owner lends, through a filter if there is one.  A word that
// fills the buffer is too long: the longest accepted word is one byte shorter.  The filter must map byte to byte and
// hold nothing back.
class WordLexeme final : public Lexeme {
public:
    WordLexeme(const CharacterSet& set, Buffer buffer, WordLexemeAcceptor& acceptor, DataFilter* filter = nullptr)
        : set_(set), buffer_(buffer), acceptor_(acceptor), filter_(filter) {}

    void Start(unsigned long position) override;
    void Take(unsigned long tokenStart, unsigned long position, ConstData& text) override;
    void Finish(unsigned long tokenStart, unsigned long position) override;

private:
    void Append(ConstData word);

    const CharacterSet& set_;
    Buffer buffer_;
    WordLexemeAcceptor& acceptor_;
    DataFilter* filter_;
};

#endif
