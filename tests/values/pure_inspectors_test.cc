// What is asked of values that are made of nothing but other values depends on these alone: every property, cast and
// operator that takes or gives one of the types below says so, and is asked again only when what it was asked of
// changes.
#include <gtest/gtest.h>

#include <string_view>

#include "evaluator/adapters.h"
#include "registry/type_registry.h"

namespace {

class PureType : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override { ASSERT_NE(type_, nullptr); }

    template <class Entry, class... Types>
    void Expect(const Entry& entry, std::string_view what, Types... types) {
        if (((types == type_) || ...)) {
            ++entries_;
            EXPECT_EQ(entry.dependencies, &DependsOnlyOnParameters) << what;
        }
    }

    const TypeRegistry& registry_ = TypeRegistry::Instance();
    const GuardType* type_ = registry_.TypeByName(GetParam());
    int entries_ = 0;
};

TEST_P(PureType, DependsOnlyOnParameters) {
    for (const PropertyAssociation& row : registry_.Properties()) {
        const PropertyAccessor& property = *row.accessor;
        Expect(property, property.singularName, property.resultType, property.indexType, property.directObjectType);
    }
    for (const CastDefinition* cast : registry_.Casts()) {
        Expect(*cast, cast->name, cast->sourceType, cast->resultType);
    }
    for (const UnaryAccessor* op : registry_.UnaryOperators()) {
        Expect(*op, op->operandTypeName, op->operandType, op->resultType);
    }
    for (const BinaryAccessor* op : registry_.BinaryOperators()) {
        Expect(*op, op->leftTypeName, op->leftType, op->rightType, op->resultType);
    }
    EXPECT_GT(entries_, 0);
}

INSTANTIATE_TEST_SUITE_P(Values, PureType,
                         testing::Values("integer set", "string set", "type", "property", "cast", "binary operator",
                                         "unary operator", "regular expression", "regular expression match", "rope",
                                         "html", "html attribute list"));

}  // namespace
