#include "client/client.h"

#include "client/host_values.h"
#include "client/setting.h"
#include "client/settings_paths.h"
#include "evaluator/adapters.h"
#include "evaluator/host_function.h"
#include "evaluator/inspector_system_context.h"
#include "foundation/reserved_names.h"
#include "foundation/version_strings.h"
#include "values/ip_address.h"

namespace {

template <auto Entry>
auto OfSystem() {
    return HostFunction<Entry, InspectorSystemContextError>();
}

std::optional<client> Client() {
    const FileLocation* const program =
        HostFunction<&InspectorStorageContext::getExecutableLocation, InspectorStorageContextError>()();
    return program != nullptr ? At<client>(*program) : std::nullopt;
}

// What the host last registered with; none for what it does not know.
template <auto Field>
std::optional<inspector_string> RegistrationText(const client&) {
    const RegisteredAddresses* const registration = OfSystem<&InspectorSystemContext::registration>()();
    return registration != nullptr && !(registration->*Field).empty()
               ? std::optional<inspector_string>(inspector_string(registration->*Field))
               : std::nullopt;
}
template <auto Field>
std::optional<ipv4or6_inspector_address> RegistrationAddressAt(const client& object) {
    const std::optional<inspector_string> text = RegistrationText<Field>(object);
    return text ? ipv4or6_inspector_address::Parse(text->View()) : std::nullopt;
}
constexpr auto RegistrationAddress = RegistrationAddressAt<&RegisteredAddresses::address>;
constexpr auto RegistrationSubnetAddress = RegistrationAddressAt<&RegisteredAddresses::subnetAddress>;
constexpr auto RegistrationCidrAddress = RegistrationText<&RegisteredAddresses::cidrAddress>;
constexpr auto RegistrationMacAddress = RegistrationText<&RegisteredAddresses::macAddress>;

inspector_string Brand(const client&) { return inspector_string(cRESERVED_COMPANY_NAME); }

std::optional<inspector_string> BuildTarget(const client&) {
    const auto found = VersionStringResource::versionMap.find("BuildTarget");
    return found != VersionStringResource::versionMap.end()
               ? std::optional<inspector_string>(inspector_string(found->second))
               : std::nullopt;
}

std::optional<moment> LastCommandTime(const client&) {
    return HostValue::Time(OfSystem<&InspectorSystemContext::lastCommandTime>()());
}

// The settings of one subsection of the agent's.
template <const auto& Subsection>
class subsection_iterator {
public:
    std::optional<setting> First(const client& object) {
        walk_.Restart();
        return Next(object);
    }
    std::optional<setting> Next(const client&) { return walk_.Next(ClientSettings(), Subsection); }

private:
    SettingWalk walk_;
};

template <const auto& Subsection>
std::optional<setting> NamedIn(const inspector_string& name, const client&) {
    return SettingOf(ClientSettings(), Subsection, name.View());
}

using setting_iterator = subsection_iterator<SettingsPath::client>;
using administrator_iterator = subsection_iterator<SettingsPath::administrators>;
constexpr auto NamedSetting = NamedIn<SettingsPath::client>;
constexpr auto NamedAdministrator = NamedIn<SettingsPath::administrators>;

administrative_rights AdministrativeRights(const client&) { return {}; }

std::optional<boolean> Enabled(const administrative_rights&) {
    return OfSystem<&InspectorSystemContext::administrativeRights>()();
}

std::optional<boolean> PendingLogin() { return OfSystem<&InspectorSystemContext::pendingLogin>()(); }

// A host that has no number, or none to tell, is in that state.
void AddComputerId(Fingerprinter& fingerprinter) {
    const auto* host = dynamic_cast<InspectorSystemContext*>(InspectorContextMaintainer::current.Get());
    if (host != nullptr && host->computerId != nullptr) {
        if (const std::optional<int64_t> id = host->computerId()) {
            fingerprinter.AddData(ConstData(&*id, sizeof *id));
        }
    }
}

}  // namespace

DependencyNode ComputerIDDependencyNode("ComputerID", AddComputerId);

void ComputerIDDependencyNodeFunction(Fingerprinter& fingerprinter) {
    DependsOn<ComputerIDDependencyNode>(fingerprinter);
}

namespace {

// clang-format off
Type<client>                                                                   type;
Type<administrative_rights>                                                    rightsType;

GlobalProperty<client, Client>                                                 ofWorld             {"client", "clients", ByValueOnly};
Property<client, ipv4or6_inspector_address, RegistrationAddress>               registrationAddress {"registration address", "registration addresses", ByValueOnly};
Property<client, ipv4or6_inspector_address, RegistrationSubnetAddress>         registrationSubnet  {"registration subnet address", "registration subnet addresses", ByValueOnly};
Property<client, inspector_string, RegistrationCidrAddress>                    registrationCidr    {"registration cidr address", "registration cidr addresses", ByValueOnly};
Property<client, inspector_string, RegistrationMacAddress>                     registrationMac     {"registration mac address", "registration mac addresses", ByValueOnly};
Property<client, inspector_string, Brand>                                      brand               {"brand", "brands"};
Property<client, inspector_string, BuildTarget>                                buildTarget         {"build target", "build targets"};
Property<client, moment, LastCommandTime>                                      lastCommandTime     {"last command time", "last command times", ByValueOnly};
IteratedProperty<setting_iterator, client, setting>                            settings            {"setting", "settings", ByValueOnly};
NamedProperty<client, setting, NamedSetting>                                   namedSetting        {"setting", "settings", ByValueOnly};
IteratedProperty<administrator_iterator, client, setting>                      administrators      {"administrator", "administrators", ByValueOnly};
NamedProperty<client, setting, NamedAdministrator>                             namedAdministrator  {"administrator", "administrators", ByValueOnly};
Property<client, administrative_rights, AdministrativeRights>                  rights              {"administrative rights", "administrative rightss"};
Property<administrative_rights, boolean, Enabled>                              rightsEnabled       {"enabled", "enableds", ByValueOnly};
GlobalProperty<boolean, PendingLogin>                                          pendingLogin        {"pending login", "pending logins", ByValueOnly};
// clang-format on

}  // namespace
