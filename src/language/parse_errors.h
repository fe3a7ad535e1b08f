// The ways in which a text fails to be an expression of the relevance language.
//
// All are thrown out of GuardLexer's Data or Finish and end the parse.  The words that a user sees are made elsewhere;
// the text here is the name of the class.
#ifndef LANGUAGE_PARSE_ERRORS_H
#define LANGUAGE_PARSE_ERRORS_H

#include "foundation/debuggable_exception.h"

// The tokens do not form an expression.
struct ParsingFailure : DebuggableException {
    ParsingFailure() noexcept : DebuggableException("ParsingFailure") {}
};

// A word of 64 bytes or more.
struct WordTooLong : DebuggableException {
    WordTooLong() noexcept : DebuggableException("WordTooLong") {}
};

// The blank behind a word is the 512th byte of its phrase.  (A word that gets there itself is a DataOverflow.)
struct PhraseTooLong : DebuggableException {
    PhraseTooLong() noexcept : DebuggableException("PhraseTooLong") {}
};

// A string constant of more than 512 bytes after decoding.
struct StringConstantTooLong : DebuggableException {
    StringConstantTooLong() noexcept : DebuggableException("StringConstantTooLong") {}
};

// The text ends inside a string constant.
struct UnfinishedStringConstant : DebuggableException {
    UnfinishedStringConstant() noexcept : DebuggableException("UnfinishedStringConstant") {}
};

// A "%" in a string constant that two hexadecimal digits do not follow.
struct StringEncodingError : DebuggableException {
    StringEncodingError() noexcept : DebuggableException("StringEncodingError") {}
};

// A numeral of 2^64 or more.
struct IntegerConstantTooLarge : DebuggableException {
    IntegerConstantTooLarge() noexcept : DebuggableException("IntegerConstantTooLarge") {}
};

// Operator characters that form no operator: a lone "!".
struct InvalidOperator : DebuggableException {
    InvalidOperator() noexcept : DebuggableException("InvalidOperator") {}
};

// A byte that begins no token.
struct UnexpectedCharacter : DebuggableException {
    explicit UnexpectedCharacter(unsigned char unexpected) noexcept
        : DebuggableException("UnexpectedCharacter"), byte(unexpected) {}
    unsigned char byte;
};

// The text ends inside a comment.
struct UnfinishedCommentError : DebuggableException {
    UnfinishedCommentError() noexcept : DebuggableException("UnfinishedCommentError") {}
};

#endif
