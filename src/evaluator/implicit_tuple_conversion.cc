#include "evaluator/implicit_tuple_conversion.h"

#include <new>

#include "evaluator/calls.h"
#include "evaluator/failure.h"
#include "evaluator/stepped_expression.h"
#include "registry/type_registry.h"

namespace {

bool IsKept(const GuardType* type, const GuardType* const* kept, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        if (type->IsA(kept[i])) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool ImplicitTupleConversion::HasForeignElement(const GuardType* type, const GuardType* const* kept, size_t keptCount) {
    for (; type->tuple != nullptr; type = type->tuple->restType) {
        if (HasForeignElement(type->tuple->firstType, kept, keptCount)) {
            return true;
        }
    }
    return !IsKept(type, kept, keptCount);
}

void ImplicitTupleConversion::Bind(Expression* it, StackAllocatorBase& allocator) {
    operand_->Bind(it, allocator);
    BindConverters(allocator);
}

void ImplicitTupleConversion::BindConverters(StackAllocatorBase& allocator) {
    type_ = ConvertedType(operand_->Type(), allocator);
    plural_ = plural_ || operand_->IsPlural();
    completeDependencies_ = operand_->HasCompleteDependencies();
    for (const Converter* converter = converters_; converter != nullptr; converter = converter->next) {
        completeDependencies_ = completeDependencies_ && converter->cast->dependencies != nullptr;
    }
}

const GuardType* ImplicitTupleConversion::ConvertedType(const GuardType* type, StackAllocatorBase& allocator) {
    if (type->tuple != nullptr) {
        if (!HasForeignElement(type, kept_, keptCount_)) {
            return type;
        }
        auto* replacement =
            new (allocator.Allocate(sizeof(Replacement), alignof(Replacement))) Replacement{{}, nullptr};
        *lastReplacement_ = replacement;
        lastReplacement_ = &replacement->next;
        const GuardType* first = ConvertedType(type->tuple->firstType, allocator);
        const GuardType* rest = ConvertedType(type->tuple->restType, allocator);
        return TypeRegistry::Instance().TupleTypeFor(first, rest);
    }
    if (IsKept(type, kept_, keptCount_)) {
        return type;
    }
    const CastDefinition& cast = TypeRegistry::Instance().Cast(type, castName_);
    if (!cast.resultType->IsA(target_)) {
        throw ConversionHasWrongType(target_, castName_);
    }
    auto* converter = new (allocator.Allocate(sizeof(Converter), alignof(Converter))) Converter{&cast, {}, nullptr};
    converter->slot.Reserve(cast.resultType, allocator);
    *lastConverter_ = converter;
    lastConverter_ = &converter->next;
    return cast.resultType;
}

// The walk of ConvertedType over one value, taking converters and replacement nodes in the same order.
const void* ImplicitTupleConversion::Rebuilt(const GuardType* type, const void* value) {
    if (type->tuple != nullptr) {
        if (!HasForeignElement(type, kept_, keptCount_)) {
            return value;
        }
        const auto* node = static_cast<const TupleNode*>(value);
        Replacement* replacement = nextReplacement_;
        nextReplacement_ = replacement->next;
        replacement->node.first = Rebuilt(type->tuple->firstType, node->first);
        replacement->node.rest = Rebuilt(type->tuple->restType, node->rest);
        return &replacement->node;
    }
    if (IsKept(type, kept_, keptCount_)) {
        return value;
    }
    Converter* converter = nextConverter_;
    nextConverter_ = converter->next;
    if (!CallThunk(converter->cast->thunk, converter->slot.storage, value, converter->cast->data)) {
        throw ValueNotConverted();
    }
    converter->slot.value = converter->slot.storage;
    return converter->slot.value;
}

void ImplicitTupleConversion::ClearSlots() noexcept {
    for (Converter* converter = converters_; converter != nullptr; converter = converter->next) {
        converter->slot.Clear();
    }
}

EvaluationStatus ImplicitTupleConversion::Deliver(EvaluationStatus status, TentativeValue& operand) {
    if (status != StatusOk || operand_->Value() == nullptr) {
        return status;
    }
    try {
        nextConverter_ = converters_;
        nextReplacement_ = replacements_;
        slot_.value = const_cast<void*>(Rebuilt(operand_->Type(), operand_->Value()));
    } catch (...) {
        ClearSlots();
        throw;
    }
    operand.Release();
    return StatusOk;
}

EvaluationStatus ImplicitTupleConversion::TryFirst() {
    slot_.value = nullptr;
    TentativeValue operand(operand_);
    return Deliver(operand.TryFirst(), operand);
}

EvaluationStatus ImplicitTupleConversion::TryNext() {
    slot_.value = nullptr;
    ClearSlots();
    TentativeValue operand(operand_);
    return Deliver(operand.TryNext(), operand);
}

EvaluationStatus ImplicitTupleConversion::TryStop() {
    slot_.value = nullptr;
    ClearSlots();
    return PlainSteps::Finish(operand_);
}

void ImplicitTupleConversion::AddDependencies(Fingerprinter& fingerprinter) {
    for (const Converter* converter = converters_; converter != nullptr; converter = converter->next) {
        if (converter->cast->dependencies != nullptr) {
            converter->cast->dependencies(fingerprinter);
        }
    }
    operand_->AddDependencies(fingerprinter);
}
