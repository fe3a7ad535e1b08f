// Addresses beside the system library's own reading and writing of them.
#include "values/ip_address.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "foundation/stack_allocator.h"
#include "registry/type_registry.h"

namespace {

using Address = ipv4or6_inspector_address;

// The sixteen bytes of an address in hexadecimal, or "none".
template <class T>
std::string Bytes(const std::optional<T>& address) {
    if (!address) {
        return "none";
    }
    EXPECT_TRUE(address->Valid());
    std::string text;
    for (const uint8_t byte : address->Octets()) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", byte);
        text += digits;
    }
    return text;
}

std::string SystemBytes(int family, const std::string& text) {
    uint8_t bytes[16] = {};
    if (inet_pton(family, text.c_str(), family == AF_INET ? bytes + 12 : bytes) != 1) {
        return "none";
    }
    Address::Bytes copy;
    std::copy(std::begin(bytes), std::end(bytes), copy.begin());
    return Bytes(std::optional(ipv6_inspector_address(copy)));
}

// Where both have a say they agree: our own limits are the refused broadcast address and the lengths.
void ExpectAsTheSystem(const std::string& text) {
    if (text.find('\0') != std::string::npos || text.find('%') != std::string::npos || text.size() > 50) {
        return;
    }
    const std::string four = text == "255.255.255.255" ? "none" : SystemBytes(AF_INET, text);
    const std::string six = SystemBytes(AF_INET6, text);
    EXPECT_EQ(Bytes(ipv4_inspector_address::Parse(text)), four) << text;
    EXPECT_EQ(Bytes(ipv6_inspector_address::Parse(text)), six) << text;
    EXPECT_EQ(Bytes(Address::Parse(text)), six != "none" ? six : four) << text;
}

TEST(IPAddressParsing, AgreesWithTheSystemOnCraftedTexts) {
    for (const char* text : {"",
                             ":",
                             "::",
                             ":::",
                             "::1",
                             "1::",
                             "1::8",
                             "1:2:3:4:5:6:7:8",
                             "1:2:3:4:5:6:7",
                             "1:2:3:4:5:6:7:8:9",
                             "1:2:3:4:5:6:7::",
                             "::2:3:4:5:6:7:8",
                             "1::3:4:5:6:7:8",
                             "1:2:3:4::5:6:7:8",
                             "::1:2:3:4:5:6:7:8",
                             "1:2:3:4:5:6:7:8::",
                             "1::2::3",
                             "1:::2",
                             "::1:",
                             ":1",
                             "1:",
                             ":1::",
                             "::g",
                             "12345::",
                             "::12345",
                             "00001::",
                             "0000::",
                             "::ffff:1.2.3.4",
                             "::1.2.3.4",
                             "1:2:3:4:5:6:1.2.3.4",
                             "1:2:3:4:5::1.2.3.4",
                             "::2:3:4:5:6:1.2.3.4",
                             "1:2:3:4:5:6:7:1.2.3.4",
                             "1:2:3:4:5:1.2.3.4",
                             "1:2:3:4:5:6::1.2.3.4",
                             "1.2.3.4::",
                             "::1.2.3.4:5",
                             "::1.2.3",
                             "::1.2.3.",
                             "::.1.2.3",
                             "::1.2.3.256",
                             "::01.2.3.4",
                             "::1.2.3.4.5",
                             "::a.2.3.4",
                             "1.2.3.4",
                             "0.0.0.0",
                             "255.255.255.255",
                             "255.255.255.254",
                             "1.2.3",
                             "1.2.3.4.5",
                             "1.2.3.256",
                             "1.2.3.",
                             ".1.2.3",
                             "1..2.3",
                             "01.2.3.4",
                             "1.2.3.00",
                             "1.2.3.0",
                             "1.2.3.1000",
                             "+1.2.3.4",
                             "-1.2.3.4",
                             " 1.2.3.4",
                             "1.2.3.4 ",
                             "0x1.2.3.4",
                             "1",
                             "1.2",
                             "abcd",
                             "[::1]",
                             "::1/64",
                             "::0x1",
                             "::+1",
                             "::-1",
                             "::255.255.255.255"}) {
        ExpectAsTheSystem(text);
    }
}

