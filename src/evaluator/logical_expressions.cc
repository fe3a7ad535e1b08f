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

// One value at most was given, and it is the node's own.
template <class Steps>
EvaluationStatus BinaryLogicalExpression::Next(const Steps&) {
    slot_.value = nullptr;
    return StatusOk;
}

template <class Steps>
EvaluationStatus BinaryLogicalExpression::Stop(const Steps& steps) {
    return Next(steps);
}

void BinaryLogicalExpression::AddDependencies(Fingerprinter& fingerprinter) {
    left_->AddDependencies(fingerprinter);
    right_->AddDependencies(fingerprinter);
}

EvaluationStatus BinaryLogicalExpression::Replay(Fingerprinter& fingerprinter, EvaluationPath& path) {
    const EvaluationStatus status = left_->AddFingerprint(fingerprinter, path);
    if (status != StatusOk || !path.Read()) {
        return status;
    }
    fingerprinter.AddByte(';');
    return right_->AddFingerprint(fingerprinter, path);
}

template class SteppedExpression<BinaryLogicalExpression>;
