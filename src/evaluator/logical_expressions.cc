#include "evaluator/logical_expressions.h"

#include "evaluator/failure.h"
#include "registry/type_registry.h"

void RequireCondition(const Expression* operand) {
    if (!operand->Type()->IsA(TypeRegistry::Instance().BooleanType())) {
        throw BooleanExpressionRequired();
    }
    if (operand->IsPlural()) {
        throw SingularExpressionRequired();
    }
}

void BinaryLogicalExpression::Bind(Expression* it, StackAllocatorBase& allocator) {
    left_->Bind(it, allocator);
    right_->Bind(it, allocator);
    RequireCondition(left_);
    RequireCondition(right_);
    type_ = TypeRegistry::Instance().BooleanType();
    byParts_ = left_->CanFingerprint() && right_->CanFingerprint();
    completeDependencies_ = left_->HasCompleteDependencies() && right_->HasCompleteDependencies();
    settled_ = left_->IsSettled() && right_->IsSettled();
}

template <class Steps>
EvaluationStatus BinaryLogicalExpression::First(const Steps& steps) {
    slot_.value = nullptr;
    EvaluationStatus status = ReadCondition(steps, left_, result_);
    if (status != StatusOk) {
        return status;
    }
    const bool rightNeeded = result_ != shortCircuitValue_;
    steps.Decide(rightNeeded);
    if (rightNeeded) {
        steps.AddByte(';');
        status = ReadCondition(steps, right_, result_);
        if (status != StatusOk) {
            return status;
        }
    }
    slot_.value = &result_;
    return StatusOk;
}

EvaluationStatus BinaryLogicalExpression::TryNext() {
    slot_.value = nullptr;
    return StatusOk;
}

EvaluationStatus BinaryLogicalExpression::TryFirst() { return First(PlainSteps()); }

EvaluationStatus BinaryLogicalExpression::TryFirstFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) {
    return byParts_ ? First(FingerprintedSteps{fingerprinter, path})
                    : Expression::TryFirstFingerprinted(fingerprinter, path);
}

EvaluationStatus BinaryLogicalExpression::TryNextFingerprinted(Fingerprinter& fingerprinter, EvaluationPath& path) {
    return byParts_ ? TryNext() : Expression::TryNextFingerprinted(fingerprinter, path);
}

void BinaryLogicalExpression::AddDependencies(Fingerprinter& fingerprinter) {
    left_->AddDependencies(fingerprinter);
    right_->AddDependencies(fingerprinter);
}

EvaluationStatus BinaryLogicalExpression::AddFingerprint(Fingerprinter& fingerprinter, EvaluationPath& path) {
    if (!byParts_) {
        return Expression::AddFingerprint(fingerprinter, path);
    }
    const EvaluationStatus status = left_->AddFingerprint(fingerprinter, path);
    if (status != StatusOk || !path.Read()) {
        return status;
    }
    fingerprinter.AddByte(';');
    return right_->AddFingerprint(fingerprinter, path);
}
