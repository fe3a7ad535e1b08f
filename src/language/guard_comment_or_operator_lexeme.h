// What begins with "/": a comment, or the division sign.
#ifndef LANGUAGE_GUARD_COMMENT_OR_OPERATOR_LEXEME_H
#define LANGUAGE_GUARD_COMMENT_OR_OPERATOR_LEXEME_H

#include "language/guard_comment_lexeme.h"
#include "language/operator_lexeme.h"

// Holds the "/" back until the next byte, which may be in the next run, shows what it is.
class GuardCommentOrOperatorLexeme final : public Lexeme {
public:
    // `operators` is restarted for each "/" that begins an operator; it must outlive this lexeme.
    GuardCommentOrOperatorLexeme(OperatorLexeme<const GuardParsingAction*>& operators, GuardLexemeAcceptor& acceptor)
        : operator_(operators), comment_(acceptor) {}

    void Start(unsigned long position) override;
    void Take(unsigned long tokenStart, unsigned long position, ConstData& text) override;
    void Finish(unsigned long tokenStart, unsigned long position) override;

private:
    void BeginOperator(unsigned long tokenStart);

    OperatorLexeme<const GuardParsingAction*>& operator_;
    GuardCommentLexeme comment_;
    bool slashTaken_ = false;
    Lexeme* decided_ = nullptr;  // null until the byte behind the "/" is seen
};

#endif
