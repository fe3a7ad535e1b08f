// The machine's names, as the system tells them and as it fails to.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <string>

#include "evaluator/inspector_context.h"
#include "registry/dependency_node.h"
#include "tests/inspectors/ask.h"

namespace {

// What the system is made to say; null for what it says itself.
const char* craftedName = nullptr;
bool namesFail = false;
size_t askedLength = 0;

template <class Original>
int Name(Original original, char* name, size_t length) {
    askedLength = length;
    if (namesFail) {
        return -1;
    }
    if (craftedName != nullptr) {
        std::strncpy(name, craftedName, length);
        return 0;
    }
    return original(name, length);
}

}  // namespace

// Every question of this program for the machine's names comes through here.
extern "C" int gethostname(char* name, size_t length) noexcept {
    static const auto original = reinterpret_cast<int (*)(char*, size_t)>(dlsym(RTLD_NEXT, "gethostname"));
    return Name(original, name, length);
}
extern "C" int getdomainname(char* name, size_t length) noexcept {
    static const auto original = reinterpret_cast<int (*)(char*, size_t)>(dlsym(RTLD_NEXT, "getdomainname"));
    return Name(original, name, length);
}

namespace {

TEST(HostNames, AreTheSystems) {
    char name[1024] = {};
    ASSERT_EQ(gethostname(name, sizeof name - 1), 0);
    EXPECT_EQ(Ask("hostname; computer name; host name"), Values({name, name, name}));
    EXPECT_EQ(Ask("hostnames; computer names; host names"), Values({name, name, name}));
    char domain[1024] = {};
    ASSERT_EQ(getdomainname(domain, sizeof domain - 1), 0);
    EXPECT_EQ(Ask("domainname; domain name; domainnames; domain names"), Values({domain, domain, domain, domain}));
}

constexpr const char* kPhrases[] = {"hostname", "computer name", "host name", "domainname", "domain name"};

TEST(HostNames, AreOfAtMost1023Bytes) {
    const std::string longest(1023, 'h');
    const std::string longer(1024, 'h');
    for (const std::string phrase : kPhrases) {
        for (const std::string* name : {&longest, &longer}) {
            craftedName = name->c_str();
            EXPECT_EQ(Ask(phrase), Values({longest})) << phrase;
            EXPECT_EQ(askedLength, 1023U) << phrase;
        }
        craftedName = "";
        EXPECT_EQ(Ask(phrase), Values({""})) << phrase;
    }
    craftedName = nullptr;
}

TEST(HostNames, ThatTheSystemDoesNotTellHaveNoValue) {
    namesFail = true;
    for (const std::string phrase : kPhrases) {
        EXPECT_EQ(Ask(phrase), DoesNotExist()) << phrase;
        EXPECT_EQ(Ask(phrase + "s"), Nothing()) << phrase;
    }
    namesFail = false;
}

// The node's state is the name that was seen first.
TEST(HostNames, TheComputersNameIsANodesState) {
    char name[1024] = {};
    ASSERT_EQ(gethostname(name, sizeof name - 1), 0);
    Fingerprinter expected;
    expected.AddData(ConstData(std::string_view(name)));
    for (const char* present : {static_cast<const char*>(nullptr), "other"}) {
        craftedName = present;
        Fingerprinter state;
        for (unsigned number = 0; number < GlobalDependency::Count(); ++number) {
            if (GlobalDependency::Node(number)->Name() == "StableComputerNameProperties") {
                GlobalDependency::Node(number)->AddState(state);
            }
        }
        EXPECT_EQ(state.sum, expected.sum);
    }
    craftedName = nullptr;
}

bool hasName;

class NetworkHost : public InspectorContext, public InspectorNetworkContext {};

TEST(DnsName, IsTheHosts) {
    EXPECT_EQ(Ask("dns name"), Fails("NoInspectorContext"));
    NetworkHost host;
    EXPECT_EQ(Ask("dns name", &host), Fails("InspectorNetworkContextError"));
    host.dnsDomainName = [](std::string& name) {
        name = "example.org";
        return hasName;
    };
    hasName = false;
    EXPECT_EQ(Ask("dns name", &host), DoesNotExist());
    hasName = true;
    EXPECT_EQ(Ask("dns name", &host), Values({"example.org"}));
    EXPECT_EQ(Ask("dns names", &host), Values({"example.org"}));
}

}  // namespace
