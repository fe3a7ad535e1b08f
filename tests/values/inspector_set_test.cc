// What the language cannot show of sets: whose bytes they hold, how their iterators end, and their operations over
// random data beside the standard library's own.
#include "values/inspector_set.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "evaluator/guard_evaluator.h"
#include "registry/type_registry.h"

namespace {

using IntegerSet = InspectorSet<integer>;
using StringSet = InspectorSet<inspector_string>;

integer ElementOf(int64_t model) { return model; }
inspector_string ElementOf(const std::string& model) { return inspector_string(model); }

int64_t ModelOf(integer element) { return element.Value(); }
std::string ModelOf(inspector_string element) { return std::string(element.View()); }

template <class T, class Model>
InspectorSet<T> Collected(const std::vector<Model>& values) {
    InspectorSetAggregator<T> aggregator;
    aggregator.Initialize();
    for (const Model& value : values) {
        aggregator.Collect(Of(), ElementOf(value));
    }
    return aggregator.FirstFinal();
}

// The elements as the language's iterator gives them.
template <class T>
auto Listed(const InspectorSet<T>& set) {
    std::vector<decltype(ModelOf(std::declval<T>()))> elements;
    InspectorSetElementIterator<T> iterator;
    for (iterator.Start(Of(), set); !iterator.Finished(Of(), set);) {
        elements.push_back(ModelOf(iterator.Next(Of(), set)));
    }
    return elements;
}

template <class T>
struct Sample;

template <>
struct Sample<integer> {
    using Model = int64_t;
    static Model Value(std::mt19937& random) { return static_cast<int64_t>(random() % 40) - 20; }
};

// Few letters and lengths from none on, so that duplicates and extensions of one another are many; bytes beyond ASCII
// and zeros among them.
template <>
struct Sample<inspector_string> {
    using Model = std::string;
    static Model Value(std::mt19937& random) {
        Model text(random() % 4, ' ');
        for (char& c : text) {
            c = std::string("\0a\xff", 3)[random() % 3];
        }
        return text;
    }
};

template <class T>
class SetOperations : public testing::Test {};
using ElementTypes = testing::Types<integer, inspector_string>;
TYPED_TEST_SUITE(SetOperations, ElementTypes);

TYPED_TEST(SetOperations, AgreeWithTheStandardSets) {
    using Set = InspectorSet<TypeParam>;
    using Model = typename Sample<TypeParam>::Model;
    // std::string compares its bytes as unsigned ones.
    using Models = std::set<Model>;
    std::mt19937 random(20);
    for (int round = 0; round < 500; ++round) {
        std::vector<Model> valuesA(random() % 30);
        std::vector<Model> valuesB(random() % 30);
        for (auto* values : {&valuesA, &valuesB}) {
            for (Model& value : *values) {
                value = Sample<TypeParam>::Value(random);
            }
        }
        if (round % 5 == 0) {
            valuesB = valuesA;
            std::shuffle(valuesB.begin(), valuesB.end(), random);
        }
        const Models modelA(valuesA.begin(), valuesA.end());
        const Models modelB(valuesB.begin(), valuesB.end());
        const Set a = Collected<TypeParam>(valuesA);
        const Set b = Collected<TypeParam>(valuesB);
        ASSERT_EQ(Listed(a), std::vector<Model>(modelA.begin(), modelA.end()));
        ASSERT_EQ(Set::Size(Of(), a), static_cast<int64_t>(modelA.size()));

        std::vector<Model> both, one, either;
        std::set_intersection(modelA.begin(), modelA.end(), modelB.begin(), modelB.end(), std::back_inserter(both));
        std::set_difference(modelA.begin(), modelA.end(), modelB.begin(), modelB.end(), std::back_inserter(one));
        std::set_union(modelA.begin(), modelA.end(), modelB.begin(), modelB.end(), std::back_inserter(either));
        ASSERT_EQ(Listed(Set::Intersection(a, b)), both);
        ASSERT_EQ(Listed(Set::Difference(a, b)), one);
        ASSERT_EQ(Listed(Set::Union(a, b)), either);

        InspectorSetAggregator<TypeParam> aggregator;
        aggregator.Initialize();
        aggregator.Union(Of(), a);
        aggregator.Union(Of(), b);
        ASSERT_EQ(Listed(aggregator.FirstFinal()), either);
        aggregator.Initialize();
        aggregator.Intersection(Of(), a);
        aggregator.Intersection(Of(), b);
        ASSERT_EQ(Listed(aggregator.FirstFinal()), both);

        ASSERT_EQ(Set::Equal(a, b), modelA == modelB);
        ASSERT_EQ(Set::ContainsSet(a, b), std::includes(modelA.begin(), modelA.end(), modelB.begin(), modelB.end()));
        for (int i = 0; i < 10; ++i) {
            const Model value = Sample<TypeParam>::Value(random);
            ASSERT_EQ(Set::ContainsElement(a, ElementOf(value)), modelA.count(value) != 0);
        }
    }
}

TYPED_TEST(SetOperations, AnAggregatorStartsAnewAndDeliversOnce) {
    using Model = typename Sample<TypeParam>::Model;
    std::mt19937 random(7);
    const Model first = Sample<TypeParam>::Value(random);
    Model second = first;
    while (second == first) {
        second = Sample<TypeParam>::Value(random);
    }
    InspectorSetAggregator<TypeParam> aggregator;
    aggregator.Initialize();
    EXPECT_TRUE(Listed(aggregator.FirstFinal()).empty());
    EXPECT_FALSE(aggregator.NextFinal());

    aggregator.Initialize();
    aggregator.Collect(Of(), ElementOf(first));
    aggregator.Initialize();
    aggregator.Collect(Of(), ElementOf(second));
    EXPECT_EQ(Listed(aggregator.FirstFinal()), std::vector<Model>{second});
    EXPECT_FALSE(aggregator.NextFinal());

    // An empty first set is a first set.
    aggregator.Initialize();
    aggregator.Intersection(Of(), {});
    aggregator.Intersection(Of(), Collected<TypeParam>(std::vector<Model>{first}));
    EXPECT_TRUE(Listed(aggregator.FirstFinal()).empty());
    aggregator.Initialize();
    aggregator.Intersection(Of(), Collected<TypeParam>(std::vector<Model>{first}));
    EXPECT_EQ(Listed(aggregator.FirstFinal()), std::vector<Model>{first});
}

TYPED_TEST(SetOperations, AnIteratorStartsAnewOverAnotherSet) {
    using Model = typename Sample<TypeParam>::Model;
    std::mt19937 random(3);
    const Model value = Sample<TypeParam>::Value(random);
    const auto one = Collected<TypeParam>(std::vector<Model>{value});
    const InspectorSet<TypeParam> none;
    InspectorSetElementIterator<TypeParam> iterator;
    iterator.Start(Of(), none);
    EXPECT_TRUE(iterator.Finished(Of(), none));
    iterator.Start(Of(), one);
    ASSERT_FALSE(iterator.Finished(Of(), one));
    EXPECT_EQ(ModelOf(iterator.Next(Of(), one)), value);
    EXPECT_TRUE(iterator.Finished(Of(), one));
    iterator.Start(Of(), one);
    EXPECT_FALSE(iterator.Finished(Of(), one));
}

TYPED_TEST(SetOperations, TheTypeHasADestructorAndNoFingerprint) {
    const std::string name = std::string(InspectorTypeInfo<TypeParam>::Name) + " set";
    const GuardType* type = TypeRegistry::Instance().TypeByName(name);
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->fingerprint, nullptr);
    EXPECT_NE(type->destroy, nullptr);
    EXPECT_EQ(type->parent, nullptr);
    EXPECT_EQ(type->size, 12u);
    EXPECT_EQ(type->storageSize, sizeof(InspectorSet<TypeParam>));
}

