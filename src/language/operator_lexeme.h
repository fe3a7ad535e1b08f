// Operators of one or more signs, the longest that the table holds.
#ifndef LANGUAGE_OPERATOR_LEXEME_H
#define LANGUAGE_OPERATOR_LEXEME_H

#include "language/guard_lexeme_acceptor.h"
#include "language/lexeme.h"
#include "language/narrowing_search.h"

// Follows the bytes through a sorted table for as long as rows remain.  What has then been read must be a whole row;
// if it is not, it is Invalid, and no shorter operator is looked for.
template <class T>
class OperatorLexeme final : public Lexeme {
public:
    OperatorLexeme(std::span<const ReservedWord<T>> table, OperatorLexemeAcceptor<T>& acceptor)
        : search_(table), acceptor_(acceptor) {}

    void Start(unsigned long) override { search_.Restart(); }

    void Take(unsigned long tokenStart, unsigned long position, ConstData& text) override {
        for (; !text.Empty(); ++text.begin, ++position) {
            if (!search_.Narrow(*text.begin)) {
                Finish(tokenStart, position);
                return;
            }
        }
    }

    void Finish(unsigned long tokenStart, unsigned long position) override {
        if (const ReservedWord<T>* const row = search_.Match()) {
            acceptor_.Accept(tokenStart, position, row->value);
        } else {
            acceptor_.Invalid(tokenStart, position);
        }
    }

private:
    NarrowingSearch<T> search_;
    OperatorLexemeAcceptor<T>& acceptor_;
};

#endif
