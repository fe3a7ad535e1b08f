// The network over crafted lists of interfaces, the routing table over crafted files, and both on this machine.
#include "inspectors/network.h"

#include <arpa/inet.h>
#include <net/if.h>
#include <netinet/in.h>
#include <netpacket/packet.h>

#include <cstring>
#include <deque>

#include "foundation/file_error.h"
#include "foundation/stack_allocator.h"
#include "inspectors/routing_table.h"
#include "tests/foundation/temporary_place.h"
#include "tests/inspectors/ask.h"

namespace {

// A list of interfaces such as the system gives it.
class Interfaces {
public:
    ifaddrs& Add(const char* name, unsigned flags = IFF_UP) {
        ifaddrs& entry = entries_.emplace_back();
        entry.ifa_name = const_cast<char*>(name);
        entry.ifa_flags = flags;
        if (entries_.size() > 1) {
            entries_[entries_.size() - 2].ifa_next = &entry;
        }
        return entry;
    }
    ifaddrs& Add(const char* name, const char* address, const char* mask, const char* broadcast = nullptr,
                 unsigned flags = IFF_UP) {
        ifaddrs& entry = Add(name, flags);
        entry.ifa_addr = Address(address);
        entry.ifa_netmask = Address(mask);
        entry.ifa_broadaddr = broadcast == nullptr ? nullptr : Address(broadcast);
        return entry;
    }
    ifaddrs& AddPacket(const char* name, const std::string& bytes, unsigned flags = IFF_UP) {
        ifaddrs& entry = Add(name, flags);
        auto& place = addresses_.emplace_back();
        auto* link = reinterpret_cast<sockaddr_ll*>(&place);
        link->sll_family = AF_PACKET;
        link->sll_halen = static_cast<unsigned char>(bytes.size());
        std::memcpy(link->sll_addr, bytes.data(), bytes.size());
        entry.ifa_addr = reinterpret_cast<sockaddr*>(&place);
        return entry;
    }
    InterfaceList List() {
        return {entries_.empty() ? nullptr : &entries_.front(), [](ifaddrs*) {}};
    }

private:
    sockaddr* Address(const char* text) {
        auto& place = addresses_.emplace_back();
        if (inet_pton(AF_INET, text, &reinterpret_cast<sockaddr_in*>(&place)->sin_addr) == 1) {
            place.ss_family = AF_INET;
        } else {
            place.ss_family = AF_INET6;
            EXPECT_EQ(inet_pton(AF_INET6, text, &reinterpret_cast<sockaddr_in6*>(&place)->sin6_addr), 1);
        }
        return reinterpret_cast<sockaddr*>(&place);
    }

    std::deque<ifaddrs> entries_;
    std::deque<sockaddr_storage> addresses_;
};

class InterfaceListTest : public testing::Test {
protected:
    static std::string Text(const std::optional<ipv4or6_inspector_address>& address) {
        return address ? std::string(IPAddressText(*address, IPAddressFormat::plain, false).View()) : "none";
    }

