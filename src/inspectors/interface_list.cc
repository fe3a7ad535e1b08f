#include "inspectors/interface_list.h"

#include <net/if.h>
#include <netinet/in.h>
#include <netpacket/packet.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <utility>

namespace {

using Address = ipv4or6_inspector_address;

constexpr size_t kVersion4At = 12;  // where the four bytes lie in the sixteen

std::optional<ipv4or6_inspector_address> Made(const sockaddr* address) {
    if (address == nullptr) {
        return NoIFAddress;
    }
    if (address->sa_family == AF_INET) {
        sockaddr_in of4;
        std::memcpy(&of4, address, sizeof of4);
        uint8_t bytes[4];
        std::memcpy(bytes, &of4.sin_addr, sizeof bytes);
        return ipv4_inspector_address(bytes[0], bytes[1], bytes[2], bytes[3]);
    }
    if (address->sa_family == AF_INET6) {
        sockaddr_in6 of6;
        std::memcpy(&of6, address, sizeof of6);
        ipv6_inspector_address::Bytes bytes;
        std::memcpy(bytes.data(), &of6.sin6_addr, bytes.size());
        ipv6_inspector_address::ZoneIndex zone{};
        if (of6.sin6_scope_id != 0) {
            std::to_chars(zone.data(), zone.data() + zone.size() - 1, of6.sin6_scope_id);
        }
        return ipv6_inspector_address(bytes, zone);
    }
    return NoIFAddress;
}

bool HasFamily(const ifaddrs& entry, int family) {
    return entry.ifa_addr != nullptr && entry.ifa_addr->sa_family == family;
}

// The scope of an address of version 6 does not count.
bool SameAddress(const ifaddrs& a, const ifaddrs& b) {
    return a.ifa_addr->sa_family == b.ifa_addr->sa_family && AddressOf(a)->Octets() == AddressOf(b)->Octets();
}

}  // namespace

bool IsVersion4(const ifaddrs& entry) { return HasFamily(entry, AF_INET); }
bool IsVersion6(const ifaddrs& entry) { return HasFamily(entry, AF_INET6); }
bool IsPacket(const ifaddrs& entry) { return HasFamily(entry, AF_PACKET); }

std::optional<int> FamilyOf(const ifaddrs& entry) {
    return entry.ifa_addr == nullptr ? NoIFAddress : std::optional<int>(entry.ifa_addr->sa_family);
}

std::optional<ipv4or6_inspector_address> AddressOf(const ifaddrs& entry) { return Made(entry.ifa_addr); }

// Some kernels leave the family out of a mask: it is that of the address.
std::optional<ipv4or6_inspector_address> MaskOf(const ifaddrs& entry) {
    if (entry.ifa_netmask == nullptr || !IsAddress(entry)) {
        return NoIFAddress;
    }
    sockaddr_storage mask{};
    std::memcpy(&mask, entry.ifa_netmask, IsVersion4(entry) ? sizeof(sockaddr_in) : sizeof(sockaddr_in6));
    mask.ss_family = entry.ifa_addr->sa_family;
    return Made(reinterpret_cast<const sockaddr*>(&mask));
}

std::optional<ipv4or6_inspector_address> SubnetAddressOf(const ifaddrs& entry) {
    const auto address = AddressOf(entry);
    const auto mask = MaskOf(entry);
    if (!address || !mask) {
        return NoIFAddress;
    }
    ipv4or6_inspector_address::Bytes bytes = address->Octets();
    for (size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] &= mask->Octets()[i];
    }
    if (address->IsVersion4()) {
        return ipv4_inspector_address(bytes[kVersion4At], bytes[kVersion4At + 1], bytes[kVersion4At + 2],
                                      bytes[kVersion4At + 3]);
    }
    return ipv6_inspector_address(bytes);
}

std::optional<ipv4or6_inspector_address> BroadcastAddressOf(const ifaddrs& entry) {
    return (entry.ifa_flags & IFF_BROADCAST) == 0 || !IsAddress(entry) ? NoIFAddress : Made(entry.ifa_broadaddr);
}

