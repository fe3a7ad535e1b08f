// The machine's network interfaces, as one look at them gave them: every entry, and the adapters that they make.
//
// A list is shared by all values that were taken from it, so that what one refers to stays.
#ifndef INSPECTORS_INTERFACE_LIST_H
#define INSPECTORS_INTERFACE_LIST_H

#include <ifaddrs.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/debuggable_exception.h"
#include "values/ip_address.h"

// The system would not give its interfaces.
struct GetIFAddrFailed : DebuggableException {
    GetIFAddrFailed() noexcept : DebuggableException("GetIFAddrFailed") {}
};

// What is answered for an entry without an address, for a number behind the last interface, and where no adapter is
// left that a search could find.
inline constexpr std::nullopt_t NoIFAddress = std::nullopt;
inline constexpr std::nullopt_t NoIPAddrInterface = std::nullopt;
inline constexpr std::nullopt_t NoNamedInterfaces = std::nullopt;

// What an entry says; absent where it does not.
bool IsVersion4(const ifaddrs& entry);
bool IsVersion6(const ifaddrs& entry);
inline bool IsAddress(const ifaddrs& entry) { return IsVersion4(entry) || IsVersion6(entry); }
bool IsPacket(const ifaddrs& entry);
std::optional<int> FamilyOf(const ifaddrs& entry);
std::optional<ipv4or6_inspector_address> AddressOf(const ifaddrs& entry);
std::optional<ipv4or6_inspector_address> MaskOf(const ifaddrs& entry);
std::optional<ipv4or6_inspector_address> SubnetAddressOf(const ifaddrs& entry);
std::optional<ipv4or6_inspector_address> BroadcastAddressOf(const ifaddrs& entry);

// The subnet address, "/" and the number of bits in the mask.
std::optional<std::string> CidrOf(const ifaddrs& entry);

// The most bytes that the system gives of a link address.  InfiniBand's goes on behind the field that it begins in.
inline constexpr size_t kLongestLinkAddress = 24;

// The bytes of a packet entry's address in hexadecimal, with the separator between; none for an entry of another kind
// and for an address of zeros alone.
std::optional<std::string> MacText(const ifaddrs& packet, std::string_view separator);

// The entries of one name.  An entry that has the family and the bytes of an earlier one's address counts once.
struct InterfaceAdapter {
    std::string name;
    unsigned flags = 0;
    const ifaddrs* packet = nullptr;
    std::vector<const ifaddrs*> addresses;

    // The first address entry of version 4; null for none.
    const ifaddrs* FirstVersion4() const;
};

class InterfaceList {
public:
    struct Counts {
        size_t all = 0;
        size_t addresses = 0;  // of either version
        size_t version4 = 0;
        size_t version6 = 0;
        size_t packets = 0;
    };

    // The head of a list, and what it is released with.
    using Entries = std::unique_ptr<ifaddrs, void (*)(ifaddrs*)>;

    // Takes a list over.  Throws std::bad_alloc.
    explicit InterfaceList(Entries entries);

    // This machine's.  Throws GetIFAddrFailed and std::bad_alloc.
    static std::shared_ptr<const InterfaceList> OfSystem();

    const ifaddrs* Head() const { return entries_.get(); }
    const Counts& Count() const { return counts_; }
    const std::vector<InterfaceAdapter>& Adapters() const { return adapters_; }

    // The adapter that an entry of this list belongs to.
    const InterfaceAdapter& AdapterOf(const ifaddrs& entry) const;

    // Whether an entry of the same name stands before this one.
    bool IsAlias(const ifaddrs& entry) const;

private:
    void Add(const ifaddrs& entry);
    InterfaceAdapter& AdapterNamed(const char* name);

    Entries entries_;
    Counts counts_;
    std::vector<InterfaceAdapter> adapters_;
};

#endif
