// The servers of the last registration, told by a host that has registered, and by hosts that lack something.
#include <gtest/gtest.h>

#include "tests/host/host_registration.h"
#include "tests/inspectors/ask.h"

namespace {

constexpr int64_t kMicroseconds = 1000000;

struct RegistrationHost : InspectorContext, HostRegistration {};

class Registration : public testing::Test {
protected:
    Answer AskHost(std::string_view question) { return Ask(question, &host_); }

    RegistrationHost host_;
};

// Each phrase, singular and plural, of what is asked about.
const std::vector<std::string> kQuestions = {
    "apparent registration server time",
    "apparent registration server times",
    "last relay select time",
    "last relay select times",
    "now of registration server",
    "nows of registration servers",
    "version of registration server",
    "versions of registration servers",
    "name of registration server",
    "names of registration servers",
    "version of current relay",
    "versions of current relays",
    "name of download server",
    "names of download servers",
    "id of root server",
    "ids of root servers",
    "host name of root server",
    "host names of root servers",
};

TEST_F(Registration, EveryPropertyTellsItsField) {
    host_.told = {920937600 * kMicroseconds,
                  920974272 * kMicroseconds,
                  "report.example",
                  "9.2.1",
                  "8.1",
                  "relay.example",
                  "root.example.com",
                  4711};
    const std::string apparent = "(it = \"Tue, 09 Mar 1999 00:00:00 +0000\" as time) of ";
    const std::string select = "(it = \"Tue, 09 Mar 1999 10:11:12 +0000\" as time) of ";
    const std::pair<std::string, std::string> expected[] = {
        {apparent + kQuestions[0], "True"},
        {apparent + kQuestions[1], "True"},
        {select + kQuestions[2], "True"},
        {select + kQuestions[3], "True"},
        {apparent + kQuestions[4], "True"},
        {apparent + kQuestions[5], "True"},
        {kQuestions[6], "9.2.1"},
        {kQuestions[7], "9.2.1"},
        {kQuestions[8], "report.example"},
        {kQuestions[9], "report.example"},
        {kQuestions[10], "8.1"},
        {kQuestions[11], "8.1"},
        {kQuestions[12], "relay.example"},
        {kQuestions[13], "relay.example"},
        {kQuestions[14], "4711"},
        {kQuestions[15], "4711"},
        {kQuestions[16], "root.example.com"},
        {kQuestions[17], "root.example.com"},
    };
    for (const auto& [question, answer] : expected) {
        EXPECT_EQ(AskHost(question), Values({answer})) << question;
    }
}

TEST_F(Registration, AFieldThatIsLeftZeroHasNoValue) {
    for (size_t i = 0; i != kQuestions.size(); i += 2) {
        EXPECT_EQ(AskHost("exists " + kQuestions[i]), Values({"False"})) << kQuestions[i];
        EXPECT_EQ(AskHost("exists " + kQuestions[i + 1]), Values({"False"})) << kQuestions[i + 1];
    }
    EXPECT_EQ(AskHost("name of registration server"), DoesNotExist());
    EXPECT_EQ(AskHost("names of registration servers"), Nothing());
}

TEST_F(Registration, OneFieldAloneIsTold) {
    host_.told.relayVersion = "8.1.2.3";
    EXPECT_EQ(AskHost("version of current relay"), Values({"8.1.2.3"}));
    EXPECT_EQ(AskHost("exists version of registration server"), Values({"False"}));
}

TEST_F(Registration, EachPropertyAsksAnew) {
    host_.told.rootServerId = 1;
    host_.lastRegistration = [](ClientRegistration& registration) {
        registration = CurrentHost<HostRegistration>().told;
        ++CurrentHost<HostRegistration>().told.rootServerId;
    };
    EXPECT_EQ(AskHost("ids of (root server; root server; root server)"), Values({"1", "2", "3"}));
}

TEST_F(Registration, TheServersAreThereWhereverThereIsSomebodyToAsk) {
    EXPECT_EQ(
        AskHost("(exists registration servers, exists current relays, exists download servers, exists root servers)"),
        Values({"True, True, True, True"}));
    EXPECT_EQ(AskHost("exists registration server; exists current relay; exists download server; exists root server"),
              Values({"True", "True", "True", "True"}));
    EXPECT_EQ(AskHost("registration server"), Fails("OperationNotDefined"));
}

TEST(RegistrationContext, WhatTheHostLacksIsSaid) {
    InspectorContext bare;
    for (const std::string& question : kQuestions) {
        EXPECT_EQ(Ask(question), Fails("NoInspectorContext")) << question;
        EXPECT_EQ(Ask(question, &bare), Fails("NoInspectorContext")) << question;
    }
    EXPECT_EQ(Ask("exists registration server", &bare), Fails("NoInspectorContext"));
    RegistrationHost host;
    host.lastRegistration = nullptr;
    for (const std::string& question : kQuestions) {
        EXPECT_EQ(Ask(question, &host), Fails("InspectorRegistrationContextError")) << question;
    }
}

}  // namespace
