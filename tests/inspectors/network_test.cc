// The phrases of the network, on crafted machines and on this one.
#include "inspectors/network.h"

#include <dlfcn.h>
#include <net/if.h>

#include "tests/inspectors/ask.h"
#include "tests/inspectors/crafted_interfaces.h"

namespace {

// What the program is told of the machine's interfaces.
enum class Told { System, Crafted, Failure };
Told told = Told::System;
ifaddrs* craftedHead = nullptr;
int taken = 0;
int released = 0;

}  // namespace

// Every look of this program at the machine's interfaces comes through here.
extern "C" int getifaddrs(ifaddrs** head) noexcept {
    static const auto original = reinterpret_cast<int (*)(ifaddrs**)>(dlsym(RTLD_NEXT, "getifaddrs"));
    ++taken;
    if (told == Told::System) {
        return original(head);
    }
    *head = craftedHead;
    return told == Told::Crafted ? 0 : -1;
}
extern "C" void freeifaddrs(ifaddrs* head) noexcept {
    static const auto original = reinterpret_cast<void (*)(ifaddrs*)>(dlsym(RTLD_NEXT, "freeifaddrs"));
    ++released;
    if (told == Told::System) {
        original(head);
    }
}

namespace {

// ---- Crafted machines -----------------------------------------------------------------------------------------------

class CraftedNetwork : public testing::Test {
protected:
    void Have() {
        craftedHead = interfaces_.Head();
        told = Told::Crafted;
        taken = released = 0;
    }
    void HaveAllKinds() {
        interfaces_.AddPacket("lo", std::string(6, '\0'), IFF_UP | IFF_LOOPBACK);
        interfaces_.AddPacket("eth0", "\2\xfc\1\2\3\xab", IFF_UP | IFF_BROADCAST | IFF_MULTICAST);
        interfaces_.AddPacket("eth1", "\2\xfc\1\2\3\xac", IFF_BROADCAST);
        interfaces_.AddPacket("eth2", "\2\xfc\1\2\3\xad", IFF_UP);
        interfaces_.Add("tun0", IFF_UP | IFF_POINTOPOINT);
        interfaces_.Add("lo", "127.0.0.1", "255.0.0.0", "127.255.255.255", IFF_UP | IFF_LOOPBACK);
        interfaces_.Add("lo", "::1", "ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff", nullptr, IFF_UP | IFF_LOOPBACK);
        interfaces_.Add("eth0", "fd00::5", "ffff:ffff:ffff:ffff::", nullptr, IFF_UP | IFF_BROADCAST | IFF_MULTICAST);
        interfaces_.Add("eth0", "10.1.2.3", "255.255.240.0", "10.1.15.255", IFF_UP | IFF_BROADCAST | IFF_MULTICAST);
        interfaces_.Add("eth0", "10.9.8.7", "255.0.0.0", "10.255.255.255", IFF_UP | IFF_BROADCAST | IFF_MULTICAST);
        interfaces_.Add("eth1", "10.7.0.1", "255.255.0.0", "10.7.255.255", IFF_BROADCAST);
        interfaces_.Add("tun0", "10.8.0.2", "255.255.255.255", "10.8.0.1", IFF_UP | IFF_POINTOPOINT);
        Have();
    }
    ~CraftedNetwork() override {
        told = Told::System;
        craftedHead = nullptr;
    }

