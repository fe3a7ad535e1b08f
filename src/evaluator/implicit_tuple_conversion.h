// The conversion of a tuple's elements that the caller of an expression adds: those of other types than the kept ones
// are cast, and the tuple keeps its shape.
#ifndef EVALUATOR_IMPLICIT_TUPLE_CONVERSION_H
#define EVALUATOR_IMPLICIT_TUPLE_CONVERSION_H

#include <string_view>

#include "evaluator/expression.h"
#include "registry/core_values.h"

class ImplicitTupleConversion final : public Expression {
public:
    // The kept types (the world's among them) and the name's bytes must live as long as the node.
    ImplicitTupleConversion(Expression* operand, const GuardType* const* kept, size_t keptCount,
                            const GuardType* target, std::string_view castName)
        : Expression(operand),
          operand_(operand),
          kept_(kept),
          keptCount_(keptCount),
          target_(target),
          castName_(castName) {}
    ~ImplicitTupleConversion() override { ClearSlots(); }

    EvaluationStatus TryFirst() override;
    EvaluationStatus TryNext() override;
    EvaluationStatus TryStop() override;
    void AddDependencies(Fingerprinter& fingerprinter) override;
    void Bind(Expression* it, StackAllocatorBase& allocator) override;

    // Builds the converters where the operand is bound already.
    // Throws OperationNotDefined, InspectorBlacklisted, ConversionHasWrongType.
    void BindConverters(StackAllocatorBase& allocator);

    // True where the type holds an element that derives from none of the kept types.
    static bool HasForeignElement(const GuardType* type, const GuardType* const* kept, size_t keptCount);

private:
    struct Converter {
        const CastDefinition* cast;
        ValueSlot slot;
        Converter* next;
    };
    struct Replacement {
        TupleNode node;
        Replacement* next;
    };

    const GuardType* ConvertedType(const GuardType* type, StackAllocatorBase& allocator);
    const void* Rebuilt(const GuardType* type, const void* value);
    EvaluationStatus Deliver(EvaluationStatus status, TentativeValue& operand);
    void ClearSlots() noexcept;

    Expression* operand_;
    const GuardType* const* kept_;
    size_t keptCount_;
    const GuardType* target_;
    std::string_view castName_;
    Converter* converters_ = nullptr;
    Converter** lastConverter_ = &converters_;
    Replacement* replacements_ = nullptr;
    Replacement** lastReplacement_ = &replacements_;
    Converter* nextConverter_ = nullptr;  // Where the walk over a value stands.
    Replacement* nextReplacement_ = nullptr;
};

#endif
