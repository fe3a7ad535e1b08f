// The configuration's settings as inspectors ask for them.
#include "client/inspector_settings.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/client/configuration.h"

namespace {

std::string Told(const StoredSetting& setting) {
    return setting.name + "=" + setting.value.value_or("none") + "," + setting.effectiveDate.value_or("none") + "," +
           setting.enabled.value_or("none");
}

class InspectorSettingsTest : public testing::Test {
protected:
    InspectorSettingsTest() {
        files.Client(
            "[Root]\nvalue = 0\n[Root\\Client\\First]\nvalue = 1\neffective date = some day\n[Root\\Client\\Second]\n"
            "value =\nenabled = 1\n[Root\\Client\\Third]\n[Root\\Client\\Third\\Deep]\nvalue = 4\n"
            "[Root\\Clients\\Other]\nvalue = 5\n[Root\\Top]\nvalue = 6\n");
        files.Relay("[root\\client\\first]\nvalue = relay\nenabled = 0\n[root\\client\\fourth]\nvalue = 7\n");
    }

    std::string Found(std::string_view subsection, std::string_view name) {
        StoredSetting setting;
        return settings().Find(subsection, name, setting) ? Told(setting) : "not there";
    }
    InspectorSettings& settings() {
        if (!manager_) {
            manager_.emplace();
            settings_.emplace("Root", *manager_);
        }
        return *settings_;
    }

    const Configuration files;

private:
    std::optional<ZendryOptionsManager> manager_;
    std::optional<InspectorSettings> settings_;
};

TEST_F(InspectorSettingsTest, AreFoundInAnyCase) {
    EXPECT_EQ(Found("Client", "First"), "first=1,some day,0");
    EXPECT_EQ(Found("CLIENT", "FIRST"), "first=1,some day,0");
    EXPECT_EQ(Found("client", "second"), "second=,none,1");
    EXPECT_EQ(Found("Client", "Third"), "third=none,none,none");
    EXPECT_EQ(Found("Client", "fourth"), "fourth=7,none,none");
    EXPECT_EQ(Found("", "top"), "top=6,none,none");
    EXPECT_EQ(Found("Client\\Third", "deep"), "deep=4,none,none");
}

TEST_F(InspectorSettingsTest, LieDirectlyInTheirSubsection) {
    EXPECT_EQ(Found("Client", "other"), "not there");
    EXPECT_EQ(Found("Client", "third\\deep"), "not there");
    EXPECT_EQ(Found("Client", ""), "not there");
    EXPECT_EQ(Found("", ""), "not there");
    EXPECT_EQ(Found("None", "first"), "not there");
    EXPECT_EQ(Found("Client", "first:value"), "not there");
}

TEST_F(InspectorSettingsTest, AreListedInTheOrderOfTheFiles) {
    std::string told;
    StoredSetting setting;
    for (size_t cursor = 0; settings().Next("client", cursor, setting);) {
        told += Told(setting) + " ";
    }
    EXPECT_EQ(told, "first=1,some day,0 second=,none,1 third=none,none,none first=1,some day,0 fourth=7,none,none ");
    size_t cursor = 0;
    EXPECT_TRUE(settings().Next("", cursor, setting));
    EXPECT_EQ(Told(setting), "top=6,none,none");
    EXPECT_FALSE(settings().Next("", cursor, setting));
    EXPECT_FALSE(settings().Next("", cursor, setting));
}

}  // namespace
