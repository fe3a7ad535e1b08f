// The network of the machine: its interfaces one by one, and the adapters that they belong to.
#include "inspectors/network.h"

#include <net/if.h>

#include <optional>

#include "evaluator/adapters.h"
#include "foundation/ascii.h"
#include "values/integer.h"
#include "values/string.h"

namespace {

using Address = ipv4or6_inspector_address;

network Network() { return network(InterfaceList::OfSystem()); }

bool IsAny(const ifaddrs&) { return true; }

// Walks the entries that pass a test, as values of type T.
template <class T, auto Test>
class interface_iterator {
public:
    void Start(Of, const network& n) { next_ = n.List()->Head(); }
    std::optional<T> Next(Of, const network& n) {
        while (next_ != nullptr && !Test(*next_)) {
            next_ = next_->ifa_next;
        }
        if (next_ == nullptr) {
            return std::nullopt;
        }
        const ifaddrs* entry = next_;
        next_ = next_->ifa_next;
        return T(n.List(), entry);
    }

private:
    const ifaddrs* next_ = nullptr;
};

// The entry n of those that pass a test, counted from 1.
template <auto Test>
std::optional<network_interface> InterfaceByNumber(integer n, const network& of) {
    int64_t left = n.Value();
    for (const ifaddrs* entry = of.List()->Head(); entry != nullptr && left > 0; entry = entry->ifa_next) {
        if (Test(*entry) && --left == 0) {
            return network_interface(of.List(), entry);
        }
    }
    return NoIPAddrInterface;
}

template <auto Test>
class adapter_interface_iterator {
public:
    void Start(Of, const network_adapter&) { next_ = 0; }
    std::optional<network_adapter_interface> Next(Of, const network_adapter& adapter) {
        const auto& entries = adapter.Adapter().addresses;
        while (next_ < entries.size() && !Test(*entries[next_])) {
            ++next_;
        }
        return next_ == entries.size()
                   ? std::nullopt
                   : std::optional<network_adapter_interface>(std::in_place, adapter.List(), entries[next_++]);
    }

private:
    size_t next_ = 0;
};

bool IsUsable(const InterfaceAdapter& adapter) { return (adapter.flags & IFF_UP) != 0 && !adapter.addresses.empty(); }
bool IsAnyAdapter(const InterfaceAdapter&) { return true; }

template <auto Test>
class adapter_iterator {
public:
    void Start(Of, const network&) { next_ = 0; }
    std::optional<network_adapter> Next(Of, const network& n) {
        return NextWhere(n, [](const InterfaceAdapter& adapter) { return Test(adapter); });
    }

    void StartNamed(const inspector_string&, Of, const network&) { next_ = 0; }
    std::optional<network_adapter> NextNamed(const inspector_string& name, Of, const network& n) {
        return NextWhere(
            n, [&](const InterfaceAdapter& adapter) { return Ascii::EqualIgnoringCase(adapter.name, name.View()); });
    }

private:
    template <class Wanted>
    std::optional<network_adapter> NextWhere(const network& n, const Wanted& wanted) {
        const auto& adapters = n.List()->Adapters();
        while (next_ < adapters.size()) {
            const InterfaceAdapter& adapter = adapters[next_++];
            if (wanted(adapter)) {
                return network_adapter(n.List(), &adapter);
            }
        }
        return NoNamedInterfaces;
    }

