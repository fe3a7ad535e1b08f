// Addresses of the two versions of the Internet Protocol, and the versions themselves.
#ifndef VALUES_IP_ADDRESS_H
#define VALUES_IP_ADDRESS_H

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string_view>
#include <tuple>

#include "registry/inspector_type_info.h"

enum class enumIPVersion : uint32_t { ipv4 = 0, ipv6 = 1, any = 2 };

template <>
struct InspectorTypeInfo<enumIPVersion> : InspectorTypeBasics<enumIPVersion> {
    static constexpr char Name[] = "ip version";
    static constexpr unsigned Size = 4;
};

// What is made of a text that is no address.
inline constexpr std::nullopt_t NotAnIPAddress = std::nullopt;

// An address of either version.
class ipv4or6_inspector_address {
public:
    // In network order; an address of version 4 lies in the last four, behind zeros.
    using Bytes = std::array<uint8_t, 16>;
    // The zone index without its "%", and zeros behind it, at least one.
    using ZoneIndex = std::array<char, 10>;

    ipv4or6_inspector_address() = default;

    // The address that a text of 2 to 50 bytes stands for, in the form of either version.
    static std::optional<ipv4or6_inspector_address> Parse(std::string_view text);

    bool IsVersion4() const { return family_ == kVersion4; }
    bool Valid() const { return valid_ != 0; }
    const Bytes& Octets() const { return bytes_; }
    // Group n of 16 bits, from 0 to 7.
    uint16_t Hexadecet(size_t n) const { return static_cast<uint16_t>(bytes_[2 * n] << 8 | bytes_[2 * n + 1]); }
    std::string_view Zone() const { return zone_.data(); }

    // Version 4 before version 6, then by the bytes, then by the zone index.
    friend bool operator==(const ipv4or6_inspector_address& a, const ipv4or6_inspector_address& b) {
        return a.Rank() == b.Rank();
    }
    friend std::strong_ordering operator<=>(const ipv4or6_inspector_address& a, const ipv4or6_inspector_address& b) {
        return a.Rank() <=> b.Rank();
    }

protected:
    static constexpr uint8_t kVersion4 = 0;
    static constexpr uint8_t kVersion6 = 1;

    ipv4or6_inspector_address(uint8_t family, const Bytes& bytes, const ZoneIndex& zone = {})
        : family_(family), valid_(1), bytes_(bytes), zone_(zone) {}

private:
    std::tuple<uint8_t, const Bytes&, std::string_view> Rank() const { return {family_, bytes_, Zone()}; }

    uint8_t family_ = kVersion4;
    uint8_t valid_ = 0;
    Bytes bytes_{};
    ZoneIndex zone_{};
};

template <>
struct InspectorTypeInfo<ipv4or6_inspector_address> : InspectorTypeBasics<ipv4or6_inspector_address, 0> {
    static constexpr char Name[] = "ipv4or6 address";
    static constexpr unsigned Size = 28;
};

class ipv4_inspector_address : public ipv4or6_inspector_address {
public:
    ipv4_inspector_address() = default;
    ipv4_inspector_address(uint8_t a, uint8_t b, uint8_t c, uint8_t d)
        : ipv4or6_inspector_address(kVersion4, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, a, b, c, d}) {}

    // The address that a text of 7 to 31 bytes stands for: four numbers from 0 to 255 without leading zeros.
    // Kept as it stands: 255.255.255.255 is refused.
    static std::optional<ipv4_inspector_address> Parse(std::string_view text);
};

template <>
struct InspectorTypeInfo<ipv4_inspector_address> : InspectorTypeBasics<ipv4_inspector_address, 0> {
    static constexpr char Name[] = "ipv4 address";
    static constexpr const char* Parent = "ipv4or6 address";
    static constexpr unsigned Size = 28;
};

class ipv6_inspector_address : public ipv4or6_inspector_address {
public:
    ipv6_inspector_address() : ipv6_inspector_address(Bytes{}) {}
    explicit ipv6_inspector_address(const Bytes& bytes, const ZoneIndex& zone = {})
        : ipv4or6_inspector_address(kVersion6, bytes, zone) {}

    // The address that a text of 2 to 50 bytes stands for: eight groups of one to four hexadecimal digits, of which
    // "::" stands for one or more zeros and a dotted address for the last two, and a zone index of up to nine bytes
    // behind "%".
    static std::optional<ipv6_inspector_address> Parse(std::string_view text);
};

template <>
struct InspectorTypeInfo<ipv6_inspector_address> : InspectorTypeBasics<ipv6_inspector_address, 0> {
    static constexpr char Name[] = "ipv6 address";
    static constexpr const char* Parent = "ipv4or6 address";
    static constexpr unsigned Size = 28;
};

// The last four bytes as an address of version 4, whatever stands before them.
ipv4_inspector_address IP4Part(const ipv4or6_inspector_address& address);

// ::ffff:a.b.c.d
ipv6_inspector_address IP4AddressAsMappedIP6Address(const ipv4_inspector_address& address);

// How the groups of an address of version 6 are written.
enum class IPAddressFormat {
    leadingZeros = 0,        // eight groups of four digits
    withIPv4 = 1,            // six groups, the last four bytes in dotted form
    compressed = 2,          // eight groups, the first of the longest runs of zeros as "::"
    compressedWithIPv4 = 3,  // the same over the six groups before the dotted form
    plain = 4,               // eight groups without leading zeros
};

// The text in evaluation memory; an address of version 4 has its dotted form in every format.
inspector_string IPAddressText(const ipv4or6_inspector_address& address, IPAddressFormat format, bool withZone);

#endif
