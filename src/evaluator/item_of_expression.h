// `item n of` a tuple: the tuple's values, each followed to its element n.  The index is an integer literal, counted
// from 0.
#ifndef EVALUATOR_ITEM_OF_EXPRESSION_H
#define EVALUATOR_ITEM_OF_EXPRESSION_H

#include "evaluator/expression.h"

class ItemOfExpression final : public Expression {
public:
    ItemOfExpression(Expression* index, Expression* tuple, bool plural)
        : Expression(index, tuple), index_(index), tuple_(tuple) {
        plural_ = plural;
    }

    EvaluationStatus TryFirst() override;
    EvaluationStatus TryNext() override;
    EvaluationStatus TryStop() override;
    EvaluationStatus TryFirstFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) override;
    EvaluationStatus TryNextFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) override;
    EvaluationStatus TryStopFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) override;
    void AddDependencies(Fingerprinter& fingerprinter) override { tuple_->AddDependencies(fingerprinter); }
    EvaluationStatus AddFingerprint(Fingerprinter& fingerprinter, EvaluationPath& path) override;

    // Throws TupleIndexNotAnIntegerLiteral and TupleIndexOutOfRange.
    void Bind(Expression* it, StackAllocatorBase& allocator) override;

private:
    template <class Steps>
    EvaluationStatus First(const Steps& steps);
    template <class Steps>
    EvaluationStatus Next(const Steps& steps);
    template <class Steps>
    EvaluationStatus Stop(const Steps& steps);

    void TakeElement(TentativeValue& tuple);

    EvaluationStatus FirstSettled();
    void* Element(const void* tuple) const;

    Expression* index_;
    Expression* tuple_;
    int64_t literal_ = 0;
    SettledOperand settledTuple_;
};

#endif
