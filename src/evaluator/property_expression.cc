#include "evaluator/property_expression.h"

#include "evaluator/calls.h"
#include "evaluator/failure.h"
#include "evaluator/inspector_context.h"
#include "registry/type_registry.h"

PropertyExpression::PropertyExpression(std::string_view phrase, Expression* index, Expression* object)
    : SteppedExpression(index != nullptr ? index : object), phrase_(phrase), index_(index), object_(object) {}

PropertyExpression::~PropertyExpression() {
    if (state_ != nullptr) {
        try {
            accessor_->destroyState(state_);
        } catch (...) {
        }
    }
}

void PropertyExpression::Bind(Expression* it, StackAllocatorBase& allocator) {
    memory_ = &allocator;
    Driver()->Bind(it, allocator);
    const GuardType* worldType = TypeRegistry::Instance().WorldType();
    LookUp(index_ != nullptr ? index_->Type() : worldType, object_ != nullptr ? object_->Type() : worldType);
    type_ = accessor_->resultType;
    slot_.Reserve(type_, allocator);
    ConstructState(allocator);
    byParts_ = accessor_->dependencies != nullptr && Driver()->CanFingerprint();
    completeDependencies_ = accessor_->dependencies != nullptr && Driver()->HasCompleteDependencies();
    indexArgument_ = (index_ != nullptr ? index_ : object_)->ValuePlace();
    objectArgument_ = (object_ != nullptr ? object_ : index_)->ValuePlace();
}

// An aggregating property is told nothing by an operand that never has a value but that there is none, whatever type
// of values it would have taken; so it is found over any type, and its operand may be empty.
void PropertyExpression::LookUp(const GuardType* indexType, const GuardType* objectType) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    const PropertyAssociation* row = nullptr;
    try {
        row = &registry.Property(objectType, phrase_, indexType);
    } catch (const OperationNotDefined&) {
        if (objectType == registry.UndefinedType()) {
            row = registry.AggregateOfAnyType(phrase_, indexType);
        }
        if (row == nullptr) {
            throw;
        }
        if (row->blacklisted) {
            throw InspectorBlacklisted(TypeRegistry::Key(*row));
        }
        object_->ForcePlural();
        Driver()->ForcePlural();
    }
    accessor_ = row->accessor;
    plural_ = plural_ || row->isPlural;
}

void PropertyExpression::ConstructState(StackAllocatorBase& allocator) {
    if (accessor_->stateSize <= 1 && accessor_->constructState == PropertyAccessor::NoConstructor &&
        accessor_->destroyState == PropertyAccessor::NoDestructor) {
        return;
    }
    void* memory = allocator.Allocate(accessor_->stateSize, accessor_->stateAlignment);
    accessor_->constructState(memory);
    state_ = memory;
}

inline bool PropertyExpression::Call(StageFunction stage) {
    if (!CallStage(stage, slot_.storage, *indexArgument_, *objectArgument_, state_, accessor_->data)) {
        return false;
    }
    slot_.value = slot_.storage;
    return true;
}

inline bool PropertyExpression::CallAtMark(StageFunction stage) {
    mark_ = memory_->Top();
    if (Call(stage)) {
        return true;
    }
    memory_->ReleaseTo(mark_);
    return false;
}

bool PropertyExpression::CallOuter(StageFunction stage) {
    if (stage == nullptr || !CallStage(stage, slot_.storage, nullptr, nullptr, state_, accessor_->data)) {
        return false;
    }
    slot_.value = slot_.storage;
    return true;
}

// An interruption finds the value made and not yet delivered: it goes before the exception passes.
inline void PropertyExpression::CheckBeforeDelivery() {
    try {
        CheckForInterruption();
    } catch (...) {
        slot_.Clear();
        throw;
    }
}

// The step that most streams consist of, an iterator's next value: the driver stays as it is, and is stopped only where
// the iterator fails.
EvaluationStatus PropertyExpression::NextIterated() {
    slot_.Clear();
    memory_->ReleaseTo(mark_);
    try {
        if (Call(accessor_->nextMiddle)) {
            CheckBeforeDelivery();
            return StatusOk;
        }
    } catch (...) {
        TentativeValue(Driver()).Abandon();
        throw;
    }
    TentativeValue driver(Driver());
    const PlainSteps steps;
    EvaluationStatus status = steps.Next(driver);
    bool found = false;
    if (status == StatusOk) {
        status = MiddleFrom(steps, found, driver);
    }
    if (status != StatusOk) {
        return status;
    }
    if (found) {
        driver.Release();
        return StatusOk;
    }
    return RunStages(steps, driver);
}

EvaluationStatus PropertyExpression::TryFirstInitial(bool& found) {
    mark_ = memory_->Top();
    found = CallOuter(accessor_->firstInitial);
    stage_ = found ? Stage::NextInitial : Stage::FirstMiddle;
    return StatusOk;
}

