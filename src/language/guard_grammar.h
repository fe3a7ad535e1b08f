// The grammar of the relevance language, as a prefix tree of static nodes.
//
// Rules with a common beginning share nodes, and where several may go on, the earlier rule is tried first.  The tree is
// built once, on first use, and never changes.
#ifndef LANGUAGE_GUARD_GRAMMAR_H
#define LANGUAGE_GUARD_GRAMMAR_H

#include <array>

#include "language/guard_rpn_semantics.h"
#include "language/guard_symbol.h"

struct GuardRule {
    using Action = void (GuardRPNSemantics::*)();

    Action action;    // null where the rule has no meaning of its own
    int symbolCount;  // how many stack positions the rule's right side takes up
    GuardSymbol result;
};

// A place in a rule at which `symbol` is awaited.
struct RuleNode {
    GuardSymbol symbol;
    const RuleNode* next;         // the place behind the symbol, null at the rule's end
    const RuleNode* alternative;  // what else may stand here, null at the list's end
    const GuardRule* rule;        // the rule that put the node here; at a rule's end, that rule

    // At a rule's end the rule is complete and waits for nothing.
    bool IsTerminal() const { return next == nullptr; }
};

// For each symbol that can begin a rule, the places behind it; null for the symbols that begin none.
using GuardRootTable = std::array<const RuleNode*, cFirstSymbols>;

// The first call builds the tree, under the lock of static initialisation.
const GuardRootTable& GuardRoots();

#endif
