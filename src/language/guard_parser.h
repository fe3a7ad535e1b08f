// GuardParser turns the tokens of GuardLexer into calls of GuardRPNSemantics.
//
// It is a shift-reduce machine over the prefix tree of rules in guard_grammar.h: a stack holds, for each symbol, the
// place in the tree at which the next symbol is awaited, and a rule fires as soon as its last symbol is on the stack,
// with no lookahead.  Precedence is carried by the layering of the rules alone.
#ifndef LANGUAGE_GUARD_PARSER_H
#define LANGUAGE_GUARD_PARSER_H

#include "foundation/segmented_stack.h"
#include "language/guard_grammar.h"
#include "language/guard_lexeme_acceptor.h"
#include "language/guard_rpn_semantics.h"

// One text is bracketed by Start and End, which GuardLexer calls from its own Start and Finish.  Every operation may
// throw ParsingFailure, what the semantics throws, and std::bad_alloc when the stack cannot grow; the parser is of use
// again after the next Start.  Nothing is allocated but the stack's overflow blocks.
class GuardParser final : public GuardLexemeAcceptor, public EndLexemeAcceptor {
public:
    // `semantics` must outlive the parser.
    explicit GuardParser(GuardRPNSemantics& semantics) : semantics_(semantics), roots_(GuardRoots()) {}

    // Forgets the text under way and resets the semantics.
    void Start() override;

    // The end of the text.  Throws ParsingFailure unless the tokens form one expression.
    void End(unsigned long position) override;

    // True from the moment at which the whole text was accepted; any further token is a ParsingFailure.
    bool Finished() const { return finished_; }

    // True once End has been called for the text under way, whatever came of it.
    bool Ended() const { return ended_; }

    // The tokens.  Each makes the reductions that it causes, then tells the semantics, then is shifted.
    void Keyword(const GuardParsingAction* action) override;
    void Name(const unsigned char* begin, const unsigned char* end) override;
    void Accept(unsigned long start, unsigned long end, const GuardParsingAction* action) override;
    void Accept(unsigned long start, unsigned long end, const unsigned char* textBegin,
                const unsigned char* textEnd) override;
    void Accept(unsigned long start, unsigned long end, uint64_t value) override;

    // What is no token.  Each throws the exception of its name.
    void PhraseTooLong() override;
    void WordTooLong() override;
    void Invalid(unsigned long start, unsigned long end) override;
    void TooLong(unsigned long start, unsigned long end) override;
    void Unfinished(unsigned long start, unsigned long end) override;
    void BadEscape(unsigned long start, unsigned long end) override;
    void TooLarge(unsigned long start, unsigned long end) override;
    void Accept(unsigned long start, unsigned long end, unsigned char byte) override;
    void UnfinishedComment() override;

private:
    void Act(const GuardParsingAction& action);
    void Seek(GuardSymbol symbol);
    const RuleNode* Lookup(GuardSymbol symbol) const;
    void Reduce();
    void Prepare(GuardSymbol token);
    void Shift();
    bool RuleIsComplete() const { return !stack_.Empty() && stack_.Top()->IsTerminal(); }

    GuardRPNSemantics& semantics_;
    const GuardRootTable& roots_;
    const RuleNode* lookedUp_ = nullptr;
    bool finished_ = false;
    bool ended_ = false;
    SegmentedStack<const RuleNode*, 100> stack_;
};

#endif
