#include "evaluator/guard_automaton.h"

#include "evaluator/aggregate_expression.h"
#include "evaluator/bar_expression.h"
#include "evaluator/cast_expression.h"
#include "evaluator/collection_expression.h"
#include "evaluator/computed_property_expression.h"
#include "evaluator/constant_expressions.h"
#include "evaluator/if_expression.h"
#include "evaluator/item_of_expression.h"
#include "evaluator/logical_expressions.h"
#include "evaluator/operator_expressions.h"
#include "evaluator/property_expression.h"
#include "evaluator/tuple_expression.h"
#include "evaluator/whose_expression.h"

namespace {

constexpr unsigned kExchangeOperands = 0xFF;
constexpr unsigned kNegateResult = 0xFF00;

}  // namespace

void GuardAutomaton::Reset() {
    whoseCounts_.Clear();
    names_.Clear();
    operators_.Clear();
    expressions_.Clear();
    arena_.Clear();
}

void GuardAutomaton::Numeral(uint64_t value) {
    if (value >> 63 == 0) {
        expressions_.Push(arena_.Make<IntegerExpression>(static_cast<int64_t>(value)));
    } else {
        expressions_.Push(arena_.Make<NoIntegerExpression>());
    }
}

void GuardAutomaton::String(const unsigned char* begin, const unsigned char* end) {
    const std::string_view text = arena_.CopyText(begin, end);
    expressions_.Push(arena_.Make<StringExpression>(inspector_string(text)));
}

void GuardAutomaton::Name(const unsigned char* begin, const unsigned char* end) {
    names_.Push(arena_.CopyText(begin, end));
}

void GuardAutomaton::Operator(int code, unsigned flags) { operators_.Push({code, flags}); }

void GuardAutomaton::It() { expressions_.Push(arena_.Make<ItExpression>()); }

void GuardAutomaton::NamedWithArgument() { whoseCounts_.Push(0); }

void GuardAutomaton::ValueItem() {
    names_.Push({});
    whoseCounts_.Push(0);
}

void GuardAutomaton::NamedAlone() {
    expressions_.Push(nullptr);
    whoseCounts_.Push(0);
}

// The clause waits under the item's argument until the item is built.
void GuardAutomaton::Whose() {
    std::swap(expressions_.Top(), expressions_.Second());
    ++whoseCounts_.Top();
}

void GuardAutomaton::NoOf() {
    expressions_.Push(nullptr);
    Of();
}

Expression* GuardAutomaton::Item(std::string_view name, Expression* argument, Expression* object) {
    if (argument == nullptr) {
        if (object == nullptr) {
            object = arena_.Make<WorldExpression>();
        } else if (name == "number") {
            return arena_.Make<NumberOfExpression>(object);
        }
        return arena_.Make<PropertyExpression>(name, nullptr, object);
    }
    if (object == nullptr) {
        return name.empty() ? argument : arena_.Make<PropertyExpression>(name, argument, nullptr);
    }
    if (name.empty()) {
        return arena_.Make<ComputedPropertyExpression>(argument, object, false);
    }
    if (name == "item" || name == "items") {
        return arena_.Make<ItemOfExpression>(argument, object, name == "items");
    }
    Expression* index = arena_.Make<ComputedPropertyExpression>(argument, object, true);
    return arena_.Make<PropertyExpression>(name, index, object);
}

void GuardAutomaton::Of() {
    Expression* object = expressions_.Top();
    expressions_.Pop();
    const std::string_view name = names_.Top();
    names_.Pop();
    const int clauses = whoseCounts_.Top();
    whoseCounts_.Pop();
    expressions_.Top() = Item(name, expressions_.Top(), object);
    for (int i = 0; i < clauses; ++i) {
        ReplaceTwoBy(arena_.Make<WhoseExpression>(expressions_.Top(), expressions_.Second()));
    }
}

template <class Node>
void GuardAutomaton::ReplaceTop() {
    expressions_.Top() = arena_.Make<Node>(expressions_.Top());
}

template <class Node>
void GuardAutomaton::ReplaceTwo() {
    ReplaceTwoBy(arena_.Make<Node>(expressions_.Second(), expressions_.Top()));
}

void GuardAutomaton::ReplaceTwoBy(Expression* node) {
    expressions_.Pop();
    expressions_.Top() = node;
}

void GuardAutomaton::Exists() { ReplaceTop<ExistsExpression>(); }

void GuardAutomaton::ExistsNo() {
    Exists();
    Not();
}

void GuardAutomaton::Not() { ReplaceTop<LogicalNotExpression>(); }

void GuardAutomaton::Negate() {
    expressions_.Top() = arena_.Make<UnaryOperatorExpression>(kUnaryMinus, expressions_.Top());
}

void GuardAutomaton::Cast() {
    expressions_.Top() = arena_.Make<CastExpression>(expressions_.Top(), names_.Top());
    names_.Pop();
}

void GuardAutomaton::BinaryOperator() {
    const PendingOperator pending = operators_.Top();
    operators_.Pop();
    Expression* left = expressions_.Second();
    Expression* right = expressions_.Top();
    if ((pending.flags & kExchangeOperands) != 0) {
        std::swap(left, right);
    }
    ReplaceTwoBy(arena_.Make<BinaryOperatorExpression>(pending.code, left, right));
    if ((pending.flags & kNegateResult) != 0) {
        Not();
    }
}

void GuardAutomaton::Subtract() {
    ReplaceTwoBy(arena_.Make<BinaryOperatorExpression>(kOperatorMinus, expressions_.Second(), expressions_.Top()));
}

void GuardAutomaton::Bar() { ReplaceTwo<BarExpression>(); }

void GuardAutomaton::And() { ReplaceTwo<AndExpression>(); }

void GuardAutomaton::Or() { ReplaceTwo<OrExpression>(); }

void GuardAutomaton::TupleElement() { ReplaceTwo<TupleExpression>(); }

// A tuple ends in the world.
void GuardAutomaton::LastTupleElement() {
    expressions_.Push(arena_.Make<WorldExpression>());
    TupleElement();
    TupleElement();
}

void GuardAutomaton::Collection() {
    Expression* left = expressions_.Second();
    ReplaceTwoBy(
        arena_.Make<CollectionExpression>(left, expressions_.Top(), dynamic_cast<CollectionExpression*>(left)));
}

void GuardAutomaton::If() {
    Expression* elseBranch = expressions_.Top();
    expressions_.Pop();
    Expression* condition = expressions_.Second();
    ReplaceTwoBy(arena_.Make<IfExpression>(condition, expressions_.Top(), elseBranch));
}

void GuardAutomaton::Accept() { arena_.Bind(expressions_.Top()); }
