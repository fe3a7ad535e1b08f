#include "values/ip_address.h"

#include <algorithm>
#include <charconv>

#include "evaluator/adapters.h"
#include "foundation/character_set.h"
#include "values/aggregates.h"
#include "values/string.h"

namespace {

using Address = ipv4or6_inspector_address;
using IPv4 = ipv4_inspector_address;
using IPv6 = ipv6_inspector_address;
using String = inspector_string;

constexpr size_t kGroups = 8;

bool LengthIsBetween(std::string_view text, size_t least, size_t most) {
    return text.size() >= least && text.size() <= most;
}

// How many bytes of the set the text begins with.
size_t Span(const CharacterSet& set, std::string_view text) {
    const ConstData data(text);
    return static_cast<size_t>(set.Span(data) - data.begin);
}

// Reads a whole text of four decimal numbers into four bytes.
bool ReadDotted(std::string_view text, uint8_t* out) {
    for (size_t i = 0; i < 4; ++i) {
        if (i != 0) {
            if (text.empty() || text.front() != '.') {
                return false;
            }
            text.remove_prefix(1);
        }
        const size_t digits = Span(CharacterSets::digits, text);
        if (digits == 0 || digits > 3 || (digits > 1 && text.front() == '0')) {
            return false;
        }
        unsigned number = 0;
        std::from_chars(text.data(), text.data() + digits, number);
        if (number > 255) {
            return false;
        }
        out[i] = static_cast<uint8_t>(number);
        text.remove_prefix(digits);
    }
    return text.empty();
}

// Reads the groups of an address of version 6, front to back, and then moves what stood behind "::" to the end.
class GroupReader {
public:
    explicit GroupReader(std::string_view text) : rest_(text) {}

    bool Read(Address::Bytes& bytes) {
        if (rest_.substr(0, 2) == "::") {
            gap_ = 0;
            rest_.remove_prefix(2);
        }
        while (!rest_.empty()) {
            if (!ReadElement(bytes) || !ReadSeparator()) {
                return false;
            }
        }
        if (gap_ == kNoGap) {
            return count_ == bytes.size();
        }
        if (count_ == bytes.size()) {
            return false;
        }
        std::move_backward(bytes.begin() + gap_, bytes.begin() + count_, bytes.end());
        std::fill_n(bytes.begin() + gap_, bytes.size() - count_, uint8_t{0});
        return true;
    }

private:
    static constexpr size_t kNoGap = 17;

    // One group, or the dotted form, which is the end of the text.
    bool ReadElement(Address::Bytes& bytes) {
        const size_t digits = Span(CharacterSets::hexadecimalDigits, rest_);
        if (digits < rest_.size() && rest_[digits] == '.') {
            if (count_ > bytes.size() - 4 || !ReadDotted(rest_, bytes.data() + count_)) {
                return false;
            }
            count_ += 4;
            rest_ = {};
            return true;
        }
        if (digits == 0 || digits > 4 || count_ == bytes.size()) {
            return false;
        }
        unsigned group = 0;
        std::from_chars(rest_.data(), rest_.data() + digits, group, 16);
        bytes[count_++] = static_cast<uint8_t>(group >> 8);
        bytes[count_++] = static_cast<uint8_t>(group);
        rest_.remove_prefix(digits);
        return true;
    }

    // The end of the text, ":" with a group behind it, or the one "::".
    bool ReadSeparator() {
        if (rest_.empty()) {
            return true;
        }
        if (rest_.size() < 2 || rest_.front() != ':') {
            return false;
        }
        rest_.remove_prefix(1);
        if (rest_.front() == ':') {
            if (gap_ != kNoGap) {
                return false;
            }
            gap_ = count_;
            rest_.remove_prefix(1);
        }
        return true;
    }

    std::string_view rest_;
    size_t count_ = 0;     // of bytes read
    size_t gap_ = kNoGap;  // the count at "::"
};

}  // namespace

