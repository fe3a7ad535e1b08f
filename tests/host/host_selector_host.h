// A host that chooses its server: each test says among which, and which it is.
#ifndef TESTS_HOST_HOST_SELECTOR_HOST_H
#define TESTS_HOST_HOST_SELECTOR_HOST_H

#include "evaluator/host_selector_inspector_context.h"
#include "evaluator/inspector_context.h"

class HostSelectorHost : public InspectorContext, public HostSelectorInspectorContext {
public:
    HostSelectorHost() {
        selector = []() -> const HostSelector* { return &servers; };
    }

    static inline HostSelector servers;
};

#endif
