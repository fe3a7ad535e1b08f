// The one table of the language's vocabulary, built from the registration lists on first use and again after any change
// of them.
//
// It answers the binder: what type has this name, what does this phrase mean for these types, which cast, which
// operator.  Names are compared as bytes; types by address.  Look-ups take no lock and allocate nothing; a rebuild is
// not safe against look-ups on other threads, and the blacklist is set before evaluation starts.
#ifndef REGISTRY_TYPE_REGISTRY_H
#define REGISTRY_TYPE_REGISTRY_H

#include <array>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/extensible_array.h"
#include "registry/records.h"
#include "registry/tuple_definition.h"

// One row of the property table: each property has one for its singular and one for its plural name.
struct PropertyAssociation {
    std::string_view name;
    const GuardType* indexType;
    const GuardType* directObjectType;
    const PropertyAccessor* accessor;
    bool isPlural;
    bool blacklisted;
};

class TypeRegistry {
public:
    // Points at the registry while its tables are valid, null otherwise.
    static TypeRegistry* m_validRegistry;

    // The registry, built first where it is not valid.  Throws std::bad_alloc.
    static TypeRegistry& Instance() { return m_validRegistry != nullptr ? *m_validRegistry : Rebuilt(); }

    // The type of this name, null for none.  A name that ends in ")" and is not registered as it stands is a tuple's
    // and is split; throws BadStructuredTypeName, BadTypeList, MismatchedParentheses, std::bad_alloc.
    const GuardType* TypeByName(std::string_view name) const;

    // What a phrase means for a direct object and an index of these types; the world's type stands for none.
    // Throws OperationNotDefined and InspectorBlacklisted.
    const PropertyAssociation& Property(const GuardType* object, std::string_view name, const GuardType* index) const;
    const PropertyAssociation& NamedGlobalProperty(std::string_view name, const GuardType* index) const {
        return Property(world_, name, index);
    }

    // The aggregating property of this name and index over whichever object type has one, for an operand that never
    // has a value: integer first, then string, boolean, then by type name.  Null for none.
    const PropertyAssociation* AggregateOfAnyType(std::string_view name, const GuardType* index) const;

    // Throws OperationNotDefined and InspectorBlacklisted.
    const CastDefinition& Cast(const GuardType* from, std::string_view name) const;
    // Throws OperationNotDefined.
    const UnaryAccessor& UnaryOperator(const GuardType* operand, int code) const;
    const BinaryAccessor& BinaryOperator(const GuardType* left, int code, const GuardType* right) const;

    // The same without the throw: null where there is none.  A blacklisted cast is given with its flag.
    const CastDefinition* FindCast(const GuardType* from, std::string_view name) const;
    const BinaryAccessor* FindBinaryOperator(const GuardType* left, int code, const GuardType* right) const;

    // The tuple type of an element and a rest, which is a tuple type or the world's; the same pair always gives the
    // same type.  Throws std::bad_alloc.
    const GuardType* TupleTypeFor(const GuardType* first, const GuardType* rest) const;

    // Forbids the entries whose keys stand in the text, separated by ";"; the empty text forbids none.
    void SetBlacklist(std::string_view text);

    const GuardType* BooleanType() const { return boolean_; }
    const GuardType* WorldType() const { return world_; }
    const GuardType* IntegerType() const { return integer_; }
    const GuardType* StringType() const { return string_; }
    const GuardType* UndefinedType() const { return undefined_; }

    // All tables, for those who list the vocabulary.
    const std::vector<PropertyAssociation>& Properties() const { return propertyTable_; }
    const std::vector<const CastDefinition*>& Casts() const { return castTable_; }
    const std::vector<GuardType*>& Types() const { return typeTable_; }
    const std::vector<const UnaryAccessor*>& UnaryOperators() const { return unaryTable_; }
    const std::vector<const BinaryAccessor*>& BinaryOperators() const { return binaryTable_; }

    // The blacklist key of an entry; of a property by its singular or its plural name.
    static std::string Key(const PropertyAssociation& row);
    static std::string Key(const CastDefinition& cast);

private:
    TypeRegistry() = default;

    static TypeRegistry& Rebuilt();
    void Build();
    void BuildTypes();
    void BuildProperties();
    void BuildCasts();
    void BuildUnaryOperators();
    void BuildBinaryOperators();
    void RestoreTuples();
    void CompleteTuples();
    void ApplyBlacklist();

    GuardType* RegisteredType(std::string_view name) const;
    const GuardType* TupleByName(std::string_view name) const;
    const GuardType* ResolvedType(const char* name) const;
    const GuardType* TypeOrNull(const char* name) const;

    std::vector<PropertyAssociation> propertyTable_;
    std::vector<PropertyAssociation> propertiesByIndex_;
    std::vector<const CastDefinition*> castTable_;
    std::vector<const UnaryAccessor*> unaryTable_;
    std::vector<const BinaryAccessor*> binaryTable_;

    // Names met in the course of a build, by their addresses.
    struct ResolvedName {
        const char* name = nullptr;
        const GuardType* type = nullptr;
    };
    mutable std::array<ResolvedName, 512> resolved_{};

    std::vector<GuardType*> typeTable_;

    mutable std::recursive_mutex tupleMutex_;
    mutable ExtensibleArray<TupleDefinition> tuples_;
    mutable std::map<std::pair<const GuardType*, const GuardType*>, TupleDefinition*> tupleTypes_;
    bool complete_ = false;  // The cast and operator tables stand, so that a new tuple type can look its own up.

    const GuardType* boolean_ = nullptr;
    const GuardType* world_ = nullptr;
    const GuardType* integer_ = nullptr;
    const GuardType* string_ = nullptr;
    const GuardType* undefined_ = nullptr;

    std::string blacklist_;
};

#endif
