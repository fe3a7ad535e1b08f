// No phrase of these units gives an integer range, so its two properties are asked through the registry.
#include "values/integer_range.h"

#include <gtest/gtest.h>

#include "registry/type_registry.h"

namespace {

int64_t Bound(const char* phrase, const integer_range& range) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    const PropertyAssociation& row =
        registry.Property(registry.TypeByName("integer range"), phrase, registry.WorldType());
    EXPECT_EQ(row.accessor->resultType, registry.IntegerType()) << phrase;
    integer result;
    EXPECT_TRUE(row.accessor->firstMiddle(&result, nullptr, &range, nullptr, row.accessor->data)) << phrase;
    return result.Value();
}

TEST(IntegerRange, TellsItsBoundsAsTheyStand) {
    for (const integer_range& range : {integer_range{1, 5}, {5, 1}, {integer::kLeast, integer::kGreatest}}) {
        EXPECT_EQ(Bound("lower bound", range), range.lower.Value());
        EXPECT_EQ(Bound("lower bounds", range), range.lower.Value());
        EXPECT_EQ(Bound("upper bound", range), range.upper.Value());
        EXPECT_EQ(Bound("upper bounds", range), range.upper.Value());
    }
}

TEST(IntegerRange, IsRegisteredWithTwoIntegersAndNoFingerprint) {
    const GuardType* type = TypeRegistry::Instance().TypeByName("integer range");
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->size, 16u);
    EXPECT_EQ(type->fingerprint, nullptr);
}

}  // namespace