TEST(IPAddressParsing, AgreesWithTheSystemOnRandomTexts) {
    std::mt19937 random(1);
    const std::vector<std::string> pieces = {
        ":", ":",   ":",  ":",  "::",     ".", ".", ".",     "0",  "1",   "9", "a",   "F",   "ffff", "255",
        "0", "256", "12", "00", "1:2:3:", " ", "g", "1.2.3", "10", "::1", "x", "4:5", "7:8", "dead"};
    for (int i = 0; i < 200000; ++i) {
        std::string text;
        for (size_t count = random() % 14; count != 0; --count) {
            text += pieces[random() % pieces.size()];
        }
        ExpectAsTheSystem(text);
    }
}

// Near to right: groups and numbers in their places, now and then one too many or something in the way.
TEST(IPAddressParsing, AgreesWithTheSystemOnTextsNearToRight) {
    std::mt19937 random(2);
    int taken = 0;
    for (int i = 0; i < 200000; ++i) {
        std::string text;
        const bool dotted = random() % 3 == 0;
        const size_t count = dotted ? 4 - (random() % 8 == 0) : 8 - random() % 3 % 2 * (random() % 8);
        for (size_t n = 0; n < count; ++n) {
            char piece[8];
            std::snprintf(piece, sizeof piece, dotted ? "%u" : "%x",
                          static_cast<unsigned>(random() % (dotted ? 257 : 65536) >> random() % 17));
            text += (n == 0 ? "" : dotted ? "." : ":") + std::string(piece);
        }
        for (size_t edits = random() % 3; edits != 0 && !text.empty(); --edits) {
            const size_t place = random() % (text.size() + 1);
            if (random() % 2 == 0) {
                text.insert(place, 1, "::.0f 1"[random() % 7]);
            } else {
                text.erase(std::min(place, text.size() - 1), 1);
            }
        }
        ExpectAsTheSystem(text);
        taken += Address::Parse(text).has_value();
    }
    EXPECT_GT(taken, 20000);
    EXPECT_LT(taken, 180000);
}

TEST(IPAddressParsing, TakesAZoneIndexOfUpToNineBytes) {
    EXPECT_EQ(ipv6_inspector_address::Parse("fe80::1%eth0")->Zone(), "eth0");
    EXPECT_EQ(ipv6_inspector_address::Parse("fe80::1%123456789")->Zone(), "123456789");
    EXPECT_EQ(ipv6_inspector_address::Parse("fe80::1%")->Zone(), "");
    EXPECT_EQ(ipv6_inspector_address::Parse("fe80::1%a%b")->Zone(), "a%b");
    EXPECT_FALSE(ipv6_inspector_address::Parse("fe80::1%1234567890"));
    EXPECT_FALSE(ipv6_inspector_address::Parse(std::string_view("fe80::1%a\0b", 11)));
    EXPECT_FALSE(ipv6_inspector_address::Parse("%eth0"));
    EXPECT_FALSE(ipv6_inspector_address::Parse("1.2.3.4%eth0"));
    EXPECT_FALSE(Address::Parse("1.2.3.4%eth0"));
    EXPECT_FALSE(Address::Parse("1.2.3.4%a:b"));
}

TEST(IPAddressParsing, TakesTwoToFiftyBytes) {
    const std::string longest = "1111:2222:3333:4444:5555:6666:123.123.123.123";
    EXPECT_TRUE(ipv6_inspector_address::Parse(longest + "%abcd"));
    EXPECT_FALSE(ipv6_inspector_address::Parse(longest + "%abcde"));
    EXPECT_FALSE(ipv6_inspector_address::Parse(std::string(100000, ':')));
    EXPECT_FALSE(ipv4_inspector_address::Parse(std::string(100000, '1')));
}

class IPAddressTextTest : public testing::Test {
protected:
    std::string Text(const Address& address, IPAddressFormat format, bool withZone = false) {
        char* const mark = memory_.Top();
        const std::string text(IPAddressText(address, format, withZone).View());
        memory_.ReleaseTo(mark);
        return text;
    }

    StackAllocator<4096> memory_;
    AllocatorInstaller installed_{memory_};
};

