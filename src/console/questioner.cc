#include "console/questioner.h"

#include <algorithm>
#include <cstring>

#include "foundation/ascii.h"

namespace {

enum class Treatment { Ask, Drop };

struct FieldName {
    std::string_view name;
    Treatment treatment;
};

constexpr FieldName kFieldNames[] = {
    {"q", Treatment::Ask},  {"x-relevant-when", Treatment::Ask},
    {"a", Treatment::Drop}, {"e", Treatment::Drop},
    {"t", Treatment::Drop}, {"i", Treatment::Drop},
};

}  // namespace

void Questioner::SetReceivers(LineReceiver& output, LineReceiver& asker) {
    output_ = &output;
    asker_ = &asker;
}

void Questioner::ClearName() { nameBuffer_.write = nameBuffer_.begin; }

void Questioner::Write(LineReceiver& receiver, std::string_view text) {
    const ConstData data(text);
    receiver.Text(data.begin, data.end);
}

// The first line of a stream is never a continuation line.
void Questioner::Start(uint64_t) {
    ClearName();
    nameOverflowed_ = false;
    sink_ = output_;
    handler_ = &Questioner::HandleFieldName;
}

void Questioner::Text(const unsigned char* begin, const unsigned char* end) {
    ConstData text(begin, end);
    while (!text.Empty()) {
        (this->*handler_)(text);
    }
}

void Questioner::EndOfLine(uint64_t start, uint64_t end) {
    if (!nameOverflowed_ && !nameBuffer_.Filled().Empty()) {
        output_->Text(nameBuffer_.begin, nameBuffer_.write);
        sink_ = output_;
        ClearName();
    }
    handler_ = &Questioner::StartALine;
    sink_->EndOfLine(start, end);
}

void Questioner::Finish(uint64_t position) { sink_->Finish(position); }

void Questioner::StartALine(ConstData& text) {
    if (whiteSpace_.Contains(*text.begin)) {
        // One blank joins the parts of a value, however much white space the line began with.
        Write(*sink_, " ");
        handler_ = &Questioner::EatWhiteSpace;
        return;
    }
    if (sink_ == asker_) {
        asker_->Finish(0);
    }
    sink_ = output_;
    ClearName();
    nameOverflowed_ = false;
    handler_ = &Questioner::HandleFieldName;
}

void Questioner::EatWhiteSpace(ConstData& text) {
    text.begin = whiteSpace_.Span(text);
    if (!text.Empty()) {
        handler_ = &Questioner::PassText;
    }
}

void Questioner::PassText(ConstData& text) {
    sink_->Text(text.begin, text.end);
    text.begin = text.end;
}

void Questioner::HandleFieldName(ConstData& text) {
    if (nameOverflowed_) {
        output_->Text(text.begin, text.end);
        text.begin = text.end;
        return;
    }
    const unsigned char* colon = std::find(text.begin, text.end, ':');
    const auto length = static_cast<size_t>(colon - text.begin);
    if (length > nameBuffer_.Room()) {
        output_->Text(nameBuffer_.begin, nameBuffer_.write);
        output_->Text(text.begin, text.end);
        text.begin = text.end;
        nameOverflowed_ = true;
        return;
    }
    std::memcpy(nameBuffer_.write, text.begin, length);
    nameBuffer_.write += length;
    text.begin = colon;
    if (text.Empty()) {
        return;
    }
    ++text.begin;
    ActOnName();
    ClearName();
    handler_ = &Questioner::EatWhiteSpace;
}

void Questioner::ActOnName() {
    for (const FieldName& field : kFieldNames) {
        if (Ascii::CompareIgnoringCase(nameBuffer_.Filled(), ConstData(field.name)) != 0) {
            continue;
        }
        if (field.treatment == Treatment::Drop) {
            sink_ = &ignored_;
            return;
        }
        Write(*output_, "Q: ");
        sink_ = asker_;
        asker_->Start(0);
        return;
    }
    sink_ = output_;
    output_->Text(nameBuffer_.begin, nameBuffer_.write);
    Write(*output_, ":");
}
