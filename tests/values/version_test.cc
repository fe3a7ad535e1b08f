// What the language cannot show of versions: their parts, fingerprints, and what is kept when their memory is gone.
#include "values/version.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

#include "foundation/stack_allocator.h"
#include "registry/fingerprinter.h"
#include "registry/type_registry.h"

namespace {

class VersionTest : public testing::Test {
protected:
    StackAllocator<4096> memory_;
    AllocatorInstaller installed_{memory_};
};

std::string Parts(const inspector_version& version) {
    std::string parts = version.Numeric() ? "numeric" : "text";
    for (uint32_t i = 0; i < inspector_version::kMostComponents; ++i) {
        parts += (i == version.Count() ? " |" : "") + std::string(" ") + std::to_string(version.Component(i));
    }
    return parts;
}

inspector_version Version(std::string_view text) { return inspector_version(inspector_string(text)); }

TEST_F(VersionTest, HasTheNumbersOfItsText) {
    EXPECT_EQ(Parts(Version("1.2")), "numeric 1 2 | 0 0");
    EXPECT_EQ(Parts(Version("1.2.")), "numeric 1 2 0 | 0");
    EXPECT_EQ(Parts(Version(",5")), "numeric 0 5 | 0 0");
    EXPECT_EQ(Parts(Version("1.2,3.4")), "numeric 1 2 3 4");
    EXPECT_EQ(Parts(Version("...")), "numeric 0 0 0 0");
    EXPECT_EQ(Parts(Version("")), "numeric 0 0 0 0");
    EXPECT_EQ(Parts(Version("65535")), "numeric 65535 | 0 0 0");
    EXPECT_EQ(Parts(Version("0000065535")), "numeric 65535 | 0 0 0");
}

TEST_F(VersionTest, HasNoNumbersWhenItsTextIsNone) {
    for (const std::string_view text : {"1.2.3.4.", "1.2.3.4.5", "....", "1.2a", "70000", "65536", "1.2.3.65536", " 1",
                                        "1 ", "-1", "99999999999999999999999999", "4294967296", "1.4294967297"}) {
        EXPECT_EQ(Parts(Version(text)), "text 0 0 0 0") << text;
    }
    EXPECT_EQ(Parts(Version(std::string_view("1.2\0", 4))), "text 0 0 0 0");
    EXPECT_EQ(Parts(inspector_strverscmp_version(inspector_string(std::string_view("1.2")))), "text 0 0 0 0");
}

TEST_F(VersionTest, ThatWasGivenNothingIsTheEmptyText) {
    EXPECT_EQ(Parts(inspector_version()), "text 0 0 0 0");
    EXPECT_STREQ(inspector_version().Text(), "");
    EXPECT_TRUE(inspector_version() == Version(""));
    EXPECT_FALSE(inspector_version() == Version("0"));
}

TEST_F(VersionTest, CopiesItsText) {
    std::string text = "1.2a";
    const inspector_version version{inspector_string(text)};
    text = "9.9z";
    EXPECT_STREQ(version.Text(), "1.2a");
}

// Each element's memory is used again by the next, as in a stream.
TEST_F(VersionTest, AggregatorsOwnWhatTheyKeep) {
    for (const std::string_view ending : {"", "-a-text-that-is-too-long-to-be-held-in-place"}) {
        extrema_aggregator<inspector_version> extrema;
        unique_value_aggregator<inspector_version> unique;
        extrema.Initialize();
        unique.Initialize();
        char* const mark = memory_.Top();
        for (const std::string_view number : {"5", "3", "8", "3", "10"}) {
            const inspector_version version = Version(std::string(number) + "x" + std::string(ending));
            extrema.Aggregate(Of(), version);
            unique.Aggregate(Of(), version);
            std::fill(mark, memory_.Top(), '#');
            memory_.ReleaseTo(mark);
        }
        const auto tuple = extrema.FirstFinal();
        ASSERT_TRUE(tuple);
        EXPECT_EQ(TupleElement<inspector_version>(&*tuple, 0).Text(), "3x" + std::string(ending));
        EXPECT_EQ(TupleElement<inspector_version>(&*tuple, 1).Text(), "10x" + std::string(ending));
        std::string values;
        for (auto value = unique.FirstFinal(); value; value = unique.NextFinal()) {
            values += std::to_string(value->multiplicity) + "*" + value->Text() + " ";
        }
        const std::string tail = "x" + std::string(ending) + " ";
        EXPECT_EQ(values, "2*3" + tail + "1*5" + tail + "1*8" + tail + "1*10" + tail);
    }
}

TEST_F(VersionTest, KeptWithMultiplicityOwnsItsTextToo) {
    auto text = std::make_unique<std::string>("1.2-and-more-than-fits-in-place");
    const with_multiplicity<inspector_version> counted(inspector_version(inspector_string(*text)), 7);
    const Kept<with_multiplicity<inspector_version>> kept(counted);
    std::fill_n(const_cast<char*>(counted.Text()), text->size(), '#');
    EXPECT_EQ(kept.Value().Text(), *text);
    EXPECT_EQ(kept.Value().multiplicity, 7);
}

TEST_F(VersionTest, OrderWithoutLawsLosesNoValueAndEndsAlways) {
    // Prefixes equal their longer forms, and those are not equal to each other.
    unique_value_aggregator<inspector_version> unique;
    unique.Initialize();
    int64_t given = 0;
    for (int i = 0; i < 2000; ++i) {
        const std::string text = i % 3 == 0   ? std::to_string(i % 7)
                                 : i % 3 == 1 ? std::to_string(i % 7) + "." + std::to_string(i % 11)
                                              : std::to_string(i % 7) + "." + std::to_string(i % 5) + "a";
        unique.Aggregate(Of(), Version(text));
        ++given;
    }
    int64_t counted = 0;
    for (auto value = unique.FirstFinal(); value; value = unique.NextFinal()) {
        counted += value->multiplicity;
    }
    EXPECT_EQ(counted, given);
}

template <class T>
uint32_t FingerprintOf(const T& value) {
    Fingerprinter fingerprinter;
    InspectorTypeInfo<T>::Fingerprint(fingerprinter, &value);
    return fingerprinter.sum;
}

TEST_F(VersionTest, FingerprintIsThatOfTheTextAndNotOfItsPlace) {
    EXPECT_EQ(FingerprintOf(Version("1.2")), FingerprintOf(Version("1.2")));
    EXPECT_NE(FingerprintOf(Version("1.2")), FingerprintOf(Version("1.3")));
    EXPECT_NE(FingerprintOf(Version("1.2")), FingerprintOf(Version("1.2.0")));
    const inspector_strverscmp_version other{inspector_string(std::string_view("1.2"))};
    EXPECT_NE(FingerprintOf(Version("1.2")), FingerprintOf<inspector_version>(other));
    EXPECT_EQ(FingerprintOf(other), FingerprintOf<inspector_version>(other));
}

TEST(VersionTypes, HaveTheirRegisteredSizes) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    const GuardType* version = registry.TypeByName("version");
    const GuardType* strverscmpVersion = registry.TypeByName("strverscmp version");
    ASSERT_NE(version, nullptr);
    ASSERT_NE(strverscmpVersion, nullptr);
    EXPECT_EQ(version->size, 20u);
    EXPECT_EQ(version->parent, nullptr);
    EXPECT_NE(version->fingerprint, nullptr);
    EXPECT_EQ(strverscmpVersion->size, 20u);
    EXPECT_EQ(strverscmpVersion->parent, version);
    EXPECT_NE(strverscmpVersion->fingerprint, nullptr);
    EXPECT_EQ(registry.TypeByName("version with multiplicity")->size, 28u);
    EXPECT_EQ(registry.TypeByName("version with multiplicity")->parent, version);
}

}  // namespace
