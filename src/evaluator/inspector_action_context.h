// What inspectors ask about the action that their host is running.
#ifndef EVALUATOR_INSPECTOR_ACTION_CONTEXT_H
#define EVALUATOR_INSPECTOR_ACTION_CONTEXT_H

#include <cstdint>
#include <optional>
#include <string_view>

class FileLocation;

// Where an action comes from, as far as its downloads depend on it.  What it points at is the host's and lives for the
// evaluation at least.
struct ActionOrigin {
    int64_t actionId = 0;
    bool isOfMainSite = false;
    std::string_view siteName;
    const FileLocation* clientFolder = nullptr;  // the site's folder on this machine
};

class InspectorActionContext {
public:
    virtual ~InspectorActionContext() = default;

    // None while no action runs.
    std::optional<ActionOrigin> (*currentActionOrigin)() = nullptr;
};

#endif
