// What inspectors ask about the choice of the server that the agent reports to.
#ifndef EVALUATOR_HOST_SELECTOR_INSPECTOR_CONTEXT_H
#define EVALUATOR_HOST_SELECTOR_INSPECTOR_CONTEXT_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

class ipv4or6_inspector_address;  // values/ip_address.h

// A server that could be chosen.  What it points at is the host's and lives for the evaluation at least.
struct HostSelectorEntry {
    std::string_view name;
    const ipv4or6_inspector_address* address = nullptr;  // null while it is not known
    int64_t port = 0;
    int64_t leastDistance = 0;
    int64_t greatestDistance = 0;
    int64_t competitionSize = 0;
    int64_t competitionWeight = 0;
    int64_t priority = 0;
    int64_t weight = 0;
    // The gateways on the way to it, the nearest first; one that did not answer is an address that is not valid.
    const ipv4or6_inspector_address* gateways = nullptr;
    size_t gatewayCount = 0;
};

// The servers, and which of them is chosen, if any is.
struct HostSelector {
    std::vector<const HostSelectorEntry*> entries;
    std::optional<size_t> current;
};

class HostSelectorInspectorContext {
public:
    virtual ~HostSelectorInspectorContext() = default;

    // Null while there is no selector.
    const HostSelector* (*selector)() = nullptr;
};

#endif
