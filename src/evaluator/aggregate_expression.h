// `exists` and `number of`: one value made of how many there are.
//
// The operand is forced plural, so that it may have none or many; nothing else about it is forgiven.
#ifndef EVALUATOR_AGGREGATE_EXPRESSION_H
#define EVALUATOR_AGGREGATE_EXPRESSION_H

#include <limits>

#include "evaluator/stepped_expression.h"
#include "registry/core_values.h"

class AggregateExpression : public SteppedExpression<AggregateExpression> {
public:
    void AddDependencies(Fingerprinter& fingerprinter) final { operand_->AddDependencies(fingerprinter); }
    void Bind(Expression* it, StackAllocatorBase& allocator) final;

protected:
    explicit AggregateExpression(Expression* operand) : SteppedExpression(operand), operand_(operand) {}

    virtual const GuardType* AggregateType() const = 0;

    // Resets the accumulator and returns its address.
    virtual void* AggregateStart() = 0;

    // Takes one value; true where no more are wanted.
    virtual bool AggregateStep() = 0;

private:
    friend class SteppedExpression<AggregateExpression>;

    template <class Steps>
    EvaluationStatus First(const Steps& steps);
    template <class Steps>
    EvaluationStatus Next(const Steps& steps);
    template <class Steps>
    EvaluationStatus Stop(const Steps& steps);
    EvaluationStatus Replay(Fingerprinter& fingerprinter, EvaluationPath& path);

    Expression* operand_;
};

class ExistsExpression final : public AggregateExpression {
public:
    explicit ExistsExpression(Expression* operand) : AggregateExpression(operand) {}

private:
    const GuardType* AggregateType() const override;
    void* AggregateStart() override {
        exists_ = false;
        return &exists_;
    }
    bool AggregateStep() override {
        exists_ = true;
        return true;
    }

    boolean exists_ = false;
};

class NumberOfExpression final : public AggregateExpression {
public:
    explicit NumberOfExpression(Expression* operand) : AggregateExpression(operand) {}

private:
    const GuardType* AggregateType() const override;
    void* AggregateStart() override {
        count_ = 0;
        return &count_;
    }
    bool AggregateStep() override { return ++count_ == std::numeric_limits<int64_t>::max(); }

    int64_t count_ = 0;
};

extern template class SteppedExpression<AggregateExpression>;

#endif
