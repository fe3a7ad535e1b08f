// What the language cannot show of its own inspection: entries that come and go while it looks.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "evaluator/adapters.h"
#include "evaluator/guard_evaluator.h"
#include "registry/type_registry.h"
#include "values/integer.h"

namespace {

class Question {
public:
    explicit Question(const std::string& text) : evaluator_(nullptr) {
        evaluator_.Feed("(" + text + ")");
        evaluator_.EndOfText();
        evaluator_.ConvertTo("string", "string");
    }
    // The next value as text, empty at the end.
    std::string First() { return Text(evaluator_.First()); }
    std::string Next() { return Text(evaluator_.Next()); }
    std::vector<std::string> All() {
        std::vector<std::string> values;
        for (std::string value = First(); !value.empty(); value = Next()) {
            values.push_back(value);
        }
        return values;
    }

private:
    static std::string Text(const void* value) {
        return value == nullptr ? "" : std::string(static_cast<const inspector_string*>(value)->View());
    }
    GuardEvaluator evaluator_;
};

std::vector<std::string> Asked(const std::string& text) { return Question(text).All(); }

using Texts = std::vector<std::string>;

integer One() { return 1; }
integer Negated(const integer& x) { return x; }

using Extra = GlobalProperty<integer, One>;

TEST(Reflection, ListsWhatIsRegisteredAndNoLonger) {
    EXPECT_EQ(Asked("properties \"extra one\""), Texts());
    {
        const Extra extra("extra one", "extra ones");
        EXPECT_EQ(Asked("properties \"extra one\""), Texts{"extra one: integer"});
        EXPECT_EQ(Asked("properties \"extra ones\""), Texts{"extra one: integer"});
    }
    EXPECT_EQ(Asked("properties \"extra one\""), Texts());
}

TEST(Reflection, APhraseAsItsOwnPluralIsOneProperty) {
    const Extra extra("extra", "extra");
    EXPECT_EQ(Asked("properties \"extra\""), Texts{"extra: integer"});
}

TEST(Reflection, DependenciesThatAreNotToldAreNotKnown) {
    const Extra extra("extra", "extras", ByValueOnly);
    EXPECT_EQ(Asked("dependency known of property \"extra\""), Texts{"False"});
}

TEST(Reflection, AnEntryOfUnknownTypesIsNotListed) {
    PropertyAccessor accessor = adapters::SimpleAccessor<Extra, integer, None, None>("extra", "extras", nullptr);
    accessor.indexTypeName = "no such type";
    const RegistrationObject<PropertyRegistration> registration(accessor);
    EXPECT_EQ(Asked("properties \"extra\""), Texts());
}

// One walk over each table, in the middle of which the registry has to be built anew.
class Walks : public testing::TestWithParam<const char*> {};

TEST_P(Walks, GoOnOverTablesThatAreBuiltAnew) {
    Question question(GetParam());
    const size_t count = question.All().size();
    ASSERT_GT(count, 1u);

    // The rows of tuple types stand where their types lie in memory, and may move with each new table.
    constexpr size_t kMayMove = 16;
    size_t seen = 0;
    auto extra = std::make_unique<Extra>("extra", "extras");
    for (std::string value = question.First(); !value.empty(); value = question.Next()) {
        ++seen;
        if (seen % 2 == 0) {
            extra.reset();
        } else {
            extra = std::make_unique<Extra>("extra", "extras");
        }
        ASSERT_LE(seen, count + kMayMove);
    }
    EXPECT_GE(seen + kMayMove, count);
}

INSTANTIATE_TEST_SUITE_P(Reflection, Walks,
                         testing::Values("names of types whose (name of it != \"\")", "properties",
                                         "properties of type \"string\"", "properties returning (type \"integer\")",
                                         "casts", "binary operators", "binary operators \"plus\"", "unary operators"));

TEST(Reflection, AnOperatorThatIsHiddenByAnEarlierOneIsNotListed) {
    const size_t count = Asked("unary operators").size();
    const UnaryOperatorMinus<integer, integer, Negated> hidden;
    EXPECT_EQ(Asked("unary operators").size(), count);
}

TEST(Reflection, ATuplesTypeIsTheOneThatQuestionsMeet) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    const GuardType* tuple = registry.TupleTypeFor(registry.StringType(), registry.WorldType());
    GuardEvaluator evaluator(nullptr);
    evaluator.Feed("(type \"( string )\")");
    evaluator.EndOfText();
    const void* value = evaluator.First();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(*static_cast<const GuardType* const*>(value), tuple);
}

TEST(Reflection, ItsTypesHaveNoFingerprintAndNoParent) {
    for (const char* name : {"type", "property", "cast", "binary operator", "unary operator"}) {
        const GuardType* type = TypeRegistry::Instance().TypeByName(name);
        ASSERT_NE(type, nullptr) << name;
        EXPECT_EQ(type->fingerprint, nullptr) << name;
        EXPECT_EQ(type->parent, nullptr) << name;
        EXPECT_EQ(type->size, 4u) << name;
    }
}

// A name that is read level by level is not read without end, and no name that is none leaves anything behind.
TEST(Reflection, NamesOfTypesMayBeAnyText) {
    // Longer than a text may be written.
    const auto nested = [](int depth) {
        const std::string depths = " of integers in (1, " + std::to_string(depth) + "))";
        return "(concatenation of (\"( \"" + depths + " & \"integer\" & concatenation of (\" )\"" + depths + ")";
    };
    EXPECT_EQ(Asked("type " + nested(3)), Texts{"( ( ( integer ) ) )"});
    EXPECT_EQ(Asked("exists type " + nested(200)), Texts{"True"});
    EXPECT_EQ(Asked("exists type " + nested(201)), Texts{"False"});
    EXPECT_EQ(Asked("exists type " + nested(300000)), Texts{"False"});
    EXPECT_EQ(Asked("size of type (\"( \" & concatenation \", \" of (\"integer\" of integers in (1, 1000)) & \" )\") = "
                    "1000 * size of type \"( integer )\""),
              Texts{"True"});
    for (const char* name : {"(",
                             ")",
                             "( ",
                             " )",
                             "()",
                             "( )",
                             "(  )",
                             "(integer)",
                             "( integer)",
                             "(integer )",
                             "( integer,integer )",
                             "( integer, )",
                             "( , integer )",
                             "( integer ) )",
                             "( ( integer )",
                             ") integer (",
                             "x( integer )",
                             "( integer ), ( integer )",
                             "%00)",
                             "( %ff )"}) {
        EXPECT_EQ(Asked("exists type \"" + std::string(name) + "\""), Texts{"False"}) << name;
    }
}

}  // namespace
