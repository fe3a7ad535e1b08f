// GuardLexer cuts the text of a relevance expression into the tokens of GuardParser.
//
// The language reads like English, and its tokens are not words but phrases: consecutive words are gathered,
// lower-cased, the articles dropped, and then cut into keywords such as "is not greater than or equal to" and names
// such as "operating system".
#ifndef LANGUAGE_GUARD_LEXER_H
#define LANGUAGE_GUARD_LEXER_H

#include "language/character_lexeme.h"
#include "language/guard_comment_or_operator_lexeme.h"
#include "language/guard_lexeme_acceptor.h"
#include "language/guard_string_lexeme.h"
#include "language/ignored_text_lexeme.h"
#include "language/lexer.h"
#include "language/numeral_lexeme.h"
#include "language/operator_lexeme.h"
#include "language/phrase_lexeme.h"

// Feed it with Start, Data in runs of any size, and Finish.  Whatever the acceptors throw passes through Data and
// Finish, and DataOverflow for a phrase whose word does not fit; the lexer is of use again after the next Start.
class GuardLexer final : public Lexer {
public:
    // Both acceptors, which are commonly one parser, must outlive the lexer.
    GuardLexer(GuardLexemeAcceptor& acceptor, EndLexemeAcceptor& endAcceptor);

    Lexeme& ChooseLexeme(unsigned char byte) override;

private:
    IgnoredTextLexeme blanks_;
    PhraseLexeme<const GuardParsingAction*> phrase_;
    GuardStringLexeme string_;
    NumeralLexeme numeral_;
    OperatorLexeme<const GuardParsingAction*> operator_;
    GuardCommentOrOperatorLexeme commentOrOperator_;
    CharacterLexeme unexpected_;
};

#endif
