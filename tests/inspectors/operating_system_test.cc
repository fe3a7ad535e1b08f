// The operating system's phrases on this machine, beside what the system's own calls say.
#include <gtest/gtest.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <cstdlib>

#include "evaluator/inspector_context.h"
#include "inspectors/distribution.h"
#include "tests/inspectors/ask.h"

namespace {

TEST(OperatingSystem, TellsWhatTheKernelTells) {
    struct utsname kernel {};
    ASSERT_EQ(uname(&kernel), 0);
    EXPECT_EQ(Ask("(release of it; build of it; architecture of it; machine of it) of operating system"),
              Values({kernel.release, kernel.version, kernel.machine, kernel.machine}));
    EXPECT_EQ(Ask("(releases of it; builds of it; architectures of it; machines of it) of operating systems"),
              Values({kernel.release, kernel.version, kernel.machine, kernel.machine}));
    EXPECT_EQ(Ask("(windows of it; unix of it; mac of it) of operating system"), Values({"False", "True", "False"}));
    EXPECT_EQ(Ask("(windowses of it; unixes of it; macs of it) of operating systems"),
              Values({"False", "True", "False"}));
    const Distribution found = ProbeDistribution(ReadReleaseFile);
    const std::string name = found.name.empty() ? kernel.sysname : found.name;
    EXPECT_EQ(Ask("name of operating system; names of operating systems"), Values({name, name}));
    EXPECT_EQ(Ask("operating system"), Values({name + " (" + kernel.release + ")"}));
    EXPECT_EQ(Ask("exists version of operating system"), Values({found.version.empty() ? "False" : "True"}));
    EXPECT_EQ(Ask("exists codename of operating system"), Values({found.codename.empty() ? "False" : "True"}));
    EXPECT_EQ(Ask("number of versions of operating systems; number of codenames of operating systems"),
              Values({found.version.empty() ? "0" : "1", found.codename.empty() ? "0" : "1"}));
}

TEST(HostNames, AreTheSystems) {
    char name[1024] = {};
    ASSERT_EQ(gethostname(name, sizeof name - 1), 0);
    EXPECT_EQ(Ask("hostname; computer name; host name"), Values({name, name, name}));
    EXPECT_EQ(Ask("hostnames; computer names; host names"), Values({name, name, name}));
    char domain[1024] = {};
    ASSERT_EQ(getdomainname(domain, sizeof domain - 1), 0);
    EXPECT_EQ(Ask("domainname; domain name; domainnames; domain names"), Values({domain, domain, domain, domain}));
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
