// What inspectors ask about restarts of the machine that are waited for.
#ifndef EVALUATOR_PENDING_RESTART_INSPECTOR_CONTEXT_H
#define EVALUATOR_PENDING_RESTART_INSPECTOR_CONTEXT_H

#include <cstddef>
#include <optional>
#include <string_view>

class PendingRestartInspectorContext {
public:
    virtual ~PendingRestartInspectorContext() = default;

    // Whether any restart is pending, and whether the one of this name is.
    bool (*pendingRestart)() = nullptr;
    bool (*namedPendingRestart)(std::string_view name) = nullptr;

    // The next name of a pending restart, nothing at the end; the cursor starts at 0 and is moved on by the host.
    std::optional<std::string_view> (*nextName)(size_t& cursor) = nullptr;
};

#endif
