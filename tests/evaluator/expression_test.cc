// The two holders that every node works with, and the common type of two.
#include "evaluator/expression.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/evaluator/scripted_expression.h"

namespace {

using Step = ScriptedStep;

int destroyed = 0;

TEST(ValueSlot, ClearingForgetsTheValueAndDestroysIt) {
    destroyed = 0;
    int value = 0;
    ValueSlot slot;
    slot.destroy = [](void*) { ++destroyed; };
    slot.Clear();
    EXPECT_EQ(destroyed, 0);
    slot.value = &value;
    slot.Clear();
    EXPECT_EQ(slot.value, nullptr);
    EXPECT_EQ(destroyed, 1);
    slot.Clear();
    EXPECT_EQ(destroyed, 1);
}

TEST(ValueSlot, ADestructorThatThrowsLeavesNoDeadValue) {
    static ValueSlot slot;
    static void* seen;
    int value = 0;
    slot.value = &value;
    slot.destroy = [](void*) {
        seen = slot.value;
        throw std::runtime_error("destructor");
    };
    seen = &value;
    slot.Clear();
    EXPECT_EQ(slot.value, nullptr);
    EXPECT_EQ(seen, nullptr);
}

TEST(ValueSlot, ABorrowedValueIsOnlyForgotten) {
    int value = 0;
    ValueSlot slot;
    slot.value = &value;
    slot.Clear();
    EXPECT_EQ(slot.value, nullptr);
}

TEST(ValueSlot, ReservesWhatTheTypesValuesTake) {
    StackAllocator<64> memory;
    memory.Allocate(4);
    GuardType type{"wide", 1, 32, 16, [](void*) {}, nullptr, nullptr};
    char* const before = memory.Top();
    ValueSlot slot;
    slot.Reserve(&type, memory);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(slot.storage) % 16, 0u);
    EXPECT_GE(memory.Top() - before, 32);
    EXPECT_EQ(slot.destroy, type.destroy);
    EXPECT_EQ(slot.value, nullptr);
}

// ---- TentativeValue -------------------------------------------------------------------------------------------------

struct Child {
    explicit Child(std::vector<Step> steps, bool plural) : node(std::move(steps), plural) {
        node.Bind(nullptr, memory);
    }
    ~Child() { EXPECT_EQ(node.violations, 0); }
    StackAllocator<64> memory;
    ScriptedExpression node;
};

TEST(TentativeValue, ItsEndStopsAChildThatHoldsAValue) {
    Child child({{Step::Value, 1}}, true);
    {
        TentativeValue hold(&child.node);
        EXPECT_EQ(hold.TryFirst(), StatusOk);
        EXPECT_TRUE(child.node.Parked());
    }
    EXPECT_FALSE(child.node.Parked());
    EXPECT_EQ(child.node.stops, 1);
}

TEST(TentativeValue, AReleasedChildStaysParked) {
    Child child({{Step::Value, 1}}, true);
    {
        TentativeValue hold(&child.node);
        EXPECT_EQ(hold.TryFirst(), StatusOk);
        hold.Release();
    }
    EXPECT_TRUE(child.node.Parked());
    EXPECT_EQ(child.node.stops, 0);
}

TEST(TentativeValue, AChildWithoutAValueIsStoppedAlready) {
    for (const Step& step : {Step{Step::End}, Step{Step::Status, StatusNotUnique}, Step{Step::Throw}}) {
        Child child({step}, true);
        try {
            TentativeValue hold(&child.node);
            hold.TryFirst();
        } catch (const TestFailure&) {
            EXPECT_EQ(step.kind, Step::Throw);
        }
        EXPECT_EQ(child.node.stops, 0);
    }
}

TEST(TentativeValue, AnExceptionThatPassesStopsTheChild) {
    Child child({{Step::Value, 1}}, false);
    EXPECT_THROW(
        {
            TentativeValue hold(&child.node);
            EXPECT_EQ(hold.TryFirst(), StatusOk);
            throw std::runtime_error("passing");
        },
        std::runtime_error);
    EXPECT_EQ(child.node.stops, 1);
}

