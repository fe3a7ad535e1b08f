// Rows of the language's tables, and the expectation that each is there: a test lists its rows and asks for all of
// them.
#ifndef TESTS_INSPECTORS_VOCABULARY_ROWS_H
#define TESTS_INSPECTORS_VOCABULARY_ROWS_H

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "registry/type_registry.h"

struct TypeRow {
    const char* name;
    const char* parent;
};

struct PropertyRow {
    const char* singular;
    const char* plural;
    const char* index;
    const char* object;
    const char* result;
};

struct CastRow {
    const char* name;
    const char* source;
    const char* result;
};

inline const GuardType* Named(std::string_view name) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    return name.empty() ? registry.WorldType() : registry.TypeByName(name);
}

inline void ExpectType(const TypeRow& row) {
    SCOPED_TRACE(row.name);
    const GuardType* type = Named(row.name);
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->parent == nullptr ? "" : type->parent->Name(), row.parent);
}

// A row of the table itself, not one that a parent type lends.
inline const PropertyAssociation* OwnRow(const PropertyRow& row, std::string_view phrase) {
    for (const PropertyAssociation& entry : TypeRegistry::Instance().Properties()) {
        if (entry.name == phrase && entry.indexType == Named(row.index) &&
            entry.directObjectType == Named(row.object)) {
            return &entry;
        }
    }
    return nullptr;
}

// In both numbers.
inline void ExpectPhrase(const PropertyRow& row) {
    SCOPED_TRACE(std::string(row.singular) + " " + row.index + " of " + row.object);
    ASSERT_NE(Named(row.object), nullptr);
    const PropertyAssociation* singular = OwnRow(row, row.singular);
    const PropertyAssociation* plural = OwnRow(row, row.plural);
    ASSERT_NE(singular, nullptr);
    ASSERT_NE(plural, nullptr);
    EXPECT_FALSE(singular->isPlural);
    EXPECT_TRUE(plural->isPlural);
    EXPECT_EQ(singular->accessor, plural->accessor);
    EXPECT_EQ(singular->accessor->resultType->Name(), row.result);
}

inline void ExpectCast(const CastRow& row) {
    SCOPED_TRACE(std::string(row.source) + " as " + row.name);
    const CastDefinition* cast = TypeRegistry::Instance().FindCast(Named(row.source), row.name);
    ASSERT_NE(cast, nullptr);
    EXPECT_EQ(cast->sourceType, Named(row.source));
    EXPECT_EQ(cast->resultType->Name(), row.result);
}

inline void ExpectNoText(const char* type) {
    ASSERT_NE(Named(type), nullptr) << type;
    EXPECT_EQ(TypeRegistry::Instance().FindCast(Named(type), "string"), nullptr) << type;
}

#endif
