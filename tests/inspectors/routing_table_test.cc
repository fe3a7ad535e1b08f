// The kernel's routes, from crafted files and on this machine.
#include "inspectors/routing_table.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "foundation/file_error.h"
#include "foundation/stack_allocator.h"
#include "tests/foundation/temporary_place.h"
#include "tests/inspectors/ask.h"
#include "tests/inspectors/property_of.h"
#include "values/integer.h"

namespace {

constexpr const char* kHeading =
    "Iface\tDestination\tGateway \tFlags\tRefCnt\tUse\tMetric\tMask\t\tMTU\tWindow\tIRTT\n";

TEST(Route, IsElevenFields) {
    const linux_ipv4_route route = ParseRoute("eth0\t000200C0\t010200C0\t0207\t0\t0\t100\t00FFFFFF\t1400\t5\t7   \n");
    EXPECT_EQ(route.interface, "eth0");
    EXPECT_EQ(route.destination, ipv4_inspector_address(192, 0, 2, 0));
    EXPECT_EQ(route.gateway, ipv4_inspector_address(192, 0, 2, 1));
    EXPECT_EQ(route.mask, ipv4_inspector_address(255, 255, 255, 0));
    EXPECT_EQ(route.flags, 0x207U);
    EXPECT_EQ(route.metric, 100);
    EXPECT_EQ(route.mtu, 1400);
    EXPECT_EQ(route.window, 5);
    EXPECT_EQ(route.irtt, 7);
}

TEST(Route, IsCutAtWhiteSpaceOfEveryKind) {
    const linux_ipv4_route route = ParseRoute(" \teth0\v00000001\f2\r1 \t 0 0\n7 3 0 0 0\r\n");
    EXPECT_EQ(route.interface, "eth0");
    EXPECT_EQ(route.destination, ipv4_inspector_address(1, 0, 0, 0));
    EXPECT_EQ(route.gateway, ipv4_inspector_address(2, 0, 0, 0));
    EXPECT_EQ(route.flags, 1U);
    EXPECT_EQ(route.metric, 7);
    EXPECT_EQ(route.mask, ipv4_inspector_address(3, 0, 0, 0));
}

std::string Flags(uint32_t flags) {
    linux_ipv4_route route;
    route.flags = flags;
    std::string set;
    for (const char* phrase : {"up flag", "gateway flag", "host flag", "reject flag"}) {
        set += PropertyOf<boolean>(route, phrase).value() ? phrase[0] : '-';
    }
    return set;
}

TEST(Route, HasAPhraseForEachFlag) {
    EXPECT_EQ(Flags(0), "----");
    EXPECT_EQ(Flags(1), "u---");
    EXPECT_EQ(Flags(2), "-g--");
    EXPECT_EQ(Flags(4), "--h-");
    EXPECT_EQ(Flags(0x200), "---r");
    EXPECT_EQ(Flags(~uint32_t{0x207}), "----");
    EXPECT_EQ(Flags(0x207), "ughr");
}

TEST(Route, HasAPhraseForEachField) {
    const linux_ipv4_route route = ParseRoute("eth7\t000200C0\t010200C0\t0003\t11\t12\t100\t00FFFFFF\t1400\t5\t7");
    StackAllocator<1024> memory;
    const AllocatorInstaller installed(memory);
    const auto address = [&](const char* phrase) { return PropertyOf<ipv4_inspector_address>(route, phrase); };
    const auto number = [&](const char* phrase) { return PropertyOf<integer>(route, phrase)->Value(); };
    EXPECT_EQ(address("destination"), ipv4_inspector_address(192, 0, 2, 0));
    EXPECT_EQ(address("gateway"), ipv4_inspector_address(192, 0, 2, 1));
    EXPECT_EQ(address("mask"), ipv4_inspector_address(255, 255, 255, 0));
    EXPECT_EQ(PropertyOf<inspector_string>(route, "interface")->View(), "eth7");
    EXPECT_EQ(number("metric"), 100);
    EXPECT_EQ(number("mtu"), 1400);
    EXPECT_EQ(number("window"), 5);
    EXPECT_EQ(number("irtt"), 7);
}

TEST(Route, WithOddFieldsIsRefused) {
    for (const char* line :
         {"", "eth0", "eth0 0 0 0 0 0 0 0 0 0", "eth0 0 0 0 0 0 0 0 0 0 0 0", "eth0 x 0 0 0 0 0 0 0 0 0",
          "eth0 0 x 0 0 0 0 0 0 0 0", "eth0 0 0 x 0 0 0 0 0 0 0", "eth0 0 0 0 0 0 x 0 0 0 0",
          "eth0 0 0 0 0 0 0 x 0 0 0", "eth0 0 0 0 0 0 0 0 x 0 0", "eth0 0 0 0 0 0 0 0 0 x 0",
          "eth0 0 0 0 0 0 0 0 0 0 x", "eth0 0 0 0x1 0 0 0 0 0 0 0", "eth0 0 0 0 0 0 1a 0 0 0 0",
          "eth0 100000000 0 0 0 0 0 0 0 0 0", "eth0 0 0 0 0 0 0 0 0 0 99999999999999999999",
          "eth0 0 0 0 0 0 0 0g 0 0 0", "eth0 0 0 -1 0 0 0 0 0 0 0"}) {
        EXPECT_THROW(ParseRoute(line), RoutingTableParseError) << line;
    }
    // The reference and use counts are not looked at.
    EXPECT_NO_THROW(ParseRoute("eth0 0 0 0 x y 0 0 0 0 0"));
}

TEST(RoutingTable, IsReadBehindItsHeading) {
    const TemporaryPlace place;
    place.File("route", std::string(kHeading) + "eth0 0 010200C0 3 0 0 0 0 0 0 0\r\nlo 1 2 4 0 0 0 3 0 0 0");
    const linux_ipv4_routing_table table = ReadRoutingTable(place.Path("route").c_str());
    ASSERT_EQ(table.Routes().size(), 2U);
    EXPECT_EQ(table.Routes()[0].gateway, ipv4_inspector_address(192, 0, 2, 1));
    EXPECT_EQ(table.Routes()[1].interface, "lo");
    place.File("route", std::string(kHeading) + "\n");
    EXPECT_THROW(ReadRoutingTable(place.Path("route").c_str()), RoutingTableParseError)
        << "an empty line has no fields";
    place.File("route", "anything\n");
    EXPECT_TRUE(ReadRoutingTable(place.Path("route").c_str()).Routes().empty());
}

TEST(RoutingTable, WithOneOddLineOrNoneAtAllIsRefused) {
    const TemporaryPlace place;
    place.File("route", std::string(kHeading) + "eth0 0 0 3 0 0 0 0 0 0 0\neth0 0 0 3 0 0 0 0 0 0\n");
    EXPECT_THROW(ReadRoutingTable(place.Path("route").c_str()), RoutingTableParseError);
    place.File("route", "");
    EXPECT_THROW(ReadRoutingTable(place.Path("route").c_str()), RoutingTableParseError);
    EXPECT_THROW(ReadRoutingTable(place.Path("gone").c_str()), FileIOError);
    EXPECT_STREQ(RoutingTableParseError().what(), "error parsing contents of /proc/net/route");
}

TEST(RoutingTable, OfThisMachineAnswersEveryPhrase) {
    const linux_ipv4_routing_table table = ReadRoutingTable("/proc/net/route");
    EXPECT_EQ(Ask("number of routes of linux ipv4 routing table; number of routes of linux ipv4 routing tables"),
              Values({std::to_string(table.Routes().size()), std::to_string(table.Routes().size())}));
    std::vector<std::string> interfaces;
    for (const linux_ipv4_route& route : table.Routes()) {
        interfaces.push_back(route.interface);
    }
    EXPECT_EQ(Ask("interfaces of routes of linux ipv4 routing table"), Values(interfaces));
    for (const char* phrases :
         {"(exists destination of it; exists gateway of it; exists mask of it; exists metric of it; exists mtu of it; "
          "exists window of it; exists irtt of it; exists interface of it)",
          "(exists destinations of it; exists gateways of it; exists masks of it; exists metrics of it; exists mtus of "
          "it; exists windows of it; exists irtts of it; exists interfaces of it)"}) {
        EXPECT_EQ(Ask("exists (" + std::string(phrases) + " of routes of linux ipv4 routing table) whose (not it)"),
                  Values({"False"}));
    }
    EXPECT_EQ(Ask("exists routes whose (up flag of it and gateway flag of it and (host flag of it or not host flag of "
                  "it) and (reject flag of it or not reject flag of it)) of linux ipv4 routing table"),
              Values({std::any_of(table.Routes().begin(), table.Routes().end(),
                                  [](const linux_ipv4_route& route) { return (route.flags & 3) == 3; })
                          ? "True"
                          : "False"}));
    EXPECT_EQ(Ask("(up flags of it; gateway flags of it; host flags of it; reject flags of it) of routes of linux ipv4 "
                  "routing table"),
              Ask("(up flag of it; gateway flag of it; host flag of it; reject flag of it) of routes of linux ipv4 "
                  "routing table"));
}

TEST(SocketCapabilities, HaveVersion6WhereItsFileHasALine) {
    const TemporaryPlace place;
    EXPECT_FALSE(OSSocketCapabilities::HasVersion6(place.Path("gone").c_str()));
    place.File("empty");
    EXPECT_FALSE(OSSocketCapabilities::HasVersion6(place.Path("empty").c_str()));
    EXPECT_FALSE(OSSocketCapabilities::HasVersion6(place.Path().c_str())) << "a folder is no file";
    place.File("one", "00000000000000000000000000000001 01 80 10 80       lo\n");
    EXPECT_TRUE(OSSocketCapabilities::HasVersion6(place.Path("one").c_str()));
}

}  // namespace