EvaluationStatus PropertyExpression::TryNextInitial(bool& found) {
    found = CallOuter(accessor_->nextInitial);
    if (found) {
        CheckBeforeDelivery();
    } else {
        stage_ = Stage::FirstMiddle;
    }
    return StatusOk;
}

// Goes on from the driver's current value to the first for which the property has one.
template <class Steps>
EvaluationStatus PropertyExpression::MiddleFrom(const Steps& steps, bool& found, TentativeValue& driver) {
    while (driver.expression->Value() != nullptr) {
        if (CallAtMark(accessor_->firstMiddle)) {
            found = true;
            stage_ = Stage::NextMiddle;
            return StatusOk;
        }
        const EvaluationStatus status = steps.Next(driver);
        if (status != StatusOk) {
            return status;
        }
    }
    stage_ = accessor_->firstFinal != nullptr ? Stage::FirstFinal : Stage::None;
    return StatusOk;
}

template <class Steps>
EvaluationStatus PropertyExpression::TryFirstMiddle(const Steps& steps, bool& found, TentativeValue& driver) {
    const EvaluationStatus status = steps.First(driver);
    return status != StatusOk ? status : MiddleFrom(steps, found, driver);
}

template <class Steps>
EvaluationStatus PropertyExpression::TryNextMiddle(const Steps& steps, bool& found, TentativeValue& driver) {
    if (accessor_->iterated && Call(accessor_->nextMiddle)) {
        CheckBeforeDelivery();
        found = true;
        return StatusOk;
    }
    const EvaluationStatus status = steps.Next(driver);
    return status != StatusOk ? status : MiddleFrom(steps, found, driver);
}

EvaluationStatus PropertyExpression::TryFirstFinal(bool& found) {
    mark_ = memory_->Top();
    found = CallOuter(accessor_->firstFinal);
    stage_ = found ? Stage::NextFinal : Stage::None;
    return StatusOk;
}

EvaluationStatus PropertyExpression::TryNextFinal(bool& found) {
    found = CallOuter(accessor_->nextFinal);
    if (found) {
        CheckBeforeDelivery();
    } else {
        stage_ = Stage::None;
    }
    return StatusOk;
}

template <class Steps>
EvaluationStatus PropertyExpression::RunStages(const Steps& steps, TentativeValue& driver) {
    bool found = false;
    while (stage_ != Stage::None) {
        EvaluationStatus status = StatusOk;
        switch (stage_) {
            case Stage::FirstInitial:
                status = TryFirstInitial(found);
                break;
            case Stage::NextInitial:
                status = TryNextInitial(found);
                break;
            case Stage::FirstMiddle:
                status = TryFirstMiddle(steps, found, driver);
                break;
            case Stage::NextMiddle:
                status = TryNextMiddle(steps, found, driver);
                break;
            case Stage::FirstFinal:
                status = TryFirstFinal(found);
                break;
            case Stage::NextFinal:
                status = TryNextFinal(found);
                break;
            case Stage::None:
                break;
        }
        if (status != StatusOk) {
            return status;
        }
        if (found) {
            driver.Release();
            return StatusOk;
        }
    }
    return StatusOk;
}

template <class Steps>
EvaluationStatus PropertyExpression::First(const Steps& steps) {
    slot_.value = nullptr;
    steps.AddDependencies(accessor_->dependencies);
    stage_ = accessor_->firstInitial != nullptr ? Stage::FirstInitial : Stage::FirstMiddle;
    TentativeValue driver(Driver());
    return RunStages(steps, driver);
}

template <class Steps>
EvaluationStatus PropertyExpression::Next(const Steps& steps) {
    if (!Steps::kFingerprinting && stage_ == Stage::NextMiddle && accessor_->iterated) {
        return NextIterated();
    }
    slot_.Clear();
    memory_->ReleaseTo(mark_);
    TentativeValue driver(Driver());
    return RunStages(steps, driver);
}

template <class Steps>
EvaluationStatus PropertyExpression::Stop(const Steps& steps) {
    stage_ = Stage::None;
    slot_.Clear();
    return Driver()->Value() != nullptr ? steps.Finish(Driver()) : StatusOk;
}

void PropertyExpression::AddDependencies(Fingerprinter& fingerprinter) {
    if (accessor_->dependencies != nullptr) {
        accessor_->dependencies(fingerprinter);
    }
    Driver()->AddDependencies(fingerprinter);
}

EvaluationStatus PropertyExpression::Replay(Fingerprinter& fingerprinter, EvaluationPath& path) {
    accessor_->dependencies(fingerprinter);
    return Driver()->AddFingerprint(fingerprinter, path);
}

template class SteppedExpression<PropertyExpression>;
