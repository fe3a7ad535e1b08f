#include "language/staged_lexeme.h"

void StagedLexeme::Start(unsigned long) { current_ = nullptr; }

bool StagedLexeme::BeginStage(unsigned long tokenStart, unsigned long position, unsigned char byte) {
    current_ = ChooseStage(tokenStart, position, byte);
    if (current_ == nullptr) {
        return false;
    }
    stageStart_ = position;
    current_->Start(position);
    return true;
}

void StagedLexeme::Take(unsigned long tokenStart, unsigned long position, ConstData& text) {
    const unsigned char* const begin = text.begin;
    if (current_ == nullptr && !BeginStage(tokenStart, position, *begin)) {
        return;
    }
    for (;;) {
        current_->Take(stageStart_, position + static_cast<unsigned long>(text.begin - begin), text);
        if (text.Empty() ||
            !BeginStage(tokenStart, position + static_cast<unsigned long>(text.begin - begin), *text.begin)) {
            return;
        }
    }
}

void StagedLexeme::Finish(unsigned long, unsigned long position) {
    if (current_ != nullptr) {
        current_->Finish(stageStart_, position);
        current_ = nullptr;
    }
}
