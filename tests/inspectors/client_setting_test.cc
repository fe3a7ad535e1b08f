#include "inspectors/client_setting.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "evaluator/inspector_context.h"
#include "evaluator/inspector_setting_store.h"

namespace {

class OneSetting : public InspectorSettingStore {
public:
    bool Find(std::string_view subsection, std::string_view name, StoredSetting& setting) override {
        if (failing) {
            throw std::runtime_error("the store is gone");
        }
        setting.name = name;
        setting.value = value;
        return subsection == "Client" && name == "switch";
    }
    bool Next(std::string_view, size_t&, StoredSetting&) override { return false; }

    std::optional<std::string> value;
    bool failing = false;
};

OneSetting store;

class Host : public InspectorContext, public OSLSettingsContext {};

TEST(ClientSetting, IsComparedWithoutRegardToCase) {
    Host host;
    host.settingStore = []() -> InspectorSettingStore* { return &store; };
    InspectorContextMaintainer installed(&host);
    store.value = "ON";
    EXPECT_TRUE(ClientSettingIs("switch", "on"));
    EXPECT_FALSE(ClientSettingIs("switch", "o"));
    EXPECT_FALSE(ClientSettingIs("other", "on"));
    store.value.reset();
    EXPECT_FALSE(ClientSettingIs("switch", ""));
}

TEST(ClientSetting, IsNotSetWhereAnythingFails) {
    EXPECT_FALSE(ClientSettingIs("switch", "on"));
    Host host;
    InspectorContextMaintainer installed(&host);
    EXPECT_FALSE(ClientSettingIs("switch", "on"));
    host.settingStore = []() -> InspectorSettingStore* { return nullptr; };
    EXPECT_FALSE(ClientSettingIs("switch", "on"));
    host.settingStore = []() -> InspectorSettingStore* { return &store; };
    store.value = "on";
    store.failing = true;
    EXPECT_FALSE(ClientSettingIs("switch", "on"));
    EXPECT_EQ(ClientSettingText("switch"), std::nullopt);
    store.failing = false;
    EXPECT_TRUE(ClientSettingIs("switch", "on"));
}

TEST(ClientSetting, IsGivenAsItIsWritten) {
    EXPECT_EQ(ClientSettingText("switch"), std::nullopt);
    Host host;
    host.settingStore = []() -> InspectorSettingStore* { return &store; };
    InspectorContextMaintainer installed(&host);
    store.value = " One,TWO ";
    EXPECT_EQ(ClientSettingText("switch"), " One,TWO ");
    EXPECT_EQ(ClientSettingText("other"), std::nullopt);
    store.value.reset();
    EXPECT_EQ(ClientSettingText("switch"), std::nullopt);
}

}  // namespace
