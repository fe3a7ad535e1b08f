// What inspectors ask about the agent's last registration with its server.
#ifndef EVALUATOR_INSPECTOR_REGISTRATION_CONTEXT_H
#define EVALUATOR_INSPECTOR_REGISTRATION_CONTEXT_H

#include <cstdint>
#include <string_view>

// What the last registration told.  A field that is zero, or an empty text, was not told.  The texts are the host's and
// live until it is asked again.
struct ClientRegistration {
    int64_t apparentServerTime = 0;   // microseconds since the start of 1970
    int64_t lastRelaySelectTime = 0;  // the same
    std::string_view serverName;
    std::string_view serverVersion;
    std::string_view relayVersion;
    std::string_view downloadServerName;
    std::string_view rootServerHostName;
    int64_t rootServerId = 0;
};

class InspectorRegistrationContext {
public:
    virtual ~InspectorRegistrationContext() = default;

    // Fills a record whose fields are zero.
    void (*lastRegistration)(ClientRegistration& registration) = nullptr;
};

#endif
