// The tuple, `a, b`: the cross product of its two sides, the left one the outer loop.
//
// A left value for which the right has no value is skipped.  The value is the pair of the two current values' places.
#ifndef EVALUATOR_TUPLE_EXPRESSION_H
#define EVALUATOR_TUPLE_EXPRESSION_H

#include "evaluator/stepped_expression.h"
#include "registry/core_values.h"

class TupleExpression final : public SteppedExpression<TupleExpression> {
public:
    TupleExpression(Expression* left, Expression* right) : SteppedExpression(left, right), left_(left), right_(right) {}

    void AddDependencies(Fingerprinter& fingerprinter) override;
    void Bind(Expression* it, StackAllocatorBase& allocator) override;

private:
    friend class SteppedExpression<TupleExpression>;

    template <class Steps>
    EvaluationStatus First(const Steps& steps);
    template <class Steps>
    EvaluationStatus Next(const Steps& steps);
    template <class Steps>
    EvaluationStatus Stop(const Steps& steps);
    EvaluationStatus Replay(Fingerprinter& fingerprinter, EvaluationPath& path);
    template <class Steps>
    EvaluationStatus Pair(const Steps& steps, TentativeValue& left);
    EvaluationStatus PairWithLeaf(EvaluationStatus status, TentativeValue& left);

    Expression* left_;
    Expression* right_;
    void* const* leaf_ =
        nullptr;  // The right side's value, where that is a leaf: the world at a tuple's end above all.
    TupleNode pair_;
};

extern template class SteppedExpression<TupleExpression>;

#endif
