// The agent's services, by a table in which one of them runs.
#include <gtest/gtest.h>

#include "tests/host/host_processes.h"
#include "tests/inspectors/ask.h"

namespace {

struct ProcessTableHost : InspectorContext, HostProcesses {};

class Services : public testing::Test {
protected:
    Services() { host_.runs = {{10, 0, 0, true, "/opt/agent/OSLRelay"}, {11, 0, 0, false, "/opt/agent/OSLGather"}}; }

    Answer AskHost(std::string_view question) { return Ask(question, &host_); }

    ProcessTableHost host_;
};

TEST_F(Services, AreFiveNamesOfWhichOneRuns) {
    EXPECT_EQ(AskHost("(it, state of it, running of it) of services (\"OSLAgent\"; \"OSLClient\"; \"OSLGather\"; "
                      "\"OSLRelay\"; \"OSLRootServer\"; \"\"; \"oslrelay\"; \"OSLRelay2\")"),
              Values({"OSLAgent, Stopped, False", "OSLClient, Stopped, False", "OSLGather, Stopped, False",
                      "OSLRelay, Running, True", "OSLRootServer, Stopped, False"}));
    EXPECT_EQ(AskHost("service \"x\""), DoesNotExist());
    EXPECT_EQ(AskHost("state of service \"OSLRelay\""), Values({"Running"}));
    EXPECT_EQ(AskHost("states of services \"OSLRelay\""), Values({"Running"}));
    EXPECT_EQ(AskHost("runnings of services \"OSLAgent\""), Values({"False"}));
}

TEST_F(Services, TheTwoOfTheirOwnPhrases) {
    EXPECT_EQ(AskHost("(relay service as string, running of relay service)"), Values({"OSLRelay, True"}));
    EXPECT_EQ(AskHost("relay services"), Values({"OSLRelay"}));
    EXPECT_EQ(AskHost("(main gather service as string, running of main gather service)"), Values({"OSLGather, False"}));
    EXPECT_EQ(AskHost("main gather services"), Values({"OSLGather"}));
}

TEST_F(Services, RunningServiceIsOnlyThereWhileItRuns) {
    EXPECT_EQ(AskHost("running service \"OSLRelay\""), Values({"OSLRelay"}));
    EXPECT_EQ(AskHost("running service \"OSLGather\""), DoesNotExist());
    EXPECT_EQ(AskHost("running services (\"OSLAgent\"; \"OSLRelay\"; \"x\")"), Values({"OSLRelay"}));
}

TEST_F(Services, HaveNoVersion) {
    EXPECT_EQ(AskHost("exists version of relay service"), Values({"False"}));
    EXPECT_EQ(AskHost("versions of relay services"), Nothing());
}

TEST_F(Services, WhatTheHostLacksIsSaid) {
    InspectorContext bare;
    for (const std::string question :
         {"relay service", "main gather service", "service \"OSLAgent\"", "running services \"OSLAgent\""}) {
        EXPECT_EQ(Ask(question), Fails("NoInspectorContext")) << question;
        EXPECT_EQ(Ask(question, &bare), Fails("NoInspectorContext")) << question;
        host_.processActiveByName = nullptr;
        EXPECT_EQ(AskHost(question), Fails("InspectorProcessTableContextError")) << question;
    }
}

}  // namespace
