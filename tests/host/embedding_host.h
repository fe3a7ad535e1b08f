// A small host with every context that an agent can lend, each in a file of its own: what an agent is to inspectors.
//
// A test that is about one context derives a host of its own from InspectorContext and that part; to lend one more to
// all tests, write host_<context>.h and add it here.
#ifndef TESTS_HOST_EMBEDDING_HOST_H
#define TESTS_HOST_EMBEDDING_HOST_H

#include "tests/host/host_actions.h"
#include "tests/host/host_analyses.h"
#include "tests/host/host_praxels.h"
#include "tests/host/host_processes.h"
#include "tests/host/host_registration.h"
#include "tests/host/host_servers.h"
#include "tests/host/host_settings.h"
#include "tests/host/host_sites.h"
#include "tests/host/host_system.h"

struct EmbeddingHost : InspectorContext,
                       HostActions,
                       HostAnalyses,
                       HostPraxels,
                       HostProcesses,
                       HostRegistration,
                       HostRestarts,
                       HostServers,
                       HostSettings,
                       HostSites,
                       HostStorage,
                       HostSystem {};

// A host that has the interface `Interface`, with all its entries empty.
template <class Interface>
struct EmptyHost : InspectorContext, Interface {};

#endif
