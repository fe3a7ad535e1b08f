// `if then else`.
//
// One branch may fail to bind: the failure is kept, and surfaces only where that branch is taken.  This is what lets an
// expression ask for a property that not every machine knows.
#ifndef EVALUATOR_IF_EXPRESSION_H
#define EVALUATOR_IF_EXPRESSION_H

#include "evaluator/caught_exception.h"
#include "evaluator/stepped_expression.h"

class IfExpression final : public SteppedExpression<IfExpression> {
public:
    IfExpression(Expression* condition, Expression* thenBranch, Expression* elseBranch);

    void AddDependencies(Fingerprinter& fingerprinter) override;
    void Bind(Expression* it, StackAllocatorBase& allocator) override;

private:
    friend class SteppedExpression<IfExpression>;

    template <class Steps>
    EvaluationStatus First(const Steps& steps);
    template <class Steps>
    EvaluationStatus Next(const Steps& steps);
    template <class Steps>
    EvaluationStatus Stop(const Steps& steps);
    EvaluationStatus Replay(Fingerprinter& fingerprinter, EvaluationPath& path);

    bool BoundQuietly(Expression* branch, Expression* it, StackAllocatorBase& allocator);
    Expression* Chosen(bool condition) const;

    Expression* condition_;
    Expression* then_;
    Expression* else_;
    Expression* broken_ = nullptr;
    AutoPtr<CaughtException> captured_;
    Expression* chosen_ = nullptr;
};

extern template class SteppedExpression<IfExpression>;

#endif
