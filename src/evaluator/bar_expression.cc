#include "evaluator/bar_expression.h"

#include "evaluator/failure.h"
#include "evaluator/stepped_expression.h"

void BarExpression::Bind(Expression* it, StackAllocatorBase& allocator) {
    left_->Bind(it, allocator);
    right_->Bind(it, allocator);
    if (left_->IsPlural() || right_->IsPlural()) {
        throw SingularExpressionRequired();
    }
    type_ = CommonType(left_->Type(), right_->Type());
    completeDependencies_ = left_->HasCompleteDependencies() && right_->HasCompleteDependencies();
}

// The first step of the left side, with every trouble swallowed; true where it left a value.
bool BarExpression::LeftHasFirst() {
    try {
        TentativeValue hold(left_);
        if (hold.TryFirst() != StatusOk) {
            return false;
        }
        hold.Release();
        return true;
    } catch (...) {
        return false;
    }
}

EvaluationStatus BarExpression::TryFirst() {
    slot_.value = nullptr;
    if (LeftHasFirst()) {
        slot_.value = left_->Value();
        return StatusOk;
    }
    TentativeValue hold(right_);
    const EvaluationStatus status = hold.TryFirst();
    if (status == StatusOk) {
        slot_.value = right_->Value();
        hold.Release();
    }
    return status;
}

EvaluationStatus BarExpression::TryNext() {
    slot_.value = nullptr;
    return PlainSteps::Finish(left_->Value() != nullptr ? left_ : right_);
}

void BarExpression::AddDependencies(Fingerprinter& fingerprinter) {
    left_->AddDependencies(fingerprinter);
    right_->AddDependencies(fingerprinter);
}
