// The records that registration makes and TypeRegistry indexes: types, properties, casts and operators.
//
// A record is made once, in static storage, by the registration of an inspector unit.  The fields that stand for types
// are names at first; TypeRegistry resolves them when it builds its tables.
#ifndef REGISTRY_RECORDS_H
#define REGISTRY_RECORDS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "registry/fingerprinter.h"

struct PropertyAssociation;
struct CastDefinition;
struct UnaryAccessor;
struct BinaryAccessor;
class TupleDefinition;

// Binary operators by their codes; the symbols and names are those of the operator table in operator_names.h.
enum BinaryOperatorCode {
    kOperatorPlus = 0,
    kOperatorMinus = 1,
    kOperatorTimes = 2,
    kOperatorDivide = 3,
    kOperatorMod = 4,
    kOperatorConcatenate = 5,
    kOperatorEqual = 6,
    kOperatorLess = 7,
    kOperatorLessOrEqual = 8,
    kOperatorStartsWith = 9,
    kOperatorEndsWith = 10,
    kOperatorContains = 11,
    kBinaryOperators = 12
};

enum UnaryOperatorCode { kUnaryMinus = 0, kUnaryOperators = 1 };

template <class T>
struct TableSlice {
    T* begin = nullptr;
    T* end = nullptr;
};

struct GuardType {
    const char* name;  // "integer"; the empty text is the world.  A tuple type's is made when it is first asked for.
    unsigned size;     // Bytes of a value as the language tells them; storage is the two fields below.
    size_t storageSize;
    size_t storageAlignment;
    void (*destroy)(void*);                            // Null where a value needs no destruction.
    void (*fingerprint)(Fingerprinter&, const void*);  // Null where values cannot be fingerprinted.
    const char* parentName;                            // Null for none.
    const GuardType* parent = nullptr;                 // Resolved from parentName.
    const TupleDefinition* tuple = nullptr;            // Null for a type that is no tuple.

    TableSlice<const PropertyAssociation> properties = {};         // Those with this type as direct object.
    TableSlice<const PropertyAssociation> indexedProperties = {};  // Those with this type as index.
    TableSlice<const CastDefinition* const> casts = {};
    const UnaryAccessor* unaryOperators[kUnaryOperators] = {};
    TableSlice<const BinaryAccessor* const> binaryOperators[kBinaryOperators] = {};

    // The type's name as text; never fails for a registered type, may throw std::bad_alloc for a tuple's.
    std::string_view Name() const;

    // True when this is `other` or derives from it.
    bool IsA(const GuardType* other) const {
        for (const GuardType* type = this; type != nullptr; type = type->parent) {
            if (type == other) {
                return true;
            }
        }
        return false;
    }
};

// A stage constructs a value at `result` and answers true, or answers false for none.  A null `result` asks only for
// the answer.
using StageFunction = bool (*)(void* result, const void* index, const void* object, void* state, const void* data);

struct PropertyAccessor {
    static void NoConstructor(void*) {}
    static void NoDestructor(const void*) {}

    const GuardType* resultType = nullptr;
    const GuardType* indexType = nullptr;         // The world where the phrase takes no index.
    const GuardType* directObjectType = nullptr;  // The world where the phrase is of the world.

    DependencyFunction dependencies;  // Null: the value can be judged only by having it.
    size_t stateSize = 1;
    size_t stateAlignment = 1;
    void (*constructState)(void*) = NoConstructor;
    void (*destroyState)(const void*) = NoDestructor;
    StageFunction firstInitial = nullptr;
    StageFunction nextInitial = nullptr;
    StageFunction firstMiddle = nullptr;
    StageFunction nextMiddle = nullptr;
    StageFunction firstFinal = nullptr;
    StageFunction nextFinal = nullptr;
    const void* data = nullptr;
    bool iterated = false;     // nextMiddle is to be called.
    bool aggregating = false;  // The operand's values end in final stages.

    const char* singularName;
    const char* pluralName;
    const char* indexTypeName;  // Empty for none.
    const char* directObjectTypeName;
    const char* resultTypeName;

    // What the language calls multivalued: the property keeps state between calls.
    bool Multivalued() const { return iterated || aggregating; }
};

// Casts and operators construct their result and answer true, or answer false, as throwing NoSuchObject does, where
// there is none.  A null result does nothing.
using UnaryThunk = bool (*)(void* result, const void* operand, const void* data);
using BinaryThunk = bool (*)(void* result, const void* left, const void* right, const void* data);

struct CastDefinition {
    const char* name;
    const char* sourceTypeName;
    const char* targetTypeName;
    UnaryThunk thunk;
    const void* data;
    DependencyFunction dependencies;
    const GuardType* sourceType = nullptr;
    const GuardType* resultType = nullptr;
    mutable bool blacklisted = false;
};

struct UnaryAccessor {
    int code;
    const char* operandTypeName;
    const char* resultTypeName;
    UnaryThunk thunk;
    const void* data;
    DependencyFunction dependencies;
    const GuardType* operandType = nullptr;
    const GuardType* resultType = nullptr;
};

struct BinaryAccessor {
    int code;
    const char* leftTypeName;
    const char* rightTypeName;
    const char* resultTypeName;
    BinaryThunk thunk;
    const void* data;
    DependencyFunction dependencies;
    const GuardType* leftType = nullptr;
    const GuardType* rightType = nullptr;
    const GuardType* resultType = nullptr;
};

// A point of time in microseconds since 1970.
using Instant = int64_t;

// An inspector cache: told when what it keeps has to go.  The largest `expiry` means that everything goes.
struct CacheRecord {
    void (*clear)(Instant& expiry, void* datum);
    void* datum;
};

#endif
