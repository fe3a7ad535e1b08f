// Tuple types: their names, made and read, their identity, and the cast and comparisons that they are given.
#include "registry/tuple_definition.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "foundation/stack_allocator.h"
#include "foundation/tuple_text.h"
#include "registry/lookup_failures.h"
#include "tests/registry/test_records.h"

namespace {

TypeRegistry& Registry() { return TypeRegistry::Instance(); }
const GuardType* Named(const char* name) { return Registry().TypeByName(name); }
const GuardType* Tuple(const GuardType* first, const GuardType* rest) { return Registry().TupleTypeFor(first, rest); }

TEST(TupleType, TheSamePairGivesTheIdenticalType) {
    const GuardType* one = Tuple(Named("integer"), Named(""));
    EXPECT_EQ(Tuple(Named("integer"), Named("")), one);
    EXPECT_NE(Tuple(Named("string"), Named("")), one);
    EXPECT_EQ(Tuple(Named("string"), one), Tuple(Named("string"), one));
    EXPECT_NE(Tuple(one, Named("")), one);
}

TEST(TupleType, IsNamedByItsElements) {
    const GuardType* string = Tuple(Named("string"), Named(""));
    EXPECT_EQ(string->Name(), "( string )");
    const GuardType* pair = Tuple(Named("integer"), string);
    EXPECT_EQ(pair->Name(), "( integer, string )");
    EXPECT_EQ(Tuple(Named("boolean"), pair)->Name(), "( boolean, integer, string )");
    EXPECT_EQ(Tuple(pair, string)->Name(), "( ( integer, string ), string )");
}

TEST(TupleType, HasItsPartsAndNoParentDestructorOrFingerprint) {
    const GuardType* string = Tuple(Named("string"), Named(""));
    const GuardType* pair = Tuple(Named("integer"), string);
    ASSERT_NE(pair->tuple, nullptr);
    EXPECT_EQ(pair->tuple->firstType, Named("integer"));
    EXPECT_EQ(pair->tuple->restType, string);
    EXPECT_FALSE(pair->tuple->restIsTerminator);
    EXPECT_TRUE(string->tuple->restIsTerminator);
    EXPECT_EQ(string->size, 2 * sizeof(void*));
    EXPECT_EQ(pair->size, 4 * sizeof(void*));
    EXPECT_EQ(pair->parent, nullptr);
    EXPECT_EQ(pair->destroy, nullptr);
    EXPECT_EQ(pair->fingerprint, nullptr);
}

TEST(TupleTypeName, IsReadAsItIsMade) {
    const GuardType* string = Tuple(Named("string"), Named(""));
    const GuardType* pair = Tuple(Named("integer"), string);
    EXPECT_EQ(Named("( string )"), string);
    EXPECT_EQ(Named("( integer, string )"), pair);
    for (const char* name : {"( boolean, integer, string )", "( ( integer, string ), string )",
                             "( integer, ( boolean, ( string ) ), integer )"}) {
        ASSERT_NE(Named(name), nullptr);
        EXPECT_EQ(Named(name)->Name(), name);
        EXPECT_EQ(Named(name), Named(name));
    }
}

TEST(TupleTypeName, OfAnUnknownElementIsNoType) {
    EXPECT_EQ(Named("( nobody )"), nullptr);
    EXPECT_EQ(Named("( integer, nobody )"), nullptr);
    EXPECT_EQ(Named("( integer,  string )"), nullptr);
}

TEST(TupleTypeName, WithoutItsBlanksOrItsParenthesisIsBadlyStructured) {
    for (const char* name : {")", "integer)", "(integer )", "( integer)", "(integer)", "()", "( )"}) {
        EXPECT_THROW(Named(name), BadStructuredTypeName) << name;
    }
}

TEST(TupleTypeName, ACommaWithoutABlankIsABadList) {
    for (const char* name : {"( integer,string )", "( integer, )", "( integer,string, boolean )"}) {
        EXPECT_THROW(Named(name), BadTypeList) << name;
    }
}

TEST(TupleTypeName, ParenthesesWithoutPartnersAreMismatchedWhateverStandsBeforeThem) {
    for (const char* name :
         {"( integer, ( string )", "( ( string )", "( nobody, ( string )", "( string ) )", "( string ), ( integer )"}) {
        EXPECT_THROW(Named(name), MismatchedParentheses) << name;
    }
}

TEST(TupleTypeName, WithAPrefixIsADerivedTypesThatIsRegisteredAsItStands) {
    EXPECT_EQ(Named("timed ( integer, string )"), nullptr);
    EXPECT_THROW(Named("timed (integer )"), BadStructuredTypeName);
    TestType timed("timed ( integer, string )", "( integer, string )", 16);
    const GuardType* type = Named("timed ( integer, string )");
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->parent, Named("( integer, string )"));
    EXPECT_EQ(Named("( timed ( integer, string ), boolean )")->Name(), "( timed ( integer, string ), boolean )");
}

