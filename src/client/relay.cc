// The servers that the agent deals with, as its last registration told of them.
//
// The servers themselves are markers: each of their properties asks the host anew and picks its field.  A field that
// the host left zero has no value.
#include <optional>
#include <string_view>

#include "evaluator/adapters.h"
#include "evaluator/host_function.h"
#include "evaluator/inspector_registration_context.h"
#include "values/integer.h"
#include "values/moment.h"
#include "values/string.h"
#include "values/version.h"

struct registration_server {};
struct current_relay {};
struct download_server {};
struct root_server {};

template <>
struct InspectorTypeInfo<registration_server> : InspectorTypeBasics<registration_server, 0> {
    static constexpr char Name[] = "registration server";
    static constexpr unsigned Size = sizeof(registration_server);
};
template <>
struct InspectorTypeInfo<current_relay> : InspectorTypeBasics<current_relay, 0> {
    static constexpr char Name[] = "current relay";
    static constexpr unsigned Size = sizeof(current_relay);
};
template <>
struct InspectorTypeInfo<download_server> : InspectorTypeBasics<download_server, 0> {
    static constexpr char Name[] = "download server";
    static constexpr unsigned Size = sizeof(download_server);
};
template <>
struct InspectorTypeInfo<root_server> : InspectorTypeBasics<root_server, 0> {
    static constexpr char Name[] = "root server";
    static constexpr unsigned Size = sizeof(root_server);
};

namespace {

auto Registered() {
    return HostFunction<&InspectorRegistrationContext::lastRegistration, InspectorRegistrationContextError>();
}

ClientRegistration Registration() {
    ClientRegistration registration;
    Registered()(registration);
    return registration;
}

// There is such a server wherever there is somebody to ask about it.
template <class Server>
Server Marker() {
    Registered();
    return {};
}

template <auto Field>
std::optional<moment> Time() {
    const int64_t time = Registration().*Field;
    return time == 0 ? std::nullopt : std::optional<moment>(time);
}

template <auto Field>
std::optional<inspector_string> Text() {
    const std::string_view text = Registration().*Field;
    return text.empty() ? std::nullopt : std::optional<inspector_string>(CopiedString(text));
}

template <auto Field>
std::optional<inspector_version> Version() {
    const std::string_view text = Registration().*Field;
    return text.empty() ? std::nullopt : std::optional<inspector_version>(inspector_string(text));
}

registration_server RegistrationServer_of_world() { return Marker<registration_server>(); }
std::optional<moment> ApparentServerTime_of_world() { return Time<&ClientRegistration::apparentServerTime>(); }
std::optional<moment> LastRelaySelectTime_of_world() { return Time<&ClientRegistration::lastRelaySelectTime>(); }
std::optional<moment> Now_of(const registration_server&) { return ApparentServerTime_of_world(); }
std::optional<inspector_version> ServerVersion(const registration_server&) {
    return Version<&ClientRegistration::serverVersion>();
}
std::optional<inspector_string> ServerName(const registration_server&) {
    return Text<&ClientRegistration::serverName>();
}

current_relay CurrentRelay_of_world() { return Marker<current_relay>(); }
std::optional<inspector_version> RelayVersion_of(const current_relay&) {
    return Version<&ClientRegistration::relayVersion>();
}

download_server DownloadServer_of_world() { return Marker<download_server>(); }
std::optional<inspector_string> DownloadName_of(const download_server&) {
    return Text<&ClientRegistration::downloadServerName>();
}

root_server RootServer() { return Marker<root_server>(); }
std::optional<integer> RootServerID(const root_server&) {
    const int64_t id = Registration().rootServerId;
    return id == 0 ? std::nullopt : std::optional<integer>(id);
}
std::optional<inspector_string> HostName(const root_server&) { return Text<&ClientRegistration::rootServerHostName>(); }

// clang-format off
Type<registration_server>                                               registrationServerType;
Type<current_relay>                                                     currentRelayType;
Type<download_server>                                                   downloadServerType;
Type<root_server>                                                       rootServerType;

GlobalProperty<registration_server, RegistrationServer_of_world>        registrationServer  {"registration server", "registration servers", ByValueOnly};
GlobalProperty<moment, ApparentServerTime_of_world>                     apparentTime        {"apparent registration server time", "apparent registration server times", ByValueOnly};
GlobalProperty<moment, LastRelaySelectTime_of_world>                    relaySelectTime     {"last relay select time", "last relay select times", ByValueOnly};
Property<registration_server, moment, Now_of>                           now                 {"now", "nows", ByValueOnly};
Property<registration_server, inspector_version, ServerVersion>         serverVersion       {"version", "versions", ByValueOnly};
Property<registration_server, inspector_string, ServerName>             serverName          {"name", "names", ByValueOnly};
GlobalProperty<current_relay, CurrentRelay_of_world>                    currentRelay        {"current relay", "current relays", ByValueOnly};
Property<current_relay, inspector_version, RelayVersion_of>             relayVersion        {"version", "versions", ByValueOnly};
GlobalProperty<download_server, DownloadServer_of_world>                downloadServer      {"download server", "download servers", ByValueOnly};
Property<download_server, inspector_string, DownloadName_of>            downloadName        {"name", "names", ByValueOnly};
GlobalProperty<root_server, RootServer>                                 rootServer          {"root server", "root servers", ByValueOnly};
Property<root_server, integer, RootServerID>                            rootServerId        {"id", "ids", ByValueOnly};
Property<root_server, inspector_string, HostName>                       hostName            {"host name", "host names", ByValueOnly};
// clang-format on

}  // namespace
