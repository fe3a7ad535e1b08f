#include "language/word_lexeme.h"

#include <algorithm>

void WordLexeme::Start(unsigned long) { buffer_.write = buffer_.begin; }

void WordLexeme::Take(unsigned long tokenStart, unsigned long position, ConstData& text) {
    const ConstData word(text.begin, set_.Span(text));
    const unsigned long end = position + word.Length();
    text.begin = word.end;
    const bool ended = !text.Empty();
    // A word that lies whole in this run needs no copy; one that would fill the buffer is left to fail there, so that
    // what is too long does not depend on the runs.
    if (filter_ == nullptr && ended && buffer_.write == buffer_.begin && word.Length() < buffer_.Room()) {
        acceptor_.Accept(tokenStart, end, word.begin, word.end);
        return;
    }
    Append(word);
    if (ended) {
        Finish(tokenStart, end);
    }
}

void WordLexeme::Append(ConstData word) {
    if (filter_ != nullptr) {
        filter_->Filter(word, buffer_);
        return;
    }
    const size_t count = std::min(word.Length(), buffer_.Room());
    buffer_.write = std::copy_n(word.begin, count, buffer_.write);
}

void WordLexeme::Finish(unsigned long tokenStart, unsigned long position) {
    if (buffer_.Full()) {
        acceptor_.TooLong(tokenStart, position);
    } else {
        acceptor_.Accept(tokenStart, position, buffer_.begin, buffer_.write);
    }
}
