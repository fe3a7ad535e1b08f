// The chosen server, told by a host that chooses, by one that has chosen nothing, and by one that is broken.
#include <gtest/gtest.h>

#include <set>

#include "tests/host/host_servers.h"
#include "tests/inspectors/ask.h"
#include "values/ip_address.h"

namespace {

struct HostSelectorHost : InspectorContext, HostServers {};

class Selector : public testing::Test {
protected:
    Selector() { host_.servers = {{&other_, &chosen_}, 1}; }

    Answer AskHost(std::string_view question) { return Ask(question, &host_); }

    static ipv4or6_inspector_address Address(std::string_view text) { return *ipv4or6_inspector_address::Parse(text); }

    const ipv4or6_inspector_address address_ = Address("fe80::1");
    const ipv4or6_inspector_address gateways_[4] = {Address("10.0.0.1"), {}, Address("2001:db8::7"), {}};
    const HostSelectorEntry other_{"other.example", nullptr, 1, 2, 3, 4, 5, 6, 7, nullptr, 0};
    const HostSelectorEntry chosen_{"relay.example", &address_, 52311, 1, 4, 12, 100, 2, 30, gateways_, 4};
    HostSelectorHost host_;
};

const std::pair<std::string, std::string> kProperties[] = {
    {"name", "names"},
    {"ip address", "ip addresses"},
    {"port number", "port numbers"},
    {"lower bound of distance", "lower bounds of distances"},
    {"upper bound of distance", "upper bounds of distances"},
    {"priority", "priorities"},
    {"weight", "weights"},
    {"competition size", "competition sizes"},
    {"competition weight", "competition weights"},
    {"gateway address 1", "gateway addresses 1"},
};

TEST_F(Selector, EveryPropertyTellsOfTheCurrentEntry) {
    const std::string expected[] = {"relay.example", "fe80:0:0:0:0:0:0:1", "52311", "1", "4", "2", "30", "12", "100",
                                    "10.0.0.1"};
    for (size_t i = 0; i != std::size(kProperties); ++i) {
        const auto& [singular, plural] = kProperties[i];
        EXPECT_EQ(AskHost(singular + " of selected server"), Values({expected[i]})) << singular;
        EXPECT_EQ(AskHost(plural + " of selected servers"), Values({expected[i]})) << plural;
    }
}

TEST_F(Selector, AnotherEntryCanBeCurrent) {
    host_.servers.current = 0;
    EXPECT_EQ(AskHost("(name of it, port number of it, competition weight of it) of selected server"),
              Values({"other.example, 1, 5"}));
    EXPECT_EQ(AskHost("exists ip address of selected server"), Values({"False"}));
    EXPECT_EQ(AskHost("exists gateway addresses of selected server"), Values({"False"}));
    EXPECT_EQ(AskHost("exists full gateway addresses of selected server"), Values({"False"}));
}

TEST_F(Selector, GatewaysCountFromOneAndTheSilentHaveNoAddress) {
    EXPECT_EQ(AskHost("gateway addresses (0; 1; 2; 3; 4; 5; -1; 9223372036854775807) of selected server"),
              Values({"10.0.0.1", "2001:db8:0:0:0:0:0:7"}));
    EXPECT_EQ(AskHost("gateway address 2 of selected server"), DoesNotExist());
    EXPECT_EQ(AskHost("gateway addresses of selected server"), Values({"10.0.0.1", "2001:db8:0:0:0:0:0:7"}));
    EXPECT_EQ(AskHost("full gateway addresses of selected server"),
              Values({"10.0.0.1", "0.0.0.0", "2001:db8:0:0:0:0:0:7", "0.0.0.0"}));
    EXPECT_EQ(AskHost("full gateway address of selected server"), Answer({{"10.0.0.1"}, "ArgumentNotUnique"}));
    EXPECT_EQ(AskHost("gateway address of selected server"), Answer({{"10.0.0.1"}, "ArgumentNotUnique"}));
}

TEST_F(Selector, OneGatewayIsSingular) {
    const HostSelectorEntry near{"near", nullptr, 0, 0, 0, 0, 0, 0, 0, gateways_, 1};
    host_.servers = {{&near}, 0};
    EXPECT_EQ(AskHost("(gateway address of it, full gateway address of it) of selected server"),
              Values({"10.0.0.1, 10.0.0.1"}));
}

TEST_F(Selector, NothingSelectedHasNoServer) {
    for (const std::optional<size_t> current : {std::optional<size_t>(), std::optional<size_t>(2)}) {
        host_.servers.current = current;
        EXPECT_EQ(AskHost("exists selected server"), Values({"False"}));
        EXPECT_EQ(AskHost("exists selected servers"), Values({"False"}));
        EXPECT_EQ(AskHost("name of selected server"), DoesNotExist());
        EXPECT_EQ(AskHost("names of selected servers"), Nothing());
    }
    host_.selector = []() -> const HostSelector* { return nullptr; };
    EXPECT_EQ(AskHost("port number of selected server"), DoesNotExist());
}

TEST_F(Selector, ANullEntryIsAFaultOfItsOwnLine) {
    host_.servers = {{nullptr}, 0};
    EXPECT_EQ(AskHost("exists selected server"), Values({"True"}));
    std::set<std::string> texts;
    for (const auto& [singular, plural] : kProperties) {
        const Answer answer = AskHost(singular + " of selected server");
        EXPECT_EQ(answer, Fails("InspectorInternalError")) << singular;
        EXPECT_EQ(answer.text.rfind("Inspector internal error (file: h/HostSelectorInspectors line: ", 0), 0u)
            << answer.text;
        texts.insert(answer.text);
    }
    EXPECT_EQ(texts.size(), std::size(kProperties) - 1);  // both bounds are read through one accessor
    EXPECT_EQ(AskHost("gateway addresses of selected server"), Fails("InspectorInternalError"));
    EXPECT_EQ(AskHost("full gateway addresses of selected server"), Fails("InspectorInternalError"));
}

TEST(SelectorContext, WhatTheHostLacksIsSaid) {
    InspectorContext bare;
    HostSelectorHost host;
    host.selector = nullptr;
    for (const std::string question : {"exists selected server", "names of selected servers"}) {
        EXPECT_EQ(Ask(question), Fails("NoInspectorContext"));
        EXPECT_EQ(Ask(question, &bare), Fails("NoInspectorContext"));
        EXPECT_EQ(Ask(question, &host), Fails("HostSelectorInspectorContextError"));
    }
}

}  // namespace
