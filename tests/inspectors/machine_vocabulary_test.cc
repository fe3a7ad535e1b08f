// Every phrase and cast of the machine itself - its system, network, processes, processors, memory and users - is in
// the language, and there is no cast that is not meant.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "registry/type_registry.h"

namespace {

struct PropertyRow {
    const char* singular;
    const char* plural;
    const char* index;
    const char* object;
    const char* result;
};

struct CastRow {
    const char* name;
    const char* source;
    const char* result;
};

// clang-format off
constexpr PropertyRow kProperties[] = {
    {"operating system", "operating systems", "", "", "operating system"},
    {"hostname", "hostnames", "", "", "string"},
    {"computer name", "computer names", "", "", "string"},
    {"domainname", "domainnames", "", "", "string"},
    {"host name", "host names", "", "", "string"},
    {"domain name", "domain names", "", "", "string"},
    {"dns name", "dns names", "", "", "string"},
    {"system language", "system languages", "", "", "string"},
    {"system locale", "system locales", "", "", "language"},
    {"system ui language", "system ui languages", "", "", "language"},
    {"network", "networks", "", "", "network"},
    {"linux ipv4 routing table", "linux ipv4 routing tables", "", "", "linux ipv4 routing table"},
    {"process", "processes", "integer", "", "process"},
    {"process", "processes", "", "", "process"},
    {"process", "processes", "string", "", "process"},
    {"environment", "environments", "", "", "environment"},
    {"main processor", "main processors", "", "", "processor"},
    {"processor", "processors", "", "", "processor"},
    {"processor", "processors", "integer", "", "processor"},
    {"cpupackage", "cpupackages", "", "", "cpupackage"},
    {"ram", "rams", "", "", "ram"},
    {"random access memory", "random access memories", "", "", "ram"},
    {"swap", "swaps", "", "", "swap"},
    {"power level", "power levels", "", "", "power level"},
    {"runlevel", "runlevels", "", "", "runlevel"},
    {"user", "users", "", "", "user"},
    {"user", "users", "string", "", "user"},
    {"local user", "local users", "string", "", "user"},
    {"logged on user", "logged on users", "", "", "logged on user"},
    {"current user", "current users", "", "", "logged on user"},
    {"name", "names", "", "operating system", "string"},
    {"release", "releases", "", "operating system", "string"},
    {"build", "builds", "", "operating system", "string"},
    {"architecture", "architectures", "", "operating system", "string"},
    {"machine", "machines", "", "operating system", "string"},
    {"codename", "codenames", "", "operating system", "string"},
    {"version", "versions", "", "operating system", "version"},
    {"windows", "windowses", "", "operating system", "boolean"},
    {"unix", "unixes", "", "operating system", "boolean"},
    {"mac", "macs", "", "operating system", "boolean"},
    {"boot time", "boot times", "", "operating system", "time"},
    {"uptime", "uptimes", "", "operating system", "time interval"},
    {"primary language", "primary languages", "", "language", "primary language"},
    {"platform id", "platform ids", "", "language", "string"},
    {"interface", "interfaces", "", "network", "network interface"},
    {"interface", "interfaces", "integer", "network", "network interface"},
    {"ip interface", "ip interfaces", "", "network", "network interface"},
    {"ip interface", "ip interfaces", "integer", "network", "network interface"},
    {"ipv4 interface", "ipv4 interfaces", "", "network", "network adapter interface"},
    {"ipv6 interface", "ipv6 interfaces", "", "network", "network adapter interface"},
    {"ipv4or6 interface", "ipv4or6 interfaces", "", "network", "network adapter interface"},
    {"adapter", "adapters", "", "network", "network adapter"},
    {"any adapter", "any adapters", "", "network", "network adapter"},
    {"find adapter", "find adapters", "string", "network", "network adapter"},
    {"family", "families", "", "network interface", "integer"},
    {"address", "addresses", "", "network interface", "ipv4or6 address"},
    {"broadcast address", "broadcast addresses", "", "network interface", "ipv4or6 address"},
    {"subnet address", "subnet addresses", "", "network interface", "ipv4or6 address"},
    {"subnet mask", "subnet masks", "", "network interface", "ipv4or6 address"},
    {"alias", "aliases", "", "network interface", "boolean"},
    {"broadcast support", "broadcast supports", "", "network interface", "boolean"},
    {"loopback", "loopbacks", "", "network interface", "boolean"},
    {"multicast support", "multicast supports", "", "network interface", "boolean"},
    {"point to point", "point to points", "", "network interface", "boolean"},
    {"up", "ups", "", "network interface", "boolean"},
    {"cidr address", "cidr addresses", "", "network interface", "string"},
    {"mac address", "mac addresses", "", "network interface", "string"},
    {"name", "names", "", "network interface", "string"},
    {"adapter", "adapters", "", "network adapter interface", "network adapter"},
    {"cidr address", "cidr addresses", "", "network adapter interface", "string"},
    {"cidr string", "cidr strings", "", "network adapter interface", "string"},
    {"mac address", "mac addresses", "", "network adapter interface", "string"},
    {"ipv4 interface", "ipv4 interfaces", "", "network adapter", "network adapter interface"},
    {"ipv6 interface", "ipv6 interfaces", "", "network adapter", "network adapter interface"},
    {"ipv4or6 interface", "ipv4or6 interfaces", "", "network adapter", "network adapter interface"},
    {"address", "addresses", "", "network adapter", "ipv4 address"},
    {"subnet address", "subnet addresses", "", "network adapter", "ipv4 address"},
    {"subnet mask", "subnet masks", "", "network adapter", "ipv4 address"},
    {"broadcast address", "broadcast addresses", "", "network adapter", "ipv4 address"},
    {"broadcast support", "broadcast supports", "", "network adapter", "boolean"},
    {"loopback", "loopbacks", "", "network adapter", "boolean"},
    {"multicast support", "multicast supports", "", "network adapter", "boolean"},
    {"point to point", "point to points", "", "network adapter", "boolean"},
    {"up", "ups", "", "network adapter", "boolean"},
    {"cidr address", "cidr addresses", "", "network adapter", "string"},
    {"mac address", "mac addresses", "", "network adapter", "string"},
    {"name", "names", "", "network adapter", "string"},
    {"route", "routes", "", "linux ipv4 routing table", "linux ipv4 route"},
    {"destination", "destinations", "", "linux ipv4 route", "ipv4 address"},
    {"gateway", "gateways", "", "linux ipv4 route", "ipv4 address"},
    {"mask", "masks", "", "linux ipv4 route", "ipv4 address"},
    {"interface", "interfaces", "", "linux ipv4 route", "string"},
    {"metric", "metrics", "", "linux ipv4 route", "integer"},
    {"mtu", "mtus", "", "linux ipv4 route", "integer"},
    {"window", "windows", "", "linux ipv4 route", "integer"},
    {"irtt", "irtts", "", "linux ipv4 route", "integer"},
    {"up flag", "up flags", "", "linux ipv4 route", "boolean"},
    {"gateway flag", "gateway flags", "", "linux ipv4 route", "boolean"},
    {"host flag", "host flags", "", "linux ipv4 route", "boolean"},
    {"reject flag", "reject flags", "", "linux ipv4 route", "boolean"},
    {"name", "names", "", "process", "string"},
    {"pid", "pids", "", "process", "integer"},
    {"id", "ids", "", "process", "integer"},
    {"process id", "process ids", "", "process", "integer"},
    {"command line argument", "command line arguments", "", "process", "string"},
    {"command line argument", "command line arguments", "integer", "process", "string"},
    {"environment", "environments", "", "process", "environment"},
    {"variable", "variables", "", "environment", "environment variable"},
    {"variable", "variables", "string", "environment", "environment variable"},
    {"name", "names", "", "environment variable", "string"},
    {"value", "values", "", "environment variable", "string"},
    {"index", "indexes", "", "processor", "integer"},
    {"family", "families", "", "processor", "integer"},
    {"model", "models", "", "processor", "integer"},
    {"stepping", "steppings", "", "processor", "integer"},
    {"cpuid level", "cpuid levels", "", "processor", "integer"},
    {"fdiv bug", "fdiv bugs", "", "processor", "boolean"},
    {"hlt bug", "hlt bugs", "", "processor", "boolean"},
    {"sep bug", "sep bugs", "", "processor", "boolean"},
    {"f00f bug", "f00f bugs", "", "processor", "boolean"},
    {"coma bug", "coma bugs", "", "processor", "boolean"},
    {"fpu", "fpus", "", "processor", "boolean"},
    {"fpu exception", "fpu exceptions", "", "processor", "boolean"},
    {"wp", "wps", "", "processor", "boolean"},
    {"speed", "speeds", "", "processor", "hertz"},
    {"bogomips", "bogomipses", "", "processor", "integer"},
    {"vendor name", "vendor names", "", "processor", "string"},
    {"model name", "model names", "", "processor", "string"},
    {"brand string", "brand strings", "", "processor", "string"},
    {"family name", "family names", "", "processor", "string"},
    {"flag list", "flag lists", "", "processor", "string"},
    {"count", "counts", "", "cpupackage", "integer"},
    {"core", "cores", "", "cpupackage", "integer"},
    {"thread", "threads", "", "cpupackage", "integer"},
    {"smt capable", "smt capables", "", "cpupackage", "boolean"},
    {"smt enabled", "smt enableds", "", "cpupackage", "boolean"},
    {"size", "sizes", "", "ram", "integer"},
    {"total amount", "total amounts", "", "ram", "integer"},
    {"used amount", "used amounts", "", "ram", "integer"},
    {"free amount", "free amounts", "", "ram", "integer"},
    {"shared amount", "shared amounts", "", "ram", "integer"},
    {"buffered amount", "buffered amounts", "", "ram", "integer"},
    {"cached amount", "cached amounts", "", "ram", "integer"},
    {"available amount", "available amounts", "", "ram", "integer"},
    {"unavailable amount", "unavailable amounts", "", "ram", "integer"},
    {"total amount", "total amounts", "", "swap", "integer"},
    {"free amount", "free amounts", "", "swap", "integer"},
    {"used amount", "used amounts", "", "swap", "integer"},
    {"value", "values", "", "runlevel", "string"},
    {"previous value", "previous values", "", "runlevel", "string"},
    {"effective time", "effective times", "", "runlevel", "time"},
    {"name", "names", "", "user", "string"},
    {"tty", "ttys", "", "user", "string"},
    {"active", "actives", "", "logged on user", "boolean"},
    {"remote", "remotes", "", "logged on user", "boolean"},
    {"user", "users", "", "logged on user", "user"},
    {"process id", "process ids", "", "logged on user", "integer"},
    {"name", "names", "", "logged on user", "string"},
    {"tty", "ttys", "", "logged on user", "string"},
};

constexpr CastRow kCasts[] = {
    {"string", "operating system", "string"},
    {"string", "language", "string"},
    {"string", "primary language", "string"},
    {"string", "environment variable", "string"},
    {"string", "power level", "string"},
};

constexpr const char* kWithoutText[] = {
    "network", "network interface", "network adapter interface", "network adapter", "linux ipv4 routing table",
    "linux ipv4 route", "process", "environment", "processor", "cpupackage", "ram", "swap", "runlevel", "user",
    "logged on user",
};
// clang-format on

const GuardType* Named(std::string_view name) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    return name.empty() ? registry.WorldType() : registry.TypeByName(name);
}

