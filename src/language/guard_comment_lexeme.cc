#include "language/guard_comment_lexeme.h"

void GuardCommentLexeme::Start(unsigned long) {
    afterStar_ = false;
    closed_ = false;
}

void GuardCommentLexeme::Take(unsigned long, unsigned long, ConstData& text) {
    while (!closed_ && !text.Empty()) {
        const unsigned char byte = *text.begin++;
        closed_ = afterStar_ && byte == '/';
        afterStar_ = byte == '*';
    }
}

void GuardCommentLexeme::Finish(unsigned long, unsigned long) {
    if (!closed_) {
        acceptor_.UnfinishedComment();
    }
}
