// Feeds arbitrary bytes to the parsers of addresses.
//
// A text is an address of one version at most, the common parser takes what either takes, the system library agrees,
// and whatever was taken reads back from each of its text forms.
#include <arpa/inet.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/stack_allocator.h"
#include "fuzz/expect.h"
#include "values/ip_address.h"

namespace {

using Address = ipv4or6_inspector_address;

void ExpectReadsBack(const Address& address, std::string_view zone) {
    StackAllocator<4096> memory;
    const AllocatorInstaller installed(memory);
    for (const auto format : {IPAddressFormat::leadingZeros, IPAddressFormat::withIPv4, IPAddressFormat::compressed,
                              IPAddressFormat::compressedWithIPv4, IPAddressFormat::plain}) {
        const std::string_view plain = IPAddressText(address, format, false).View();
        const std::string_view zoned = IPAddressText(address, format, true).View();
        Expect(zoned == std::string(plain) + (zone.empty() ? "" : "%" + std::string(zone)));
        const auto back = Address::Parse(plain);
        Expect(back && back->Octets() == address.Octets() && back->IsVersion4() == address.IsVersion4());
        if (zoned.size() <= 50) {
            Expect(Address::Parse(zoned) == address);
        }
    }
}

bool SystemTakes(int family, std::string_view text, uint8_t* bytes) {
    return text.find('\0') == std::string_view::npos && inet_pton(family, std::string(text).c_str(), bytes) == 1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto four = ipv4_inspector_address::Parse(text);
    const auto six = ipv6_inspector_address::Parse(text);
    const auto either = Address::Parse(text);
    Expect(!(four && six));
    Expect(either.has_value() == (four || six));
    uint8_t bytes[16] = {};
    Expect(four.has_value() == (SystemTakes(AF_INET, text, bytes + 12) && text != "255.255.255.255"));
    if (four) {
        Expect(std::equal(bytes, bytes + 16, four->Octets().begin()) && *either == *four);
        ExpectReadsBack(*four, {});
    }
    const std::string_view groups = text.substr(0, text.find('%'));
    const bool taken = SystemTakes(AF_INET6, groups, bytes);
    Expect(!six || taken);
    Expect(six || !taken || text.size() > 50 || groups.size() + 10 < text.size() ||
           text.find('\0') != std::string_view::npos);
    if (six) {
        Expect(std::equal(bytes, bytes + 16, six->Octets().begin()) && *either == *six);
        ExpectReadsBack(*six, six->Zone());
    }
    return 0;
}
