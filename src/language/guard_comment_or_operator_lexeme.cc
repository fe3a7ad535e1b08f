#include "language/guard_comment_or_operator_lexeme.h"

void GuardCommentOrOperatorLexeme::Start(unsigned long) {
    slashTaken_ = false;
    decided_ = nullptr;
}

void GuardCommentOrOperatorLexeme::Take(unsigned long tokenStart, unsigned long position, ConstData& text) {
    if (!slashTaken_) {
        slashTaken_ = true;
        ++text.begin;
        ++position;
        if (text.Empty()) {
            return;
        }
    }
    if (decided_ == nullptr) {
        if (*text.begin == '*') {
            ++text.begin;
            ++position;
            decided_ = &comment_;
            comment_.Start(position);
        } else {
            BeginOperator(tokenStart);
        }
    }
    decided_->Take(tokenStart, position, text);
}

void GuardCommentOrOperatorLexeme::Finish(unsigned long tokenStart, unsigned long position) {
    if (decided_ == nullptr) {
        BeginOperator(tokenStart);
    }
    decided_->Finish(tokenStart, position);
}

void GuardCommentOrOperatorLexeme::BeginOperator(unsigned long tokenStart) {
    static constexpr unsigned char slash = '/';
    decided_ = &operator_;
    operator_.Start(tokenStart);
    ConstData sign(&slash, &slash + 1);
    operator_.Take(tokenStart, tokenStart, sign);
}
