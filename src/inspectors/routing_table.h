// The kernel's routes of version 4.
#ifndef INSPECTORS_ROUTING_TABLE_H
#define INSPECTORS_ROUTING_TABLE_H

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "evaluator/failure.h"
#include "registry/inspector_type_info.h"
#include "values/ip_address.h"

struct RoutingTableParseError : InspectorDefinedError {
    RoutingTableParseError() noexcept : InspectorDefinedError("error parsing contents of /proc/net/route") {}
};

struct linux_ipv4_route {
    ipv4_inspector_address destination;
    ipv4_inspector_address gateway;
    ipv4_inspector_address mask;
    uint32_t flags = 0;
    int64_t metric = 0;
    int64_t mtu = 0;
    int64_t window = 0;
    int64_t irtt = 0;
    std::string interface;
};

// The route of one line of eleven fields.  Throws RoutingTableParseError.
linux_ipv4_route ParseRoute(std::string_view line);

class linux_ipv4_routing_table {
public:
    explicit linux_ipv4_routing_table(std::vector<linux_ipv4_route> routes)
        : routes_(std::make_shared<const std::vector<linux_ipv4_route>>(std::move(routes))) {}
    const std::vector<linux_ipv4_route>& Routes() const { return *routes_; }

private:
    std::shared_ptr<const std::vector<linux_ipv4_route>> routes_;
};

// The routes of a file whose first line is a heading that nobody looks at.  Throws RoutingTableParseError, also for a
// file without a line, and the errors of FileReadingPath.
linux_ipv4_routing_table ReadRoutingTable(const char* path);

// What the kernel can do, as its files tell.
struct OSSocketCapabilities {
    // Whether there is version 6: its file of addresses has a line.
    static bool HasVersion6(const char* path = "/proc/net/if_inet6");
};

template <>
struct InspectorTypeInfo<linux_ipv4_route> : InspectorTypeBasics<linux_ipv4_route, 0> {
    static constexpr char Name[] = "linux ipv4 route";
    static constexpr unsigned Size = sizeof(linux_ipv4_route);
};

template <>
struct InspectorTypeInfo<linux_ipv4_routing_table> : InspectorTypeBasics<linux_ipv4_routing_table, 0> {
    static constexpr char Name[] = "linux ipv4 routing table";
    static constexpr unsigned Size = sizeof(linux_ipv4_routing_table);
};

#endif
