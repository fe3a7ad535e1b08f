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

EvaluationStatus AggregateExpression::TryNext() {
    slot_.value = nullptr;
    return StatusOk;
}

EvaluationStatus AggregateExpression::TryFirst() { return First(PlainSteps()); }

EvaluationStatus AggregateExpression::TryFirstFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) {
    return byParts_ ? First(FingerprintedSteps{fingerprinter, path})
                    : Expression::TryFirstFingerprinted(fingerprinter, path);
}

EvaluationStatus AggregateExpression::TryNextFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) {
    return byParts_ ? TryNext() : Expression::TryNextFingerprinted(fingerprinter, path);
}

EvaluationStatus AggregateExpression::AddFingerprint(Fingerprinter& fingerprinter, EvaluationPath& path) {
    return byParts_ ? operand_->AddFingerprint(fingerprinter, path) : Expression::AddFingerprint(fingerprinter, path);
}
