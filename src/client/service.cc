// The agent's own services on this machine.
//
// A service is one of five programs, and runs while a process of its name does; the value shows it as it was when it
// was made.
#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>

#include "evaluator/adapters.h"
#include "evaluator/host_function.h"
#include "evaluator/inspector_process_table_context.h"
#include "values/version.h"

struct service {
    std::string_view name;  // of the table of names
    boolean running;
};

template <>
struct InspectorTypeInfo<service> : InspectorTypeBasics<service, 0> {
    static constexpr char Name[] = "service";
    static constexpr unsigned Size = sizeof(service);
};

namespace {

constexpr std::string_view kServices[] = {"OSLAgent", "OSLClient", "OSLGather", "OSLRelay", "OSLRootServer"};

std::optional<service> NamedService(const inspector_string& name) {
    const auto* known = std::find(std::begin(kServices), std::end(kServices), name.View());
    if (known == std::end(kServices)) {
        return std::nullopt;
    }
    const auto isActive =
        HostFunction<&InspectorProcessTableContext::processActiveByName, InspectorProcessTableContextError>();
    return service{*known, isActive(*known)};
}

std::optional<service> NamedRunningService(const inspector_string& name) {
    const std::optional<service> found = NamedService(name);
    return found && found->running ? found : std::nullopt;
}

std::optional<service> RelayService() { return NamedService(inspector_string("OSLRelay")); }
std::optional<service> PrimaryRelayService() { return NamedService(inspector_string("OSLGather")); }

std::optional<inspector_string> ServiceStateProperty(const service& s) {
    return inspector_string(s.running ? "Running" : "Stopped");
}

// A service tells no version; the phrase is there so that questions from others can be asked.
std::optional<inspector_version> ServiceVersionProperty(const service&) { return std::nullopt; }

boolean ServiceRunningProperty(const service& s) { return s.running; }

inspector_string AsString(const service& s) { return inspector_string(s.name); }

// clang-format off
Type<service>                                                       type;

GlobalProperty<service, RelayService>                               relay           {"relay service", "relay services", ByValueOnly};
GlobalProperty<service, PrimaryRelayService>                        primaryRelay    {"main gather service", "main gather services", ByValueOnly};
NamedGlobalProperty<service, NamedService>                          named           {"service", "services", ByValueOnly};
NamedGlobalProperty<service, NamedRunningService>                   namedRunning    {"running service", "running services", ByValueOnly};
Property<service, inspector_string, ServiceStateProperty>           state           {"state", "states"};
Property<service, inspector_version, ServiceVersionProperty>        version         {"version", "versions"};
Property<service, boolean, ServiceRunningProperty>                  running         {"running", "runnings"};

Cast<inspector_string, service, AsString>                           toString        {"string"};
// clang-format on

}  // namespace
