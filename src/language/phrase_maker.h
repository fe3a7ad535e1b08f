// PhraseMaker cuts the words of a phrase into keywords and names.
//
// The longest keyword wins at every word boundary, and the words between keywords are one name.  Noise words are
// dropped wherever they stand.
#ifndef LANGUAGE_PHRASE_MAKER_H
#define LANGUAGE_PHRASE_MAKER_H

#include <algorithm>
#include <cstring>

#include "foundation/const_data.h"
#include "language/guard_lexeme_acceptor.h"
#include "language/lexeme_acceptors.h"
#include "language/narrowing_search.h"

// True for the articles "a", "an" and "the"; `word` is in lower case.
bool IsNoiseWord(ConstData word);

// The buffer holds, each word with a blank behind it: first the words that are decided to be a name (`matched_`
// bytes), then the candidate, whose bytes the search has followed.  A name stays in the buffer until the keyword
// behind it is emitted, so both share its 512 bytes.
template <class T>
class PhraseMaker final : public WordLexemeAcceptor {
public:
    // The keywords of the table end in a blank, since words are compared with the blank behind them.
    PhraseMaker(std::span<const ReservedWord<T>> keywords, PhraseAcceptor<T>& acceptor)
        : search_(keywords), acceptor_(acceptor) {}

    // A phrase begins; what an abandoned one has left is dropped.
    void Start() {
        used_ = 0;
        matched_ = 0;
        Restart();
    }

    // The next word, in lower case.
    void Accept(unsigned long, unsigned long, const unsigned char* textBegin, const unsigned char* textEnd) override {
        const ConstData word(textBegin, textEnd);
        if (!IsNoiseWord(word)) {
            Append(word);
            FeedRest();
        }
    }
    void TooLong(unsigned long, unsigned long) override { acceptor_.WordTooLong(); }

    // The phrase has ended.
    void Finish() {
        while (matched_ < used_) {
            if (pending_ != nullptr) {
                EmitKeyword();
            } else {
                // A keyword begun and not completed.
                MoveFirstWordToName();
            }
            FeedRest();
        }
        if (matched_ != 0) {
            EmitName();
        }
        Start();
    }

private:
    static constexpr size_t capacity = 512;

    void Append(ConstData word) {
        if (word.Length() >= capacity - used_) {
            throw DataOverflow();
        }
        std::memcpy(buffer_ + used_, word.begin, word.Length());
        used_ += word.Length();
        buffer_[used_++] = ' ';
        if (used_ == capacity) {
            acceptor_.PhraseTooLong();
        }
    }

    // Word by word, until the search has seen all that is buffered.
    void FeedRest() {
        while (matched_ + search_.Depth() < used_) {
            FeedWord();
        }
    }

    void FeedWord() {
        if (!NarrowByWord()) {
            if (pending_ != nullptr) {
                EmitKeyword();
            } else {
                MoveFirstWordToName();
            }
            return;
        }
        const ReservedWord<T>* const row = search_.Match();
        if (row == nullptr) {
            return;
        }
        if (pending_ == nullptr && matched_ != 0) {
            EmitName();
        }
        pending_ = row;
        pendingLength_ = search_.Depth();
        if (search_.Single()) {
            EmitKeyword();
        }
    }

    // Follows the next word and its blank; false as soon as no keyword goes on like this.
    bool NarrowByWord() {
        for (const unsigned char* next = buffer_ + matched_ + search_.Depth();; ++next) {
            if (!search_.Narrow(*next)) {
                return false;
            }
            if (*next == ' ') {
                return true;
            }
        }
    }

    void MoveFirstWordToName() {
        const unsigned char* const blank = std::find(buffer_ + matched_, buffer_ + used_, ' ');
        matched_ = static_cast<size_t>(blank - buffer_) + 1;
        Restart();
    }

    void EmitName() { acceptor_.Name(buffer_, buffer_ + matched_ - 1); }

    void EmitKeyword() {
        acceptor_.Keyword(pending_->value);
        const size_t removed = matched_ + pendingLength_;
        used_ -= removed;
        std::memmove(buffer_, buffer_ + removed, used_);
        matched_ = 0;
        Restart();
    }

    void Restart() {
        search_.Restart();
        pending_ = nullptr;
        pendingLength_ = 0;
    }

    size_t used_ = 0;
    size_t matched_ = 0;
    NarrowingSearch<T> search_;
    const ReservedWord<T>* pending_ = nullptr;  // the longest complete keyword of the candidate so far
    size_t pendingLength_ = 0;
    PhraseAcceptor<T>& acceptor_;
    unsigned char buffer_[capacity];
};

#endif
