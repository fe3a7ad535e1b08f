#include "console/guard_receiver.h"

#include <gtest/gtest.h>

#include <string_view>

#include "foundation/const_data.h"
#include "language/parse_errors.h"
#include "registry/core_values.h"

namespace {

class CountingContext final : public InspectorContext, public InspectorInterrupterPort {
public:
    void RestartClock() override {
        ++restarts;
        if (failing) {
            throw InspectorInterruption();
        }
    }
    int restarts = 0;
    bool failing = false;
};

void Give(zendryGuardReceiver& receiver, std::string_view text) {
    const ConstData data(text);
    receiver.Data(data.begin, data.end);
}

bool FirstIsTrue(zendryGuardReceiver& receiver) {
    const void* value = receiver.Engine().First();
    return value != nullptr && *static_cast<const boolean*>(value);
}

TEST(GuardReceiver, IsOkAndNotStartedAtFirst) {
    zendryGuardReceiver receiver(nullptr);
    EXPECT_TRUE(receiver.Ok());
    EXPECT_FALSE(receiver.Started());
}

TEST(GuardReceiver, ReadsATextInParentheses) {
    zendryGuardReceiver receiver(nullptr);
    receiver.Start();
    EXPECT_TRUE(receiver.Started());
    Give(receiver, "1 ");
    Give(receiver, "= 1");
    receiver.Finish();
    receiver.Close();
    EXPECT_TRUE(receiver.Ok());
    EXPECT_TRUE(FirstIsTrue(receiver));
}

TEST(GuardReceiver, JoinsLaterClausesAsAConjunction) {
    for (const bool second : {true, false}) {
        zendryGuardReceiver receiver(nullptr);
        receiver.Start();
        Give(receiver, "true or true");
        receiver.Finish();
        receiver.Start();
        Give(receiver, second ? "false or true" : "false or false");
        receiver.Finish();
        receiver.Close();
        EXPECT_EQ(FirstIsTrue(receiver), second);
    }
}

TEST(GuardReceiver, RestartsTheClockOnceForAQuestion) {
    CountingContext context;
    zendryGuardReceiver receiver(&context);
    EXPECT_EQ(context.restarts, 0);
    receiver.Start();
    Give(receiver, "true");
    receiver.Finish();
    receiver.Start();
    EXPECT_EQ(context.restarts, 1);
    receiver.Reset();
    receiver.Start();
    EXPECT_EQ(context.restarts, 2);
}

TEST(GuardReceiver, IsNotStartedWhereTheClockFails) {
    CountingContext context;
    context.failing = true;
    zendryGuardReceiver receiver(&context);
    EXPECT_THROW(receiver.Start(), InspectorInterruption);
    EXPECT_FALSE(receiver.Started());
    EXPECT_TRUE(receiver.Ok());
    receiver.Close();
    EXPECT_TRUE(receiver.Ok());
}

TEST(GuardReceiver, TakesNothingMoreAfterAFailure) {
    zendryGuardReceiver receiver(nullptr);
    receiver.Start();
    EXPECT_THROW(Give(receiver, "1 ?"), UnexpectedCharacter);
    EXPECT_FALSE(receiver.Ok());
    Give(receiver, "? ? ?");
    receiver.Finish();
    receiver.Close();
    receiver.Start();
    EXPECT_FALSE(receiver.Ok());
}

TEST(GuardReceiver, AFailureOfTheClosingParenthesisPassesOn) {
    zendryGuardReceiver receiver(nullptr);
    receiver.Start();
    Give(receiver, "and");
    EXPECT_THROW(receiver.Finish(), ParsingFailure);
    EXPECT_FALSE(receiver.Ok());
}

TEST(GuardReceiver, AFailureOfTheBindingPassesOnFromClose) {
    zendryGuardReceiver receiver(nullptr);
    receiver.Start();
    Give(receiver, "no such thing");
    receiver.Finish();
    EXPECT_TRUE(receiver.Ok());
    EXPECT_THROW(receiver.Close(), OperationNotDefined);
    EXPECT_FALSE(receiver.Ok());
}

TEST(GuardReceiver, ClosesOnce) {
    zendryGuardReceiver receiver(nullptr);
    receiver.Start();
    Give(receiver, "true");
    receiver.Finish();
    receiver.Close();
    receiver.Close();
    EXPECT_TRUE(FirstIsTrue(receiver));
}

TEST(GuardReceiver, ResetMakesReadyForAnotherQuestionFromEveryState) {
    zendryGuardReceiver receiver(nullptr);
    const auto answersTrue = [&] {
        receiver.Reset();
        EXPECT_TRUE(receiver.Ok());
        EXPECT_FALSE(receiver.Started());
        receiver.Start();
        Give(receiver, "1 + 1 = 2");
        receiver.Finish();
        receiver.Close();
        return FirstIsTrue(receiver);
    };
    EXPECT_TRUE(answersTrue());
    EXPECT_TRUE(answersTrue()) << "in the middle of an evaluation";
    receiver.Reset();
    receiver.Start();
    Give(receiver, "((((1 + \"half a string");
    EXPECT_TRUE(answersTrue()) << "in the middle of a text";
    receiver.Reset();
    receiver.Start();
    EXPECT_THROW(Give(receiver, ") "), ParsingFailure);
    EXPECT_TRUE(answersTrue()) << "after a failure of the text";
    receiver.Reset();
    receiver.Start();
    Give(receiver, "no such thing");
    receiver.Finish();
    EXPECT_THROW(receiver.Close(), OperationNotDefined);
    EXPECT_TRUE(answersTrue()) << "after a failure of the binding";
}

}  // namespace
