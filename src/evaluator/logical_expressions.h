// `and` and `or`: the right operand is not evaluated where the left decides.
//
// A missing left operand is an error, not false; nothing is caught.
#ifndef EVALUATOR_LOGICAL_EXPRESSIONS_H
#define EVALUATOR_LOGICAL_EXPRESSIONS_H

#include "evaluator/stepped_expression.h"
#include "registry/core_values.h"

// Throws BooleanExpressionRequired or, for a boolean that is plural, SingularExpressionRequired.
void RequireCondition(const Expression* operand);

// Reads a bound condition: its one value, shown to be the only one.
template <class Steps>
EvaluationStatus ReadCondition(const Steps& steps, Expression* condition, boolean& value) {
    TentativeValue hold(condition);
    const EvaluationStatus status = steps.First(hold);
    if (status != StatusOk) {
        return status;
    }
    value = *static_cast<const boolean*>(condition->Value());
    return steps.Finish(hold);
}

class BinaryLogicalExpression : public SteppedExpression<BinaryLogicalExpression> {
public:
    void AddDependencies(Fingerprinter& fingerprinter) final;
    void Bind(Expression* it, StackAllocatorBase& allocator) final;

protected:
    BinaryLogicalExpression(Expression* left, Expression* right, boolean shortCircuitValue)
        : SteppedExpression(left, right), left_(left), right_(right), shortCircuitValue_(shortCircuitValue) {}

private:
    friend class SteppedExpression<BinaryLogicalExpression>;

    template <class Steps>
    EvaluationStatus First(const Steps& steps);
    template <class Steps>
    EvaluationStatus Next(const Steps& steps);
    template <class Steps>
    EvaluationStatus Stop(const Steps& steps);
    EvaluationStatus Replay(Fingerprinter& fingerprinter, EvaluationPath& path);

    Expression* left_;
    Expression* right_;
    boolean shortCircuitValue_;
    boolean result_ = false;
};

class AndExpression final : public BinaryLogicalExpression {
public:
    AndExpression(Expression* left, Expression* right) : BinaryLogicalExpression(left, right, false) {}
};

class OrExpression final : public BinaryLogicalExpression {
public:
    OrExpression(Expression* left, Expression* right) : BinaryLogicalExpression(left, right, true) {}
};

extern template class SteppedExpression<BinaryLogicalExpression>;

#endif
