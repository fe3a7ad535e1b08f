// The table of the vocabulary: look-ups along chains of types, and the blacklist.
#include "registry/type_registry.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "registry/lookup_failures.h"
#include "tests/registry/test_records.h"

namespace {

TypeRegistry& Registry() { return TypeRegistry::Instance(); }
const GuardType* Named(const char* name) { return Registry().TypeByName(name); }

template <class Call>
std::string UndefinedName(Call call) {
    try {
        call();
        return "defined";
    } catch (const OperationNotDefined& e) {
        return std::string(e.Name());
    }
}

template <class Call>
std::string BlacklistedName(Call call) {
    try {
        call();
        return "allowed";
    } catch (const InspectorBlacklisted& e) {
        return e.Name();
    }
}

TEST(OperationNotDefined, KeepsItsNameCutAtTwoHundredAndFiftySixBytes) {
    EXPECT_EQ(OperationNotDefined("").Name(), "");
    EXPECT_EQ(OperationNotDefined("name").Name(), "name");
    const std::string exact(256, 'x');
    EXPECT_EQ(OperationNotDefined(exact).Name(), exact);
    EXPECT_EQ(OperationNotDefined(exact + "y").Name(), exact);
    EXPECT_EQ(OperationNotDefined({"<", std::string(253, 'l'), "> ", "+"}).Name(), "<" + std::string(253, 'l') + "> ");
}

TEST(TypeRegistry, CachesTheFiveTypesItKnowsByName) {
    EXPECT_EQ(Registry().WorldType()->Name(), "");
    EXPECT_EQ(Registry().IntegerType()->Name(), "integer");
    EXPECT_EQ(Registry().BooleanType()->Name(), "boolean");
    EXPECT_EQ(Registry().StringType()->Name(), "string");
    EXPECT_EQ(Registry().UndefinedType()->Name(), "undefined");
    EXPECT_EQ(Registry().WorldType(), Named(""));
    EXPECT_EQ(Named("no such type"), nullptr);
    EXPECT_EQ(Named("Integer"), nullptr);
}

TEST(TypeRegistry, ListsTypesInTheByteOrderOfTheirNames) {
    TestType last("zz");
    TestType upper("ZZ");
    const auto& types = Registry().Types();
    for (size_t i = 1; i < types.size(); ++i) {
        EXPECT_LT(std::string_view(types[i - 1]->name), types[i]->name);
    }
    EXPECT_EQ(types.size(), 7u);
}

TEST(TypeRegistry, ParentsAreResolvedByNameInWhateverOrderTheyCame) {
    TestType child("child", "parent");
    TestType parent("parent", "grandparent");
    TestType grandparent("grandparent");
    TestType orphan("orphan", "nobody");
    TestType odd("odd", "( (");
    ASSERT_NE(Named("child"), nullptr);
    EXPECT_EQ(Named("child")->parent, Named("parent"));
    EXPECT_EQ(Named("parent")->parent, Named("grandparent"));
    EXPECT_EQ(Named("grandparent")->parent, nullptr);
    EXPECT_EQ(Named("orphan")->parent, nullptr);
    EXPECT_EQ(Named("odd")->parent, nullptr);
    EXPECT_TRUE(Named("child")->IsA(Named("grandparent")));
    EXPECT_TRUE(Named("child")->IsA(Named("child")));
    EXPECT_FALSE(Named("parent")->IsA(Named("child")));
}

// ---- Properties -----------------------------------------------------------------------------------------------------

class Properties : public testing::Test {
protected:
    TestType base{"base"};
    TestType derived{"derived", "base"};
    TestType wide{"wide"};
    TestType narrow{"narrow", "wide"};

