// `item n of` a tuple: the tuple's values, each followed to its element n.  The index is an integer literal, counted
// from 0.
#ifndef EVALUATOR_ITEM_OF_EXPRESSION_H
#define EVALUATOR_ITEM_OF_EXPRESSION_H

#include "evaluator/stepped_expression.h"

class ItemOfExpression final : public SteppedExpression<ItemOfExpression> {
public:
    ItemOfExpression(Expression* index, Expression* tuple, bool plural)
        : SteppedExpression(index, tuple), index_(index), tuple_(tuple) {
        plural_ = plural;
    }

    void AddDependencies(Fingerprinter& fingerprinter) override { tuple_->AddDependencies(fingerprinter); }

    // Throws TupleIndexNotAnIntegerLiteral and TupleIndexOutOfRange.
    void Bind(Expression* it, StackAllocatorBase& allocator) override;

private:
    friend class SteppedExpression<ItemOfExpression>;

    template <class Steps>
    EvaluationStatus First(const Steps& steps);
    template <class Steps>
    EvaluationStatus Next(const Steps& steps);
    template <class Steps>
    EvaluationStatus Stop(const Steps& steps);
    EvaluationStatus Replay(Fingerprinter& fingerprinter, EvaluationPath& path);

    void TakeElement(TentativeValue& tuple);

    EvaluationStatus FirstSettled();
    void* Element(const void* tuple) const;

    Expression* index_;
    Expression* tuple_;
    int64_t literal_ = 0;
    SettledOperand settledTuple_;
};

extern template class SteppedExpression<ItemOfExpression>;

#endif