std::optional<std::string> CidrOf(const ifaddrs& entry) {
    const auto subnet = SubnetAddressOf(entry);
    if (!subnet) {
        return NoIFAddress;
    }
    int bits = 0;
    const Address mask = *MaskOf(entry);
    for (uint8_t byte : mask.Octets()) {
        bits += std::popcount(byte);
    }
    std::string text(IPAddressText(*subnet, IPAddressFormat::plain, false).View());
    text += '/';
    return text += std::to_string(bits);
}

std::optional<std::string> MacText(const ifaddrs& packet, std::string_view separator) {
    constexpr char kDigits[] = "0123456789abcdef";
    if (!IsPacket(packet)) {
        return std::nullopt;
    }
    sockaddr_ll link;
    std::memcpy(&link, packet.ifa_addr, sizeof link);
    unsigned char address[kLongestLinkAddress];
    const size_t length = std::min<size_t>(link.sll_halen, sizeof address);
    std::memcpy(address, reinterpret_cast<const unsigned char*>(packet.ifa_addr) + offsetof(sockaddr_ll, sll_addr),
                length);
    if (std::all_of(address, address + length, [](unsigned char byte) { return byte == 0; })) {
        return std::nullopt;
    }
    std::string text;
    for (size_t i = 0; i < length; ++i) {
        if (i != 0) {
            text += separator;
        }
        text += kDigits[address[i] >> 4];
        text += kDigits[address[i] & 15];
    }
    return text;
}

const ifaddrs* InterfaceAdapter::FirstVersion4() const {
    const auto found =
        std::find_if(addresses.begin(), addresses.end(), [](const ifaddrs* entry) { return IsVersion4(*entry); });
    return found == addresses.end() ? nullptr : *found;
}

InterfaceList::InterfaceList(Entries entries) : entries_(std::move(entries)) {
    for (const ifaddrs* entry = Head(); entry != nullptr; entry = entry->ifa_next) {
        Add(*entry);
    }
}

std::shared_ptr<const InterfaceList> InterfaceList::OfSystem() {
    ifaddrs* head = nullptr;
    if (getifaddrs(&head) != 0) {
        throw GetIFAddrFailed();
    }
    return std::make_shared<const InterfaceList>(Entries(head, freeifaddrs));
}

void InterfaceList::Add(const ifaddrs& entry) {
    ++counts_.all;
    counts_.addresses += IsAddress(entry);
    counts_.version4 += IsVersion4(entry);
    counts_.version6 += IsVersion6(entry);
    counts_.packets += IsPacket(entry);

    InterfaceAdapter& adapter = AdapterNamed(entry.ifa_name);
    adapter.flags |= entry.ifa_flags;
    if (IsPacket(entry)) {
        adapter.packet = adapter.packet == nullptr ? &entry : adapter.packet;
    } else if (IsAddress(entry)) {
        const bool known = std::any_of(adapter.addresses.begin(), adapter.addresses.end(),
                                       [&](const ifaddrs* earlier) { return SameAddress(*earlier, entry); });
        if (!known) {
            adapter.addresses.push_back(&entry);
        }
    }
}

InterfaceAdapter& InterfaceList::AdapterNamed(const char* name) {
    const auto found =
        std::find_if(adapters_.begin(), adapters_.end(), [&](const auto& adapter) { return adapter.name == name; });
    if (found != adapters_.end()) {
        return *found;
    }
    adapters_.emplace_back().name = name;
    return adapters_.back();
}

const InterfaceAdapter& InterfaceList::AdapterOf(const ifaddrs& entry) const {
    return *std::find_if(adapters_.begin(), adapters_.end(),
                         [&](const auto& adapter) { return adapter.name == entry.ifa_name; });
}

bool InterfaceList::IsAlias(const ifaddrs& entry) const {
    for (const ifaddrs* earlier = Head(); earlier != &entry; earlier = earlier->ifa_next) {
        if (std::strcmp(earlier->ifa_name, entry.ifa_name) == 0) {
            return true;
        }
    }
    return false;
}
