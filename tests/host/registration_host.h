// A host that has registered: each test says what the last registration told.
#ifndef TESTS_HOST_REGISTRATION_HOST_H
#define TESTS_HOST_REGISTRATION_HOST_H

#include "evaluator/inspector_context.h"
#include "evaluator/inspector_registration_context.h"

class RegistrationHost : public InspectorContext, public InspectorRegistrationContext {
public:
    RegistrationHost() {
        lastRegistration = [](ClientRegistration& registration) { registration = told; };
    }

    static inline ClientRegistration told;
};

#endif