TEST(TupleType, ServesAsResultIndexAndObjectOfRegistrations) {
    TestProperty pairs("pair", "pairs", "( integer, integer )", "( string, boolean )", "( integer )");
    const PropertyAssociation& row =
        Registry().Property(Named("( string, boolean )"), "pairs", Named("( integer, integer )"));
    EXPECT_EQ(row.accessor->resultType, Named("( integer )"));
}

// ---- Rebuilds -------------------------------------------------------------------------------------------------------

TEST(TupleType, StaysTheSameTypeOverARebuild) {
    const GuardType* pair = Named("( integer, string )");
    const TestType other("other");
    EXPECT_EQ(Named("( integer, string )"), pair);
    EXPECT_EQ(Tuple(Named("integer"), Tuple(Named("string"), Named(""))), pair);
    EXPECT_EQ(pair->Name(), "( integer, string )");
}

TEST(TupleType, OfATypeThatIsGoneIsNotFoundAndNotLookedAt) {
    auto passing = std::make_unique<TestType>("passing");
    ASSERT_NE(Named("( passing, integer )"), nullptr);
    ASSERT_NE(Named("( integer, passing )"), nullptr);
    passing.reset();
    EXPECT_EQ(Named("( passing, integer )"), nullptr);
    EXPECT_EQ(Named("( integer, passing )"), nullptr);
    EXPECT_NE(Named("( integer, integer )"), nullptr);
    Registry().SetBlacklist("");
}

TEST(TupleType, OfATypeThatCameInAnothersPlaceHasItsOwnName) {
    std::optional<TestType> place;
    place.emplace("earlier");
    EXPECT_EQ(Named("( earlier )")->Name(), "( earlier )");
    place.emplace("later");
    EXPECT_EQ(Named("( earlier )"), nullptr);
    ASSERT_NE(Named("( later )"), nullptr);
    EXPECT_EQ(Named("( later )")->Name(), "( later )");
}

// ---- The cast and the comparisons -----------------------------------------------------------------------------------

// Elements are integers by their C++ value; negative ones have no text, and no order with 13.
bool ToText(void* result, const void* operand, const void*) {
    if (result == nullptr) {
        return true;
    }
    const int64_t value = *static_cast<const int64_t*>(operand);
    if (value < 0) {
        return false;
    }
    const std::string text = value == 100 ? "a, b" : value == 101 ? "(" : std::to_string(value);
    char* bytes = static_cast<char*>(InspectorAllocate(text.size()));
    text.copy(bytes, text.size());
    new (result) inspector_string(bytes, text.size());
    return true;
}

template <class Compare>
bool Compared(void* result, const void* left, const void* right, const void*) {
    const int64_t a = *static_cast<const int64_t*>(left);
    const int64_t b = *static_cast<const int64_t*>(right);
    if (a == 13 || b == 13) {
        return false;
    }
    new (result) boolean(Compare()(a, b));
    return true;
}