std::optional<IPv4> IPv4::Parse(std::string_view text) {
    uint8_t bytes[4];
    if (!LengthIsBetween(text, 7, 31) || !ReadDotted(text, bytes)) {
        return NotAnIPAddress;
    }
    if (std::all_of(std::begin(bytes), std::end(bytes), [](uint8_t byte) { return byte == 255; })) {
        return NotAnIPAddress;
    }
    return IPv4(bytes[0], bytes[1], bytes[2], bytes[3]);
}

std::optional<IPv6> IPv6::Parse(std::string_view text) {
    if (!LengthIsBetween(text, 2, 50)) {
        return NotAnIPAddress;
    }
    ZoneIndex zone{};
    if (const size_t mark = text.find('%'); mark != std::string_view::npos) {
        const std::string_view index = text.substr(mark + 1);
        if (index.size() >= zone.size() || index.find('\0') != std::string_view::npos) {
            return NotAnIPAddress;
        }
        std::copy(index.begin(), index.end(), zone.begin());
        text = text.substr(0, mark);
    }
    Bytes bytes{};
    if (text.empty() || !GroupReader(text).Read(bytes)) {
        return NotAnIPAddress;
    }
    return IPv6(bytes, zone);
}

std::optional<Address> Address::Parse(std::string_view text) {
    if (text.find(':') == std::string_view::npos) {
        return IPv4::Parse(text);
    }
    return IPv6::Parse(text);
}

IPv4 IP4Part(const Address& address) {
    const uint8_t* last = &address.Octets()[12];
    return {last[0], last[1], last[2], last[3]};
}

IPv6 IP4AddressAsMappedIP6Address(const IPv4& address) {
    Address::Bytes bytes = address.Octets();
    bytes[10] = 255;
    bytes[11] = 255;
    return IPv6(bytes);
}

namespace {

// A text under way, with room for the longest: six groups, a dotted address and a zone index.
class AddressText {
public:
    void Append(std::string_view piece) {
        if (piece.size() > static_cast<size_t>(std::end(text_) - end_)) {
            throw ConstDataCapacityExceeded();
        }
        end_ = std::copy(piece.begin(), piece.end(), end_);
    }

    void AppendNumber(unsigned number, int base, size_t leastDigits = 1) {
        char digits[10];
        const char* digitsEnd = std::to_chars(digits, std::end(digits), number, base).ptr;
        const auto count = static_cast<size_t>(digitsEnd - digits);
        Append(std::string_view("000").substr(0, leastDigits - std::min(count, leastDigits)));
        Append(std::string_view(digits, count));
    }

    void AppendDotted(const uint8_t* bytes) {
        for (size_t i = 0; i < 4; ++i) {
            Append(i == 0 ? "" : ".");
            AppendNumber(bytes[i], 10);
        }
    }

    String Copied() const { return CopiedString({text_, static_cast<size_t>(end_ - text_)}); }

private:
    char text_[sizeof "ffff:ffff:ffff:ffff:ffff:ffff:255.255.255.255%123456789"];
    char* end_ = text_;
};

struct GroupRun {
    size_t start = 0;
    size_t length = 0;
};

// The first of the longest runs of zeros among the first `count` groups; a single zero is one too.
GroupRun LongestZeros(const Address& address, size_t count) {
    GroupRun longest;
    GroupRun run;
    for (size_t i = 0; i < count; ++i) {
        if (address.Hexadecet(i) != 0) {
            run.length = 0;
            continue;
        }
        run = {run.length == 0 ? i : run.start, run.length + 1};
        if (run.length > longest.length) {
            longest = run;
        }
    }
    return longest;
}

void AppendGroups(AddressText& text, const Address& address, IPAddressFormat format) {
    const bool dotted = format == IPAddressFormat::withIPv4 || format == IPAddressFormat::compressedWithIPv4;
    const bool compressed = format == IPAddressFormat::compressed || format == IPAddressFormat::compressedWithIPv4;
    const size_t count = dotted ? kGroups - 2 : kGroups;
    const GroupRun zeros = compressed ? LongestZeros(address, count) : GroupRun();
    const auto separate = [&](size_t i) {
        const bool behindZeros = zeros.length != 0 && i == zeros.start + zeros.length;
        text.Append(i == 0 || behindZeros ? "" : ":");
    };
    for (size_t i = 0; i < count;) {
        if (zeros.length != 0 && i == zeros.start) {
            text.Append("::");
            i += zeros.length;
            continue;
        }
        separate(i);
        text.AppendNumber(address.Hexadecet(i), 16, format == IPAddressFormat::leadingZeros ? 4 : 1);
        ++i;
    }
    if (dotted) {
        separate(count);
        text.AppendDotted(&address.Octets()[12]);
    }
}

}  // namespace

