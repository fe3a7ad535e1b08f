// Lists of interfaces: what an entry says, and the adapters that the entries make.
#include "inspectors/interface_list.h"

#include "foundation/stack_allocator.h"
#include "tests/inspectors/crafted_interfaces.h"

namespace {

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
    const ifaddrs& whole = interfaces.Add("eth1", "10.1.2.3", "255.255.255.255");
    const ifaddrs& open = interfaces.Add("eth2", "10.1.2.3", "0.0.0.0");
    EXPECT_EQ(Text(AddressOf(v4)), "10.1.2.3");
    EXPECT_EQ(Text(MaskOf(v4)), "255.255.240.0");
    EXPECT_EQ(Text(SubnetAddressOf(v4)), "10.1.0.0");
    EXPECT_EQ(Text(BroadcastAddressOf(v4)), "10.1.15.255");
    EXPECT_EQ(CidrOf(v4), "10.1.0.0/20");
    EXPECT_EQ(Text(AddressOf(v6)), "fd00:1:2:3:4:5:6:7");
    EXPECT_EQ(Text(SubnetAddressOf(v6)), "fd00:1:2:0:0:0:0:0");
    EXPECT_EQ(Text(BroadcastAddressOf(v6)), "none");
    EXPECT_EQ(CidrOf(v6), "fd00:1:2:0:0:0:0:0/60");
    EXPECT_EQ(CidrOf(whole), "10.1.2.3/32");
    EXPECT_EQ(CidrOf(open), "0.0.0.0/0");
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
    EXPECT_EQ(MacText(interfaces.AddPacket("a", std::string("\0\0\0\0\0\0\0\1", 8)), ""), "0000000000000001");
    EXPECT_EQ(MacText(interfaces.AddPacket("a", std::string(6, '\0')), ":"), std::nullopt);
    EXPECT_EQ(MacText(interfaces.AddPacket("a", ""), ":"), std::nullopt);
    EXPECT_EQ(MacText(interfaces.Add("a", "10.0.0.1", "255.0.0.0"), ":"), std::nullopt);
    EXPECT_EQ(MacText(interfaces.Add("a"), ":"), std::nullopt);
}

// An address may be longer than the field that it begins in; no more is taken than the system puts there.
TEST_F(InterfaceListTest, WritesLongLinkAddressesWhole) {
    Interfaces interfaces;
    const std::string infiniband("\x80\0\x02\x08\xfe\x80\0\0\0\0\0\0\0\x02\xc9\x03\0\x0b\xcd\xef", 20);
    EXPECT_EQ(MacText(interfaces.AddPacket("ib0", infiniband), ":"),
              "80:00:02:08:fe:80:00:00:00:00:00:00:00:02:c9:03:00:0b:cd:ef");
    EXPECT_EQ(MacText(interfaces.AddPacket("a", std::string(8, '\0') + "\1"), "")->size(), 18U)
        << "what stands behind the field counts";
    EXPECT_EQ(MacText(interfaces.AddPacket("a", std::string(24, '\x11')), ""), std::string(48, '1'));
    EXPECT_EQ(MacText(interfaces.AddPacket("a", std::string(25, '\x11')), ""), std::string(48, '1'));
}

TEST_F(InterfaceListTest, TakesEqualEntriesOnce) {
    Interfaces interfaces;
    const ifaddrs& v4 = interfaces.Add("eth0", "0.0.0.1", "255.0.0.0");
    const ifaddrs& v6 = interfaces.Add("eth0", "::1", "ffff::");  // the same bytes
    const ifaddrs& other = interfaces.Add("eth1", "0.0.0.1", "255.0.0.0");
    interfaces.Add("eth0", "0.0.0.1", "255.255.0.0");
    ifaddrs& scoped = interfaces.Add("eth0", "::1", "ffff::");
    reinterpret_cast<sockaddr_in6*>(scoped.ifa_addr)->sin6_scope_id = 7;
    const InterfaceList list = interfaces.List();
    EXPECT_EQ(list.Count().all, 5U);
    ASSERT_EQ(list.Adapters().size(), 2U);
    EXPECT_EQ(list.Adapters()[0].addresses, (std::vector<const ifaddrs*>{&v4, &v6}));
    EXPECT_EQ(list.Adapters()[1].addresses, (std::vector<const ifaddrs*>{&other}));
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

}  // namespace