    const PropertyAssociation& Find(const char* object, const char* name, const char* index = "") {
        return Registry().Property(Named(object), name, Named(index));
    }
};

TEST_F(Properties, AreFoundByTheirSingularAndTheirPluralName) {
    TestProperty entry("entry", "entries", "", "base", "integer");
    EXPECT_EQ(Find("base", "entry").accessor, entry.Accessor());
    EXPECT_FALSE(Find("base", "entry").isPlural);
    EXPECT_EQ(Find("base", "entries").accessor, entry.Accessor());
    EXPECT_TRUE(Find("base", "entries").isPlural);
    for (const char* name : {"entr", "entrys", "Entry", "entry ", ""}) {
        EXPECT_EQ(UndefinedName([&] { Find("base", name); }), name);
    }
}

TEST_F(Properties, OfAParentAreFoundForADerivedTypeAndNotTheOtherWayRound) {
    TestProperty entry("entry", "entries", "", "base", "integer");
    TestProperty own("own", "owns", "", "derived", "integer");
    EXPECT_EQ(Find("derived", "entry").accessor, entry.Accessor());
    EXPECT_EQ(Find("derived", "own").accessor, own.Accessor());
    EXPECT_EQ(UndefinedName([&] { Find("base", "own"); }), "own");
}

TEST_F(Properties, OnesOwnHidesTheParents) {
    TestProperty ofBase("entry", "entries", "", "base", "integer");
    TestProperty ofDerived("entry", "entries", "", "derived", "string");
    EXPECT_EQ(Find("derived", "entry").accessor, ofDerived.Accessor());
    EXPECT_EQ(Find("derived", "entries").accessor, ofDerived.Accessor());
    EXPECT_EQ(Find("base", "entry").accessor, ofBase.Accessor());
}

TEST_F(Properties, TheClosestIndexTypeWinsOnOneObjectType) {
    TestProperty byWide("entry", "entries", "wide", "base", "integer");
    EXPECT_EQ(Find("base", "entry", "narrow").accessor, byWide.Accessor());
    TestProperty byNarrow("entry", "entries", "narrow", "base", "integer");
    EXPECT_EQ(Find("base", "entry", "narrow").accessor, byNarrow.Accessor());
    EXPECT_EQ(Find("base", "entry", "wide").accessor, byWide.Accessor());
    EXPECT_EQ(UndefinedName([&] { Find("base", "entry"); }), "entry");
    EXPECT_EQ(UndefinedName([&] { Find("base", "entry", "integer"); }), "entry");
}

TEST_F(Properties, TheObjectsOwnTypeBeatsACloserIndexOnItsParent) {
    TestProperty ofBase("entry", "entries", "narrow", "base", "integer");
    TestProperty ofDerived("entry", "entries", "wide", "derived", "integer");
    EXPECT_EQ(Find("derived", "entry", "narrow").accessor, ofDerived.Accessor());
    EXPECT_EQ(Find("base", "entry", "narrow").accessor, ofBase.Accessor());
}

TEST_F(Properties, OnesOwnOfAnotherIndexDoesNotHideTheParents) {
    TestProperty ofBase("entry", "entries", "", "base", "integer");
    TestProperty ofDerived("entry", "entries", "wide", "derived", "integer");
    EXPECT_EQ(Find("derived", "entry").accessor, ofBase.Accessor());
}

TEST_F(Properties, OfTheWorldAreGlobal) {
    TestProperty global("entry", "entries", "", "", "integer");
    TestProperty byIndex("entry", "entries", "wide", "", "integer");
    EXPECT_EQ(Registry().NamedGlobalProperty("entry", Named("")).accessor, global.Accessor());
    EXPECT_EQ(Registry().NamedGlobalProperty("entry", Named("narrow")).accessor, byIndex.Accessor());
    EXPECT_EQ(UndefinedName([&] { Find("base", "entry"); }), "entry");
}

TEST_F(Properties, TwoThatAreEqualAreKeptAndTheFirstIsFound) {
    TestProperty first("entry", "entries", "", "base", "integer");
    TestProperty second("entry", "entries", "", "base", "string");
    EXPECT_EQ(Find("base", "entry").accessor, first.Accessor());
    const TableSlice<const PropertyAssociation>& rows = Named("base")->properties;
    ASSERT_EQ(rows.end - rows.begin, 4);
}

TEST_F(Properties, ATypesSlicesHoldItsRowsAsObjectAndAsIndex) {
    TestProperty one("one", "ones", "wide", "base", "integer");
    TestProperty two("two", "twos", "", "base", "integer");
    TestProperty other("other", "others", "wide", "derived", "integer");
    EXPECT_EQ(Named("base")->properties.end - Named("base")->properties.begin, 0 + 4);
    EXPECT_EQ(Named("derived")->properties.end - Named("derived")->properties.begin, 0 + 2);
    EXPECT_EQ(Named("wide")->indexedProperties.end - Named("wide")->indexedProperties.begin, 0 + 4);
    EXPECT_EQ(Named("narrow")->indexedProperties.begin, nullptr);
    EXPECT_EQ(Registry().Properties().size(), 6u);
}

TEST_F(Properties, ANameThatNoTypeHasLeavesTheEntryOutWithoutAWord) {
    TestProperty index("a", "as", "nobody", "base", "integer");
    TestProperty object("b", "bs", "", "nobody", "integer");
    TestProperty result("c", "cs", "", "base", "nobody");
    TestProperty badList("d", "ds", "", "base", "( integer,string )");
    TestProperty badName("e", "es", "", "base", "nobody)");
    TestProperty mismatched("f", "fs", "", "base", "( (integer )");
    for (const char* name : {"a", "as", "c", "cs", "d", "e", "f"}) {
        EXPECT_EQ(UndefinedName([&] { Find("base", name); }), name);
    }
    EXPECT_TRUE(Registry().Properties().empty());
    TestType nobody("nobody");
    EXPECT_EQ(Find("base", "c").accessor, result.Accessor());
    EXPECT_EQ(Find("base", "a", "nobody").accessor, index.Accessor());
}

TEST_F(Properties, AnAggregateIsFoundOverWhicheverTypeHasOneIntegerFirst) {
    const GuardType* none = Named("");
    EXPECT_EQ(Registry().AggregateOfAnyType("total", none), nullptr);
    TestProperty plain("total", "totals", "", "integer", "integer");
    EXPECT_EQ(Registry().AggregateOfAnyType("total", none), nullptr);
    const auto found = [&] { return Registry().AggregateOfAnyType("total", Named(""))->accessor; };
    TestProperty wideOne("total", "totals", "", "wide", "integer", true);
    EXPECT_EQ(found(), wideOne.Accessor());
    TestProperty baseOne("total", "totals", "", "base", "integer", true);
    EXPECT_EQ(found(), baseOne.Accessor());
    TestProperty ofBoolean("total", "totals", "", "boolean", "integer", true);
    EXPECT_EQ(found(), ofBoolean.Accessor());
    TestProperty ofString("total", "totals", "", "string", "integer", true);
    EXPECT_EQ(found(), ofString.Accessor());
    {
        TestProperty other("sum", "sums", "", "integer", "integer", true);
        EXPECT_EQ(Registry().AggregateOfAnyType("sum", Named(""))->accessor, other.Accessor());
        EXPECT_TRUE(Registry().AggregateOfAnyType("sums", Named(""))->isPlural);
        EXPECT_EQ(Registry().AggregateOfAnyType("sum", Named("wide")), nullptr);
    }
}

// ---- Casts and operators --------------------------------------------------------------------------------------------

TEST_F(Properties, CastsAreFoundAlongTheSourcesChain) {
    TestCast ofBase("text", "base", "string");
    TestCast other("number", "base", "integer");
    EXPECT_EQ(&Registry().Cast(Named("derived"), "text"), ofBase.Definition());
    EXPECT_EQ(&Registry().Cast(Named("base"), "number"), other.Definition());
    TestCast ofDerived("text", "derived", "string");
    EXPECT_EQ(&Registry().Cast(Named("derived"), "text"), ofDerived.Definition());
    EXPECT_EQ(&Registry().Cast(Named("base"), "text"), ofBase.Definition());
    EXPECT_EQ(Registry().Cast(Named("base"), "text").resultType, Named("string"));
    EXPECT_EQ(UndefinedName([&] { Registry().Cast(Named("wide"), "text"); }), "text");
    EXPECT_EQ(UndefinedName([&] { Registry().Cast(Named("base"), "tex"); }), "tex");
    EXPECT_EQ(Registry().FindCast(Named("wide"), "text"), nullptr);
}

TEST_F(Properties, UnresolvedCastsAndOperatorsAreLeftOut) {
    TestCast source("text", "nobody", "string");
    TestCast target("text", "base", "nobody");
    TestUnary operand("nobody", "base");
    TestUnary result("base", "nobody");
    TestBinary left(kOperatorPlus, "nobody", "base", "base");
    TestBinary right(kOperatorPlus, "base", "nobody", "base");
    TestBinary value(kOperatorPlus, "base", "base", "nobody");
    EXPECT_TRUE(Registry().Casts().empty());
    EXPECT_TRUE(Registry().BinaryOperators().empty());
    EXPECT_EQ(UndefinedName([&] { Registry().Cast(Named("base"), "text"); }), "text");
    EXPECT_EQ(UndefinedName([&] { Registry().UnaryOperator(Named("base"), kUnaryMinus); }), "- <base>");
    EXPECT_EQ(UndefinedName([&] { Registry().BinaryOperator(Named("base"), kOperatorPlus, Named("base")); }),
              "<base> + <base>");
}

TEST_F(Properties, UnaryOperatorsAreFoundAlongTheChain) {
    TestUnary ofBase("base", "base");
    EXPECT_EQ(&Registry().UnaryOperator(Named("derived"), kUnaryMinus), ofBase.Accessor());
    TestUnary ofDerived("derived", "derived");
    EXPECT_EQ(&Registry().UnaryOperator(Named("derived"), kUnaryMinus), ofDerived.Accessor());
    EXPECT_EQ(&Registry().UnaryOperator(Named("base"), kUnaryMinus), ofBase.Accessor());
    EXPECT_EQ(UndefinedName([&] { Registry().UnaryOperator(Named("wide"), kUnaryMinus); }), "- <wide>");
}

TEST_F(Properties, AnUndefinedBinaryOperatorIsNamedByItsTypesAndItsSpelling) {
    const struct {
        int code;
        const char* text;
    } rows[] = {{kOperatorPlus, "<base> + <wide>"},
                {kOperatorMinus, "<base> - <wide>"},
                {kOperatorTimes, "<base> * <wide>"},
                {kOperatorDivide, "<base> / <wide>"},
                {kOperatorMod, "<base> % <wide>"},
                {kOperatorConcatenate, "<base> & <wide>"},
                {kOperatorEqual, "<base> = <wide>"},
                {kOperatorLess, "<base> < <wide>"},
                {kOperatorLessOrEqual, "<base> <= <wide>"},
                {kOperatorStartsWith, "<base> starts with <wide>"},
                {kOperatorEndsWith, "<base> ends with <wide>"},
                {kOperatorContains, "<base> contains <wide>"}};
    EXPECT_EQ(std::size(rows), static_cast<size_t>(kBinaryOperators));
    for (const auto& row : rows) {
        EXPECT_EQ(UndefinedName([&] { Registry().BinaryOperator(Named("base"), row.code, Named("wide")); }), row.text);
    }
}

class BinaryOperators : public Properties {
protected:
    const BinaryAccessor* Find(const char* left, const char* right) {
        return Registry().FindBinaryOperator(Named(left), kOperatorPlus, Named(right));
    }
};

TEST_F(BinaryOperators, AreFoundForTheExactPairOfTheirCodeAlone) {
    TestBinary plus(kOperatorPlus, "base", "wide", "base");
    EXPECT_EQ(Find("base", "wide"), plus.Accessor());
    EXPECT_EQ(Find("wide", "base"), nullptr);
    EXPECT_EQ(Registry().FindBinaryOperator(Named("base"), kOperatorMinus, Named("wide")), nullptr);
    EXPECT_EQ(plus.Accessor()->resultType, Named("base"));
}

TEST_F(BinaryOperators, AreFoundAlongBothChains) {
    TestBinary plus(kOperatorPlus, "base", "wide", "base");
    EXPECT_EQ(Find("derived", "wide"), plus.Accessor());
    EXPECT_EQ(Find("base", "narrow"), plus.Accessor());
    EXPECT_EQ(Find("derived", "narrow"), plus.Accessor());
}

TEST_F(BinaryOperators, TheClosestRightTypeWinsOnOneLeftType) {
    TestBinary plusWide(kOperatorPlus, "base", "wide", "base");
    TestBinary plusNarrow(kOperatorPlus, "base", "narrow", "base");
    EXPECT_EQ(Find("derived", "narrow"), plusNarrow.Accessor());
    EXPECT_EQ(Find("derived", "wide"), plusWide.Accessor());
}

TEST_F(BinaryOperators, ALeftTypeThatAcceptsAnyRightTypeComesBeforeItsParent) {
    TestBinary ofDerived(kOperatorPlus, "derived", "narrow", "base");
    TestBinary ofBase(kOperatorPlus, "base", "narrow", "base");
    EXPECT_EQ(Find("derived", "narrow"), ofDerived.Accessor());
    EXPECT_EQ(Find("base", "narrow"), ofBase.Accessor());
    EXPECT_EQ(Find("derived", "wide"), nullptr);
}

// The left type is settled by any right type, the right type by any left type behind it: that pair need not be a row.
TEST_F(BinaryOperators, WhereTheSettledPairIsNoRowTheOperatorIsNotDefined) {
    TestBinary ofDerived(kOperatorPlus, "derived", "wide", "base");
    TestBinary ofBase(kOperatorPlus, "base", "narrow", "base");
    EXPECT_EQ(Find("derived", "narrow"), nullptr);
    EXPECT_EQ(UndefinedName([&] { Registry().BinaryOperator(Named("derived"), kOperatorPlus, Named("narrow")); }),
              "<derived> + <narrow>");
    EXPECT_EQ(Find("derived", "wide"), ofDerived.Accessor());
    EXPECT_EQ(Find("base", "narrow"), ofBase.Accessor());
}

// ---- The blacklist --------------------------------------------------------------------------------------------------

class Blacklist : public Properties {
protected:
    ~Blacklist() override { Registry().SetBlacklist(""); }
    std::string Of(const char* object, const char* name, const char* index = "") {
        return BlacklistedName([&] { Find(object, name, index); });
    }

