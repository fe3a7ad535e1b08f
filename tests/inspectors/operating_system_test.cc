// The operating system's phrases on crafted systems, and on this machine beside what the system's own calls say.
#include "inspectors/operating_system.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <set>
#include <string>

#include "foundation/stack_allocator.h"
#include "registry/dependency_node.h"
#include "tests/inspectors/ask.h"
#include "tests/inspectors/property_of.h"
#include "values/version.h"

namespace {

bool kernelIsSilent = false;
const char* otherRelease = nullptr;
int probes = 0;

}  // namespace

// Every question of this program to the kernel for its names comes through here, and every opening of its files by the
// C library's way.
extern "C" int uname(struct utsname* names) noexcept {
    static const auto original = reinterpret_cast<int (*)(struct utsname*)>(dlsym(RTLD_NEXT, "uname"));
    const int result = original(names);
    if (otherRelease != nullptr) {
        std::snprintf(names->release, sizeof names->release, "%s", otherRelease);
    }
    return kernelIsSilent ? -1 : result;
}
extern "C" FILE* fopen64(const char* path, const char* mode) {
    static const auto original = reinterpret_cast<FILE* (*)(const char*, const char*)>(dlsym(RTLD_NEXT, "fopen64"));
    probes += std::strcmp(path, "/proc/vmware/version") == 0;
    return original(path, mode);
}

namespace {

struct utsname Kernel() {
    struct utsname kernel {};
    std::strcpy(kernel.sysname, "Linux");
    std::strcpy(kernel.nodename, "host");
    std::strcpy(kernel.release, "6.1.0-9");
    std::strcpy(kernel.version, "#1 SMP");
    std::strcpy(kernel.machine, "x86_64");
    return kernel;
}

std::string AsText(const operating_system& system) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    const CastDefinition& cast = registry.Cast(registry.TypeByName("operating system"), "string");
    inspector_string text;
    EXPECT_TRUE(cast.thunk(&text, &system, cast.data));
    return std::string(text.View());
}

class CraftedSystem : public testing::Test {
protected:
    static std::string Text(const operating_system& system, const char* phrase) {
        const std::optional<inspector_string> text = PropertyOf<inspector_string>(system, phrase);
        return text ? std::string(text->View()) : "none";
    }
    static std::string Version(const operating_system& system) {
        const std::optional<inspector_version> version = PropertyOf<inspector_version>(system, "version");
        return version ? version->Text() : "none";
    }

    StackAllocator<4096> memory_;
    AllocatorInstaller installed_{memory_};
};

TEST_F(CraftedSystem, HasAPhraseForEachField) {
    const operating_system system = DescribeSystem(Kernel(), {"Linux Debian 5.0.3", "5.0.3", "lenny"});
    EXPECT_EQ(Text(system, "name"), "Linux Debian 5.0.3");
    EXPECT_EQ(Text(system, "release"), "6.1.0-9");
    EXPECT_EQ(Text(system, "build"), "#1 SMP");
    EXPECT_EQ(Text(system, "architecture"), "x86_64");
    EXPECT_EQ(Text(system, "machine"), "x86_64");
    EXPECT_EQ(Text(system, "codename"), "lenny");
    EXPECT_EQ(Version(system), "5.0.3");
    EXPECT_EQ(AsText(system), "Linux Debian 5.0.3 (6.1.0-9)");
}

TEST_F(CraftedSystem, OfNoKnownDistributionHasTheKernelsNameAndNoVersion) {
    const operating_system system = DescribeSystem(Kernel(), {});
    EXPECT_EQ(Text(system, "name"), "Linux");
    EXPECT_EQ(Text(system, "codename"), "none");
    EXPECT_EQ(Version(system), "none");
    EXPECT_EQ(AsText(system), "Linux (6.1.0-9)");
}