class TupleValues : public testing::Test {
protected:
    // A tuple value over elements that live in the test.
    const void* Value(int64_t a, int64_t b) {
        int64_t* elements = values_[count_];
        elements[0] = a;
        elements[1] = b;
        TupleNode* nodes = nodes_[count_++];
        nodes[1] = {&elements[1], nullptr};
        nodes[0] = {&elements[0], &nodes[1]};
        return nodes;
    }
    std::string Compare(int code, const void* a, const void* b) {
        const BinaryAccessor* accessor = Registry().FindBinaryOperator(Pair(), code, Pair());
        if (accessor == nullptr) {
            return "undefined";
        }
        EXPECT_EQ(accessor->resultType, Registry().BooleanType());
        EXPECT_EQ(accessor->dependencies, &DependsOnlyOnParameters);
        EXPECT_TRUE(accessor->thunk(nullptr, nullptr, nullptr, accessor->data));
        boolean answer = false;
        return !accessor->thunk(&answer, a, b, accessor->data) ? "none" : answer ? "true" : "false";
    }
    static const GuardType* Pair() { return Named("( integer, integer )"); }

private:
    int64_t values_[40][2];
    TupleNode nodes_[40][2];
    size_t count_ = 0;
};

TEST_F(TupleValues, CompareFromTheLeft) {
    TestBinary equal(kOperatorEqual, "integer", "integer", "boolean", &Compared<std::equal_to<int64_t>>);
    TestBinary less(kOperatorLess, "integer", "integer", "boolean", &Compared<std::less<int64_t>>);
    TestBinary lessOrEqual(kOperatorLessOrEqual, "integer", "integer", "boolean", &Compared<std::less_equal<int64_t>>);
    const struct {
        int64_t a[2];
        int64_t b[2];
        const char* equal;
        const char* less;
        const char* lessOrEqual;
    } rows[] = {
        {{1, 2}, {1, 2}, "true", "false", "true"},   {{1, 2}, {1, 3}, "false", "true", "true"},
        {{1, 3}, {1, 2}, "false", "false", "false"}, {{1, 9}, {2, 0}, "false", "true", "true"},
        {{2, 0}, {1, 9}, "false", "false", "false"}, {{13, 0}, {1, 9}, "none", "none", "none"},
        {{1, 13}, {1, 9}, "none", "none", "none"},   {{1, 13}, {2, 9}, "false", "true", "true"},
    };
    for (const auto& row : rows) {
        const void* a = Value(row.a[0], row.a[1]);
        const void* b = Value(row.b[0], row.b[1]);
        EXPECT_EQ(Compare(kOperatorEqual, a, b), row.equal) << row.a[0] << row.a[1] << row.b[0] << row.b[1];
        EXPECT_EQ(Compare(kOperatorLess, a, b), row.less) << row.a[0] << row.a[1] << row.b[0] << row.b[1];
        EXPECT_EQ(Compare(kOperatorLessOrEqual, a, b), row.lessOrEqual) << row.a[0] << row.a[1] << row.b[0] << row.b[1];
    }
}

// An order in which nothing precedes anything it is asked about, not even itself.
struct NeverTrue {
    bool operator()(int64_t, int64_t) const { return false; }
};
struct AlwaysTrue {
    bool operator()(int64_t, int64_t) const { return true; }
};

TEST_F(TupleValues, LessOrEqualAsksNothingButLessOrEqual) {
    TestBinary less(kOperatorLess, "integer", "integer", "boolean", &Compared<AlwaysTrue>);
    TestBinary lessOrEqual(kOperatorLessOrEqual, "integer", "integer", "boolean", &Compared<NeverTrue>);
    EXPECT_EQ(Compare(kOperatorLessOrEqual, Value(1, 1), Value(2, 2)), "false");
    EXPECT_EQ(Compare(kOperatorLess, Value(2, 2), Value(1, 1)), "true");
}

