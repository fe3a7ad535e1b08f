// String constants: quoted text in which "%" and two hexadecimal digits stand for a byte.
#ifndef LANGUAGE_GUARD_STRING_LEXEME_H
#define LANGUAGE_GUARD_STRING_LEXEME_H

#include "foundation/const_data.h"
#include "language/guard_lexeme_acceptor.h"
#include "language/lexeme.h"

// The byte that begins the constant is the one that ends it.  Between the two, any byte but itself and "%" stands for
// itself, line ends included.  At most 512 bytes after decoding; a longer constant is read to its end and then told
// by TooLong.
class GuardStringLexeme final : public Lexeme {
public:
    explicit GuardStringLexeme(GuardStringLexemeAcceptor& acceptor) : acceptor_(acceptor) {}

    void Start(unsigned long position) override;
    void Take(unsigned long tokenStart, unsigned long position, ConstData& text) override;
    void Finish(unsigned long tokenStart, unsigned long position) override;

private:
    // A state is the function that takes the next bytes.  `token` runs from the token's start to text.begin as it is
    // when the handler is called.  Null once the constant is closed.
    using Handler = void (GuardStringLexeme::*)(Range<unsigned long> token, ConstBuffer& text);

    void StartQuotation(Range<unsigned long> token, ConstBuffer& text);
    void AddText(Range<unsigned long> token, ConstBuffer& text);
    void AddFirstDigit(Range<unsigned long> token, ConstBuffer& text);
    void AddSecondDigit(Range<unsigned long> token, ConstBuffer& text);
    void IgnoreText(Range<unsigned long> token, ConstBuffer& text);

    void Append(ConstData bytes);
    void Deliver(Range<unsigned long> token);
    void RejectEscape(Range<unsigned long> token);

    GuardStringLexemeAcceptor& acceptor_;
    Handler handler_ = nullptr;
    size_t used_ = 0;
    bool overflow_ = false;
    unsigned char quote_ = 0;
    unsigned char firstDigit_ = 0;
    unsigned char buffer_[512];
};

#endif
