#include "evaluator/tuple_expression.h"

#include "registry/type_registry.h"

void TupleExpression::Bind(Expression* it, StackAllocatorBase& allocator) {
    left_->Bind(it, allocator);
    right_->Bind(it, allocator);
    type_ = TypeRegistry::Instance().TupleTypeFor(left_->Type(), right_->Type());
    plural_ = plural_ || left_->IsPlural() || right_->IsPlural();
    byParts_ = left_->CanFingerprint() && right_->CanFingerprint();
    completeDependencies_ = left_->HasCompleteDependencies() && right_->HasCompleteDependencies();
    settled_ = left_->IsSettled() && right_->IsSettled();
    leaf_ = right_->IsPlural() ? nullptr : right_->DirectValue();
}

// Pairs the left's current value, or the next one that has a right value, with the right's first.
template <class Steps>
EvaluationStatus TupleExpression::Pair(const Steps& steps, TentativeValue& left) {
    while (left_->Value() != nullptr) {
        TentativeValue right(right_);
        EvaluationStatus status = steps.First(right);
        if (status != StatusOk) {
            return status;
        }
        if (right_->Value() != nullptr) {
            pair_ = {left_->Value(), right_->Value()};
            slot_.value = &pair_;
            left.Release();
            right.Release();
            return StatusOk;
        }
        status = steps.Next(left);
        if (status != StatusOk) {
            return status;
        }
    }
    return StatusOk;
}

// A leaf on the right has one value for each of the left's and adds nothing to a fingerprint: it is paired without
// being asked.
inline EvaluationStatus TupleExpression::PairWithLeaf(EvaluationStatus status, TentativeValue& left) {
    if (status == StatusOk && left_->Value() != nullptr) {
        pair_ = {left_->Value(), *leaf_};
        slot_.value = &pair_;
        left.Release();
    }
    return status;
}

template <class Steps>
EvaluationStatus TupleExpression::First(const Steps& steps) {
    slot_.value = nullptr;
    TentativeValue left(left_);
    const EvaluationStatus status = steps.First(left);
    if (leaf_ != nullptr) {
        return PairWithLeaf(status, left);
    }
    return status != StatusOk ? status : Pair(steps, left);
}

template <class Steps>
EvaluationStatus TupleExpression::Next(const Steps& steps) {
    slot_.value = nullptr;
    TentativeValue left(left_);
    if (leaf_ != nullptr) {
        return PairWithLeaf(steps.Next(left), left);
    }
    {
        TentativeValue right(right_);
        const EvaluationStatus status = steps.Next(right);
        if (status != StatusOk) {
            return status;
        }
        if (right_->Value() != nullptr) {
            pair_.rest = right_->Value();
            slot_.value = &pair_;
            left.Release();
            right.Release();
            return StatusOk;
        }
    }
    const EvaluationStatus status = steps.Next(left);
    return status != StatusOk ? status : Pair(steps, left);
}

template <class Steps>
EvaluationStatus TupleExpression::Stop(const Steps& steps) {
    slot_.value = nullptr;
    if (leaf_ != nullptr) {
        return steps.Finish(left_);
    }
    TentativeValue left(left_);
    const EvaluationStatus rightStatus = steps.Finish(right_);
    const EvaluationStatus leftStatus = steps.Finish(left);
    return rightStatus != StatusOk ? rightStatus : leftStatus;
}

void TupleExpression::AddDependencies(Fingerprinter& fingerprinter) {
    left_->AddDependencies(fingerprinter);
    right_->AddDependencies(fingerprinter);
}

EvaluationStatus TupleExpression::Replay(Fingerprinter& fingerprinter, EvaluationPath& path) {
    const EvaluationStatus status = left_->AddFingerprint(fingerprinter, path);
    return status != StatusOk ? status : right_->AddFingerprint(fingerprinter, path);
}

template class SteppedExpression<TupleExpression>;
