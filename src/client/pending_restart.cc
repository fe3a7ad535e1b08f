// Restarts of the machine that are waited for, as the host knows them.
#include "client/host_values.h"
#include "evaluator/adapters.h"
#include "evaluator/host_function.h"
#include "evaluator/pending_restart_inspector_context.h"

namespace {

// The interface has no error of its own: it tells of the system.
template <auto Entry>
auto OfRestarts() {
    return HostFunction<Entry, InspectorSystemContextError>();
}

boolean PendingRestart() { return OfRestarts<&PendingRestartInspectorContext::pendingRestart>()(); }

boolean NamedPendingRestart(const inspector_string& name) {
    return OfRestarts<&PendingRestartInspectorContext::namedPendingRestart>()(name.View());
}

class pending_restart_name_iterator {
public:
    std::optional<inspector_string> First() {
        cursor_ = 0;
        return Next();
    }
    std::optional<inspector_string> Next() {
        return HostValue::Text(OfRestarts<&PendingRestartInspectorContext::nextName>()(cursor_));
    }

private:
    size_t cursor_ = 0;
};

// clang-format off
GlobalProperty<boolean, PendingRestart>                                  any    {"pending restart", "pending restarts", ByValueOnly};
NamedGlobalProperty<boolean, NamedPendingRestart>                        named  {"pending restart", "pending restarts", ByValueOnly};
IteratedGlobalProperty<pending_restart_name_iterator, inspector_string>  names  {"pending restart name", "pending restart names", ByValueOnly};
// clang-format on

}  // namespace
