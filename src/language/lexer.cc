#include "language/lexer.h"

void Lexer::Start() {
    current_ = nullptr;
    position_ = 0;
    endAcceptor_.Start();
}

void Lexer::Begin(unsigned char byte, unsigned long position) {
    tokenStart_ = position;
    current_ = &ChooseLexeme(byte);
    current_->Start(position);
}

void Lexer::Data(const unsigned char* begin, const unsigned char* end) {
    if (begin == end) {
        return;
    }
    ConstData text(begin, end);
    if (current_ == nullptr) {
        Begin(*begin, position_);
    }
    for (;;) {
        current_->Take(tokenStart_, position_ + static_cast<unsigned long>(text.begin - begin), text);
        if (text.Empty()) {
            break;
        }
        Begin(*text.begin, position_ + static_cast<unsigned long>(text.begin - begin));
    }
    // The lexeme stays current: whether its token is complete shows only in what follows.
    position_ += static_cast<unsigned long>(end - begin);
}

void Lexer::Finish() {
    if (current_ != nullptr) {
        current_->Finish(tokenStart_, position_);
        current_ = nullptr;
    }
    endAcceptor_.End(position_);
}
