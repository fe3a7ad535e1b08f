#include "evaluator/if_expression.h"

#include <algorithm>

#include "evaluator/logical_expressions.h"

IfExpression::IfExpression(Expression* condition, Expression* thenBranch, Expression* elseBranch)
    : SteppedExpression(condition, thenBranch), condition_(condition), then_(thenBranch), else_(elseBranch) {
    depth_ = std::max(depth_, elseBranch->Depth() + 1);
}

bool IfExpression::BoundQuietly(Expression* branch, Expression* it, StackAllocatorBase& allocator) {
    try {
        branch->Bind(it, allocator);
        return true;
    } catch (...) {
        captured_ = CopyCurrentException();
        broken_ = branch;
        return false;
    }
}

void IfExpression::Bind(Expression* it, StackAllocatorBase& allocator) {
    condition_->Bind(it, allocator);
    RequireCondition(condition_);
    const Expression* whole = nullptr;
    if (!BoundQuietly(then_, it, allocator)) {
        else_->Bind(it, allocator);
        whole = else_;
    } else if (!BoundQuietly(else_, it, allocator)) {
        whole = then_;
    }
    if (whole != nullptr) {
        type_ = whole->Type();
        plural_ = plural_ || whole->IsPlural();
        return;
    }
    type_ = CommonType(then_->Type(), else_->Type());
    plural_ = plural_ || then_->IsPlural() || else_->IsPlural();
    byParts_ = condition_->CanFingerprint() && then_->CanFingerprint() && else_->CanFingerprint();
    completeDependencies_ =
        condition_->HasCompleteDependencies() && then_->HasCompleteDependencies() && else_->HasCompleteDependencies();
}

// The branch that the condition chooses; throws what was kept where that is the broken one.
Expression* IfExpression::Chosen(bool condition) const {
    Expression* branch = condition ? then_ : else_;
    if (branch == broken_) {
        captured_->Rethrow();
    }
    return branch;
}

template <class Steps>
EvaluationStatus IfExpression::First(const Steps& steps) {
    slot_.value = nullptr;
    boolean condition = false;
    EvaluationStatus status = ReadCondition(steps, condition_, condition);
    if (status != StatusOk) {
        return status;
    }
    steps.Decide(condition);
    chosen_ = Chosen(condition);
    steps.AddByte('?');
    TentativeValue branch(chosen_);
    status = steps.First(branch);
    if (status == StatusOk && chosen_->Value() != nullptr) {
        slot_.value = chosen_->Value();
        branch.Release();
    }
    return status;
}

template <class Steps>
EvaluationStatus IfExpression::Next(const Steps& steps) {
    slot_.value = nullptr;
    TentativeValue branch(chosen_);
    const EvaluationStatus status = steps.Next(branch);
    if (status == StatusOk && chosen_->Value() != nullptr) {
        slot_.value = chosen_->Value();
        branch.Release();
    }
    return status;
}

template <class Steps>
EvaluationStatus IfExpression::Stop(const Steps& steps) {
    slot_.value = nullptr;
    return steps.Finish(chosen_);
}

void IfExpression::AddDependencies(Fingerprinter& fingerprinter) {
    for (Expression* part : {condition_, then_, else_}) {
        if (part != broken_) {
            part->AddDependencies(fingerprinter);
        }
    }
}

EvaluationStatus IfExpression::Replay(Fingerprinter& fingerprinter, EvaluationPath& path) {
    const EvaluationStatus status = condition_->AddFingerprint(fingerprinter, path);
    if (status != StatusOk) {
        return status;
    }
    Expression* branch = Chosen(path.Read());
    fingerprinter.AddByte('?');
    return branch->AddFingerprint(fingerprinter, path);
}

template class SteppedExpression<IfExpression>;
