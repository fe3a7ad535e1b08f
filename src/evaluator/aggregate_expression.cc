#include "evaluator/aggregate_expression.h"

#include "registry/type_registry.h"

const GuardType* ExistsExpression::AggregateType() const { return TypeRegistry::Instance().BooleanType(); }

const GuardType* NumberOfExpression::AggregateType() const { return TypeRegistry::Instance().IntegerType(); }

void AggregateExpression::Bind(Expression* it, StackAllocatorBase& allocator) {
    operand_->Bind(it, allocator);
    operand_->ForcePlural();
    type_ = AggregateType();
    byParts_ = operand_->CanFingerprint();
    completeDependencies_ = operand_->HasCompleteDependencies();
}

template <class Steps>
EvaluationStatus AggregateExpression::First(const Steps& steps) {
    slot_.value = nullptr;
    void* accumulator = AggregateStart();
    TentativeValue operand(operand_);
    EvaluationStatus status = steps.First(operand);
    while (status == StatusOk && operand_->Value() != nullptr) {
        if (AggregateStep()) {
            status = steps.Finish(operand);
            break;
        }
        status = steps.Next(operand);
    }
    if (status == StatusOk) {
        slot_.value = accumulator;
    }
    return status;
}

// One value at most was given, and it is the node's own.
template <class Steps>
EvaluationStatus AggregateExpression::Next(const Steps&) {
    slot_.value = nullptr;
    return StatusOk;
}

template <class Steps>
EvaluationStatus AggregateExpression::Stop(const Steps& steps) {
    return Next(steps);
}

EvaluationStatus AggregateExpression::Replay(Fingerprinter& fingerprinter, EvaluationPath& path) {
    return operand_->AddFingerprint(fingerprinter, path);
}

template class SteppedExpression<AggregateExpression>;