TEST(TentativeValue, ASingularChildMustHaveAFirstValueAndNoSecond) {
    Child none({}, false);
    EXPECT_EQ(TentativeValue(&none.node).TryFirst(), StatusDoesNotExist);
    Child two({{Step::Value, 1}, {Step::Value, 2}}, false);
    {
        TentativeValue hold(&two.node);
        EXPECT_EQ(hold.TryFirst(), StatusOk);
        EXPECT_EQ(hold.TryNext(), StatusNotUnique);
    }
    EXPECT_FALSE(two.node.Parked());
    Child one({{Step::Value, 1}}, false);
    TentativeValue hold(&one.node);
    EXPECT_EQ(hold.TryFirst(), StatusOk);
    EXPECT_EQ(hold.TryNext(), StatusOk);
}

TEST(TentativeValue, APluralChildMayHaveNoneOrMany) {
    Child none({}, true);
    EXPECT_EQ(TentativeValue(&none.node).TryFirst(), StatusOk);
    Child two({{Step::Value, 1}, {Step::Value, 2}}, true);
    TentativeValue hold(&two.node);
    EXPECT_EQ(hold.TryFirst(), StatusOk);
    EXPECT_EQ(hold.TryNext(), StatusOk);
    EXPECT_EQ(hold.TryNext(), StatusOk);
}

TEST(TentativeValue, TheChildsOwnStatusComesFirst) {
    Child first({{Step::Status, StatusNotConverted}}, false);
    EXPECT_EQ(TentativeValue(&first.node).TryFirst(), StatusNotConverted);
    Child next({{Step::Value, 1}, {Step::Status, StatusDoesNotExist}}, false);
    TentativeValue hold(&next.node);
    EXPECT_EQ(hold.TryFirst(), StatusOk);
    EXPECT_EQ(hold.TryNext(), StatusDoesNotExist);
}

TEST(TentativeValue, FinishingStepsASingularChildAndStopsAPluralOne) {
    Child singular({{Step::Value, 1}, {Step::Value, 2}}, false);
    {
        TentativeValue hold(&singular.node);
        hold.TryFirst();
        EXPECT_EQ(hold.TryFinish(), StatusNotUnique);
    }
    EXPECT_EQ(singular.node.stops, 1);
    Child plural({{Step::Value, 1}, {Step::Throw}}, true);
    TentativeValue hold(&plural.node);
    hold.TryFirst();
    plural.node.stopStatus = StatusNotUnique;
    EXPECT_EQ(hold.TryFinish(), StatusNotUnique);
    EXPECT_EQ(plural.node.stops, 1);
}

TEST(TentativeValue, SingularityIsThatOfTheMomentItWasMadeAt) {
    Child child({{Step::Value, 1}, {Step::Value, 2}}, false);
    TentativeValue hold(&child.node);
    child.node.ForcePlural();
    EXPECT_TRUE(hold.singular);
    EXPECT_FALSE(TentativeValue(&child.node).singular);
}

class ThrowsWhenStopped final : public Expression {
public:
    EvaluationStatus TryFirst() override {
        slot_.value = this;
        return StatusOk;
    }
    EvaluationStatus TryNext() override { return StatusOk; }
    EvaluationStatus TryStop() override {
        slot_.value = nullptr;
        throw std::runtime_error("stopping");
    }
    void AddDependencies(Fingerprinter&) override {}
    void Bind(Expression*, StackAllocatorBase&) override {}
};

TEST(TentativeValue, WhatAbandoningThrowsIsLost) {
    ThrowsWhenStopped child;
    EXPECT_THROW(
        {
            TentativeValue hold(&child);
            hold.TryFirst();
            throw TestFailure();
        },
        TestFailure);
    EXPECT_EQ(child.Value(), nullptr);
}

// ---- Common types ---------------------------------------------------------------------------------------------------

TEST(CommonType, IsTheFirstOfTheLeftChainThatTheRightDerivesFrom) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    const GuardType* token = registry.TypeByName("token");
    const GuardType* special = registry.TypeByName("special token");
    const GuardType* undefinedType = registry.UndefinedType();
    EXPECT_EQ(CommonType(token, token), token);
    EXPECT_EQ(CommonType(token, special), token);
    EXPECT_EQ(CommonType(special, token), token);
    EXPECT_EQ(CommonType(undefinedType, token), token);
    EXPECT_EQ(CommonType(token, undefinedType), token);
    EXPECT_EQ(CommonType(undefinedType, undefinedType), undefinedType);
    try {
        CommonType(token, registry.IntegerType());
        FAIL();
    } catch (const IncompatibleTypes& e) {
        EXPECT_EQ(e.first, token);
        EXPECT_EQ(e.second, registry.IntegerType());
    }
}

}  // namespace
