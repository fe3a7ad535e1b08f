// A machine's network interfaces as a test would have them.
#ifndef TESTS_INSPECTORS_CRAFTED_INTERFACES_H
#define TESTS_INSPECTORS_CRAFTED_INTERFACES_H

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <net/if.h>
#include <netinet/in.h>
#include <netpacket/packet.h>

#include <cstddef>
#include <cstring>
#include <deque>
#include <string>

#include "inspectors/interface_list.h"

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
        // A long address goes on behind its field.
        std::memcpy(reinterpret_cast<char*>(&place) + offsetof(sockaddr_ll, sll_addr), bytes.data(), bytes.size());
        entry.ifa_addr = reinterpret_cast<sockaddr*>(&place);
        return entry;
    }
    ifaddrs* Head() { return entries_.empty() ? nullptr : &entries_.front(); }
    InterfaceList List() {
        return InterfaceList({Head(), [](ifaddrs*) {}});
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

#endif
