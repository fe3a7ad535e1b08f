#include "inspectors/debver.h"

#include <gtest/gtest.h>

#include "foundation/stack_allocator.h"
#include "tests/inspectors/ask.h"

namespace {

struct Parts {
    const char* version;
    const char* epoch;
    const char* upstream;
    std::optional<std::string_view> revision;
};

TEST(DebianVersionParts, AreCutAtTheFirstColonAndTheLastDash) {
    // clang-format off
    constexpr Parts kParts[] = {
        {"1.0",       "0",    "1.0",   std::nullopt},
        {"1:2.0-3",   "1",    "2.0",   "3"},
        {"1:2:3-4-5", "1",    "2:3-4", "5"},
        {"",          "0",    "",      std::nullopt},
        {":",         "",     "",      std::nullopt},
        {"-",         "0",    "",      ""},
        {":-",        "",     "",      ""},
        {"1-",        "0",    "1",     ""},
        {"-1",        "0",    "",      "1"},
        {":1",        "",     "1",     std::nullopt},
        {"a-b:c",     "a-b",  "c",     std::nullopt},
        {"a-b:c-d",   "a-b",  "c",     "d"},
        {"00:1",      "00",   "1",     std::nullopt},
        {"1.0-1:2",   "1.0-1", "2",    std::nullopt},
    };
    // clang-format on
    for (const Parts& expected : kParts) {
        const DebianVersionParts parts = SplitDebianVersion(expected.version);
        EXPECT_EQ(parts.epoch, expected.epoch) << expected.version;
        EXPECT_EQ(parts.upstream, expected.upstream) << expected.version;
        EXPECT_EQ(parts.revision, expected.revision) << expected.version;
    }
    EXPECT_EQ(SplitDebianVersion(std::string_view("1\0:2-\0", 6)).epoch, std::string_view("1\0", 2));
}

TEST(Debver, HasAZeroByteBehindItsText) {
    StackAllocator<4096> memory;
    const AllocatorInstaller installed(memory);
    const debian_package_version version(std::string_view("1.0-1").substr(0, 3));
    EXPECT_EQ(version.View(), "1.0");
    EXPECT_EQ(version.View().data()[3], '\0');
}

TEST(Debver, OwnsItsTextWhereItIsKept) {
    StackAllocator<4096> memory;
    const AllocatorInstaller installed(memory);
    const debian_package_version version(std::string_view("1:2.3-4"));
    const Kept<debian_package_version> kept(version);
    EXPECT_NE(kept.Value().View().data(), version.View().data());
    EXPECT_EQ(kept.Value().View(), "1:2.3-4");
    EXPECT_EQ(kept.Value().View().data()[7], '\0');
}

TEST(Debver, IsNotFingerprinted) {
    for (const GuardType& type :
         {TypeRecord<debian_package_version>(), TypeRecord<debian_package_version_epoch>(),
          TypeRecord<debian_package_upstream_version>(), TypeRecord<debian_package_version_revision>()}) {
        EXPECT_EQ(type.fingerprint, nullptr) << type.name;
        EXPECT_EQ(type.size, 4U) << type.name;
    }
}

// These run without a context, and so without a support library.

TEST(DebverWithoutLibrary, HasNoOrder) {
    for (const char* kind : {"version", "version epoch", "version upstream", "version revision"}) {
        const std::string one = std::string("debian package ") + kind + " \"1\"";
        for (const char* relation : {"=", "<", "<=", ">", ">=", "!="}) {
            EXPECT_EQ(Ask(one + relation + one), DoesNotExist()) << one << relation;
            EXPECT_EQ(Ask(one + relation + "\"1\""), DoesNotExist()) << one << relation;
            EXPECT_EQ(Ask("\"1\"" + std::string(relation) + one), DoesNotExist()) << one << relation;
        }
    }
}

TEST(DebverWithoutLibrary, AggregatesHaveAValueOnlyWhereNothingIsCompared) {
    for (const char* kind : {"version", "version epoch", "version upstream", "version revision"}) {
        const std::string of = std::string(" of debian package ") + kind + "s ";
        for (const char* aggregate : {"minimum", "maximum", "unique value"}) {
            EXPECT_EQ(Ask(aggregate + of + "\"1\""), Values({"1"})) << aggregate << of;
            EXPECT_EQ(Ask(aggregate + of + "(\"1\"; \"2\")"), DoesNotExist()) << aggregate << of;
            EXPECT_EQ(Ask(aggregate + of + "(\"1\"; \"1\"; \"0\"; \"5\")"), DoesNotExist()) << aggregate << of;
        }
        EXPECT_EQ(Ask("(item 0 of it as string, item 1 of it as string) of extrema" + of + "\"1\""), Values({"1, 1"}));
        EXPECT_EQ(Ask("exists extrema" + of + "(\"2\"; \"1\")"), Values({"False"}));
        EXPECT_EQ(Ask("multiplicity of unique values" + of + "\"1\""), Values({"1"}));
        EXPECT_EQ(Ask("unique values" + of + "(\"1\"; \"1\")"), Nothing());
        EXPECT_EQ(Ask("number of unique values" + of + "(\"1\"; \"2\"; \"3\")"), Values({"0"}));
    }
    // The next stream begins anew.
    EXPECT_EQ(Ask("(number of unique values of debian package versions (if it = 1 then (\"1\"; \"2\") else \"3\")) of "
                  "(1; 2)"),
              Values({"0", "1"}));
}

}  // namespace
