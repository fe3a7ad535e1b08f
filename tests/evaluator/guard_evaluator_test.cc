// The evaluator's door: feeding, stepping, resetting, converting, and what it leaves behind.
#include "evaluator/guard_evaluator.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "language/parse_errors.h"
#include "registry/type_registry.h"
#include "tests/evaluator/test_vocabulary.h"

namespace {

std::unique_ptr<GuardEvaluator> Ready(std::string_view text, InspectorContext* context = nullptr) {
    auto evaluator = std::make_unique<GuardEvaluator>(context);
    evaluator->Feed(text);
    evaluator->EndOfText();
    return evaluator;
}
int64_t Number(const void* value) { return static_cast<const number*>(value)->value; }

TEST(GuardEvaluator, GivesValuesOneAtATimeAndNullAtTheEnd) {
    auto evaluator = Ready("1;2");
    EXPECT_EQ(Number(evaluator->First()), 1);
    EXPECT_EQ(Number(evaluator->Next()), 2);
    EXPECT_EQ(evaluator->Next(), nullptr);
    auto single = Ready("7");
    EXPECT_TRUE(single->IsSingular());
    EXPECT_EQ(Number(single->First()), 7);
    EXPECT_EQ(single->Next(), nullptr);
}

TEST(GuardEvaluator, APluralWithoutValuesIsNoFailureAndASingularIs) {
    EXPECT_EQ(Ready("counts of 0")->First(), nullptr);
    EXPECT_THROW(Ready("count of 0")->First(), ArgumentDoesNotExist);
    EXPECT_THROW(Ready("9223372036854775808")->First(), ArgumentDoesNotExist);
    EXPECT_EQ(Number(Ready("9223372036854775807")->First()), 9223372036854775807);
}

TEST(GuardEvaluator, ASingularWithTwoValuesGivesTheFirstAndThenFails) {
    auto evaluator = Ready("count of 2");
    EXPECT_EQ(Number(evaluator->First()), 1);
    EXPECT_THROW(evaluator->Next(), ArgumentNotUnique);
    EXPECT_EQ(Number(evaluator->First()), 1);
    EXPECT_THROW(evaluator->Next(), ArgumentNotUnique);
}

TEST(GuardEvaluator, FirstAfterAFailureStartsAfresh) {
    Script::Set({1}, [] { throw TestFailure(); });
    auto evaluator = Ready("steps");
    EXPECT_EQ(Number(evaluator->First()), 1);
    EXPECT_THROW(evaluator->Next(), TestFailure);
    Script::Set({5, 6});
    EXPECT_EQ(Number(evaluator->First()), 5);
    EXPECT_EQ(Number(evaluator->Next()), 6);
    EXPECT_EQ(evaluator->Next(), nullptr);
}

TEST(GuardEvaluator, FirstWhileParkedStopsTheOldEvaluation) {
    Script::Set({1, 2, 3});
    auto evaluator = Ready("scripted tokens");
    evaluator->First();
    evaluator->Next();
    EXPECT_EQ(token::alive, 1);
    EXPECT_EQ(static_cast<token*>(evaluator->First())->value, 1);
    EXPECT_EQ(token::alive, 1);
    evaluator.reset();
    EXPECT_EQ(token::alive, 0);
    EXPECT_EQ(Script::statesAlive, 0);
}

TEST(GuardEvaluator, StoppingAnOldEvaluationMayFailAndTheNextFirstIsValid) {
    auto evaluator = Ready("double of count of 2");
    EXPECT_EQ(Number(evaluator->First()), 2);
    EXPECT_THROW(evaluator->First(), ArgumentNotUnique);
    EXPECT_EQ(Number(evaluator->First()), 2);
}

TEST(GuardEvaluator, IsResetFromEveryState) {
    GuardEvaluator evaluator(nullptr);
    const auto works = [&] {
        evaluator.Reset();
        evaluator.Feed("1 + 2");
        evaluator.EndOfText();
        EXPECT_EQ(Answer(evaluator), "3");
        evaluator.Reset();
    };
    works();  // Idle.
    evaluator.Feed("(1; scripted tokens of");
    works();  // In the middle of the text.
    EXPECT_THROW(evaluator.Feed("1 1 1"), std::exception);
    works();  // After a failure of parsing.
    evaluator.Feed("nonsense of scripted tokens");
    EXPECT_THROW(evaluator.EndOfText(), OperationNotDefined);
    works();  // After a failure of binding.
    evaluator.Feed("scripted tokens");
    evaluator.EndOfText();
    works();  // Bound.
    Script::Set({1, 2});
    evaluator.Feed("scripted tokens");
    evaluator.EndOfText();
    evaluator.First();
    EXPECT_EQ(token::alive, 1);
    works();  // Running.
    EXPECT_EQ(token::alive, 0);
    EXPECT_EQ(Script::statesAlive, 0);
    evaluator.Feed("1; broken");
    evaluator.EndOfText();
    evaluator.First();
    EXPECT_THROW(evaluator.Next(), TestFailure);
    works();  // Failed.
}

TEST(GuardEvaluator, TakesItsTextInPiecesCutAnywhere) {
    const std::string text = "(1; numbered 2 of (3)) whose (it > 1 /* so */ and exists \"a\")";
    for (size_t cut = 0; cut <= text.size(); ++cut) {
        GuardEvaluator evaluator(nullptr);
        evaluator.Feed(std::string_view(text).substr(0, cut));
        evaluator.Feed(std::string_view(text).substr(cut));
        evaluator.EndOfText();
        EXPECT_EQ(Answer(evaluator), "302") << cut;
    }
    GuardEvaluator evaluator(nullptr);
    for (const char c : text) {
        evaluator.Feed({&c, 1});
    }
    evaluator.EndOfText();
    EXPECT_EQ(Answer(evaluator), "302");
}

TEST(GuardEvaluator, LiteralsOutliveTheTextTheyCameFrom) {
    GuardEvaluator evaluator(nullptr);
    {
        std::string text = "\"kept\"; \"\"";
        evaluator.Feed(text);
        text.assign(text.size(), '?');
    }
    evaluator.EndOfText();
    EXPECT_EQ(static_cast<inspector_string*>(evaluator.First())->View(), "kept");
    EXPECT_EQ(static_cast<inspector_string*>(evaluator.Next())->View(), "");
}

// ---- Types and conversions ------------------------------------------------------------------------------------------

TEST(GuardEvaluator, TellsWhetherTheResultIsOfAType) {
    auto evaluator = Ready("special of 1");
    EXPECT_TRUE(evaluator->ResultIsA("special token"));
    EXPECT_TRUE(evaluator->ResultIsA("token"));
    EXPECT_FALSE(evaluator->ResultIsA("integer"));
    EXPECT_FALSE(evaluator->ResultIsA("no such type"));
    EXPECT_FALSE(Ready("token of 1")->ResultIsA("special token"));
    EXPECT_TRUE(Ready("1, true")->ResultIsA("( integer, boolean )"));
}

TEST(ConvertTo, AddsNothingToWhatIsOrDerivesFromTheType) {
    auto evaluator = Ready("special of 1");
    evaluator->ConvertTo("token", "no such cast");
    EXPECT_EQ(evaluator->ResultTypeName(), "special token");
    evaluator->ConvertTo("special token", "no such cast");
    EXPECT_EQ(Answer(*evaluator), "t1");
}

TEST(ConvertTo, ConvertsAndTellsBothTypes) {
    auto evaluator = Ready("1;2");
    evaluator->ConvertTo("string", "string");
    EXPECT_EQ(evaluator->ResultTypeName(), "string");
    EXPECT_EQ(evaluator->ParsedTypeName(), "integer");
    EXPECT_TRUE(evaluator->IsPlural());
    EXPECT_EQ(Answer(*evaluator), "1,2");
    evaluator->Reset();
    evaluator->Feed("true");
    evaluator->EndOfText();
    EXPECT_EQ(evaluator->ParsedTypeName(), "boolean");
}

TEST(ConvertTo, AValueThatDoesNotConvertEndsTheStream) {
    auto evaluator = Ready("1; -1; 2");
    evaluator->ConvertTo("string", "string");
    EXPECT_EQ(Answer(*evaluator), "1[ValueNotConverted]");
    EXPECT_EQ(Answer("(1; -1; 2) as string"), "1,2");
}

TEST(ConvertTo, AFailureLeavesTheExpressionAsItWas) {
    auto evaluator = Ready("1;2");
    for (int i = 0; i < 2000; ++i) {
        EXPECT_THROW(evaluator->ConvertTo("token", "no such cast"), OperationNotDefined);
        EXPECT_THROW(evaluator->ConvertTo("no such type", "string"), OperationNotDefined);
        try {
            evaluator->ConvertTo("token", "string");
            FAIL();
        } catch (const ConversionHasWrongType& e) {
            EXPECT_EQ(e.CastName(), "string");
            EXPECT_EQ(e.target, TypeRegistry::Instance().TypeByName("token"));
        }
    }
    EXPECT_EQ(evaluator->ResultTypeName(), "integer");
    EXPECT_EQ(Answer(*evaluator), "1,2");
    evaluator->ConvertTo("token", "token");
    EXPECT_EQ(Answer(*evaluator), "t1,t2");
}

TEST(ConvertTo, AForbiddenCastIsToldAsSuch) {
    auto evaluator = Ready("1");
    TypeRegistry::Instance().SetBlacklist("<integer> as string");
    EXPECT_THROW(evaluator->ConvertTo("string", "string"), InspectorBlacklisted);
    EXPECT_EQ(Compiled("1 as string"), "[InspectorBlacklisted]");
    TypeRegistry::Instance().SetBlacklist("");
    evaluator->ConvertTo("string", "string");
    EXPECT_EQ(Answer(*evaluator), "1");
}

std::string Tupled(std::string_view text, std::vector<std::string_view> kept, std::string_view target,
                   std::string_view cast, std::string* type = nullptr) {
    auto evaluator = Ready(text);
    try {
        evaluator->ConvertToTuple(kept.data(), kept.size(), target, cast);
    } catch (...) {
        EXPECT_EQ(evaluator->ResultTypeName(), evaluator->ParsedTypeName());
        Answer(*evaluator);
        return "bind" + FailureName();
    }
    if (type != nullptr) {
        *type = evaluator->ResultTypeName();
    }
    const int alive = token::alive;
    const std::string answer = Answer(*evaluator);
    EXPECT_EQ(Answer(*evaluator), answer);
    EXPECT_EQ(token::alive, alive);
    return answer;
}

TEST(ConvertToTuple, ConvertsTheElementsOfOtherTypesThanTheKeptOnes) {
    std::string type;
    EXPECT_EQ(Tupled("1, \"a\", 2", {"string"}, "token", "token", &type), "(t1 a t2)");
    EXPECT_EQ(type, "( token, string, token )");
    EXPECT_EQ(Tupled("1, (2, \"a\"), true", {"string", "boolean"}, "token", "token", &type), "(t1 (t2 a) true)");
    EXPECT_EQ(type, "( token, ( token, string ), boolean )");
    EXPECT_EQ(Tupled("(1;2), (3;4)", {}, "token", "token"), "(t1 t3),(t1 t4),(t2 t3),(t2 t4)");
    EXPECT_EQ(Tupled("5", {"string"}, "token", "token", &type), "t5");
    EXPECT_EQ(type, "token");
}

TEST(ConvertToTuple, AddsNothingWhereAllElementsAreKept) {
    std::string type;
    EXPECT_EQ(Tupled("1, special of 2", {"integer", "token"}, "token", "no such cast", &type), "(1 t2)");
    EXPECT_EQ(type, "( integer, special token )");
}

TEST(ConvertToTuple, TheRebuiltTypeHasTheKeptPartsOfTheOldOne) {
    auto evaluator = Ready("1, (\"a\", \"b\")");
    const std::string_view kept[] = {"string"};
    evaluator->ConvertToTuple(kept, 1, "token", "token");
    EXPECT_TRUE(evaluator->ResultIsA("( token, ( string, string ) )"));
    EXPECT_EQ(evaluator->ParsedTypeName(), "( integer, ( string, string ) )");
}

TEST(ConvertToTuple, AnElementThatDoesNotConvertEndsTheStream) {
    EXPECT_EQ(Tupled("(1; -1; 2), \"a\"", {"string"}, "token", "token"), "(t1 a)[ValueNotConverted]");
    EXPECT_EQ(Tupled("(1; -1; 2), 3", {}, "token", "token"), "(t1 t3)[ValueNotConverted]");
    EXPECT_EQ(Tupled("3, (1; -1; 2)", {}, "token", "token"), "(t3 t1)[ValueNotConverted]");
    EXPECT_EQ(Tupled("1, 13", {}, "integer", "failing"), "[TestFailure]");
}

TEST(ConvertToTuple, FailsAtOnceWhereACastIsMissingOrGivesAnotherType) {
    EXPECT_EQ(Tupled("1, \"a\"", {}, "token", "token"), "bind[OperationNotDefined token]");
    EXPECT_EQ(Tupled("1, \"a\"", {"string"}, "token", "string"), "bind[ConversionHasWrongType]");
    EXPECT_EQ(Tupled("1, 2", {"no such type"}, "token", "token"), "bind[OperationNotDefined no such type]");
}

// ---- Context and allocator ------------------------------------------------------------------------------------------

TEST(GuardEvaluator, EveryOperationPutsBackWhatWasInstalled) {
    InspectorContext outer;
    InspectorContext own;
    InterruptingContext interrupter;
    StackAllocator<64> memory;
    const InspectorContextMaintainer context(&outer);
    const AllocatorInstaller allocator(memory);
    InspectorContextMaintainer::currentInterrupter.Set(&interrupter);
    const auto untouched = [&] {
        EXPECT_EQ(InspectorContextMaintainer::current.Get(), &outer);
        EXPECT_EQ(InspectorContextMaintainer::currentInterrupter.Get(), &interrupter);
        EXPECT_EQ(currentAllocator.Get(), &memory);
    };
    static InspectorContext* seen;
    static StackAllocatorBase* seenAllocator;
    seen = nullptr;
    Script::Set({1}, [] {
        seen = InspectorContextMaintainer::current.Get();
        seenAllocator = currentAllocator.Get();
        throw TestFailure();
    });
    {
        GuardEvaluator evaluator(&own);
        evaluator.Feed("steps");
        untouched();
        evaluator.EndOfText();
        untouched();
        evaluator.First();
        untouched();
        EXPECT_THROW(evaluator.Next(), TestFailure);
        untouched();
        EXPECT_EQ(seen, &own);
        EXPECT_NE(seenAllocator, &memory);
        EXPECT_NE(seenAllocator, nullptr);
        EXPECT_THROW(evaluator.ConvertTo("token", "nothing"), OperationNotDefined);
        untouched();
        evaluator.ConvertTo("string", "string");
        untouched();
        evaluator.First();
        evaluator.Reset();
        untouched();
        EXPECT_THROW(evaluator.Feed("1 1 1"), std::exception);
        untouched();
        evaluator.Reset();
        evaluator.Feed("nonsense of 1");
        EXPECT_THROW(evaluator.EndOfText(), OperationNotDefined);
        untouched();
    }
    untouched();
}

}  // namespace