    Interfaces interfaces_;
};

TEST_F(CraftedNetwork, AnAdapterIsUpAndHasAnAddress) {
    HaveAllKinds();
    EXPECT_EQ(Ask("names of adapters of network"), Values({"lo", "eth0", "tun0"}));
    EXPECT_EQ(Ask("names of any adapters of network"), Values({"lo", "eth0", "eth1", "eth2", "tun0"}));
    EXPECT_EQ(Ask("names of find adapters (\"ETH1\"; \"eth\"; \"Eth2\"; \"eth11\"; \"\") of network"),
              Values({"eth1", "eth2"}))
        << "one that is down is found, too";
    EXPECT_EQ(Ask("name of find adapter \"eth3\" of network"), DoesNotExist());
}

TEST_F(CraftedNetwork, AnAdapterTellsItsFirstAddressOfVersion4) {
    HaveAllKinds();
    const std::string eth0 = " of find adapter \"eth0\" of network";
    EXPECT_EQ(Ask("(address of it; subnet address of it; subnet mask of it; broadcast address of it)" + eth0),
              Values({"10.1.2.3", "10.1.0.0", "255.255.240.0", "10.1.15.255"}));
    EXPECT_EQ(Ask("(addresses of it; subnet addresses of it; subnet masks of it; broadcast addresses of it)" + eth0),
              Values({"10.1.2.3", "10.1.0.0", "255.255.240.0", "10.1.15.255"}));
    EXPECT_EQ(Ask("(cidr address of it; mac address of it; name of it)" + eth0),
              Values({"10.1.0.0/20", "02:fc:01:02:03:ab", "eth0"}));
    EXPECT_EQ(Ask("(cidr addresses of it; mac addresses of it; names of it)" + eth0),
              Values({"10.1.0.0/20", "02:fc:01:02:03:ab", "eth0"}));
    EXPECT_EQ(Ask("(it as string) of broadcast addresses of any adapters of network"),
              Values({"10.1.15.255", "10.7.255.255"}))
        << "not of one that has no broadcasts";
    EXPECT_EQ(Ask("mac addresses of any adapters of network"),
              Values({"02:fc:01:02:03:ab", "02:fc:01:02:03:ac", "02:fc:01:02:03:ad"}));
    const std::string eth2 = " of find adapter \"eth2\" of network";
    for (const char* phrase : {"address", "subnet address", "subnet mask", "broadcast address", "cidr address"}) {
        EXPECT_EQ(Ask(std::string(phrase) + eth2), DoesNotExist()) << phrase;
    }
    EXPECT_EQ(Ask("mac address of find adapter \"lo\" of network"), DoesNotExist());
    EXPECT_EQ(Ask("mac address of find adapter \"tun0\" of network"), DoesNotExist());
}

TEST_F(CraftedNetwork, EachFlagIsABitOfItsOwn) {
    HaveAllKinds();
    const auto with = [](const std::string& flag) {
        return Ask("names of any adapters whose (" + flag + " of it) of network");
    };
    EXPECT_EQ(with("up"), Values({"lo", "eth0", "eth2", "tun0"}));
    EXPECT_EQ(with("loopback"), Values({"lo"}));
    EXPECT_EQ(with("point to point"), Values({"tun0"}));
    EXPECT_EQ(with("broadcast support"), Values({"eth0", "eth1"}));
    EXPECT_EQ(with("multicast support"), Values({"eth0"}));
    const auto places = [](const std::string& flag) {
        return Ask("unique values of (names of interfaces whose (" + flag + " of it) of network)");
    };
    EXPECT_EQ(places("up"), Values({"eth0", "eth2", "lo", "tun0"}));
    EXPECT_EQ(places("loopback"), Values({"lo"}));
    EXPECT_EQ(places("point to point"), Values({"tun0"}));
    EXPECT_EQ(places("broadcast support"), Values({"eth0", "eth1"}));
    EXPECT_EQ(places("multicast support"), Values({"eth0"}));
}

TEST_F(CraftedNetwork, InterfacesAreTheEntriesInTheirOrder) {
    HaveAllKinds();
    EXPECT_EQ(Ask("names of interfaces of network"),
              Values({"lo", "eth0", "eth1", "eth2", "tun0", "lo", "lo", "eth0", "eth0", "eth0", "eth1", "tun0"}));
    EXPECT_EQ(Ask("families of interfaces of network"),
              Values({"17", "17", "17", "17", "2", "10", "10", "2", "2", "2", "2"}))
        << "the entry without an address has none";
    EXPECT_EQ(Ask("aliases of interfaces of network"), Values({"False", "False", "False", "False", "False", "True",
                                                               "True", "True", "True", "True", "True", "True"}));
    EXPECT_EQ(Ask("(name of it & \" \" & family of it as string) of interfaces (1; 6; 7; 12; 13; 0) of network"),
              Values({"lo 17", "lo 2", "lo 10", "tun0 2"}));
    EXPECT_EQ(Ask("family of interface 5 of network"), DoesNotExist());
    EXPECT_EQ(Ask("addresses of interfaces of network"), Values({"127.0.0.1", "0:0:0:0:0:0:0:1", "fd00:0:0:0:0:0:0:5",
                                                                 "10.1.2.3", "10.9.8.7", "10.7.0.1", "10.8.0.2"}));
    EXPECT_EQ(Ask("broadcast addresses of interfaces of network"),
              Values({"10.1.15.255", "10.255.255.255", "10.7.255.255"}));
    EXPECT_EQ(Ask("cidr addresses of interfaces of network"),
              Values({"127.0.0.0/8", "0:0:0:0:0:0:0:1/128", "fd00:0:0:0:0:0:0:0/64", "10.1.0.0/20", "10.0.0.0/8",
                      "10.7.0.0/16", "10.8.0.2/32"}));
    EXPECT_EQ(Ask("mac addresses of interfaces whose (family of it = 2) of network"),
              Values({"02:fc:01:02:03:ab", "02:fc:01:02:03:ab", "02:fc:01:02:03:ac"}))
        << "the adapter's own";
    for (const char* phrase : {"address", "subnet address", "subnet mask", "broadcast address", "cidr address"}) {
        EXPECT_EQ(Ask(std::string(phrase) + " of interface 5 of network"), DoesNotExist()) << phrase;
        EXPECT_EQ(Ask(std::string(phrase) + " of interface 2 of network"), DoesNotExist()) << phrase;
    }
}

TEST_F(CraftedNetwork, InterfacesOfAVersionAreTheEntriesOfItsFamily) {
    HaveAllKinds();
    const std::vector<std::string> version4 = {"127.0.0.1", "10.1.2.3", "10.9.8.7", "10.7.0.1", "10.8.0.2"};
    EXPECT_EQ(Ask("addresses of ip interfaces of network"), Values(version4));
    EXPECT_EQ(Ask("addresses of ip interfaces (1; 2; 3; 4; 5; 6; 0; -1) of network"), Values(version4));
    EXPECT_EQ(Ask("address of ip interface 2 of network"), Values({"10.1.2.3"}));
    EXPECT_EQ(Ask("address of ip interface 6 of network"), DoesNotExist());
    EXPECT_EQ(Ask("cidr strings of ipv4 interfaces of network"),
              Values({"127.0.0.0/8", "10.1.0.0/20", "10.0.0.0/8", "10.7.0.0/16", "10.8.0.2/32"}));
    EXPECT_EQ(Ask("cidr addresses of ipv6 interfaces of network"),
              Values({"0:0:0:0:0:0:0:1/128", "fd00:0:0:0:0:0:0:0/64"}));
    EXPECT_EQ(Ask("names of adapters of ipv4or6 interfaces of network"),
              Values({"lo", "lo", "eth0", "eth0", "eth0", "eth1", "tun0"}));
    const std::string eth0 = " of find adapter \"eth0\" of network";
    EXPECT_EQ(Ask("cidr strings of ipv4 interfaces" + eth0), Values({"10.1.0.0/20", "10.0.0.0/8"}));
    EXPECT_EQ(Ask("cidr strings of ipv6 interfaces" + eth0), Values({"fd00:0:0:0:0:0:0:0/64"}));
    EXPECT_EQ(Ask("cidr strings of ipv4or6 interfaces" + eth0),
              Values({"fd00:0:0:0:0:0:0:0/64", "10.1.0.0/20", "10.0.0.0/8"}));
    EXPECT_EQ(Ask("unique values of (mac addresses of ipv4or6 interfaces" + eth0 + ")"), Values({"02:fc:01:02:03:ab"}));
}

TEST_F(CraftedNetwork, WithoutInterfacesIsNoError) {
    Have();
    EXPECT_EQ(Ask("(number of adapters of it, number of any adapters of it, number of interfaces of it, number of ip "
                  "interfaces of it, number of ipv4or6 interfaces of it) of network"),
              Values({"0, 0, 0, 0, 0"}));
    EXPECT_EQ(Ask("names of adapters of network"), Nothing());
    EXPECT_EQ(Ask("name of adapter of network"), DoesNotExist());
    EXPECT_EQ(Ask("name of interface 1 of network"), DoesNotExist());
    EXPECT_EQ(Ask("exists find adapter \"lo\" of network"), Values({"False"}));
}

TEST_F(CraftedNetwork, ThatTheSystemDoesNotGiveIsAnError) {
    told = Told::Failure;
    EXPECT_EQ(Ask("exists network").failure, "GetIFAddrFailed");
    EXPECT_EQ(Ask("names of adapters of network").failure, "GetIFAddrFailed");
}

TEST_F(CraftedNetwork, IsTakenOnceForEachEvaluationAndGivenBack) {
    HaveAllKinds();
    EXPECT_EQ(Ask("(number of interfaces of it, names of adapters whose (loopback of it) of it) of network"),
              Values({"12, lo"}));
    EXPECT_EQ(taken, 1);
    EXPECT_EQ(released, 1);
    EXPECT_EQ(Ask("(number of interfaces of network, number of interfaces of network)"), Values({"12, 12"}));
    EXPECT_EQ(taken, 3);
    EXPECT_EQ(released, 3);
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

}  // namespace
