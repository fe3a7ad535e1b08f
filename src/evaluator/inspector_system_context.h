// What inspectors ask about the agent itself and its standing with its servers.
#ifndef EVALUATOR_INSPECTOR_SYSTEM_CONTEXT_H
#define EVALUATOR_INSPECTOR_SYSTEM_CONTEXT_H

#include <cstdint>
#include <optional>
#include <string_view>

struct SiteMap;

// The addresses that the agent last registered with, as texts; an empty one is not known.
struct RegisteredAddresses {
    std::string_view address;
    std::string_view subnetAddress;
    std::string_view cidrAddress;
    std::string_view macAddress;
};

// Nothing, or null, is what the agent does not know.
class InspectorSystemContext {
public:
    virtual ~InspectorSystemContext() = default;

    std::optional<int64_t> (*computerId)() = nullptr;

    // The host's, and good until it registers again; null before it ever has.
    const RegisteredAddresses* (*registration)() = nullptr;

    // Microseconds since the start of 1970 in universal time.
    std::optional<int64_t> (*lastCommandTime)() = nullptr;

    // Whether administrators may act on this machine.
    std::optional<bool> (*administrativeRights)() = nullptr;

    // Whether a login is waited for.
    std::optional<bool> (*pendingLogin)() = nullptr;

    // Whether a site has a group of this number, and whether this machine is one of its members.
    bool (*hasGroup)(const SiteMap& site, int64_t number) = nullptr;
    std::optional<bool> (*isMember)(const SiteMap& site, int64_t number) = nullptr;
};

#endif
