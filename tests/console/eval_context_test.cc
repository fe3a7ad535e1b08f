// What the console lends to inspectors, once it has started.
#include "console/eval_context.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "client/custom_site_name.h"
#include "client/dns_domain_name.h"
#include "client/fips_mode.h"
#include "client/inspector_library_list.h"
#include "client/inspector_settings.h"
#include "client/inspector_storage_path.h"
#include "client/process_table.h"
#include "client/site_map_holder.h"
#include "client/storage_path.h"
#include "console/start_up.h"
#include "evaluator/host_selector_inspector_context.h"
#include "evaluator/inspector_action_context.h"
#include "evaluator/inspector_analysis_context.h"
#include "evaluator/inspector_praxel_context.h"
#include "evaluator/inspector_registration_context.h"
#include "evaluator/inspector_setting_store.h"
#include "evaluator/inspector_system_context.h"
#include "evaluator/pending_restart_inspector_context.h"
#include "foundation/stack_allocator.h"
#include "inspectors/client_setting.h"
#include "tests/console/program_run.h"
#include "tests/foundation/own_process.h"
#include "tests/foundation/temporary_place.h"

namespace {

// What `tell` finds in a process that has started as the console of this build does, with the example agent or with
// the environment given.
template <class Tell>
std::string AfterStart(Tell tell, const Environment& environment = ExampleAgent()) {
    return InOwnProcess([&]() -> std::string {
        for (const char* name : {"OSLClientConfigPath", "OSLRelayConfigPath", "OSLClientActionMastheadPath",
                                 "OSL_LIBPATH", "OPENSSL_MODULES"}) {
            unsetenv(name);
        }
        for (const auto& [name, value] : environment) {
            setenv(name.c_str(), value.c_str(), 1);
        }
        std::optional<EvalContext> context;
        if (!StartClient(FileLocation(ZENDRY_PROGRAM), context)) {
            return "no start";
        }
        const InspectorContextMaintainer installed(&*context);
        return std::string(tell(*context));
    });
}

// Whether each member is what the set-up installs, or empty in a context that was only made.
struct Member {
    const char* name;
    bool installed;
    bool empty;
};
template <class Function>
Member Row(const char* name, Function* member, std::type_identity_t<Function>* expected) {
    return {name, member == expected, member == nullptr};
}
std::vector<Member> Members(const EvalContext& context) {
    using Location = InspectorSiteContext::Location;
    // clang-format off
    return {
        Row("executable location",     context.getExecutableLocation,  &StoragePath::GetExecutableLocation),
        Row("global location",         context.getGlobalLocation,      &StoragePath::GetGlobalLocation),
        Row("library location",        context.getLibraryLocation,     &StoragePath::GetLibLocation),
        Row("site advice location",    context.siteAdviceLocation,     &InspectorStoragePath::InspectorSiteAdviceLocation<Location>),
        Row("site data location",      context.siteDataLocation,       &InspectorStoragePath::InspectorSiteDataLocation<Location>),
        Row("profile location",        context.profileLocation,        &InspectorStoragePath::InspectorProfileLocation<Location>),
        Row("profile file location",   context.profileFileLocation,    &InspectorStoragePath::InspectorProfileFileLocation<Location>),
        Row("list of sites",           context.listOfSites,            &SiteMapHolder::List),
        Row("current site",            context.currentSite,            &SiteMapHolder::GetCurrentSite),
        Row("holder instance",         context.holderInstance,         &SiteMapHolder::GetInstance),
        Row("custom site name",        context.lookupCustomSiteName,   &LookupCustomSiteName),
        Row("process name",            context.processName,            &ProcessTable::SGetProcessName),
        Row("process by name",         context.processByName,          &ProcessTable::SGetProcessByName),
        Row("process active",          context.processActive,          &ProcessTable::SGetProcessActive),
        Row("process active by name",  context.processActiveByName,    &ProcessTable::SGetProcessActiveByName),
        Row("process entry by name",   context.processEntryByName,     &ProcessTable::SGetProcessEntryByName),
        Row("application event",       context.applicationEvent,       &ProcessTable::SGetAppEvent),
        Row("application usage",       context.applicationUsage,       &ProcessTable::SGetAppUsage),
        Row("table instance",          context.tableInstance,          &ProcessTable::SGetInstance),
        Row("library by name",         context.findByName,             &InspectorLibraryList::SFind),
        Row("library by number",       context.findByNumber,           &InspectorLibraryList::SFindByNumber),
        Row("DNS domain name",         context.dnsDomainName,          &GetDnsDomainName),
        Row("setting store",           context.settingStore,           &OSLSettingStore),
        Row("sites store",             context.sitesStore,             &OSLSitesStore),
        Row("crypto status",           context.status,                 &FipsStatus),
    };
    // clang-format on
}

TEST(EvalContext, MakingItFillsNothingAndTheSetUpFillsEveryMember) {
    int host = 0;
    EvalContext context(&host);
    EXPECT_EQ(context.Host(), &host);
    for (const Member& member : Members(context)) {
        EXPECT_TRUE(member.empty) << member.name;
    }
    EXPECT_EQ(context.sha1OfFile, nullptr);
    EXPECT_EQ(context.sha1OfBytes, nullptr);
    context.SetUp(false);
    for (const Member& member : Members(context)) {
        EXPECT_TRUE(member.installed) << member.name;
    }
    EXPECT_NE(context.sha1OfFile, nullptr);
    EXPECT_NE(context.sha1OfBytes, nullptr);
}

template <class Interface>
bool IsLent(InspectorContext& context) {
    return dynamic_cast<Interface*>(&context) != nullptr;
}

TEST(EvalContext, LendsTheInterfacesOfAConsoleAndNoOther) {
    EvalContext context(nullptr);
    EXPECT_EQ(context.Host(), nullptr);
    EXPECT_TRUE(IsLent<InspectorStorageContext>(context));
    EXPECT_TRUE(IsLent<InspectorSiteContext>(context));
    EXPECT_TRUE(IsLent<InspectorProcessTableContext>(context));
    EXPECT_TRUE(IsLent<InspectorLibraryContext>(context));
    EXPECT_TRUE(IsLent<InspectorNetworkContext>(context));
    EXPECT_TRUE(IsLent<OSLSettingsContext>(context));
    EXPECT_TRUE(IsLent<CryptoInspectorContext>(context));

    EXPECT_FALSE(IsLent<InspectorSystemContext>(context));
    EXPECT_FALSE(IsLent<InspectorPraxelContext>(context));
    EXPECT_FALSE(IsLent<InspectorActionContext>(context));
    EXPECT_FALSE(IsLent<InspectorAnalysisContext>(context));
    EXPECT_FALSE(IsLent<PendingRestartInspectorContext>(context));
    EXPECT_FALSE(IsLent<HostSelectorInspectorContext>(context));
    EXPECT_FALSE(IsLent<InspectorRegistrationContext>(context));

    // So that nothing ever ends an evaluation.
    EXPECT_FALSE(IsLent<InspectorInterrupterPort>(context));
    EXPECT_FALSE(IsLent<InspectorInterrupter>(context));
    const InspectorContextMaintainer installed(&context);
    EXPECT_EQ(&CurrentInterrupter(), &doNotInterrupt);
}

TEST(EvalContext, TheSitesAreScannedWhereThatIsAskedFor) {
    const auto sitesAfter = [](bool scanSites) {
        return AfterStart([=](EvalContext&) {
            const size_t started = SiteMapHolder::List().size();
            SiteMapHolder::GetInstance().Replace({});
            EvalContext another(nullptr);
            another.SetUp(scanSites);
            const size_t found = another.listOfSites().size();
            return started == 0 ? "none to find" : found == started ? "found" : found == 0 ? "left alone" : "otherwise";
        });
    };
    EXPECT_EQ(sitesAfter(true), "found");
    EXPECT_EQ(sitesAfter(false), "left alone");
}

// Without a configuration, with one that cannot be read, and with one that names no places.
TEST(EvalContextAfterStart, LendsTheDefaultLocationsWhereNoneAreSet) {
    const auto locations = [](EvalContext& context) {
        return std::string(context.getGlobalLocation().Text()) + "\n" +
               std::string(context.getLibraryLocation().Text());
    };
    const std::string defaults = "/var/opt/OSLClient\n/opt/OSLClient/OSLLib";
    Environment environment = ExampleAgent();
    environment.erase("OSLClientConfigPath");
    EXPECT_EQ(AfterStart(locations, environment), "OSLClientConfigPath must be set\n" + defaults);

    const TemporaryPlace place;
    const std::string missing = place.Path("missing.conf");
    environment["OSLClientConfigPath"] = missing;
    EXPECT_EQ(AfterStart(locations, environment), "No default config file found\nCould not open config file '" +
                                                      missing + "': No such file or directory\n" + defaults);
    environment["OSLClientConfigPath"] = place.File("refused.conf", "no configuration\n").CString();
    EXPECT_EQ(AfterStart(locations, environment), defaults);
    environment["OSLClientConfigPath"] =
        place.File("one.conf", "[Software\\Ostrel\\EnterpriseClient\\GlobalOptions]\nLibPath = /lib/of/mine/\n")
            .CString();
    EXPECT_EQ(AfterStart(locations, environment), "/var/opt/OSLClient\n/lib/of/mine");
}

// The relay's file stands behind the client's for the locations as for all else.
TEST(EvalContextAfterStart, TakesALocationFromTheRelaysFileWhereTheClientsHasNone) {
    const TemporaryPlace place;
    const char section[] = "[Software\\Ostrel\\EnterpriseClient\\GlobalOptions]\n";
    Environment environment = ExampleAgent();
    environment["OSLClientConfigPath"] = place.File("conf", section + std::string("StoragePath = /mine\n")).CString();
    environment["OSLRelayConfigPath"] =
        place.File("relay", section + std::string("StoragePath = /theirs\nLibPath = /their/lib\n")).CString();
    EXPECT_EQ(AfterStart(
                  [](EvalContext& context) {
                      return std::string(context.getGlobalLocation().Text()) + "\n" +
                             std::string(context.getLibraryLocation().Text());
                  },
                  environment),
              "/mine\n/their/lib");
}

TEST(EvalContextAfterStart, LendsTheStorageLocations) {
    EXPECT_EQ(AfterStart([](EvalContext& context) {
                  return std::string(context.getExecutableLocation()->Text()) + "\n" +
                         std::string(context.getGlobalLocation().Text()) + "\n" +
                         std::string(context.getLibraryLocation().Text());
              }),
              std::string(ZENDRY_PROGRAM) + "\n" + BuildFolder() + "/agent/data\n" + BuildFolder() + "/OSLLib");
}

TEST(EvalContextAfterStart, LendsTheSettings) {
    EXPECT_EQ(AfterStart([](EvalContext& context) -> std::string {
                  StoredSetting setting;
                  if (!context.settingStore()->Find("Client", "_oslclient_example_LIMIT", setting)) {
                      return "not there";
                  }
                  return setting.name + "=" + setting.value.value_or("") + " since " +
                         setting.effectiveDate.value_or("");
              }),
              "_oslclient_example_limit=20 since Thu, 02 Jan 2020 12:00:00 +0000");
    EXPECT_EQ(AfterStart([](EvalContext& context) {
                  StoredSetting setting;
                  size_t cursor = 0;
                  return context.sitesStore()->Next("none", cursor, setting) ? "there" : "not there";
              }),
              "not there");
    EXPECT_EQ(AfterStart([](EvalContext&) {
                  return ClientSettingIs("_OSLClient_Example_Greeting", "HELLO") &&
                                 !ClientSettingIs("_OSLClient_Example_Greeting", "hell") &&
                                 !ClientSettingIs("_OSLClient_Example", "hello")
                             ? "as it is"
                             : "otherwise";
              }),
              "as it is");
}

TEST(EvalContextAfterStart, LendsTheListOfLibraries) {
    EXPECT_EQ(AfterStart([](EvalContext& context) -> std::string {
                  const InspectorLibrary* const library = context.findByName("HostApplication");
                  if (library == nullptr || library != context.findByNumber(0) || context.findByNumber(1) != nullptr) {
                      return "another list";
                  }
                  return std::to_string(library->number) + " " + std::string(library->name);
              }),
              "0 HostApplication");
}

TEST(EvalContextAfterStart, LendsTheNetworksName) {
    EXPECT_EQ(AfterStart([](EvalContext& context) {
                  std::string name;
                  return context.dnsDomainName(name) == !name.empty() ? "a name or none" : "neither";
              }),
              "a name or none");
}

TEST(EvalContextAfterStart, LendsDigestsOfFilesAndOfBytes) {
    const TemporaryPlace place;
    const FileLocation file = place.File("abc", "abc");
    const FileLocation empty = place.File("empty");
    EXPECT_EQ(AfterStart([&](EvalContext& context) {
                  StackAllocator<1024> memory;
                  const AllocatorInstaller evaluating(memory);
                  const std::string_view text = "xabcx";
                  const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
                  return std::string(context.sha1OfFile(file).View()) + "\n" +
                         std::string(context.sha1OfBytes(bytes + 1, bytes + 4).View()) + "\n" +
                         std::string(context.sha1OfFile(empty).View()) + "\n" +
                         std::string(context.sha1OfBytes(nullptr, nullptr).View());
              }),
              "a9993e364706816aba3e25717850c26c9cd0d89d\n"
              "a9993e364706816aba3e25717850c26c9cd0d89d\n"
              "da39a3ee5e6b4b0d3255bfef95601890afd80709\n"
              "da39a3ee5e6b4b0d3255bfef95601890afd80709");
}

// Of a mode that the masthead wanted and the library refused.
TEST(EvalContextAfterStart, LendsTheStateOfARefusedMode) {
    const TemporaryPlace place;
    Environment environment = ExampleAgent();
    environment["OPENSSL_MODULES"] = "/nowhere";
    environment["OSLClientActionMastheadPath"] =
        place
            .File("masthead",
                  "Content-Type: multipart/signed; boundary=s\n\n--s\n"
                  "Content-Type: multipart/related; boundary=r; type=\"application/x-praxel-site-masthead\"\n\n--r\n"
                  "X-OSL-Require-FIPS-Cryptography: 1\n\n--r--\n--s--\n")
            .CString();
    EXPECT_EQ(AfterStart(
                  [](EvalContext& context) {
                      const CryptoStatus& status = context.status();
                      return (status.fips ? "on {" : "off {") + status.text + "}";
                  },
                  environment),
              "on {Cryptographic module failed to enter optional FIPS mode:OSL_FIPS_mode_set_Failed}");
}

TEST(EvalContextAfterStart, LendsTheStateOfTheCryptoLibrary) {
    EXPECT_EQ(AfterStart([](EvalContext& context) {
                  const CryptoStatus& status = context.status();
                  return !status.fips && status.text.empty() && !status.selfTestAttempted ? "off" : "otherwise";
              }),
              "off");
}

}  // namespace
