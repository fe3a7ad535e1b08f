#include "language/guard_parser.h"

#include "language/parse_errors.h"

void GuardParser::Start() {
    stack_.Clear();
    lookedUp_ = nullptr;
    finished_ = false;
    ended_ = false;
    semantics_.Reset();
}

// Moves the top position along its alternatives to the first place that awaits `symbol` or waits for nothing; if there
// is none, it stays.
void GuardParser::Seek(GuardSymbol symbol) {
    const RuleNode*& top = stack_.Top();
    for (const RuleNode* node = top; node != nullptr; node = node->alternative) {
        if (node->symbol == symbol || node->IsTerminal()) {
            top = node;
            return;
        }
    }
}

// The place behind `symbol`: in the rule on top if it awaits the symbol, otherwise in the rules that begin with it.
const RuleNode* GuardParser::Lookup(GuardSymbol symbol) const {
    const RuleNode* const place =
        !stack_.Empty() && stack_.Top()->symbol == symbol ? stack_.Top()->next : roots_[symbol];
    if (place == nullptr) {
        throw ParsingFailure();
    }
    return place;
}

void GuardParser::Reduce() {
    const GuardRule& rule = *stack_.Top()->rule;
    stack_.Pop(static_cast<size_t>(rule.symbolCount));
    if (rule.action != nullptr) {
        (semantics_.*rule.action)();
    }
    if (rule.result == EndSymbol) {
        // The action comes first on purpose: an expression that does not belong here is still told what is wrong with
        // itself.
        if (!stack_.Empty()) {
            throw ParsingFailure();
        }
        finished_ = true;
        return;
    }
    if (!stack_.Empty()) {
        Seek(rule.result);
    }
    stack_.Push(Lookup(rule.result));
}

void GuardParser::Prepare(GuardSymbol token) {
    if (!stack_.Empty()) {
        Seek(token);
    }
    while (RuleIsComplete()) {
        Reduce();
        if (!stack_.Empty()) {
            Seek(token);
        }
    }
    if (finished_) {
        throw ParsingFailure();  // text follows a complete expression
    }
    lookedUp_ = Lookup(token);
}

void GuardParser::Shift() {
    stack_.Push(lookedUp_);
    while (RuleIsComplete()) {
        Reduce();
    }
}

void GuardParser::End(unsigned long) {
    ended_ = true;
    if (finished_) {
        return;
    }
    if (!stack_.Empty()) {
        Seek(EndSymbol);
    }
    while (RuleIsComplete()) {
        Reduce();
        if (finished_) {
            return;
        }
        Seek(EndSymbol);
    }
    throw ParsingFailure();
}

void GuardParser::Act(const GuardParsingAction& action) {
    Prepare(action.token);
    action.Apply(semantics_);
    Shift();
}

void GuardParser::Keyword(const GuardParsingAction* action) { Act(*action); }

void GuardParser::Name(const unsigned char* begin, const unsigned char* end) {
    Prepare(NameSymbol);
    semantics_.Name(begin, end);
    Shift();
}

void GuardParser::Accept(unsigned long, unsigned long, const GuardParsingAction* action) { Act(*action); }

void GuardParser::Accept(unsigned long, unsigned long, const unsigned char* textBegin, const unsigned char* textEnd) {
    Prepare(ValueSymbol);
    semantics_.String(textBegin, textEnd);
    Shift();
}

void GuardParser::Accept(unsigned long, unsigned long, uint64_t value) {
    Prepare(ValueSymbol);
    semantics_.Numeral(value);
    Shift();
}

void GuardParser::PhraseTooLong() { throw ::PhraseTooLong(); }

void GuardParser::WordTooLong() { throw ::WordTooLong(); }

void GuardParser::Invalid(unsigned long, unsigned long) { throw InvalidOperator(); }

void GuardParser::TooLong(unsigned long, unsigned long) { throw StringConstantTooLong(); }

void GuardParser::Unfinished(unsigned long, unsigned long) { throw UnfinishedStringConstant(); }

void GuardParser::BadEscape(unsigned long, unsigned long) { throw StringEncodingError(); }

void GuardParser::TooLarge(unsigned long, unsigned long) { throw IntegerConstantTooLarge(); }

void GuardParser::Accept(unsigned long, unsigned long, unsigned char byte) { throw UnexpectedCharacter(byte); }

void GuardParser::UnfinishedComment() { throw UnfinishedCommentError(); }