const PropertyAssociation* OwnRow(const PropertyRow& row, std::string_view phrase) {
    for (const PropertyAssociation& entry : TypeRegistry::Instance().Properties()) {
        if (entry.name == phrase && entry.indexType == Named(row.index) &&
            entry.directObjectType == Named(row.object)) {
            return &entry;
        }
    }
    return nullptr;
}

TEST(MachineVocabulary, EveryPhraseIsThereInBothNumbers) {
    for (const PropertyRow& row : kProperties) {
        SCOPED_TRACE(std::string(row.singular) + " " + row.index + " of " + row.object);
        ASSERT_NE(Named(row.object), nullptr);
        const PropertyAssociation* singular = OwnRow(row, row.singular);
        const PropertyAssociation* plural = OwnRow(row, row.plural);
        ASSERT_NE(singular, nullptr);
        ASSERT_NE(plural, nullptr);
        EXPECT_FALSE(singular->isPlural);
        EXPECT_TRUE(plural->isPlural);
        EXPECT_EQ(singular->accessor, plural->accessor);
        EXPECT_EQ(singular->accessor->resultType->Name(), row.result);
    }
}

TEST(MachineVocabulary, EveryCastIsThereAndNoOther) {
    for (const CastRow& row : kCasts) {
        SCOPED_TRACE(std::string(row.source) + " as " + row.name);
        const CastDefinition* cast = TypeRegistry::Instance().FindCast(Named(row.source), row.name);
        ASSERT_NE(cast, nullptr);
        EXPECT_EQ(cast->sourceType, Named(row.source));
        EXPECT_EQ(cast->resultType->Name(), row.result);
    }
    for (const char* type : kWithoutText) {
        ASSERT_NE(Named(type), nullptr) << type;
        EXPECT_EQ(TypeRegistry::Instance().FindCast(Named(type), "string"), nullptr) << type;
    }
}

}  // namespace
