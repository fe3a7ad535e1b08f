// `whose`: a filter, and the inner loop of most queries.
//
// The condition is true where all of its values are, so that a plural condition with none lets a candidate through.  It
// never fails: every trouble but an interruption makes the candidate false.  It runs under a memory mark of its own, so
// that a filter over any number of candidates stays in the memory of one.
#ifndef EVALUATOR_WHOSE_EXPRESSION_H
#define EVALUATOR_WHOSE_EXPRESSION_H

#include "evaluator/stepped_expression.h"

class WhoseExpression final : public SteppedExpression<WhoseExpression> {
public:
    WhoseExpression(Expression* filtered, Expression* condition)
        : SteppedExpression(filtered, condition), filtered_(filtered), condition_(condition) {}

    void AddDependencies(Fingerprinter& fingerprinter) override;
    void Bind(Expression* it, StackAllocatorBase& allocator) override;

private:
    friend class SteppedExpression<WhoseExpression>;

    template <class Steps>
    EvaluationStatus First(const Steps& steps);
    template <class Steps>
    EvaluationStatus Next(const Steps& steps);
    template <class Steps>
    EvaluationStatus Stop(const Steps& steps);
    EvaluationStatus Replay(Fingerprinter& fingerprinter, EvaluationPath& path);
    template <class Steps>
    EvaluationStatus FirstAccepted(const Steps& steps, TentativeValue& filtered);

    bool ConditionHolds();
    bool AllValuesHold();
    bool SettledConditionHolds();

    Expression* filtered_;
    Expression* condition_;
    StackAllocatorBase* memory_ = nullptr;
    SettledOperand settledCondition_;
};

extern template class SteppedExpression<WhoseExpression>;

#endif
