// What a host knows of itself, and the restarts that it waits for.
#ifndef TESTS_HOST_HOST_SYSTEM_H
#define TESTS_HOST_HOST_SYSTEM_H

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "evaluator/inspector_system_context.h"
#include "evaluator/pending_restart_inspector_context.h"
#include "tests/host/current_host.h"

struct HostSystem : InspectorSystemContext {
    std::optional<int64_t> id;
    std::optional<RegisteredAddresses> registered;
    std::optional<int64_t> commandTime;
    std::optional<bool> rights;
    std::optional<bool> loginPending;
    std::set<int64_t> groups;  // of every site
    std::set<int64_t> memberships;

    HostSystem() {
        computerId = []() { return CurrentHost<HostSystem>().id; };
        registration = []() -> const RegisteredAddresses* {
            const std::optional<RegisteredAddresses>& last = CurrentHost<HostSystem>().registered;
            return last ? &*last : nullptr;
        };
        lastCommandTime = []() { return CurrentHost<HostSystem>().commandTime; };
        administrativeRights = []() { return CurrentHost<HostSystem>().rights; };
        pendingLogin = []() { return CurrentHost<HostSystem>().loginPending; };
        hasGroup = [](const SiteMap&, int64_t number) { return CurrentHost<HostSystem>().groups.count(number) != 0; };
        isMember = [](const SiteMap&, int64_t number) {
            return std::optional<bool>(CurrentHost<HostSystem>().memberships.count(number) != 0);
        };
    }
};

struct HostRestarts : PendingRestartInspectorContext {
    std::vector<std::string> restarts;  // by name

    HostRestarts() {
        pendingRestart = []() { return !CurrentHost<HostRestarts>().restarts.empty(); };
        namedPendingRestart = [](std::string_view name) {
            const auto& all = CurrentHost<HostRestarts>().restarts;
            return std::find(all.begin(), all.end(), name) != all.end();
        };
        nextName = [](size_t& cursor) {
            const auto& all = CurrentHost<HostRestarts>().restarts;
            return cursor < all.size() ? std::optional<std::string_view>(all[cursor++]) : std::nullopt;
        };
    }
};

#endif
