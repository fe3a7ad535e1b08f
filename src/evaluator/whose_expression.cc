#include "evaluator/whose_expression.h"

#include "evaluator/failure.h"
#include "evaluator/inspector_context.h"
#include "registry/core_values.h"
#include "registry/type_registry.h"

namespace {

constexpr unsigned kStepsPerCheck = 256;

}  // namespace

void WhoseExpression::Bind(Expression* it, StackAllocatorBase& allocator) {
    memory_ = &allocator;
    filtered_->Bind(it, allocator);
    condition_->Bind(filtered_->ItSource(), allocator);
    if (!condition_->Type()->IsA(TypeRegistry::Instance().BooleanType())) {
        throw BooleanExpressionRequired();
    }
    settledCondition_.Bind(condition_);
    type_ = filtered_->Type();
    plural_ = plural_ || filtered_->IsPlural();
    filtered_->ForcePlural();
    byParts_ = condition_->HasCompleteDependencies() && filtered_->CanFingerprint();
    completeDependencies_ = condition_->HasCompleteDependencies() && filtered_->HasCompleteDependencies();
}

bool WhoseExpression::AllValuesHold() {
    TentativeValue condition(condition_);
    EvaluationStatus status = condition.TryFirst();
    for (unsigned steps = 1; status == StatusOk && condition_->Value() != nullptr; ++steps) {
        if (!*static_cast<const boolean*>(condition_->Value())) {
            return false;
        }
        status = condition.TryNext();
        if (steps % kStepsPerCheck == 0) {
            CheckForInterruption();
        }
    }
    return status == StatusOk;
}

inline bool WhoseExpression::SettledConditionHolds() {
    const void* value = nullptr;
    return settledCondition_.Take(value) == StatusOk && *static_cast<const boolean*>(value);
}

inline bool WhoseExpression::ConditionHolds() {
    char* const mark = memory_->Top();
    bool holds = false;
    try {
        holds = condition_->IsSettled() ? SettledConditionHolds() : AllValuesHold();
    } catch (const InspectorInterruption&) {
        memory_->ReleaseTo(mark);
        throw;
    } catch (...) {
        holds = false;
    }
    memory_->ReleaseTo(mark);
    return holds;
}

// Goes on from the current candidate to the first that the condition accepts.
template <class Steps>
EvaluationStatus WhoseExpression::FirstAccepted(const Steps& steps, TentativeValue& filtered) {
    for (unsigned candidates = 1; filtered_->Value() != nullptr; ++candidates) {
        if (ConditionHolds()) {
            slot_.value = filtered_->Value();
            filtered.Release();
            return StatusOk;
        }
        if (candidates % kStepsPerCheck == 0) {
            CheckForInterruption();
        }
        const EvaluationStatus status = steps.Next(filtered);
        if (status != StatusOk) {
            return status;
        }
    }
    return StatusOk;
}

template <class Steps>
EvaluationStatus WhoseExpression::First(const Steps& steps) {
    slot_.value = nullptr;
    steps.AddDependenciesOf(condition_);
    TentativeValue filtered(filtered_);
    const EvaluationStatus status = steps.First(filtered);
    return status != StatusOk ? status : FirstAccepted(steps, filtered);
}

template <class Steps>
EvaluationStatus WhoseExpression::Next(const Steps& steps) {
    slot_.value = nullptr;
    TentativeValue filtered(filtered_);
    const EvaluationStatus status = steps.Next(filtered);
    return status != StatusOk ? status : FirstAccepted(steps, filtered);
}

template <class Steps>
EvaluationStatus WhoseExpression::Stop(const Steps& steps) {
    slot_.value = nullptr;
    return steps.Finish(filtered_);
}

void WhoseExpression::AddDependencies(Fingerprinter& fingerprinter) {
    condition_->AddDependencies(fingerprinter);
    filtered_->AddDependencies(fingerprinter);
}

EvaluationStatus WhoseExpression::Replay(Fingerprinter& fingerprinter, EvaluationPath& path) {
    condition_->AddDependencies(fingerprinter);
    return filtered_->AddFingerprint(fingerprinter, path);
}

template class SteppedExpression<WhoseExpression>;