String IPAddressText(const Address& address, IPAddressFormat format, bool withZone) {
    AddressText text;
    if (address.IsVersion4()) {
        text.AppendDotted(&address.Octets()[12]);
    } else {
        AppendGroups(text, address, format);
    }
    if (withZone && !address.Zone().empty()) {
        text.Append("%");
        text.Append(address.Zone());
    }
    return text.Copied();
}

namespace {

template <class T>
std::optional<T> AddressOf(const String& text) {
    return T::Parse(text.View());
}

std::optional<integer> IP6Hexadecet(integer n, const Address& address) {
    if (address.IsVersion4() || n >= integer(kGroups)) {
        return std::nullopt;
    }
    return integer(address.Hexadecet(static_cast<size_t>(n.Value())));
}

enumIPVersion IPVersionOf(const Address& address) {
    return address.IsVersion4() ? enumIPVersion::ipv4 : enumIPVersion::ipv6;
}

template <enumIPVersion version>
enumIPVersion TheIPVersion() {
    return version;
}

std::optional<enumIPVersion> NumberedIPVersion(integer n) {
    return n > integer(static_cast<int64_t>(enumIPVersion::any))
               ? std::nullopt
               : std::optional<enumIPVersion>(static_cast<enumIPVersion>(n.Value()));
}

String IPVersionAsString(enumIPVersion version) {
    constexpr std::string_view names[] = {"ipv4", "ipv6", "any ip version"};
    return String(names[static_cast<size_t>(version)]);
}

Address MappedAddress(const IPv4& address) { return IP4AddressAsMappedIP6Address(address); }

Address AnyAddress(const IPv6& address) { return address; }

template <int format, bool withZone>
String AsAStringTemplatedArgs(const Address& address) {
    return IPAddressText(address, static_cast<IPAddressFormat>(format), withZone);
}

// The relation of an address and a string, which is read by the rule of the address's type.
template <class T, auto Relation>
std::optional<boolean> WithString(const T& a, const String& b) {
    const std::optional<T> address = T::Parse(b.View());
    return address ? std::optional<boolean>(Relation(a, *address)) : std::nullopt;
}
template <class T, auto Relation>
std::optional<boolean> OfString(const String& a, const T& b) {
    const std::optional<T> address = T::Parse(a.View());
    return address ? std::optional<boolean>(Relation(*address, b)) : std::nullopt;
}

using adapters::kEqual;
using adapters::kLess;
using adapters::kLessOrEqual;

template <class T>
struct StringRelations {
    Operator2<kOperatorEqual, boolean, T, String, WithString<T, kEqual>> equalString;
    Operator2<kOperatorEqual, boolean, String, T, OfString<T, kEqual>> stringEqual;
    Operator2<kOperatorLess, boolean, T, String, WithString<T, kLess>> lessString;
    Operator2<kOperatorLess, boolean, String, T, OfString<T, kLess>> stringLess;
    Operator2<kOperatorLessOrEqual, boolean, T, String, WithString<T, kLessOrEqual>> lessOrEqualString;
    Operator2<kOperatorLessOrEqual, boolean, String, T, OfString<T, kLessOrEqual>> stringLessOrEqual;
};

template <class T>
struct TextCasts {
    // clang-format off
    Cast<String, T, AsAStringTemplatedArgs<4, false>>   plain                       {"string"};
    Cast<String, T, AsAStringTemplatedArgs<1, false>>   withIPv4                    {"string with ipv4"};
    Cast<String, T, AsAStringTemplatedArgs<2, false>>   compressed                  {"compressed string"};
    Cast<String, T, AsAStringTemplatedArgs<3, false>>   compressedWithIPv4          {"compressed string with ipv4"};
    Cast<String, T, AsAStringTemplatedArgs<0, false>>   leadingZeros                {"string with leading zeros"};
    Cast<String, T, AsAStringTemplatedArgs<4, true>>    plainWithZone               {"string with zone index"};
    Cast<String, T, AsAStringTemplatedArgs<1, true>>    withIPv4WithZone            {"string with ipv4 with zone index"};
    Cast<String, T, AsAStringTemplatedArgs<2, true>>    compressedWithZone          {"compressed string with zone index"};
    Cast<String, T, AsAStringTemplatedArgs<3, true>>    compressedWithIPv4WithZone  {"compressed string with ipv4 with zone index"};
    Cast<String, T, AsAStringTemplatedArgs<0, true>>    leadingZerosWithZone        {"string with leading zeros with zone index"};
    // clang-format on
};

// clang-format off
Type<Address>                                                       type;
Type<IPv4>                                                          ipv4Type;
Type<IPv6>                                                          ipv6Type;
Type<enumIPVersion>                                                 versionType;

NamedGlobalProperty<IPv4, AddressOf<IPv4>>                          ipv4OfString    {"ipv4 address", "ipv4 addresses"};
NamedGlobalProperty<IPv6, AddressOf<IPv6>>                          ipv6OfString    {"ipv6 address", "ipv6 addresses"};
NamedGlobalProperty<Address, AddressOf<Address>>                    ofString        {"ipv4or6 address", "ipv4or6 addresses"};
Property<IPv6, IPv4, IP4Part>                                       ipv6Part        {"ipv4 part", "ipv4 parts"};
Property<Address, IPv4, IP4Part>                                    part            {"ipv4 part", "ipv4 parts"};
NumberedProperty<IPv6, integer, IP6Hexadecet>                       ipv6Hexadecet   {"hexadecet", "hexadecets"};
NumberedProperty<Address, integer, IP6Hexadecet>                    hexadecet       {"hexadecet", "hexadecets"};
Property<Address, enumIPVersion, IPVersionOf>                       version         {"ip version", "ip versions"};
GlobalProperty<enumIPVersion, TheIPVersion<enumIPVersion::ipv4>>    ipv4            {"ipv4", "ipv4s"};
GlobalProperty<enumIPVersion, TheIPVersion<enumIPVersion::ipv6>>    ipv6            {"ipv6", "ipv6s"};
GlobalProperty<enumIPVersion, TheIPVersion<enumIPVersion::any>>     any             {"any ip version", "any ip versions"};
NumberedGlobalProperty<enumIPVersion, NumberedIPVersion>            numberedVersion {"ip version", "ip versions"};

Cast<IPv6, String, AddressOf<IPv6>>                                 stringAsIPv6    {"ipv6 address"};
Cast<Address, String, AddressOf<Address>>                           stringAsAny     {"ipv4or6 address"};
Cast<IPv6, IPv4, IP4AddressAsMappedIP6Address>                      ipv4AsIPv6      {"ipv6 address"};
Cast<Address, IPv4, MappedAddress>                                  ipv4AsAny       {"ipv4or6 address"};
Cast<Address, IPv6, AnyAddress>                                     ipv6AsAny       {"ipv4or6 address"};
Cast<String, enumIPVersion, IPVersionAsString>                      versionToString {"string"};
Cast<String, IPv4, AsAStringTemplatedArgs<4, false>>                ipv4ToString    {"string"};
TextCasts<IPv6>                                                     ipv6Texts;
TextCasts<Address>                                                  texts;

ComparableInspectorRegistration<Address>                            comparable;
ComparableInspectorRegistration<IPv4>                               ipv4Comparable;
ComparableInspectorRegistration<IPv6>                               ipv6Comparable;
RelationEqual<enumIPVersion>                                        versionEqual;
StringRelations<IPv4>                                               ipv4AndString;
StringRelations<Address>                                            andString;
// clang-format on

}  // namespace
