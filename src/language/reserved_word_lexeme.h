// Words of which some are reserved.
#ifndef LANGUAGE_RESERVED_WORD_LEXEME_H
#define LANGUAGE_RESERVED_WORD_LEXEME_H

#include <algorithm>
#include <span>
#include <string_view>

#include "language/reserved_word.h"
#include "language/word_lexeme.h"

// A WordLexeme whose words are looked up in a table sorted by byte value.  The table must outlive the lexeme.  Case
// counts, unless the filter takes it away.
template <class T>
class ReservedWordLexeme final : public Lexeme, private WordLexemeAcceptor {
public:
    using Table = std::span<const ReservedWord<T>>;

    ReservedWordLexeme(const CharacterSet& set, Buffer buffer, Table table, ReservedWordAcceptor<T>& acceptor,
                       DataFilter* filter = nullptr)
        : word_(set, buffer, *this, filter), table_(table), acceptor_(acceptor) {}

    void Start(unsigned long position) override { word_.Start(position); }
    void Take(unsigned long tokenStart, unsigned long position, ConstData& text) override {
        word_.Take(tokenStart, position, text);
    }
    void Finish(unsigned long tokenStart, unsigned long position) override { word_.Finish(tokenStart, position); }

private:
    void Accept(unsigned long start, unsigned long end, const unsigned char* textBegin,
                const unsigned char* textEnd) override {
        const std::string_view text = ConstData(textBegin, textEnd).View();
        const auto row = std::lower_bound(
            table_.begin(), table_.end(), text,
            [](const ReservedWord<T>& reserved, std::string_view word) { return reserved.word < word; });
        if (row != table_.end() && row->word == text) {
            acceptor_.AcceptReserved(start, end, row->value);
        } else {
            acceptor_.Accept(start, end, textBegin, textEnd);
        }
    }
    void TooLong(unsigned long start, unsigned long end) override { acceptor_.TooLong(start, end); }

    WordLexeme word_;
    Table table_;
    ReservedWordAcceptor<T>& acceptor_;
};

#endif
