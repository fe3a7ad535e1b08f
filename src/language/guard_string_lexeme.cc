#include "language/guard_string_lexeme.h"

#include <algorithm>
#include <cstring>

#include "foundation/character_set.h"

void GuardStringLexeme::Start(unsigned long) {
    handler_ = &GuardStringLexeme::StartQuotation;
    used_ = 0;
    overflow_ = false;
}

void GuardStringLexeme::Take(unsigned long tokenStart, unsigned long position, ConstData& text) {
    const unsigned char* const begin = text.begin;
    while (handler_ != nullptr && !text.Empty()) {
        (this->*handler_)({tokenStart, position + static_cast<unsigned long>(text.begin - begin)}, text);
    }
}

void GuardStringLexeme::Finish(unsigned long tokenStart, unsigned long position) {
    if (handler_ != nullptr) {
        acceptor_.Unfinished(tokenStart, position);
    }
}

void GuardStringLexeme::StartQuotation(Range<unsigned long>, ConstBuffer& text) {
    quote_ = *text.begin++;
    handler_ = &GuardStringLexeme::AddText;
}

void GuardStringLexeme::AddText(Range<unsigned long> token, ConstBuffer& text) {
    const unsigned char quote = quote_;
    const unsigned char* const end =
        std::find_if(text.begin, text.end, [quote](unsigned char c) { return c == quote || c == '%'; });
    Append({text.begin, end});
    token.end += static_cast<unsigned long>(end - text.begin);
    text.begin = end;
    if (text.Empty()) {
        return;
    }
    ++text.begin;
    if (*end == quote) {
        handler_ = nullptr;
        Deliver({token.start, token.end + 1});
    } else {
        handler_ = &GuardStringLexeme::AddFirstDigit;
    }
}

void GuardStringLexeme::AddFirstDigit(Range<unsigned long> token, ConstBuffer& text) {
    if (!CharacterSets::hexadecimalDigits.Contains(*text.begin)) {
        RejectEscape(token);
        return;
    }
    firstDigit_ = *text.begin++;
    handler_ = &GuardStringLexeme::AddSecondDigit;
}

void GuardStringLexeme::AddSecondDigit(Range<unsigned long> token, ConstBuffer& text) {
    if (!CharacterSets::hexadecimalDigits.Contains(*text.begin)) {
        RejectEscape(token);
        return;
    }
    const unsigned value = HexadecimalDigitValue(firstDigit_) * 16 + HexadecimalDigitValue(*text.begin++);
    const auto byte = static_cast<unsigned char>(value);
    Append({&byte, &byte + 1});
    handler_ = &GuardStringLexeme::AddText;
}

// For acceptors that go on after a bad escape: the rest of the constant is skipped and nothing more is delivered.
void GuardStringLexeme::IgnoreText(Range<unsigned long>, ConstBuffer& text) {
    text.begin = std::find(text.begin, text.end, quote_);
    if (!text.Empty()) {
        ++text.begin;
        handler_ = nullptr;
    }
}

// The offending byte stays, since it may be the closing quote.
void GuardStringLexeme::RejectEscape(Range<unsigned long> token) {
    handler_ = &GuardStringLexeme::IgnoreText;
    acceptor_.BadEscape(token.start, token.end);
}

void GuardStringLexeme::Append(ConstData bytes) {
    if (bytes.Length() > sizeof buffer_ - used_) {
        overflow_ = true;
        return;
    }
    if (!bytes.Empty()) {
        std::memcpy(buffer_ + used_, bytes.begin, bytes.Length());
        used_ += bytes.Length();
    }
}

void GuardStringLexeme::Deliver(Range<unsigned long> token) {
    if (overflow_) {
        acceptor_.TooLong(token.start, token.end);
    } else {
        acceptor_.Accept(token.start, token.end, buffer_, buffer_ + used_);
    }
}
