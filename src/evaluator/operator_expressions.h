// Operators: a function of one or two singular operands.
//
// The operands stay parked while the result is held; that an operand has a second value is found when the node is asked
// for its own next value, and not before.
#ifndef EVALUATOR_OPERATOR_EXPRESSIONS_H
#define EVALUATOR_OPERATOR_EXPRESSIONS_H

#include "evaluator/stepped_expression.h"

class UnaryExpression : public SteppedExpression<UnaryExpression> {
public:
    void AddDependencies(Fingerprinter& fingerprinter) final;
    void Bind(Expression* it, StackAllocatorBase& allocator) final;

protected:
    explicit UnaryExpression(Expression* operand) : SteppedExpression(operand), operand_(operand) {}

    // Finds the definition for the bound operand and requires what it requires of it.
    virtual const UnaryAccessor* ResolveOperator() = 0;

    Expression* operand_;

private:
    friend class SteppedExpression<UnaryExpression>;

    template <class Steps>
    EvaluationStatus First(const Steps& steps);
    template <class Steps>
    EvaluationStatus Next(const Steps& steps);
    template <class Steps>
    EvaluationStatus Stop(const Steps& steps);
    EvaluationStatus Replay(Fingerprinter& fingerprinter, EvaluationPath& path);

    EvaluationStatus FirstSettled();

    const UnaryAccessor* definition_ = nullptr;
    SettledOperand settledOperand_;
};

class UnaryOperatorExpression final : public UnaryExpression {
public:
    UnaryOperatorExpression(int code, Expression* operand) : UnaryExpression(operand), code_(code) {}

private:
    const UnaryAccessor* ResolveOperator() override;
    int code_;
};

// `not`, whose definition is its own.
class LogicalNotExpression final : public UnaryExpression {
public:
    explicit LogicalNotExpression(Expression* operand) : UnaryExpression(operand) {}

private:
    const UnaryAccessor* ResolveOperator() override;
    UnaryAccessor negation_{};
};

class BinaryOperatorExpression final : public SteppedExpression<BinaryOperatorExpression> {
public:
    BinaryOperatorExpression(int code, Expression* left, Expression* right)
        : SteppedExpression(left, right), left_(left), right_(right), code_(code) {}

    void AddDependencies(Fingerprinter& fingerprinter) override;
    void Bind(Expression* it, StackAllocatorBase& allocator) override;

private:
    friend class SteppedExpression<BinaryOperatorExpression>;

    template <class Steps>
    EvaluationStatus First(const Steps& steps);
    template <class Steps>
    EvaluationStatus Next(const Steps& steps);
    template <class Steps>
    EvaluationStatus Stop(const Steps& steps);
    EvaluationStatus Replay(Fingerprinter& fingerprinter, EvaluationPath& path);

    EvaluationStatus FirstSettled();

    Expression* left_;
    Expression* right_;
    const BinaryAccessor* definition_ = nullptr;
    int code_;
    SettledOperand settledLeft_;
    SettledOperand settledRight_;
};

extern template class SteppedExpression<UnaryExpression>;

extern template class SteppedExpression<BinaryOperatorExpression>;

#endif
