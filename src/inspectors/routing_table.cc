#include "inspectors/routing_table.h"

#include <array>
#include <charconv>
#include <cstring>
#include <optional>

#include "evaluator/adapters.h"
#include "foundation/file_error.h"
#include "foundation/file_location.h"
#include "foundation/read_lines.h"
#include "values/integer.h"
#include "values/string.h"

namespace {

constexpr size_t kFields = 11;
using Fields = std::array<std::string_view, kFields>;

// The blanks of the C locale.
constexpr std::string_view kBlanks = " \t\n\v\f\r";

Fields Split(std::string_view line) {
    Fields fields;
    size_t count = 0;
    for (size_t at = line.find_first_not_of(kBlanks); at != std::string_view::npos;) {
        const size_t end = std::min(line.find_first_of(kBlanks, at), line.size());
        if (count == kFields) {
            throw RoutingTableParseError();
        }
        fields[count++] = line.substr(at, end - at);
        at = line.find_first_not_of(kBlanks, end);
    }
    if (count != kFields) {
        throw RoutingTableParseError();
    }
    return fields;
}

template <class Number>
Number Parse(std::string_view text, int base) {
    Number number{};
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number, base);
    if (error != std::errc() || rest != end) {
        throw RoutingTableParseError();
    }
    return number;
}

// A number whose bytes in memory are the address in network order.
ipv4_inspector_address ParseAddress(std::string_view text) {
    const auto number = Parse<uint32_t>(text, 16);
    uint8_t bytes[sizeof number];
    std::memcpy(bytes, &number, sizeof number);
    return {bytes[0], bytes[1], bytes[2], bytes[3]};
}

// Counts lines and gives each, whole, to a function.
template <class Take>
class WholeLines final : public LineReceiver {
public:
    explicit WholeLines(Take take) : take_(take) {}
    void Start(uint64_t) override {}
    void Text(const unsigned char* begin, const unsigned char* end) override {
        line_.append(reinterpret_cast<const char*>(begin), static_cast<size_t>(end - begin));
    }
    void EndOfLine(uint64_t, uint64_t) override {
        take_(count_++, std::string_view(line_));
        line_.clear();
    }
    void Finish(uint64_t) override {
        if (!line_.empty()) {
            EndOfLine(0, 0);
        }
    }
    size_t Count() const { return count_; }

private:
    Take take_;
    std::string line_;
    size_t count_ = 0;
};

}  // namespace

linux_ipv4_route ParseRoute(std::string_view line) {
    const Fields fields = Split(line);
    linux_ipv4_route route;
    route.interface = fields[0];
    route.destination = ParseAddress(fields[1]);
    route.gateway = ParseAddress(fields[2]);
    route.flags = Parse<uint32_t>(fields[3], 16);
    route.metric = Parse<int64_t>(fields[6], 10);
    route.mask = ParseAddress(fields[7]);
    route.mtu = Parse<int64_t>(fields[8], 10);
    route.window = Parse<int64_t>(fields[9], 10);
    route.irtt = Parse<int64_t>(fields[10], 10);
    return route;
}

linux_ipv4_routing_table ReadRoutingTable(const char* path) {
    std::vector<linux_ipv4_route> routes;
    WholeLines lines([&](size_t number, std::string_view line) {
        if (number != 0) {
            routes.push_back(ParseRoute(line));
        }
    });
    ReadLines(FileLocation(path), lines);
    if (lines.Count() == 0) {
        throw RoutingTableParseError();
    }
    return linux_ipv4_routing_table(std::move(routes));
}

bool OSSocketCapabilities::HasVersion6(const char* path) {
    WholeLines lines([](size_t, std::string_view) {});
    try {
        ReadLines(FileLocation(path), lines);
    } catch (const FileIOError&) {
        return false;
    }
    return lines.Count() != 0;
}

namespace {

linux_ipv4_routing_table Table() { return ReadRoutingTable("/proc/net/route"); }

class route_iterator {
public:
    void Start(Of, const linux_ipv4_routing_table&) { next_ = 0; }
    bool Finished(Of, const linux_ipv4_routing_table& table) { return next_ == table.Routes().size(); }
    linux_ipv4_route Next(Of, const linux_ipv4_routing_table& table) { return table.Routes()[next_++]; }

private:
    size_t next_ = 0;
};

template <auto Field>
ipv4_inspector_address Address(const linux_ipv4_route& route) {
    return route.*Field;
}

template <auto Field>
integer Number(const linux_ipv4_route& route) {
    return route.*Field;
}

enum RouteFlag : uint32_t { kUp = 1, kGateway = 2, kHost = 4, kReject = 0x200 };

template <RouteFlag Bit>
boolean Flag(const linux_ipv4_route& route) {
    return (route.flags & Bit) != 0;
}

inspector_string Interface(const linux_ipv4_route& route) { return CopiedString(route.interface); }

template <auto Field>
using AddressOfRoute = Property<linux_ipv4_route, ipv4_inspector_address, Address<Field>>;
template <auto Field>
using NumberOfRoute = Property<linux_ipv4_route, integer, Number<Field>>;
template <RouteFlag Bit>
using FlagOfRoute = Property<linux_ipv4_route, boolean, Flag<Bit>>;

// clang-format off
Type<linux_ipv4_routing_table>                                      type;
Type<linux_ipv4_route>                                              routeType;

GlobalProperty<linux_ipv4_routing_table, Table>                     table       {"linux ipv4 routing table", "linux ipv4 routing tables", ByValueOnly};
IteratedPropertyOfObject<route_iterator, linux_ipv4_route, linux_ipv4_routing_table, &route_iterator::Next, &route_iterator::Next,
                         &route_iterator::Start, &route_iterator::Finished>
                                                                    routes      {"route", "routes"};
AddressOfRoute<&linux_ipv4_route::destination>                      destination {"destination", "destinations"};
AddressOfRoute<&linux_ipv4_route::gateway>                          gateway     {"gateway", "gateways"};
AddressOfRoute<&linux_ipv4_route::mask>                             mask        {"mask", "masks"};
Property<linux_ipv4_route, inspector_string, Interface>             interface   {"interface", "interfaces"};
NumberOfRoute<&linux_ipv4_route::metric>                            metric      {"metric", "metrics"};
NumberOfRoute<&linux_ipv4_route::mtu>                               mtu         {"mtu", "mtus"};
NumberOfRoute<&linux_ipv4_route::window>                            window      {"window", "windows"};
NumberOfRoute<&linux_ipv4_route::irtt>                              irtt        {"irtt", "irtts"};
FlagOfRoute<kUp>                                                    up          {"up flag", "up flags"};
FlagOfRoute<kGateway>                                               viaGateway  {"gateway flag", "gateway flags"};
FlagOfRoute<kHost>                                                  host        {"host flag", "host flags"};
FlagOfRoute<kReject>                                                reject      {"reject flag", "reject flags"};
// clang-format on

}  // namespace