TEST_F(CraftedSystem, IsFingerprintedByEachOfItsFields) {
    const operating_system system{"name", "release", "build", "version", "architecture", "machine", "codename"};
    std::set<uint32_t> sums;
    const auto add = [&](const operating_system& of) {
        Fingerprinter fingerprinter;
        InspectorTypeInfo<operating_system>::Fingerprint(fingerprinter, &of);
        sums.insert(fingerprinter.sum);
    };
    add(system);
    for (auto field :
         {&operating_system::name, &operating_system::release, &operating_system::build, &operating_system::version,
          &operating_system::architecture, &operating_system::machine, &operating_system::codename}) {
        operating_system other = system;
        (other.*field) += "x";
        add(other);
    }
    EXPECT_EQ(sums.size(), 8U);
}

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
    const auto orNone = [](const std::string& text) { return text.empty() ? Nothing() : Values({text}); };
    EXPECT_EQ(Ask("(it as string) of versions of operating systems"), orNone(found.version));
    EXPECT_EQ(Ask("codenames of operating systems"), orNone(found.codename));
    EXPECT_EQ(Ask("(exists version of it, exists codename of it) of operating system"),
              Values({std::string(found.version.empty() ? "False" : "True") + ", " +
                      (found.codename.empty() ? "False" : "True")}));
}

TEST(OperatingSystem, AsksTheKernelEachTimeAndTheFilesOnce) {
    Ask("operating system");
    const int before = probes;
    otherRelease = "9.9.9-other";
    EXPECT_EQ(Ask("release of operating system"), Values({"9.9.9-other"}));
    otherRelease = nullptr;
    EXPECT_NE(Ask("release of operating system"), Values({"9.9.9-other"}));
    EXPECT_EQ(probes, before);
    ProbeDistribution(ReadReleaseFile);
    EXPECT_EQ(probes, before + 1);
}

TEST(OperatingSystem, HasNoValueWhereTheKernelIsSilent) {
    kernelIsSilent = true;
    EXPECT_EQ(Ask("name of operating system"), DoesNotExist());
    EXPECT_EQ(Ask("names of operating systems"), Nothing());
    kernelIsSilent = false;
}

// The state of a node, none where there is no such node.
std::optional<Fingerprinter> State(std::string_view name) {
    for (unsigned number = 0; number < GlobalDependency::Count(); ++number) {
        if (const DependencyNode* node = GlobalDependency::Node(number); node->Name() == name) {
            Fingerprinter state;
            node->AddState(state);
            return state;
        }
    }
    return std::nullopt;
}

TEST(OperatingSystem, IsANodeWithTheStateThatWasSeenFirst) {
    struct utsname kernel {};
    ASSERT_EQ(uname(&kernel), 0);
    const operating_system system = DescribeSystem(kernel, ProbeDistribution(ReadReleaseFile));
    Fingerprinter expected;
    InspectorTypeInfo<operating_system>::Fingerprint(expected, &system);
    const std::optional<Fingerprinter> first = State("StableOSProperties");
    ASSERT_TRUE(first);
    EXPECT_EQ(first->sum, expected.sum);
    otherRelease = "9.9.9-other";
    EXPECT_EQ(State("StableOSProperties")->sum, first->sum);
    otherRelease = nullptr;
}

// What an accessor of the world says that its values depend on.
Fingerprinter DependenciesOf(const char* phrase) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    Fingerprinter seen;
    registry.NamedGlobalProperty(phrase, registry.WorldType()).accessor->dependencies(seen);
    return seen;
}

Fingerprinter DependencyOn(std::string_view name) {
    Fingerprinter seen;
    for (unsigned number = 0; number < GlobalDependency::Count(); ++number) {
        if (DependencyNode* node = GlobalDependency::Node(number); node->Name() == name) {
            seen.AddDependency(*node);
        }
    }
    return seen;
}

TEST(StableNodes, AreWhatTheSystemAndTheComputersNameDependOn) {
    for (const auto& [phrase, node] : {std::pair("operating system", "StableOSProperties"),
                                       std::pair("computer name", "StableComputerNameProperties")}) {
        const Fingerprinter expected = DependencyOn(node);
        const Fingerprinter seen = DependenciesOf(phrase);
        EXPECT_EQ(seen.dependencies, expected.dependencies) << phrase;
        EXPECT_EQ(seen.sum, expected.sum) << phrase;
        EXPECT_TRUE(seen.dependencies != 0 || seen.sum != 0) << phrase;
    }
}

}  // namespace