    size_t next_ = 0;
};

std::optional<inspector_string> Copied(const std::optional<std::string>& text) {
    return text ? std::optional<inspector_string>(CopiedString(*text)) : std::nullopt;
}

std::optional<inspector_string> MacOf(const InterfaceAdapter& adapter) {
    return adapter.packet == nullptr ? std::nullopt : Copied(MacText(*adapter.packet, ":"));
}

// ---- Of one entry ---------------------------------------------------------------------------------------------------

std::optional<integer> Family(const network_interface& i) {
    const std::optional<int> family = FamilyOf(i.Entry());
    return family ? std::optional<integer>(*family) : std::nullopt;
}

template <auto Get>
std::optional<Address> AddressOfInterface(const network_interface& i) {
    return Get(i.Entry());
}

boolean Alias(const network_interface& i) { return i.List()->IsAlias(i.Entry()); }

template <unsigned Bit>
boolean Flag(const network_interface& i) {
    return (i.Entry().ifa_flags & Bit) != 0;
}

template <class T>
std::optional<inspector_string> Cidr(const T& i) {
    return Copied(CidrOf(i.Entry()));
}

template <class T>
std::optional<inspector_string> Mac(const T& i) {
    return MacOf(i.List()->AdapterOf(i.Entry()));
}

inspector_string Name(const network_interface& i) { return CopiedString(i.Entry().ifa_name); }

network_adapter AdapterOfInterface(const network_adapter_interface& i) {
    return network_adapter(i.List(), &i.List()->AdapterOf(i.Entry()));
}

// ---- Of one adapter -------------------------------------------------------------------------------------------------

// The adapter's first address of version 4 stands for it.

template <auto Get>
std::optional<ipv4_inspector_address> AddressOfAdapter(const network_adapter& a) {
    const ifaddrs* first = a.Adapter().FirstVersion4();
    const std::optional<Address> address = first == nullptr ? std::nullopt : Get(*first);
    return address && address->IsVersion4() ? std::optional<ipv4_inspector_address>(IP4Part(*address)) : std::nullopt;
}

template <unsigned Bit>
boolean AdapterFlag(const network_adapter& a) {
    return (a.Adapter().flags & Bit) != 0;
}

std::optional<inspector_string> AdapterCidr(const network_adapter& a) {
    const ifaddrs* first = a.Adapter().FirstVersion4();
    return first == nullptr ? std::nullopt : Copied(CidrOf(*first));
}

std::optional<inspector_string> AdapterMac(const network_adapter& a) { return MacOf(a.Adapter()); }

inspector_string AdapterName(const network_adapter& a) { return CopiedString(a.Adapter().name); }

// ---- The words ------------------------------------------------------------------------------------------------------

template <class T, auto Test, class Iterator = interface_iterator<T, Test>>
using Interfaces = IteratedPropertyOfObject<Iterator, T, network, &Iterator::Next, &Iterator::Next, &Iterator::Start>;
template <auto Test, class Iterator = adapter_interface_iterator<Test>>
using InterfacesOfAdapter = IteratedPropertyOfObject<Iterator, network_adapter_interface, network_adapter,
                                                     &Iterator::Next, &Iterator::Next, &Iterator::Start>;
template <auto Test, class Iterator = adapter_iterator<Test>>
using Adapters =
    IteratedPropertyOfObject<Iterator, network_adapter, network, &Iterator::Next, &Iterator::Next, &Iterator::Start>;
using AnyAdapter = adapter_iterator<IsAnyAdapter>;
using FindAdapter =
    IteratedPropertyByIndexOfObject<AnyAdapter, network_adapter, inspector_string, network, &AnyAdapter::NextNamed,
                                    &AnyAdapter::NextNamed, &AnyAdapter::StartNamed>;
template <auto Get>
using InterfaceAddress = Property<network_interface, Address, AddressOfInterface<Get>>;
template <auto Get>
using AdapterAddress = Property<network_adapter, ipv4_inspector_address, AddressOfAdapter<Get>>;
template <unsigned Bit>
using InterfaceFlag = Property<network_interface, boolean, Flag<Bit>>;
template <unsigned Bit>
using FlagOfAdapter = Property<network_adapter, boolean, AdapterFlag<Bit>>;
using AdapterInterface = network_adapter_interface;

// clang-format off
Type<network>                                                       type;
Type<network_interface>                                             interfaceType;
Type<network_adapter_interface>                                     adapterInterfaceType;
Type<network_adapter>                                               adapterType;

GlobalProperty<network, Network>                                    whole               {"network", "networks", ByValueOnly};
Interfaces<network_interface, IsAny>                                interfaces          {"interface", "interfaces"};
NumberedProperty<network, network_interface, InterfaceByNumber<IsAny>>
                                                                    interfaceByNumber   {"interface", "interfaces"};
Property<network_interface, integer, Family>                        family              {"family", "families"};
Interfaces<network_interface, IsVersion4>                           ipInterfaces        {"ip interface", "ip interfaces"};
NumberedProperty<network, network_interface, InterfaceByNumber<IsVersion4>>
                                                                    ipInterfaceByNumber {"ip interface", "ip interfaces"};
Interfaces<AdapterInterface, IsVersion4>                            ipv4Interfaces      {"ipv4 interface", "ipv4 interfaces"};
Interfaces<AdapterInterface, IsVersion6>                            ipv6Interfaces      {"ipv6 interface", "ipv6 interfaces"};
Interfaces<AdapterInterface, IsAddress>                             ipv4or6Interfaces   {"ipv4or6 interface", "ipv4or6 interfaces"};
Adapters<IsUsable>                                                  adapters            {"adapter", "adapters"};
Adapters<IsAnyAdapter>                                              anyAdapters         {"any adapter", "any adapters"};
FindAdapter                                                         findAdapter         {"find adapter", "find adapters"};
InterfacesOfAdapter<IsVersion4>                                     ipv4OfAdapter       {"ipv4 interface", "ipv4 interfaces"};
InterfacesOfAdapter<IsVersion6>                                     ipv6OfAdapter       {"ipv6 interface", "ipv6 interfaces"};
InterfacesOfAdapter<IsAddress>                                      ipv4or6OfAdapter    {"ipv4or6 interface", "ipv4or6 interfaces"};
Property<AdapterInterface, network_adapter, AdapterOfInterface>     adapterOfInterface  {"adapter", "adapters"};

InterfaceAddress<AddressOf>                                         address             {"address", "addresses"};
InterfaceAddress<BroadcastAddressOf>                                broadcastAddress    {"broadcast address", "broadcast addresses"};
InterfaceAddress<SubnetAddressOf>                                   subnetAddress       {"subnet address", "subnet addresses"};
InterfaceAddress<MaskOf>                                            subnetMask          {"subnet mask", "subnet masks"};
Property<network_interface, boolean, Alias>                         alias               {"alias", "aliases"};
InterfaceFlag<IFF_BROADCAST>                                        broadcastSupport    {"broadcast support", "broadcast supports"};
InterfaceFlag<IFF_LOOPBACK>                                         loopback            {"loopback", "loopbacks"};
InterfaceFlag<IFF_MULTICAST>                                        multicastSupport    {"multicast support", "multicast supports"};
InterfaceFlag<IFF_POINTOPOINT>                                      pointToPoint        {"point to point", "point to points"};
InterfaceFlag<IFF_UP>                                               up                  {"up", "ups"};
Property<network_interface, inspector_string, Cidr<network_interface>>
                                                                    cidr                {"cidr address", "cidr addresses"};
Property<network_interface, inspector_string, Mac<network_interface>>
                                                                    mac                 {"mac address", "mac addresses"};
Property<network_interface, inspector_string, Name>                 name                {"name", "names"};

Property<AdapterInterface, inspector_string, Cidr<AdapterInterface>> cidrOfInterface    {"cidr address", "cidr addresses"};
Property<AdapterInterface, inspector_string, Cidr<AdapterInterface>> cidrString         {"cidr string", "cidr strings"};
Property<AdapterInterface, inspector_string, Mac<AdapterInterface>> macOfInterface      {"mac address", "mac addresses"};

AdapterAddress<AddressOf>                                           adapterAddress      {"address", "addresses"};
AdapterAddress<SubnetAddressOf>                                     adapterSubnet       {"subnet address", "subnet addresses"};
AdapterAddress<MaskOf>                                              adapterMask         {"subnet mask", "subnet masks"};
AdapterAddress<BroadcastAddressOf>                                  adapterBroadcast    {"broadcast address", "broadcast addresses"};
FlagOfAdapter<IFF_BROADCAST>                                        adapterBroadcasts   {"broadcast support", "broadcast supports"};
FlagOfAdapter<IFF_LOOPBACK>                                         adapterLoopback     {"loopback", "loopbacks"};
FlagOfAdapter<IFF_MULTICAST>                                        adapterMulticast    {"multicast support", "multicast supports"};
FlagOfAdapter<IFF_POINTOPOINT>                                      adapterPointToPoint {"point to point", "point to points"};
FlagOfAdapter<IFF_UP>                                               adapterUp           {"up", "ups"};
Property<network_adapter, inspector_string, AdapterCidr>            adapterCidr         {"cidr address", "cidr addresses"};
Property<network_adapter, inspector_string, AdapterMac>             adapterMac          {"mac address", "mac addresses"};
Property<network_adapter, inspector_string, AdapterName>            adapterName         {"name", "names"};
// clang-format on

}  // namespace
