#include "foundation/version_strings.h"

#include <gtest/gtest.h>

#include <cstdio>

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
    unsigned parts[4];
    char rest = 0;
    EXPECT_EQ(std::sscanf(map.at("Version").c_str(), "%u.%u.%u.%u%c", parts, parts + 1, parts + 2, parts + 3, &rest),
              4);
    EXPECT_EQ(map.at("FileVersion"), map.at("Version"));
    EXPECT_EQ(map.at("ProductVersion"), map.at("Version"));
}

// Static initialisers of other units may read it.
const size_t sizeBeforeMain = VersionStringResource::versionMap.size();

TEST(VersionStrings, AreFilledBeforeTheEntryRuns) { EXPECT_EQ(sizeBeforeMain, 15u); }

}  // namespace