TEST_F(TupleValues, EachComparisonStandsOnlyWhereAllElementsHaveIt) {
    EXPECT_EQ(Compare(kOperatorEqual, nullptr, nullptr), "undefined");
    TestBinary less(kOperatorLess, "integer", "integer", "boolean", &Compared<std::less<int64_t>>);
    EXPECT_EQ(Compare(kOperatorLess, Value(1, 2), Value(1, 3)), "true");
    EXPECT_EQ(Compare(kOperatorLessOrEqual, nullptr, nullptr), "undefined");
    EXPECT_EQ(Compare(kOperatorEqual, nullptr, nullptr), "undefined");
    const GuardType* mixed = Named("( integer, boolean )");
    EXPECT_EQ(Registry().FindBinaryOperator(mixed, kOperatorLess, mixed), nullptr);
    const GuardType* turned = Named("( boolean, integer )");
    EXPECT_EQ(Registry().FindBinaryOperator(turned, kOperatorLess, turned), nullptr);
    EXPECT_THROW(Registry().BinaryOperator(mixed, kOperatorLess, mixed), OperationNotDefined);
    const GuardType* single = Named("( integer )");
    EXPECT_EQ(Registry().FindBinaryOperator(single, kOperatorLess, Pair()), nullptr);
}

TEST_F(TupleValues, HaveTheCastToStringOnlyWhereAllElementsDo) {
    EXPECT_EQ(Registry().FindCast(Pair(), "string"), nullptr);
    TestCast toText("string", "integer", "string", &ToText);
    ASSERT_NE(Registry().FindCast(Pair(), "string"), nullptr);
    EXPECT_EQ(Registry().Cast(Pair(), "string").resultType, Registry().StringType());
    EXPECT_EQ(Registry().FindCast(Named("( integer, boolean )"), "string"), nullptr);
    EXPECT_EQ(Registry().FindCast(Named("( boolean, integer )"), "string"), nullptr);
    EXPECT_EQ(Registry().FindCast(Pair(), "text"), nullptr);
    TestType text("text", "string");
    TestCast toSomethingElse("string", "boolean", "text", &ToText);
    EXPECT_EQ(Registry().FindCast(Named("( integer, boolean )"), "string"), nullptr);
}

TEST_F(TupleValues, AForbiddenCastOfAnElementTakesTheTuplesAway) {
    TestCast toText("string", "integer", "string", &ToText);
    Registry().SetBlacklist("<integer> as string");
    EXPECT_EQ(Registry().FindCast(Pair(), "string"), nullptr);
    Registry().SetBlacklist("");
    EXPECT_NE(Registry().FindCast(Pair(), "string"), nullptr);
}

TEST_F(TupleValues, AreWrittenInOrderAndWrappedWhereTheyWouldNotReadBack) {
    TestCast toText("string", "integer", "string", &ToText);
    StackAllocator<256> memory;
    const CastDefinition& cast = Registry().Cast(Pair(), "string");
    EXPECT_EQ(cast.dependencies, &DependsOnlyOnParameters);
    const auto text = [&](const void* value) {
        inspector_string result;
        return cast.thunk(&result, value, cast.data) ? std::string(result.View()) : "none";
    };
    EXPECT_TRUE(cast.thunk(nullptr, nullptr, cast.data));
    EXPECT_THROW(text(Value(1, 2)), NoInspectorAllocator);
    const AllocatorInstaller installed(memory);
    EXPECT_EQ(text(Value(1, 2)), "1, 2");
    EXPECT_EQ(text(Value(100, 2)), "( a, b ), 2");
    EXPECT_EQ(text(Value(1, 101)), "1, ( ( ))");
    EXPECT_EQ(text(Value(1, -1)), "none");
    EXPECT_EQ(text(Value(-1, 1)), "none");
}

}  // namespace
