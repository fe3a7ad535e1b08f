// GuardAutomaton builds the tree of nodes that the parser tells in reverse Polish order, on four stacks of its own.
//
// The stacks' first blocks lie inside the object, so that expressions of ordinary size allocate nothing.
#ifndef EVALUATOR_GUARD_AUTOMATON_H
#define EVALUATOR_GUARD_AUTOMATON_H

#include <string_view>

#include "evaluator/expression_arena.h"
#include "foundation/segmented_stack.h"
#include "language/guard_rpn_semantics.h"

class GuardAutomaton final : public GuardRPNSemantics {
public:
    explicit GuardAutomaton(ExpressionArena& arena) : arena_(arena) {}

    // Empties the stacks and destroys the nodes of the arena.
    void Reset() override;

    void Numeral(uint64_t value) override;
    void String(const unsigned char* begin, const unsigned char* end) override;
    void Name(const unsigned char* begin, const unsigned char* end) override;
    void Operator(int code, unsigned flags) override;
    void It() override;
    void NamedWithArgument() override;
    void ValueItem() override;
    void NamedAlone() override;
    void Whose() override;
    void Of() override;
    void NoOf() override;
    void Exists() override;
    void ExistsNo() override;
    void Cast() override;
    void BinaryOperator() override;
    void Not() override;
    void Negate() override;
    void Bar() override;
    void Subtract() override;
    void And() override;
    void Or() override;
    void LastTupleElement() override;
    void TupleElement() override;
    void Collection() override;
    void If() override;

    // Binds the finished tree.  Throws the failures of binding.
    void Accept() override;

private:
    struct PendingOperator {
        int code;
        unsigned flags;
    };

    template <class Node>
    void ReplaceTop();
    template <class Node>
    void ReplaceTwo();
    void ReplaceTwoBy(Expression* node);
    Expression* Item(std::string_view name, Expression* argument, Expression* object);

    ExpressionArena& arena_;
    SegmentedStack<int, 20> whoseCounts_;
    SegmentedStack<std::string_view, 60> names_;
    SegmentedStack<PendingOperator, 20> operators_;
    SegmentedStack<Expression*, 40> expressions_;  // Null stands for "no argument" and "no object".
};

#endif
