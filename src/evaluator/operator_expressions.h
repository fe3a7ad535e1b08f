// Operators: a function of one or two singular operands.
//
// The operands stay parked while the result is held; that an operand has a second value is found when the node is asked
// for its own next value, and not before.
#ifndef EVALUATOR_OPERATOR_EXPRESSIONS_H
#define EVALUATOR_OPERATOR_EXPRESSIONS_H

#include "evaluator/expression.h"

class UnaryExpression : public Expression {
public:
    EvaluationStatus TryFirst() final;
    EvaluationStatus TryNext() final;
    EvaluationStatus TryStop() final;
    EvaluationStatus TryFirstFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) final;
    EvaluationStatus TryNextFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) final;
    EvaluationStatus TryStopFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) final;
    void AddDependencies(Fingerprinter& fingerprinter) final;
    EvaluationStatus AddFingerprint(Fingerprinter& fingerprinter, EvaluationPath& path) final;
    void Bind(Expression* it, StackAllocatorBase& allocator) final;

protected:
    explicit UnaryExpression(Expression* operand) : Expression(operand), operand_(operand) {}

    // Finds the definition for the bound operand and requires what it requires of it.
    virtual const UnaryAccessor* ResolveOperator() = 0;

    Expression* operand_;

private:
    template <class Steps>
    EvaluationStatus First(const Steps& steps);
    template <class Steps>
    EvaluationStatus Next(const Steps& steps);

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

class BinaryOperatorExpression final : public Expression {
public:
    BinaryOperatorExpression(int code, Expression* left, Expression* right)
        : Expression(left, right), left_(left), right_(right), code_(code) {}

    EvaluationStatus TryFirst() override;
    EvaluationStatus TryNext() override;
    EvaluationStatus TryStop() override;
    EvaluationStatus TryFirstFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) override;
    EvaluationStatus TryNextFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) override;
    EvaluationStatus TryStopFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) override;
    void AddDependencies(Fingerprinter& fingerprinter) override;
    EvaluationStatus AddFingerprint(Fingerprinter& fingerprinter, EvaluationPath& path) override;
    void Bind(Expression* it, StackAllocatorBase& allocator) override;

private:
    template <class Steps>
    EvaluationStatus First(const Steps& steps);
    template <class Steps>
    EvaluationStatus Next(const Steps& steps);

    EvaluationStatus FirstSettled();

    Expression* left_;
    Expression* right_;
    const BinaryAccessor* definition_ = nullptr;
    int code_;
    SettledOperand settledLeft_;
    SettledOperand settledRight_;
};

#endif
