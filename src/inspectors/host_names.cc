// The names of the machine: its own, that of its domain, and what the host program knows of its network.
#include <unistd.h>

#include <cstring>
#include <optional>
#include <string>

#include "evaluator/adapters.h"
#include "evaluator/inspector_context.h"
#include "registry/dependency_node.h"
#include "values/string.h"

namespace {

constexpr size_t kNameBytes = 1024;

// A name that the system puts into a buffer; the buffer's last byte is never written.
template <auto Get>
std::optional<inspector_string> SystemName() {
    char name[kNameBytes] = {};
    return Get(name, sizeof name - 1) != 0 ? std::nullopt : std::optional<inspector_string>(CopiedString(name));
}

constexpr auto HostName = SystemName<gethostname>;
constexpr auto DomainName = SystemName<getdomainname>;

void AddStableComputerName(Fingerprinter& fingerprinter) {
    static const std::string first = [] {
        char name[kNameBytes] = {};
        return std::string(gethostname(name, sizeof name - 1) == 0 ? name : "");
    }();
    fingerprinter.AddData(ConstData(first));
}

DependencyNode StableComputerNameProperties("StableComputerNameProperties", AddStableComputerName);

std::optional<inspector_string> DnsName() {
    const auto& network = ContextInterface<InspectorNetworkContext, InspectorNetworkContextError>();
    if (network.dnsDomainName == nullptr) {
        throw InspectorNetworkContextError();
    }
    std::string name;
    return network.dnsDomainName(name) ? std::optional<inspector_string>(CopiedString(name)) : std::nullopt;
}

// clang-format off
GlobalProperty<inspector_string, HostName>                          hostname      {"hostname", "hostnames", ByValueOnly};
GlobalProperty<inspector_string, HostName>                          computerName  {"computer name", "computer names", DependsOn<StableComputerNameProperties>};
GlobalProperty<inspector_string, DomainName>                        domainname    {"domainname", "domainnames", ByValueOnly};
GlobalProperty<inspector_string, HostName>                          hostName      {"host name", "host names", ByValueOnly};
GlobalProperty<inspector_string, DomainName>                        domainName    {"domain name", "domain names", ByValueOnly};
GlobalProperty<inspector_string, DnsName>                           dnsName       {"dns name", "dns names", ByValueOnly};
// clang-format on

}  // namespace