    TestProperty global{"entry", "entries", "", "", "integer"};
    TestProperty byIndex{"entry", "entries", "wide", "", "integer"};
    TestProperty ofObject{"entry", "entries", "", "base", "integer"};
    TestProperty both{"entry", "entries", "wide", "base", "integer"};
    TestCast cast{"text", "base", "string"};
    TestCast otherCast{"text", "wide", "string"};

    // Which of the five are forbidden, by the keys that they are told by.
    std::string Forbidden(bool plural) {
        const char* name = plural ? "entries" : "entry";
        std::string text;
        for (const std::string& key : {Of("", name), Of("", name, "wide"), Of("base", name), Of("base", name, "wide"),
                                       BlacklistedName([] { Registry().Cast(Named("base"), "text"); })}) {
            text += key == "allowed" ? "-" : key;
            text += ";";
        }
        return text;
    }
};

TEST_F(Blacklist, EachOfTheFiveFormsForbidsItsEntryByEitherName) {
    const struct {
        const char* singular;
        const char* plural;
        const char* toldBySingular;
        const char* toldByPlural;
    } rows[] = {
        {"entry", "entries", "entry;-;-;-;-;", "entries;-;-;-;-;"},
        {"entry <wide>", "entries <wide>", "-;entry <wide>;-;-;-;", "-;entries <wide>;-;-;-;"},
        {"entry of <base>", "entries of <base>", "-;-;entry of <base>;-;-;", "-;-;entries of <base>;-;-;"},
        {"entry <wide> of <base>", "entries <wide> of <base>", "-;-;-;entry <wide> of <base>;-;",
         "-;-;-;entries <wide> of <base>;-;"},
        {"<base> as text", "<base> as text", "-;-;-;-;<base> as text;", "-;-;-;-;<base> as text;"},
    };
    for (const auto& row : rows) {
        for (const char* key : {row.singular, row.plural}) {
            Registry().SetBlacklist(key);
            EXPECT_EQ(Forbidden(false), row.toldBySingular) << key;
            EXPECT_EQ(Forbidden(true), row.toldByPlural) << key;
        }
    }
}

TEST_F(Blacklist, SeveralItemsAreSeparatedBySemicolons) {
    Registry().SetBlacklist("nothing;entry;;<base> as text;entries <wide> of <base>;");
    EXPECT_EQ(Forbidden(false), "entry;-;-;entry <wide> of <base>;<base> as text;");
}

TEST_F(Blacklist, KeysAreComparedByteForByte) {
    for (const char* key : {"Entry", " entry", "entry ", "entry of<base>", "entry of base", "<base>  as text"}) {
        Registry().SetBlacklist(key);
        EXPECT_EQ(Forbidden(false), "-;-;-;-;-;") << key;
    }
}

TEST_F(Blacklist, EmptyingItAllowsEverything) {
    Registry().SetBlacklist("entry;entry <wide>;entry of <base>;entry <wide> of <base>;<base> as text");
    EXPECT_EQ(Forbidden(false), "entry;entry <wide>;entry of <base>;entry <wide> of <base>;<base> as text;");
    Registry().SetBlacklist("");
    EXPECT_EQ(Forbidden(false), "-;-;-;-;-;");
}

TEST_F(Blacklist, AnotherCastOfTheSameNameStays) {
    Registry().SetBlacklist("<base> as text");
    EXPECT_EQ(&Registry().Cast(Named("wide"), "text"), otherCast.Definition());
    EXPECT_EQ(BlacklistedName([] { Registry().Cast(Named("derived"), "text"); }), "<base> as text");
}

TEST_F(Blacklist, AForbiddenEntryOfADerivedTypeDoesNotUncoverItsParents) {
    TestProperty ofDerived("entry", "entries", "", "derived", "integer");
    Registry().SetBlacklist("entry of <derived>");
    EXPECT_EQ(Of("derived", "entry"), "entry of <derived>");
    EXPECT_EQ(Of("base", "entry"), "allowed");
}

TEST_F(Blacklist, StandsForEntriesThatComeLater) {
    Registry().SetBlacklist("later of <base>");
    TestProperty later("later", "laters", "", "base", "integer");
    EXPECT_EQ(Of("base", "later"), "later of <base>");
}

}  // namespace
