#include "inspectors/operating_system.h"

#include <exception>
#include <optional>

#include "evaluator/adapters.h"
#include "inspectors/utmp_records.h"
#include "registry/dependency_node.h"
#include "values/moment.h"
#include "values/string.h"
#include "values/version.h"

operating_system DescribeSystem(const struct utsname& kernel, const Distribution& found) {
    operating_system system;
    system.name = found.name.empty() ? kernel.sysname : found.name;
    system.release = kernel.release;
    system.build = kernel.version;
    system.version = found.version;
    system.architecture = kernel.machine;
    system.machine = kernel.machine;
    system.codename = found.codename;
    return system;
}

namespace {

// Probed at the first question and true for the life of the process.
const Distribution& ThisDistribution() {
    static const Distribution distribution = ProbeDistribution(ReadReleaseFile);
    return distribution;
}

std::optional<operating_system> OperatingSystem() {
    struct utsname kernel {};
    if (uname(&kernel) != 0) {
        return std::nullopt;
    }
    return DescribeSystem(kernel, ThisDistribution());
}

// What is fingerprinted is the system as it was first seen.
void AddStableOSProperties(Fingerprinter& fingerprinter) {
    static const std::optional<operating_system> first = OperatingSystem();
    if (first) {
        InspectorTypeInfo<operating_system>::Fingerprint(fingerprinter, &*first);
    }
}

DependencyNode StableOSProperties("StableOSProperties", AddStableOSProperties);

template <auto Field>
inspector_string Text(const operating_system& system) {
    return CopiedString(system.*Field);
}

std::optional<inspector_string> Codename(const operating_system& system) {
    return system.codename.empty() ? std::nullopt : std::optional<inspector_string>(CopiedString(system.codename));
}

std::optional<inspector_version> Version(const operating_system& system) {
    return system.version.empty() ? std::nullopt : std::optional<inspector_version>(inspector_string(system.version));
}

template <bool Answer>
boolean Is(const operating_system&) {
    return Answer;
}

// Records that cannot be read, whatever the reason, are no failure of the question: there is no value then.
std::optional<moment> BootTime(const operating_system&) {
    constexpr int64_t kMicroseconds = 1000000;
    try {
        const int64_t now = Now().Microseconds() / kMicroseconds;
        return moment(BootSeconds(ReadUtmp(), now) * kMicroseconds);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

std::optional<time_interval> Uptime(const operating_system& system) {
    const std::optional<moment> boot = BootTime(system);
    return boot ? Now() - *boot : std::nullopt;
}

inspector_string AsString(const operating_system& system) {
    return CopiedString(system.name + " (" + system.release + ")");
}

template <auto Field>
using TextOf = Property<operating_system, inspector_string, Text<Field>>;

// clang-format off
Type<operating_system>                                              type;

GlobalProperty<operating_system, OperatingSystem>                   system        {"operating system", "operating systems", DependsOn<StableOSProperties>};
TextOf<&operating_system::name>                                     name          {"name", "names"};
TextOf<&operating_system::release>                                  release       {"release", "releases"};
TextOf<&operating_system::build>                                    build         {"build", "builds"};
TextOf<&operating_system::architecture>                             architecture  {"architecture", "architectures"};
TextOf<&operating_system::machine>                                  machine       {"machine", "machines"};
Property<operating_system, inspector_string, Codename>              codename      {"codename", "codenames"};
Property<operating_system, inspector_version, Version>              version       {"version", "versions"};
Property<operating_system, boolean, Is<false>>                      windows       {"windows", "windowses"};
Property<operating_system, boolean, Is<true>>                       isUnix        {"unix", "unixes"};
Property<operating_system, boolean, Is<false>>                      mac           {"mac", "macs"};
Property<operating_system, moment, BootTime>                        bootTime      {"boot time", "boot times", ByValueOnly};
Property<operating_system, time_interval, Uptime>                   uptime        {"uptime", "uptimes", ByValueOnly};

Cast<inspector_string, operating_system, AsString>                  toString      {"string"};
// clang-format on

}  // namespace
