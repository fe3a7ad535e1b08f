#include "foundation/header_maker.h"

#include <algorithm>
#include <utility>

#include "foundation/ascii.h"
#include "foundation/line_flattener.h"

// The first line of a message continues nothing, whatever it begins with.
void HeaderMaker::Start(uint64_t) {
    ClearName();
    value_ = nullptr;
    body_ = nullptr;
    handler_ = &HeaderMaker::HandleFieldName;
}

void HeaderMaker::Text(const unsigned char* begin, const unsigned char* end) {
    if (body_ != nullptr) {
        body_->Text(begin, end);
        return;
    }
    ConstData text(begin, end);
    while (!text.Empty()) {
        (this->*handler_)(text);
    }
}

void HeaderMaker::EndOfLine(uint64_t start, uint64_t end) {
    if (body_ != nullptr) {
        body_->EndOfLine(start, end);
    } else if (LineIsEmpty()) {
        StartBody(end);
    } else {
        handler_ = &HeaderMaker::StartHeaderLine;
    }
}

void HeaderMaker::Finish(uint64_t position) {
    if (body_ == nullptr) {
        StartBody(position);
    }
    std::exchange(body_, nullptr)->Finish(position);
}

// Any byte of a line moves the handler on or leaves a trace in the name.
bool HeaderMaker::LineIsEmpty() const {
    return handler_ == &HeaderMaker::StartHeaderLine ||
           (handler_ == &HeaderMaker::HandleFieldName && name_.Filled().Empty() && !nameOverflowed_);
}

void HeaderMaker::StartHeaderLine(ConstData& text) {
    if (CharacterSets::whiteSpace.Contains(*text.begin)) {
        // One blank joins the parts of a value, however much white space the line began with.
        if (value_ != nullptr) {
            value_->Data(LineFlattener::space.begin, LineFlattener::space.end);
        }
        handler_ = &HeaderMaker::EatWhiteSpace;
        return;
    }
    FinishValue();
    ClearName();
    handler_ = &HeaderMaker::HandleFieldName;
}

void HeaderMaker::HandleFieldName(ConstData& text) {
    const unsigned char* const colon = std::find(text.begin, text.end, ':');
    ConstData part(text.begin, colon);
    if (nameOverflowed_ || part.Length() > name_.Room()) {
        nameOverflowed_ = true;
        text.begin = text.end;
        return;
    }
    Ascii::CaseLoweringFilter().Filter(part, name_);
    text.begin = colon;
    if (text.Empty()) {
        return;
    }
    ++text.begin;
    handler_ = &HeaderMaker::EatWhiteSpace;
    StartValue();
}

void HeaderMaker::EatWhiteSpace(ConstData& text) {
    text.begin = CharacterSets::whiteSpace.Span(text);
    if (!text.Empty()) {
        handler_ = &HeaderMaker::PassText;
    }
}

void HeaderMaker::PassText(ConstData& text) {
    if (value_ != nullptr) {
        value_->Data(text.begin, text.end);
    }
    text.begin = text.end;
}

void HeaderMaker::ClearName() {
    name_.write = name_.begin;
    nameOverflowed_ = false;
}

void HeaderMaker::StartValue() {
    value_ = &receiver_.StartHeader(name_.Filled());
    value_->Start();
}

void HeaderMaker::FinishValue() {
    if (DataReceiver* const value = std::exchange(value_, nullptr)) {
        value->Finish();
    }
}

void HeaderMaker::StartBody(uint64_t position) {
    FinishValue();
    body_ = &receiver_.EndHeaders(position);
    body_->Start(position);
}