std::string Joined(const Address& address, size_t count, const char* format) {
    std::string text;
    for (size_t i = 0; i < count; ++i) {
        char group[8];
        std::snprintf(group, sizeof group, format, static_cast<unsigned>(address.Hexadecet(i)));
        text += (i == 0 ? "" : ":") + std::string(group);
    }
    return text;
}

// Replaces the first of the longest runs of "0" in a text of groups by "::", by way of looking for each length.
std::string Compressed(std::string groups, size_t count) {
    for (size_t length = count; length != 0; --length) {
        std::string run = ":";
        for (size_t i = 0; i < length; ++i) {
            run += "0:";
        }
        const std::string framed = ":" + groups + ":";
        const size_t place = framed.find(run);
        if (place != std::string::npos) {
            std::string text = framed.substr(0, place) + "::" + framed.substr(place + run.size());
            text.erase(0, place == 0 ? 0 : 1);
            if (place + run.size() != framed.size()) {
                text.pop_back();
            }
            return text;
        }
    }
    return groups;
}

std::string WithDotted(const std::string& groups, const Address& address) {
    char dotted[INET_ADDRSTRLEN];
    inet_ntop(AF_INET, &address.Octets()[12], dotted, sizeof dotted);
    return groups + (groups.size() >= 2 && groups.substr(groups.size() - 2) == "::" ? "" : ":") + dotted;
}

TEST_F(IPAddressTextTest, IsThatOfAnIndependentWriter) {
    std::mt19937 random(3);
    for (int i = 0; i < 50000; ++i) {
        Address::Bytes bytes{};
        for (size_t group = 0; group < 8; ++group) {
            if (random() % 2 == 0) {
                const unsigned value = random() % 65536 >> random() % 16;
                bytes[2 * group] = static_cast<uint8_t>(value >> 8);
                bytes[2 * group + 1] = static_cast<uint8_t>(value);
            }
        }
        const ipv6_inspector_address address(bytes);
        const std::string eight = Joined(address, 8, "%x");
        const std::string six = Joined(address, 6, "%x");
        EXPECT_EQ(Text(address, IPAddressFormat::plain), eight);
        EXPECT_EQ(Text(address, IPAddressFormat::leadingZeros), Joined(address, 8, "%04x"));
        EXPECT_EQ(Text(address, IPAddressFormat::withIPv4), WithDotted(six, address));
        EXPECT_EQ(Text(address, IPAddressFormat::compressed), Compressed(eight, 8));
        EXPECT_EQ(Text(address, IPAddressFormat::compressedWithIPv4), WithDotted(Compressed(six, 6), address));
        for (const auto format : {IPAddressFormat::plain, IPAddressFormat::leadingZeros, IPAddressFormat::withIPv4,
                                  IPAddressFormat::compressed, IPAddressFormat::compressedWithIPv4}) {
            EXPECT_EQ(SystemBytes(AF_INET6, Text(address, format)), Bytes(std::optional(address)));
            EXPECT_EQ(Text(address, format, true), Text(address, format));
        }
    }
}

TEST_F(IPAddressTextTest, TheLongestFits) {
    const auto address = ipv6_inspector_address::Parse("ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff%123456789");
    ASSERT_TRUE(address);
    EXPECT_EQ(Text(*address, IPAddressFormat::withIPv4, true),
              "ffff:ffff:ffff:ffff:ffff:ffff:255.255.255.255%123456789");
}

TEST(IPAddressTypes, HaveTheirRegisteredSizesAndNoFingerprint) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    const GuardType* address = registry.TypeByName("ipv4or6 address");
    ASSERT_NE(address, nullptr);
    for (const char* name : {"ipv4or6 address", "ipv4 address", "ipv6 address"}) {
        const GuardType* type = registry.TypeByName(name);
        ASSERT_NE(type, nullptr) << name;
        EXPECT_EQ(type->size, 28u);
        EXPECT_EQ(type->storageSize, 28u);
        EXPECT_EQ(type->fingerprint, nullptr);
        EXPECT_EQ(type->parent, type == address ? nullptr : address);
        EXPECT_EQ(registry.TypeByName(std::string(name) + " with multiplicity")->size, 36u);
    }
    EXPECT_EQ(registry.TypeByName("ip version")->size, 4u);
}

}  // namespace
