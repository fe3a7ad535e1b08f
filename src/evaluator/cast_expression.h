// Casts: the written `e as t`, which skips values that do not convert, and the conversion that the caller of an
// expression adds, which is strict.
#ifndef EVALUATOR_CAST_EXPRESSION_H
#define EVALUATOR_CAST_EXPRESSION_H

#include <string_view>

#include "evaluator/stepped_expression.h"

class ConversionBase : public SteppedExpression<ConversionBase> {
public:
    void AddDependencies(Fingerprinter& fingerprinter) final;

    // Binds the operand and then the cast on its type.
    void Bind(Expression* it, StackAllocatorBase& allocator) final;

    // Finds the cast on the operand's type, where the operand is bound already.
    // Throws OperationNotDefined and InspectorBlacklisted.
    void BindCast(StackAllocatorBase& allocator);

protected:
    // The name's bytes must live as long as the node.
    ConversionBase(Expression* operand, std::string_view name, bool strict)
        : SteppedExpression(operand), operand_(operand), name_(name), strict_(strict) {}

private:
    friend class SteppedExpression<ConversionBase>;

    template <class Steps>
    EvaluationStatus First(const Steps& steps);
    template <class Steps>
    EvaluationStatus Next(const Steps& steps);
    template <class Steps>
    EvaluationStatus Stop(const Steps& steps);
    EvaluationStatus Replay(Fingerprinter& fingerprinter, EvaluationPath& path);
    template <class Steps>
    EvaluationStatus FirstConverted(const Steps& steps, TentativeValue& operand);

    Expression* operand_;
    std::string_view name_;
    EvaluationStatus FirstSettled();

    const CastDefinition* cast_ = nullptr;
    SettledOperand settledOperand_;
    bool strict_;
};

class CastExpression final : public ConversionBase {
public:
    CastExpression(Expression* operand, std::string_view name) : ConversionBase(operand, name, false) {}
};

class ImplicitConversion final : public ConversionBase {
public:
    ImplicitConversion(Expression* operand, std::string_view name) : ConversionBase(operand, name, true) {}
};

extern template class SteppedExpression<ConversionBase>;

#endif
