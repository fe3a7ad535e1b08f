// The bar, `a | b`: the language's error trap.
//
// Whatever the left side's first step reports, an exception of any kind included, gives way to the right side.  What
// the left side reports later, a second value above all, is reported as usual, and so is everything of the right side.
#ifndef EVALUATOR_BAR_EXPRESSION_H
#define EVALUATOR_BAR_EXPRESSION_H

#include "evaluator/expression.h"

class BarExpression final : public Expression {
public:
    BarExpression(Expression* left, Expression* right) : Expression(left, right), left_(left), right_(right) {}

    EvaluationStatus TryFirst() override;
    EvaluationStatus TryNext() override;
    EvaluationStatus TryStop() override { return TryNext(); }
    void AddDependencies(Fingerprinter& fingerprinter) override;
    void Bind(Expression* it, StackAllocatorBase& allocator) override;

private:
    bool LeftHasFirst();

    Expression* left_;
    Expression* right_;
};

#endif