    StackAllocator<4096> allocator_;
    AllocatorInstaller installed_{allocator_};
};

TEST_F(InterfaceListTest, CountsItsEntriesByKind) {
    Interfaces interfaces;
    interfaces.AddPacket("eth0", "\1\2\3\4\5\6");
    interfaces.Add("tun0");
    interfaces.Add("eth0", "10.1.2.3", "255.255.0.0");
    interfaces.Add("eth0", "10.1.2.4", "255.255.0.0");
    interfaces.Add("eth0", "fd00::1", "ffff:ffff::");
    const InterfaceList list = interfaces.List();
    EXPECT_EQ(list.Count().all, 5U);
    EXPECT_EQ(list.Count().addresses, 3U);
    EXPECT_EQ(list.Count().version4, 2U);
    EXPECT_EQ(list.Count().version6, 1U);
    EXPECT_EQ(list.Count().packets, 1U);
}

TEST_F(InterfaceListTest, MayBeEmpty) {
    Interfaces interfaces;
    const InterfaceList list = interfaces.List();
    EXPECT_EQ(list.Head(), nullptr);
    EXPECT_TRUE(list.Adapters().empty());
}

TEST_F(InterfaceListTest, TellsAddressesMasksAndSubnets) {
    Interfaces interfaces;
    const ifaddrs& v4 = interfaces.Add("eth0", "10.1.2.3", "255.255.240.0", "10.1.15.255", IFF_UP | IFF_BROADCAST);
    const ifaddrs& v6 = interfaces.Add("eth0", "fd00:1:2:3:4:5:6:7", "ffff:ffff:ffff:fff0::", "fd00::ff", IFF_UP);
    EXPECT_EQ(Text(AddressOf(v4)), "10.1.2.3");
    EXPECT_EQ(Text(MaskOf(v4)), "255.255.240.0");
    EXPECT_EQ(Text(SubnetAddressOf(v4)), "10.1.0.0");
    EXPECT_EQ(Text(BroadcastAddressOf(v4)), "10.1.15.255");
    EXPECT_EQ(CidrOf(v4), "10.1.0.0/20");
    EXPECT_EQ(Text(AddressOf(v6)), "fd00:1:2:3:4:5:6:7");
    EXPECT_EQ(Text(SubnetAddressOf(v6)), "fd00:1:2:0:0:0:0:0");
    EXPECT_EQ(Text(BroadcastAddressOf(v6)), "none");
    EXPECT_EQ(CidrOf(v6), "fd00:1:2:0:0:0:0:0/60");
    EXPECT_EQ(FamilyOf(v4), AF_INET);
    EXPECT_EQ(FamilyOf(v6), AF_INET6);
}

TEST_F(InterfaceListTest, HasNoAddressWhereThereIsNone) {
    Interfaces interfaces;
    const ifaddrs& bare = interfaces.Add("tun0", IFF_BROADCAST);
    const ifaddrs& packet = interfaces.AddPacket("eth0", "\1\2\3\4\5\6", IFF_BROADCAST);
    ifaddrs& unmasked = interfaces.Add("eth1", "10.0.0.1", "255.0.0.0");
    unmasked.ifa_netmask = nullptr;
    for (const ifaddrs* entry : {&bare, &packet}) {
        EXPECT_EQ(AddressOf(*entry), std::nullopt);
        EXPECT_EQ(MaskOf(*entry), std::nullopt);
        EXPECT_EQ(SubnetAddressOf(*entry), std::nullopt);
        EXPECT_EQ(BroadcastAddressOf(*entry), std::nullopt);
        EXPECT_EQ(CidrOf(*entry), std::nullopt);
    }
    EXPECT_EQ(FamilyOf(bare), std::nullopt);
    EXPECT_EQ(FamilyOf(packet), AF_PACKET);
    EXPECT_EQ(CidrOf(unmasked), std::nullopt);
}

TEST_F(InterfaceListTest, TakesAMasksFamilyFromItsAddress) {
    Interfaces interfaces;
    ifaddrs& entry = interfaces.Add("eth0", "10.1.2.3", "255.0.0.0");
    entry.ifa_netmask->sa_family = AF_UNSPEC;
    EXPECT_EQ(Text(MaskOf(entry)), "255.0.0.0");
}

TEST_F(InterfaceListTest, WritesLinkAddressesInHexadecimal) {
    Interfaces interfaces;
    EXPECT_EQ(MacText(interfaces.AddPacket("a", std::string("\x02\xfc\0\x0a\0\1", 6)), ":"), "02:fc:00:0a:00:01");
    EXPECT_EQ(MacText(interfaces.AddPacket("a", std::string("\0\0\0\0\0\1", 6)), "-"), "00-00-00-00-00-01");
    EXPECT_EQ(MacText(interfaces.AddPacket("a", std::string(6, '\0')), ":"), std::nullopt);
    EXPECT_EQ(MacText(interfaces.AddPacket("a", ""), ":"), std::nullopt);
    EXPECT_EQ(MacText(interfaces.Add("a", "10.0.0.1", "255.0.0.0"), ":"), std::nullopt);
    EXPECT_EQ(MacText(interfaces.Add("a"), ":"), std::nullopt);
}

TEST_F(InterfaceListTest, GroupsEntriesByName) {
    Interfaces interfaces;
    const ifaddrs& packet = interfaces.AddPacket("eth0", "\1\2\3\4\5\6");
    interfaces.AddPacket("lo", std::string(6, '\0'), IFF_UP | IFF_LOOPBACK);
    const ifaddrs& first = interfaces.Add("eth0", "fd00::1", "ffff::");
    interfaces.Add("eth1", "10.9.9.9", "255.0.0.0", nullptr, 0);
    const ifaddrs& second = interfaces.Add("eth0", "10.0.0.1", "255.0.0.0");
    const ifaddrs& again = interfaces.Add("eth0", "10.0.0.1", "255.0.0.0");
    const InterfaceList list = interfaces.List();
    ASSERT_EQ(list.Adapters().size(), 3U);
    const InterfaceAdapter& eth0 = list.Adapters()[0];
    EXPECT_EQ(eth0.name, "eth0");
    EXPECT_EQ(eth0.packet, &packet);
    EXPECT_EQ(eth0.addresses, (std::vector<const ifaddrs*>{&first, &second}));
    EXPECT_EQ(eth0.FirstVersion4(), &second);
    EXPECT_EQ(list.Adapters()[1].FirstVersion4(), nullptr);
    EXPECT_EQ(list.Adapters()[1].flags, IFF_UP | IFF_LOOPBACK);
    EXPECT_EQ(&list.AdapterOf(again), &eth0);
    EXPECT_FALSE(list.IsAlias(packet));
    EXPECT_TRUE(list.IsAlias(first));
    EXPECT_TRUE(list.IsAlias(again));
}

// ---- This machine ---------------------------------------------------------------------------------------------------

std::vector<std::string> Expected(const std::string& (*get)(const InterfaceAdapter&), bool usable) {
    std::vector<std::string> texts;
    const auto list = InterfaceList::OfSystem();
    for (const InterfaceAdapter& adapter : list->Adapters()) {
        if (!usable || ((adapter.flags & IFF_UP) != 0 && !adapter.addresses.empty())) {
            texts.push_back(get(adapter));
        }
    }
    return texts;
}

const std::string& NameOf(const InterfaceAdapter& adapter) { return adapter.name; }

TEST(Network, AnswersEveryPhrase) {
    const std::string count = std::to_string(InterfaceList::OfSystem()->Count().all);
    EXPECT_EQ(Ask("number of interfaces of network; number of interfaces of networks"), Values({count, count}));
    EXPECT_EQ(Ask("names of adapters of network"), Values(Expected(NameOf, true)));
    EXPECT_EQ(Ask("names of any adapters of network"), Values(Expected(NameOf, false)));
    EXPECT_EQ(Ask("exists interface 0 of network"), Values({"False"}));
    EXPECT_EQ(Ask("exists interface (-1) of network"), Values({"False"}));
    EXPECT_EQ(Ask("exists interface " + count + " of network"), Values({"True"}));
    EXPECT_EQ(Ask("exists interface (" + count + " + 1) of network"), Values({"False"}));
    EXPECT_EQ(Ask("exists find adapter \"no such adapter\" of network"), Values({"False"}));
}

// The loopback adapter is the same everywhere.
TEST(Network, TellsTheLoopbackAdapter) {
    if (Ask("exists find adapter \"lo\" of network") != Values({"True"})) {
        GTEST_SKIP() << "this machine has no loopback adapter";
    }
    const std::string lo = " of find adapter \"LO\" of network";
    EXPECT_EQ(Ask("name" + lo), Values({"lo"}));
    EXPECT_EQ(Ask("(address of it; subnet address of it; subnet mask of it)" + lo),
              Values({"127.0.0.1", "127.0.0.0", "255.0.0.0"}));
    EXPECT_EQ(Ask("(cidr address of it; cidr addresses of it)" + lo), Values({"127.0.0.0/8", "127.0.0.0/8"}));
    EXPECT_EQ(Ask("(loopback of it; up of it; point to point of it)" + lo), Values({"True", "True", "False"}));
    EXPECT_EQ(Ask("(loopbacks of it; ups of it; point to points of it)" + lo), Values({"True", "True", "False"}));
    EXPECT_EQ(Ask("exists mac address" + lo), Values({"False"}));
    EXPECT_EQ(Ask("exists mac addresses" + lo), Values({"False"}));
    EXPECT_EQ(Ask("(broadcast support of it = exists broadcast address of it)" + lo), Values({"True"}));
    EXPECT_EQ(Ask("(broadcast supports of it; multicast supports of it)" + lo),
              Ask("(broadcast support of it; multicast support of it)" + lo));
    EXPECT_EQ(Ask("names of adapters of ipv4 interfaces" + lo), Values({"lo"}));
    EXPECT_EQ(Ask("cidr strings of ipv4 interfaces" + lo), Values({"127.0.0.0/8"}));
    EXPECT_EQ(Ask("cidr addresses of ipv4 interfaces" + lo), Values({"127.0.0.0/8"}));
    EXPECT_EQ(Ask("exists mac addresses of ipv4 interfaces" + lo), Values({"False"}));
    EXPECT_EQ(Ask("(number of ipv4 interfaces of it + number of ipv6 interfaces of it - number of ipv4or6 interfaces "
                  "of it)" +
                  lo),
              Values({"0"}));
    EXPECT_EQ(Ask("addresses of ip interfaces whose (name of it = \"lo\") of network"), Values({"127.0.0.1"}));
    EXPECT_EQ(Ask("families of ip interfaces whose (name of it = \"lo\") of network"), Values({"2"}));
    const std::string of = " of ip interfaces whose (name of it = \"lo\") of network";
    EXPECT_EQ(Ask("(subnet addresses of it; subnet masks of it)" + of), Values({"127.0.0.0", "255.0.0.0"}));
    EXPECT_EQ(Ask("(cidr addresses of it; names of it)" + of), Values({"127.0.0.0/8", "lo"}));
    EXPECT_EQ(Ask("(loopbacks of it; ups of it; point to points of it)" + of), Values({"True", "True", "False"}));
    EXPECT_EQ(Ask("aliases" + of), Values({InterfaceList::OfSystem()->Count().packets != 0 ? "True" : "False"}));
}

// The loopback adapter has one address of version 4, so that the singular phrases have one answer, too.
TEST(Network, TellsTheLoopbackAdapterInTheSingular) {
    const std::string lo = " of find adapters \"Lo\" of network";
    if (Ask("number of ipv4 interfaces" + lo) != Values({"1"})) {
        GTEST_SKIP() << "this machine's loopback adapter has not one address";
    }
    EXPECT_EQ(Ask("names" + lo), Values({"lo"}));
    EXPECT_EQ(Ask("(addresses of it; subnet addresses of it; subnet masks of it)" + lo),
              Values({"127.0.0.1", "127.0.0.0", "255.0.0.0"}));
    EXPECT_EQ(Ask("name of any adapter whose (name of it = \"lo\") of network"), Values({"lo"}));
    EXPECT_EQ(Ask("name of adapter whose (name of it = \"lo\") of network"), Values({"lo"}));
    EXPECT_EQ(Ask("cidr string of ipv4 interface" + lo), Values({"127.0.0.0/8"}));
    EXPECT_EQ(Ask("cidr address of ipv4 interface" + lo), Values({"127.0.0.0/8"}));
    EXPECT_EQ(Ask("name of adapter of ipv4 interface" + lo), Values({"lo"}));
    EXPECT_EQ(Ask("exists mac address of ipv4 interface" + lo), Values({"False"}));
    EXPECT_EQ(Ask("number of ipv6 interface" + lo), Ask("number of ipv6 interfaces" + lo));
    EXPECT_EQ(Ask("number of ipv4or6 interface" + lo), Ask("number of ipv4or6 interfaces" + lo));
    for (const char* kind : {"interface", "ip interface"}) {
        const std::string one =
            std::string(" of ") + kind + " whose (name of it = \"lo\" and family of it = 2) of network";
        EXPECT_EQ(Ask("address" + one), Values({"127.0.0.1"})) << kind;
        EXPECT_EQ(Ask("subnet address" + one), Values({"127.0.0.0"})) << kind;
        EXPECT_EQ(Ask("subnet mask" + one), Values({"255.0.0.0"})) << kind;
        EXPECT_EQ(Ask("cidr address" + one), Values({"127.0.0.0/8"})) << kind;
        EXPECT_EQ(Ask("(loopback of it; up of it; point to point of it)" + one), Values({"True", "True", "False"}))
            << kind;
        EXPECT_EQ(Ask("alias" + one), Ask("aliases" + one)) << kind;
        EXPECT_EQ(Ask("(broadcast support of it; multicast support of it)" + one),
                  Ask("(broadcast supports of it; multicast supports of it)" + one))
            << kind;
        EXPECT_EQ(Ask("exists broadcast address" + one), Ask("broadcast support" + one)) << kind;
        EXPECT_EQ(Ask("exists mac address" + one), Values({"False"})) << kind;
    }
    for (const std::string kind : {"ipv4", "ipv6", "ipv4or6"}) {
        EXPECT_EQ(Ask("number of " + kind + " interface of network"),
                  Ask("number of " + kind + " interfaces of network"));
    }
}

TEST(Network, CountsTheInterfacesOfVersion4FromOne) {
    const size_t count = Ask("addresses of ip interfaces of network").values.size();
    for (size_t n = 1; n <= count; ++n) {
        const std::string number = std::to_string(n);
        EXPECT_EQ(Ask("address of ip interface " + number + " of network").values[0],
                  Ask("addresses of ip interfaces of network").values[n - 1]);
        EXPECT_EQ(Ask("addresses of ip interfaces " + number + " of network"),
                  Ask("address of ip interface " + number + " of network"));
    }
    for (const std::string& number : {std::string("0"), std::string("(-1)"), std::to_string(count + 1)}) {
        EXPECT_EQ(Ask("address of ip interface " + number + " of network"), DoesNotExist()) << number;
    }
}

TEST(Network, GivesTheSameInterfacesInEachWay) {
    EXPECT_EQ(Ask("number of ip interfaces of network = number of ipv4 interfaces of network"), Values({"True"}));
    EXPECT_EQ(Ask("number of ipv4or6 interfaces of network = number of ipv4 interfaces of network + number of ipv6 "
                  "interfaces of network"),
              Values({"True"}));
    EXPECT_EQ(Ask("cidr addresses of ip interfaces of network"), Ask("cidr strings of ipv4 interfaces of network"));
    EXPECT_EQ(Ask("number of (broadcast addresses of ip interfaces of network) <= number of ip interfaces whose "
                  "(broadcast support of it) of network"),
              Values({"True"}));
    EXPECT_EQ(Ask("exists (multicast supports of interfaces of network; broadcast supports of interfaces of network)"),
              Values({"True"}));
    EXPECT_EQ(Ask("unique values of (mac addresses of interfaces of network)"),
              Ask("unique values of (mac addresses of any adapters of network)"));
}

// ---- Routes ---------------------------------------------------------------------------------------------------------

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

TEST(Route, WithOddFieldsIsRefused) {
    for (const char* line :
         {"", "eth0", "eth0 0 0 0 0 0 0 0 0 0", "eth0 0 0 0 0 0 0 0 0 0 0 0", "eth0 x 0 0 0 0 0 0 0 0 0",
          "eth0 0 0 0x1 0 0 0 0 0 0 0", "eth0 0 0 0 0 0 1a 0 0 0 0", "eth0 100000000 0 0 0 0 0 0 0 0 0",
          "eth0 0 0 0 0 0 0 0 0 0 99999999999999999999", "eth0 0 0 0 0 0 0 0g 0 0 0", "eth0 0 0 -1 0 0 0 0 0 0 0"}) {
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
    place.File("one", "00000000000000000000000000000001 01 80 10 80       lo\n");
    EXPECT_TRUE(OSSocketCapabilities::HasVersion6(place.Path("one").c_str()));
}

}  // namespace
