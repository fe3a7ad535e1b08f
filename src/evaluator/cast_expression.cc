#include "evaluator/cast_expression.h"

#include "evaluator/calls.h"
#include "registry/type_registry.h"

void ConversionBase::Bind(Expression* it, StackAllocatorBase& allocator) {
    operand_->Bind(it, allocator);
    BindCast(allocator);
}

void ConversionBase::BindCast(StackAllocatorBase& allocator) {
    cast_ = &TypeRegistry::Instance().Cast(operand_->Type(), name_);
    type_ = cast_->resultType;
    plural_ = plural_ || operand_->IsPlural();
    slot_.Reserve(type_, allocator);
    byParts_ = cast_->dependencies != nullptr && operand_->CanFingerprint();
    completeDependencies_ = cast_->dependencies != nullptr && operand_->HasCompleteDependencies();
    // A cast of plural items has no value, and no failure, where the one item does not convert.
    settled_ = operand_->IsSettled() && !operand_->IsPlural() && slot_.destroy == nullptr;
    settledOperand_.Bind(operand_);
}

inline EvaluationStatus ConversionBase::FirstSettled() {
    slot_.value = nullptr;
    const void* operand = nullptr;
    const EvaluationStatus status = settledOperand_.Take(operand);
    if (status != StatusOk) {
        return status;
    }
    if (CallThunk(cast_->thunk, slot_.storage, operand, cast_->data)) {
        slot_.value = slot_.storage;
        return StatusOk;
    }
    return strict_ ? StatusNotConverted : StatusOk;
}

// Goes on from the operand's current value to the first that converts.
template <class Steps>
EvaluationStatus ConversionBase::FirstConverted(const Steps& steps, TentativeValue& operand) {
    while (operand_->Value() != nullptr) {
        if (CallThunk(cast_->thunk, slot_.storage, operand_->Value(), cast_->data)) {
            slot_.value = slot_.storage;
            operand.Release();
            return StatusOk;
        }
        if (strict_) {
            return StatusNotConverted;
        }
        const EvaluationStatus status = steps.Next(operand);
        if (status != StatusOk) {
            return status;
        }
    }
    return StatusOk;
}

template <class Steps>
EvaluationStatus ConversionBase::First(const Steps& steps) {
    if (!Steps::kFingerprinting && settled_) {
        return FirstSettled();
    }
    slot_.value = nullptr;
    steps.AddDependencies(cast_->dependencies);
    TentativeValue operand(operand_);
    const EvaluationStatus status = steps.First(operand);
    return status != StatusOk ? status : FirstConverted(steps, operand);
}

template <class Steps>
EvaluationStatus ConversionBase::Next(const Steps& steps) {
    slot_.Clear();
    TentativeValue operand(operand_);
    const EvaluationStatus status = steps.Next(operand);
    return status != StatusOk ? status : FirstConverted(steps, operand);
}

template <class Steps>
EvaluationStatus ConversionBase::Stop(const Steps& steps) {
    slot_.Clear();
    return steps.Finish(operand_);
}

void ConversionBase::AddDependencies(Fingerprinter& fingerprinter) {
    if (cast_->dependencies != nullptr) {
        cast_->dependencies(fingerprinter);
    }
    operand_->AddDependencies(fingerprinter);
}

EvaluationStatus ConversionBase::Replay(Fingerprinter& fingerprinter, EvaluationPath& path) {
    cast_->dependencies(fingerprinter);
    return operand_->AddFingerprint(fingerprinter, path);
}

template class SteppedExpression<ConversionBase>;
