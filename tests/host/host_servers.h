// The servers among which a host chooses its own.
#ifndef TESTS_HOST_HOST_SERVERS_H
#define TESTS_HOST_HOST_SERVERS_H

#include "evaluator/host_selector_inspector_context.h"
#include "tests/host/current_host.h"

struct HostServers : HostSelectorInspectorContext {
    HostSelector servers;

    HostServers() {
        selector = []() -> const HostSelector* { return &CurrentHost<HostServers>().servers; };
    }
};

#endif
