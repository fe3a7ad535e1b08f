#include "foundation/structured_field_maker.h"

namespace {

IgnoreDataReceiver ignored;

}  // namespace

DataReceiver& StructuredFieldReceiver::StartAtom() { return ignored; }
DataReceiver& StructuredFieldReceiver::StartQuotedString() { return ignored; }
DataReceiver& StructuredFieldReceiver::StartDomainLiteral() { return ignored; }
DataReceiver& StructuredFieldReceiver::StartComment() { return ignored; }

void StructuredFieldMaker::Start() {
    handler_ = &StructuredFieldMaker::StartLexeme;
    lexeme_ = nullptr;
    commentDepth_ = 0;
    escaping_ = false;
    target_.StartField();
}

void StructuredFieldMaker::Data(const unsigned char* begin, const unsigned char* end) {
    ConstData text(begin, end);
    while (!text.Empty()) {
        (this->*handler_)(text);
    }
}

void StructuredFieldMaker::Finish() {
    if (lexeme_ != nullptr) {
        EndLexeme();
    }
    target_.EndField();
}

void StructuredFieldMaker::StartLexeme(ConstData& text) {
    text.begin = CharacterSets::lineWhiteSpace.Span(text);
    if (text.Empty()) {
        return;
    }
    const unsigned char byte = *text.begin;
    if (special_.Contains(byte)) {
        ++text.begin;
        target_.Special(byte);
    } else if (byte == '(') {
        ++text.begin;
        commentDepth_ = 1;
        Enter(target_.StartComment(), &StructuredFieldMaker::AddToComment);
    } else if (byte == '[') {
        ++text.begin;
        Enter(target_.StartDomainLiteral(), &StructuredFieldMaker::AddToDomainLiteral);
    } else if (byte == '"') {
        ++text.begin;
        Enter(target_.StartQuotedString(), &StructuredFieldMaker::AddToQuotedString);
    } else {
        Enter(target_.StartAtom(), &StructuredFieldMaker::AddToAtom);
    }
}

void StructuredFieldMaker::AddToAtom(ConstData& text) {
    const unsigned char* at = text.begin;
    while (at != text.end && !atomEnd_.Contains(*at)) {
        ++at;
    }
    HandOn(text.begin, at);
    text.begin = at;
    if (!text.Empty()) {
        EndLexeme();
    }
}

void StructuredFieldMaker::AddToQuotedString(ConstData& text) { AddUpTo(text, '"'); }
void StructuredFieldMaker::AddToDomainLiteral(ConstData& text) { AddUpTo(text, ']'); }
void StructuredFieldMaker::AddToComment(ConstData& text) { AddUpTo(text, ')'); }

// One piece: up to a backslash, to the end of the lexeme or to the end of the run.  The parentheses of an inner comment
// are text of the outer one.
void StructuredFieldMaker::AddUpTo(ConstData& text, unsigned char closing) {
    const unsigned char* const piece = text.begin;
    const unsigned char* at = piece;
    if (escaping_) {
        escaping_ = false;
        ++at;
    }
    for (; at != text.end; ++at) {
        if (*at == '\\') {
            HandOn(piece, at);
            escaping_ = true;
            text.begin = at + 1;
            return;
        }
        if (closing == ')' && *at == '(') {
            ++commentDepth_;
        }
        if (*at == closing && (closing != ')' || --commentDepth_ == 0)) {
            HandOn(piece, at);
            EndLexeme();
            text.begin = at + 1;
            return;
        }
    }
    HandOn(piece, at);
    text.begin = at;
}

void StructuredFieldMaker::Enter(DataReceiver& lexeme, Handler handler) {
    lexeme_ = &lexeme;
    handler_ = handler;
    lexeme.Start();
}

void StructuredFieldMaker::HandOn(const unsigned char* begin, const unsigned char* end) {
    if (begin != end) {
        lexeme_->Data(begin, end);
    }
}

void StructuredFieldMaker::EndLexeme() {
    DataReceiver& lexeme = *lexeme_;
    lexeme_ = nullptr;
    escaping_ = false;
    handler_ = &StructuredFieldMaker::StartLexeme;
    lexeme.Finish();
}
