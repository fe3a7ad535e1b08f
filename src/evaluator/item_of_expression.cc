#include "evaluator/item_of_expression.h"

#include "evaluator/failure.h"
#include "registry/core_values.h"
#include "registry/tuple_definition.h"

namespace {

// The tuple type that a type is or derives from; null for a type that has no elements.
const TupleDefinition* TupleOf(const GuardType* type) {
    while (type != nullptr && type->tuple == nullptr) {
        type = type->parent;
    }
    return type == nullptr ? nullptr : type->tuple;
}

}  // namespace

void ItemOfExpression::Bind(Expression* it, StackAllocatorBase& allocator) {
    index_->Bind(it, allocator);
    tuple_->Bind(it, allocator);
    const int64_t* literal = index_->IntegerLiteral();
    if (literal == nullptr) {
        throw TupleIndexNotAnIntegerLiteral();
    }
    literal_ = *literal;
    if (literal_ >> 32 != 0) {
        throw TupleIndexOutOfRange(literal_);
    }
    const TupleDefinition* definition = TupleOf(tuple_->Type());
    for (int64_t i = 0; i < literal_ && definition != nullptr; ++i) {
        definition = TupleOf(definition->restType);
    }
    if (definition == nullptr) {
        throw TupleIndexOutOfRange(literal_);
    }
    type_ = definition->firstType;
    byParts_ = tuple_->CanFingerprint();
    completeDependencies_ = tuple_->HasCompleteDependencies();
    settled_ = tuple_->IsSettled();
    settledTuple_.Bind(tuple_);
}

void* ItemOfExpression::Element(const void* tuple) const {
    const auto* node = static_cast<const TupleNode*>(tuple);
    for (int64_t i = 0; i < literal_; ++i) {
        node = static_cast<const TupleNode*>(node->rest);
    }
    return const_cast<void*>(node->first);
}

void ItemOfExpression::TakeElement(TentativeValue& tuple) {
    if (tuple_->Value() != nullptr) {
        slot_.value = Element(tuple_->Value());
        tuple.Release();
    }
}

inline EvaluationStatus ItemOfExpression::FirstSettled() {
    slot_.value = nullptr;
    const void* tuple = nullptr;
    const EvaluationStatus status = settledTuple_.Take(tuple);
    if (status == StatusOk) {
        slot_.value = Element(tuple);
    }
    return status;
}

template <class Steps>
EvaluationStatus ItemOfExpression::First(const Steps& steps) {
    if (!Steps::kFingerprinting && settled_) {
        return FirstSettled();
    }
    slot_.value = nullptr;
    TentativeValue tuple(tuple_);
    const EvaluationStatus status = steps.First(tuple);
    if (status == StatusOk) {
        TakeElement(tuple);
    }
    return status;
}

template <class Steps>
EvaluationStatus ItemOfExpression::Next(const Steps& steps) {
    slot_.value = nullptr;
    TentativeValue tuple(tuple_);
    const EvaluationStatus status = steps.Next(tuple);
    if (status == StatusOk) {
        TakeElement(tuple);
    }
    return status;
}

template <class Steps>
EvaluationStatus ItemOfExpression::Stop(const Steps& steps) {
    slot_.value = nullptr;
    return steps.Finish(tuple_);
}

EvaluationStatus ItemOfExpression::Replay(Fingerprinter& fingerprinter, EvaluationPath& path) {
    return tuple_->AddFingerprint(fingerprinter, path);
}

template class SteppedExpression<ItemOfExpression>;
