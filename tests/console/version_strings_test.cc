#include "console/version_strings.h"

#include <gtest/gtest.h>

#include <regex>

namespace {

TEST(VersionStrings, HoldTheFifteenKeysAndNoOther) {
    const char* const keys[] = {"Version",      "Comments",       "CompanyName",     "FileDescription",  "FileVersion",
                                "InternalName", "LegalCopyright", "LegalTrademarks", "OriginalFilename", "PrivateBuild",
                                "ProductName",  "ProductVersion", "SpecialBuild",    "BuildTarget",      "ModuleName"};
    for (const char* key : keys) {
        EXPECT_EQ(VersionStringResource::versionMap.count(key), 1u) << key;
    }
    EXPECT_EQ(VersionStringResource::versionMap.size(), std::size(keys));
}

TEST(VersionStrings, FiveAreEmptyAndTheOthersAreNot) {
    const auto& map = VersionStringResource::versionMap;
    for (const char* key : {"Comments", "LegalTrademarks", "PrivateBuild", "SpecialBuild", "BuildTarget"}) {
        EXPECT_EQ(map.at(key), "") << key;
    }
    for (const char* key :
         {"CompanyName", "FileDescription", "InternalName", "LegalCopyright", "OriginalFilename", "ProductName"}) {
        EXPECT_NE(map.at(key), "") << key;
    }
    EXPECT_EQ(map.at("ModuleName"), "HostApplication");
}

TEST(VersionStrings, TheThreeVersionsAreOneVersionOfFourParts) {
    const auto& map = VersionStringResource::versionMap;
    EXPECT_TRUE(std::regex_match(map.at("Version"), std::regex("[0-9]+\\.[0-9]+\\.[0-9]+\\.[0-9]+")));
    EXPECT_EQ(map.at("FileVersion"), map.at("Version"));
    EXPECT_EQ(map.at("ProductVersion"), map.at("Version"));
}

// Static initialisers of other units may read it.
const size_t sizeBeforeMain = VersionStringResource::versionMap.size();

TEST(VersionStrings, AreFilledBeforeTheEntryRuns) { EXPECT_EQ(sizeBeforeMain, 15u); }

}  // namespace
