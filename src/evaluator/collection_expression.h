// The collection, `a; b; c`: all values of the first item, then of the next, duplicates kept.
//
// A written list nests to the left, one node for each ";".  The topmost node takes the items of all nodes below it on
// that side as its own when it is bound, so that a list of a hundred thousand items is walked in the time of its length
// and needs no machine stack.
#ifndef EVALUATOR_COLLECTION_EXPRESSION_H
#define EVALUATOR_COLLECTION_EXPRESSION_H

#include "evaluator/stepped_expression.h"

class CollectionExpression final : public SteppedExpression<CollectionExpression> {
public:
    // `nested` is `left` where that is itself a collection.
    CollectionExpression(Expression* left, Expression* right, CollectionExpression* nested);

    void AddDependencies(Fingerprinter& fingerprinter) override;
    void Bind(Expression* it, StackAllocatorBase& allocator) override;

private:
    friend class SteppedExpression<CollectionExpression>;

    template <class Steps>
    EvaluationStatus First(const Steps& steps);
    template <class Steps>
    EvaluationStatus Next(const Steps& steps);
    template <class Steps>
    EvaluationStatus Stop(const Steps& steps);
    EvaluationStatus Replay(Fingerprinter& fingerprinter, EvaluationPath& path);
    template <class Steps>
    EvaluationStatus FirstFrom(const Steps& steps, size_t item);

    Expression* left_;
    Expression* right_;
    CollectionExpression* nested_;
    size_t count_;                  // The items of the whole list down to the left end.
    Expression** items_ = nullptr;  // In written order, once bound.
    size_t current_ = 0;            // The item that holds a value while this node does.
};

extern template class SteppedExpression<CollectionExpression>;

#endif
