// A tuple type: made on demand for a pair of an element's type and the type of the rest, and kept as long as the
// registry lives.
//
// Every tuple type has at most one cast, to string, and the comparisons "=", "<" and "<=", each there only where all
// elements have it.
#ifndef REGISTRY_TUPLE_DEFINITION_H
#define REGISTRY_TUPLE_DEFINITION_H

#include <optional>
#include <string>

#include "registry/core_values.h"
#include "registry/records.h"

class TypeRegistry;

class TupleDefinition {
public:
    // `rest` is the world's type for the last element.
    TupleDefinition(const GuardType* first, const GuardType* rest, bool restIsTerminator);
    TupleDefinition(const TupleDefinition&) = delete;
    TupleDefinition& operator=(const TupleDefinition&) = delete;

    GuardType type;
    const GuardType* firstType;
    const GuardType* restType;
    bool restIsTerminator;

    // "( integer, string )"; made at the first call.  Throws std::bad_alloc.
    std::string_view Name() const;

    // Has the name made anew: another element may since stand where the one that was named stood.
    void ForgetName() { name_.clear(); }

    // Finds the elements' casts and operators, quietly: what a look-up does not find is not there.  Throws
    // std::bad_alloc alone.
    void Complete(const TypeRegistry& registry);

private:
    static bool GenericCastToString(void* result, const void* operand, const void* data);
    static bool GenericGetter(void* result, const void* left, const void* right, const void* data);

    // None where the elements' own comparison has no answer.
    std::optional<boolean> Equal(const TupleNode* a, const TupleNode* b) const;
    std::optional<boolean> Less(const TupleNode* a, const TupleNode* b) const;
    std::optional<boolean> LessOrEqual(const TupleNode* a, const TupleNode* b) const;

    // One of the three comparisons: its own accessor, and the accessors of the elements.
    struct TupleBinaryOperatorDefinition {
        BinaryAccessor accessor{};
        const BinaryAccessor* firstOp = nullptr;
        const BinaryAccessor* row = nullptr;  // The one-row table that the type's slice points at.
        bool installed = false;

        std::optional<boolean> First(const void* a, const void* b) const;
    };

    TupleBinaryOperatorDefinition& Comparison(int code) { return comparisons_[code - kOperatorEqual]; }
    const TupleBinaryOperatorDefinition& Comparison(int code) const { return comparisons_[code - kOperatorEqual]; }

    mutable std::string name_;
    CastDefinition castToString_{};
    const CastDefinition* castRow_ = nullptr;
    const CastDefinition* firstCast_ = nullptr;
    TupleBinaryOperatorDefinition comparisons_[3];
};

#endif
