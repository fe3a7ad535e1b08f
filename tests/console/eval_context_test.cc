// What the console lends to inspectors, once it has started.
#include "console/eval_context.h"

#include <gtest/gtest.h>

#include <string>

#include "client/inspector_library_list.h"
#include "client/storage_path.h"
#include "console/start_up.h"
#include "evaluator/inspector_setting_store.h"
#include "inspectors/client_setting.h"
#include "tests/console/program_run.h"
#include "tests/foundation/own_process.h"

namespace {

// What `tell` finds in a process that has started as the console of this build does.
template <class Tell>
std::string AfterStart(Tell tell) {
    return InOwnProcess([&]() -> std::string {
        for (const auto& [name, value] : ExampleAgent()) {
            setenv(name.c_str(), value.c_str(), 1);
        }
        unsetenv("OSL_LIBPATH");
        unsetenv("OSLRelayConfigPath");
        std::optional<EvalContext> context;
        if (!StartClient(FileLocation(ZENDRY_PROGRAM), context)) {
            return "no start";
        }
        const InspectorContextMaintainer installed(&*context);
        return std::string(tell(*context));
    });
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

TEST(EvalContextAfterStart, LendsTheStateOfTheCryptoLibrary) {
    EXPECT_EQ(AfterStart([](EvalContext& context) {
                  const CryptoStatus& status = context.status();
                  return !status.fips && status.text.empty() && !status.selfTestAttempted ? "off" : "otherwise";
              }),
              "off");
}

}  // namespace
