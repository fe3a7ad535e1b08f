#include "evaluator/operator_expressions.h"

#include <new>

#include "evaluator/calls.h"
#include "evaluator/failure.h"
#include "registry/core_values.h"
#include "registry/type_registry.h"

void UnaryExpression::Bind(Expression* it, StackAllocatorBase& allocator) {
    operand_->Bind(it, allocator);
    definition_ = ResolveOperator();
    type_ = definition_->resultType;
    slot_.Reserve(type_, allocator);
    byParts_ = definition_->dependencies != nullptr && operand_->CanFingerprint();
    completeDependencies_ = definition_->dependencies != nullptr && operand_->HasCompleteDependencies();
    settled_ = operand_->IsSettled() && slot_.destroy == nullptr;
    settledOperand_.Bind(operand_);
}

inline EvaluationStatus UnaryExpression::FirstSettled() {
    slot_.value = nullptr;
    const void* operand = nullptr;
    const EvaluationStatus status = settledOperand_.Take(operand);
    if (status == StatusOk && CallThunk(definition_->thunk, slot_.storage, operand, definition_->data)) {
        slot_.value = slot_.storage;
    }
    return status;
}

template <class Steps>
EvaluationStatus UnaryExpression::First(const Steps& steps) {
    if (!Steps::kFingerprinting && settled_) {
        return FirstSettled();
    }
    slot_.value = nullptr;
    steps.AddDependencies(definition_->dependencies);
    TentativeValue operand(operand_);
    const EvaluationStatus status = steps.First(operand);
    if (status != StatusOk) {
        return status;
    }
    if (CallThunk(definition_->thunk, slot_.storage, operand_->Value(), definition_->data)) {
        slot_.value = slot_.storage;
        operand.Release();
    }
    return StatusOk;
}

template <class Steps>
EvaluationStatus UnaryExpression::Next(const Steps& steps) {
    slot_.Clear();
    return steps.Finish(operand_);
}

template <class Steps>
EvaluationStatus UnaryExpression::Stop(const Steps& steps) {
    return Next(steps);
}

void UnaryExpression::AddDependencies(Fingerprinter& fingerprinter) {
    if (definition_->dependencies != nullptr) {
        definition_->dependencies(fingerprinter);
    }
    operand_->AddDependencies(fingerprinter);
}

EvaluationStatus UnaryExpression::Replay(Fingerprinter& fingerprinter, EvaluationPath& path) {
    definition_->dependencies(fingerprinter);
    return operand_->AddFingerprint(fingerprinter, path);
}

const UnaryAccessor* UnaryOperatorExpression::ResolveOperator() {
    if (operand_->IsPlural()) {
        throw SingularExpressionRequired();
    }
    return &TypeRegistry::Instance().UnaryOperator(operand_->Type(), code_);
}

const UnaryAccessor* LogicalNotExpression::ResolveOperator() {
    const GuardType* booleanType = TypeRegistry::Instance().BooleanType();
    if (!operand_->Type()->IsA(booleanType)) {
        throw BooleanExpressionRequired();
    }
    if (operand_->IsPlural()) {
        throw SingularExpressionRequired();
    }
    negation_.thunk = [](void* result, const void* operand, const void*) {
        if (result != nullptr) {
            new (result) boolean(!*static_cast<const boolean*>(operand));
        }
        return true;
    };
    negation_.dependencies = DependsOnlyOnParameters;
    negation_.resultType = booleanType;
    return &negation_;
}

void BinaryOperatorExpression::Bind(Expression* it, StackAllocatorBase& allocator) {
    left_->Bind(it, allocator);
    right_->Bind(it, allocator);
    if (left_->IsPlural() || right_->IsPlural()) {
        throw SingularExpressionRequired();
    }
    definition_ = &TypeRegistry::Instance().BinaryOperator(left_->Type(), code_, right_->Type());
    type_ = definition_->resultType;
    slot_.Reserve(type_, allocator);
    byParts_ = definition_->dependencies != nullptr && left_->CanFingerprint() && right_->CanFingerprint();
    completeDependencies_ =
        definition_->dependencies != nullptr && left_->HasCompleteDependencies() && right_->HasCompleteDependencies();
    settled_ = left_->IsSettled() && right_->IsSettled() && slot_.destroy == nullptr;
    settledLeft_.Bind(left_);
    settledRight_.Bind(right_);
}

inline EvaluationStatus BinaryOperatorExpression::FirstSettled() {
    slot_.value = nullptr;
    const void* left = nullptr;
    const void* right = nullptr;
    EvaluationStatus status = settledLeft_.Take(left);
    if (status != StatusOk) {
        return status;
    }
    status = settledRight_.Take(right);
    if (status == StatusOk && CallThunk(definition_->thunk, slot_.storage, left, right, definition_->data)) {
        slot_.value = slot_.storage;
    }
    return status;
}

template <class Steps>
EvaluationStatus BinaryOperatorExpression::First(const Steps& steps) {
    if (!Steps::kFingerprinting && settled_) {
        return FirstSettled();
    }
    slot_.value = nullptr;
    steps.AddDependencies(definition_->dependencies);
    TentativeValue left(left_);
    EvaluationStatus status = steps.First(left);
    if (status != StatusOk) {
        return status;
    }
    steps.AddByte('+');
    TentativeValue right(right_);
    status = steps.First(right);
    if (status != StatusOk) {
        return status;
    }
    if (CallThunk(definition_->thunk, slot_.storage, left_->Value(), right_->Value(), definition_->data)) {
        slot_.value = slot_.storage;
        left.Release();
        right.Release();
    }
    return StatusOk;
}

// The left operand is finished even where finishing the right one gave a status.
template <class Steps>
EvaluationStatus BinaryOperatorExpression::Next(const Steps& steps) {
    slot_.Clear();
    TentativeValue left(left_);
    const EvaluationStatus rightStatus = steps.Finish(right_);
    const EvaluationStatus leftStatus = steps.Finish(left);
    return rightStatus != StatusOk ? rightStatus : leftStatus;
}

template <class Steps>
EvaluationStatus BinaryOperatorExpression::Stop(const Steps& steps) {
    return Next(steps);
}

void BinaryOperatorExpression::AddDependencies(Fingerprinter& fingerprinter) {
    if (definition_->dependencies != nullptr) {
        definition_->dependencies(fingerprinter);
    }
    left_->AddDependencies(fingerprinter);
    right_->AddDependencies(fingerprinter);
}

EvaluationStatus BinaryOperatorExpression::Replay(Fingerprinter& fingerprinter, EvaluationPath& path) {
    definition_->dependencies(fingerprinter);
    const EvaluationStatus status = left_->AddFingerprint(fingerprinter, path);
    if (status != StatusOk) {
        return status;
    }
    fingerprinter.AddByte('+');
    return right_->AddFingerprint(fingerprinter, path);
}

template class SteppedExpression<UnaryExpression>;

template class SteppedExpression<BinaryOperatorExpression>;
