// What inspectors ask of their host: the scopes of contexts, the interfaces, and interruption at its few places.
#include "evaluator/inspector_context.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "tests/evaluator/test_vocabulary.h"

namespace {

struct Lacking : InspectorDefinedError {
    Lacking() noexcept : InspectorDefinedError("Lacking") {}
};
class StorageHost : public InspectorContext, public InspectorStorageContext {};

TEST(ContextInterface, IsTheInterfaceOrOneOfTwoFailures) {
    EXPECT_THROW((ContextInterface<InspectorStorageContext, Lacking>()), NoInspectorContext);
    InspectorContext bare;
    {
        const InspectorContextMaintainer installed(&bare);
        EXPECT_THROW((ContextInterface<InspectorStorageContext, Lacking>()), Lacking);
    }
    StorageHost host;
    const InspectorContextMaintainer installed(&host);
    EXPECT_EQ((&ContextInterface<InspectorStorageContext, Lacking>()), &host);
}

TEST(InspectorContextMaintainer, ScopesNest) {
    InspectorContext outer;
    InspectorContext inner;
    {
        const InspectorContextMaintainer first(&outer);
        EXPECT_EQ(InspectorContextMaintainer::current.Get(), &outer);
        {
            const InspectorContextMaintainer second(&inner);
            EXPECT_EQ(InspectorContextMaintainer::current.Get(), &inner);
            const InspectorContextMaintainer none(nullptr);
            EXPECT_EQ(InspectorContextMaintainer::current.Get(), nullptr);
        }
        EXPECT_EQ(InspectorContextMaintainer::current.Get(), &outer);
        EXPECT_THROW(
            {
                const InspectorContextMaintainer second(&inner);
                throw std::runtime_error("passing");
            },
            std::runtime_error);
        EXPECT_EQ(InspectorContextMaintainer::current.Get(), &outer);
    }
    EXPECT_EQ(InspectorContextMaintainer::current.Get(), nullptr);
}

TEST(InspectorContextMaintainer, AnotherContextClearsTheInterrupterAndTheSameOneKeepsIt) {
    InterruptingContext context;
    InspectorContext other;
    const InspectorContextMaintainer outer(&context);
    EXPECT_EQ(&CurrentInterrupter(), &context);
    {
        const InspectorContextMaintainer same(&context);
        EXPECT_EQ(InspectorContextMaintainer::currentInterrupter.Get(), &context);
        InterruptingContext temporary;
        InspectorContextMaintainer::currentInterrupter.Set(&temporary);
    }
    EXPECT_EQ(InspectorContextMaintainer::currentInterrupter.Get(), &context);
    {
        const InspectorContextMaintainer different(&other);
        EXPECT_EQ(InspectorContextMaintainer::currentInterrupter.Get(), nullptr);
        EXPECT_TRUE(CurrentInterrupter().ShouldContinue());
        CurrentInterrupter().Interrupted();
        EXPECT_EQ(InspectorContextMaintainer::currentInterrupter.Get(), &CurrentInterrupter());
    }
    EXPECT_EQ(InspectorContextMaintainer::currentInterrupter.Get(), &context);
}

TEST(CheckForInterruption, InterruptsWhereTheInterrupterSaysSo) {
    InterruptingContext context;
    const InspectorContextMaintainer installed(&context);
    context.interruptAt = 2;
    EXPECT_NO_THROW(CheckForInterruption());
    EXPECT_THROW(CheckForInterruption(), InspectorInterruption);
    EXPECT_NO_THROW(CheckForInterruption());
    EXPECT_EQ(context.checks, 3);
}

// ---- Where an evaluation checks -------------------------------------------------------------------------------------

int Checks(std::string_view text) {
    InterruptingContext context;
    GuardEvaluator evaluator(&context);
    evaluator.Feed(text);
    evaluator.EndOfText();
    Answer(evaluator);
    return context.checks;
}

TEST(Interruption, IsCheckedForAtEachIteratedValueAfterTheFirst) {
    EXPECT_EQ(Checks("1;2;3"), 0);
    EXPECT_EQ(Checks("counts of 1"), 0);
    EXPECT_EQ(Checks("counts of 5"), 4);
    EXPECT_EQ(Checks("counts of (5;5)"), 8);
    EXPECT_EQ(Checks("doubles of (1;2;3)"), 0);
    EXPECT_EQ(Checks("sum of (1;2;3)"), 0);
    EXPECT_EQ(Checks("countdowns of (1;2;3)"), 5);
    EXPECT_EQ(Checks("sixes of (1;2)"), 1 + 1 + 1 + 1);
}

std::string Repeated(std::string_view item, int count) {
    std::string text(item);
    for (int i = 1; i < count; ++i) {
        text.append(";").append(item);
    }
    return "(" + text + ")";
}

TEST(Interruption, IsCheckedForAfterEach256CandidatesAndEach256ValuesOfACondition) {
    EXPECT_EQ(Checks(Repeated("1", 255) + " whose (false)"), 0);
    EXPECT_EQ(Checks(Repeated("1", 256) + " whose (false)"), 1);
    EXPECT_EQ(Checks(Repeated("1", 511) + " whose (false)"), 1);
    EXPECT_EQ(Checks(Repeated("1", 512) + " whose (false)"), 2);
    EXPECT_EQ(Checks("1 whose " + Repeated("true", 255)), 0);
    EXPECT_EQ(Checks("1 whose " + Repeated("true", 256)), 1);
    EXPECT_EQ(Checks("1 whose " + Repeated("true", 600)), 2);
}

std::string Interrupted(std::string_view text, int at) {
    InterruptingContext context;
    context.interruptAt = at;
    GuardEvaluator evaluator(&context);
    evaluator.Feed(text);
    evaluator.EndOfText();
    const std::string answer = Answer(evaluator);
    EXPECT_EQ(token::alive, 0);
    // The interrupter spoke once; the evaluation can be had again, whole.
    const std::string whole = Answer(evaluator);
    return answer + " / " + whole;
}

TEST(Interruption, EndsTheEvaluationWhereItIsCheckedFor) {
    EXPECT_EQ(Interrupted("counts of 3", 1), "1[InspectorInterruption] / 1,2,3");
    EXPECT_EQ(Interrupted("counts of 3", 2), "1,2[InspectorInterruption] / 1,2,3");
    Script::Set({1, 2, 3});
    EXPECT_EQ(Interrupted("scripted tokens", 2), "t1,t2[InspectorInterruption] / t1,t2,t3");
    EXPECT_EQ(Interrupted(Repeated("1", 256) + " whose (false)", 1), "[InspectorInterruption] / ");
}

TEST(Interruption, PassesAConditionAndIsSwallowedByTheLeftOfTheBar) {
    EXPECT_EQ(Interrupted("(1;2) whose (number of counts of 3 = 3)", 1), "[InspectorInterruption] / 1,2");
    EXPECT_EQ(Interrupted("(1;2) whose (number of counts of 3 = 3)", 3), "1[InspectorInterruption] / 1,2");
    EXPECT_EQ(Interrupted("number of counts of 3 | 9", 1), "9 / 3");
    EXPECT_EQ(Interrupted("9 whose (number of counts of 3 | 3 = 3)", 1), "9 / 9");
}

}  // namespace
