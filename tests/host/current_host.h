// How a host's functions find the host that they are called for.
#ifndef TESTS_HOST_CURRENT_HOST_H
#define TESTS_HOST_CURRENT_HOST_H

#include "evaluator/inspector_context.h"

// The part `Part` of the thread's current context, which has one.
template <class Part>
Part& CurrentHost() {
    return dynamic_cast<Part&>(*InspectorContextMaintainer::current.Get());
}

#endif