TEST(StringSet, OwnsTheBytesOfItsElements) {
    std::string bytes = "abc";
    InspectorSetAggregator<inspector_string> aggregator;
    aggregator.Initialize();
    aggregator.Collect(Of(), inspector_string(bytes));
    bytes = "xyz";
    aggregator.Collect(Of(), inspector_string(bytes));
    bytes = "---";
    EXPECT_EQ(Listed(aggregator.FirstFinal()), (std::vector<std::string>{"abc", "xyz"}));
}

TEST(StringSet, SetsOfTheSameElementShareItsBytesAndKeepThem) {
    std::optional<StringSet> a = Collected<inspector_string>(std::vector<std::string>{"a long enough text", "b"});
    const char* const bytes = a->Elements().front().View().data();
    const StringSet both = StringSet::Union(*a, Collected<inspector_string>(std::vector<std::string>{"c"}));
    InspectorSetAggregator<inspector_string> aggregator;
    aggregator.Initialize();
    aggregator.Union(Of(), *a);
    a.reset();
    EXPECT_EQ(both.Elements().front().View().data(), bytes);
    const StringSet gathered = aggregator.FirstFinal();
    EXPECT_EQ(gathered.Elements().front().View().data(), bytes);
    EXPECT_EQ(Listed(gathered), (std::vector<std::string>{"a long enough text", "b"}));
}

TEST(StringSet, AnElementPointsIntoItsSet) {
    const StringSet set = Collected<inspector_string>(std::vector<std::string>{"abc"});
    InspectorSetElementIterator<inspector_string> iterator;
    iterator.Start(Of(), set);
    EXPECT_EQ(iterator.Next(Of(), set).start, set.Elements().front().View().data());
}

std::vector<std::string> AllValues(GuardEvaluator& evaluator) {
    std::vector<std::string> values;
    for (const void* value = evaluator.First(); value != nullptr; value = evaluator.Next()) {
        values.emplace_back(static_cast<const inspector_string*>(value)->View());
    }
    return values;
}

TEST(IntegerSet, HoldsAsManyAsThereAre) {
    GuardEvaluator evaluator(nullptr);
    evaluator.Feed("(size of set of (it * 2; 7) of integers in (100000, 1) as string)");
    evaluator.EndOfText();
    EXPECT_EQ(AllValues(evaluator), std::vector<std::string>{"100001"});
}

// The memory of each text is rolled back before the next is made, and the whole is asked again over the same storage.
TEST(StringSet, HoldsTextsAcrossTheirStreamAndAcrossEvaluations) {
    GuardEvaluator evaluator(nullptr);
    evaluator.Feed("(elements of union of ((set of (it as string & \"!\")) of integers in (1, 300)))");
    evaluator.EndOfText();
    std::set<std::string> texts;
    for (int i = 1; i <= 300; ++i) {
        texts.insert(std::to_string(i) + "!");
    }
    const std::vector<std::string> expected(texts.begin(), texts.end());
    EXPECT_EQ(AllValues(evaluator), expected);
    EXPECT_EQ(AllValues(evaluator), expected);
    evaluator.First();
    evaluator.Next();
    EXPECT_EQ(AllValues(evaluator), expected);
}

}  // namespace
