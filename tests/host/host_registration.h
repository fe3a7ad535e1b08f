// The last registration of a host.
#ifndef TESTS_HOST_HOST_REGISTRATION_H
#define TESTS_HOST_HOST_REGISTRATION_H

#include "evaluator/inspector_registration_context.h"
#include "tests/host/current_host.h"

struct HostRegistration : InspectorRegistrationContext {
    ClientRegistration told;  // by the server, when the host registered last

    HostRegistration() {
        lastRegistration = [](ClientRegistration& record) { record = CurrentHost<HostRegistration>().told; };
    }
};

#endif
