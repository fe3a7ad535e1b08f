#include "console/question_asker.h"

#include <charconv>

#include "registry/core_values.h"

void QuestionAsker::Start(uint64_t) {
    errorSeen_ = false;
    receiver_.Reset();
    RestartTimer();
    try {
        receiver_.Start();
    } catch (...) {
        messages_.TakeNotUnderstood();
    }
}

void QuestionAsker::Text(const unsigned char* begin, const unsigned char* end) {
    try {
        receiver_.Data(begin, end);
    } catch (...) {
        messages_.TakeNotUnderstood();
    }
    if (echoQuestion_) {
        output_.Text(begin, end);
    }
}

void QuestionAsker::Finish(uint64_t) {
    if (echoQuestion_) {
        output_.EndLine();
    }
    try {
        receiver_.Finish();
    } catch (...) {
        errorSeen_ = true;
        messages_.TakeNotUnderstood();
    }
    if (!evaluate_) {
        return;
    }
    if (!receiver_.Ok()) {
        errorSeen_ = true;
        if (printErrors_) {
            PrintErrorLine();
            output_.EndLine();
        }
        return;
    }
    CloseAndConvert();
    if (errorSeen_) {
        PrintFailed();
        return;
    }
    if (!receiver_.Started()) {
        return;
    }
    PrintAnswers();
    PrintClosing();
}

// The type's name is taken here as well, where running out of memory can still be told.
void QuestionAsker::CloseAndConvert() {
    try {
        receiver_.Close();
    } catch (...) {
        errorSeen_ = true;
        messages_.TakeNotUnderstood();
    }
    if (errorSeen_ || !receiver_.Started()) {
        return;
    }
    try {
        if (printTypes_) {
            typeName_ = receiver_.Engine().ParsedTypeName();
        }
        receiver_.Engine().ConvertTo("string", "string");
    } catch (...) {
        errorSeen_ = true;
        messages_.TakeNotConverted();
    }
}

// Each answer is printed as it comes, so that an error in the middle of a stream leaves the earlier answers standing.
void QuestionAsker::PrintAnswers() {
    try {
        GuardEvaluator& engine = receiver_.Engine();
        for (void* value = engine.First(); value != nullptr; value = engine.Next()) {
            output_.Text("A: ");
            WriteSanitised(static_cast<const inspector_string*>(value)->View());
            output_.EndLine();
        }
    } catch (...) {
        errorSeen_ = true;
        messages_.TakeNotEvaluated();
        if (printErrors_) {
            PrintErrorLine();
        }
    }
}

void QuestionAsker::PrintClosing() {
    if (printTiming_) {
        char digits[100];
        const char* end = std::to_chars(digits, digits + sizeof digits, timer_.Reading()).ptr;
        output_.Text("T: ");
        output_.Text(std::string_view(digits, static_cast<size_t>(end - digits)));
        output_.EndLine();
    }
    if (printTypes_) {
        output_.Text("I: ");
        output_.Text(typeName_);
        output_.EndLine();
    }
    output_.EndLine();
}

void QuestionAsker::PrintFailed() {
    if (printErrors_) {
        PrintErrorLine();
    }
    output_.EndLine();
}

void QuestionAsker::PrintErrorLine() {
    output_.Text("E: ");
    WriteSanitised(messages_.Message());
    output_.EndLine();
}

// Printable ASCII passes in runs, the percent sign aside; every other byte becomes "%" and two hexadecimal digits.
void QuestionAsker::WriteSanitised(std::string_view text) {
    constexpr char kDigits[] = "0123456789abcdef";
    size_t passed = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte >= 32 && byte <= 126 && byte != '%') {
            continue;
        }
        const char escape[] = {'%', kDigits[byte >> 4], kDigits[byte & 15]};
        output_.Text(text.substr(passed, i - passed));
        output_.Text(std::string_view(escape, sizeof escape));
        passed = i + 1;
    }
    output_.Text(text.substr(passed));
}
