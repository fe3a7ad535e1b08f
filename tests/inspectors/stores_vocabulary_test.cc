// Every phrase and cast of the families that look into stores of their own, the firmware's table and the package cache,
// is in the language, and there is none that is not meant.
#include <algorithm>

#include "tests/inspectors/firmware_catalogue.h"
#include "tests/inspectors/vocabulary_rows.h"

namespace {

// clang-format off
constexpr PropertyRow kProperties[] = {
    {"dmi", "dmis", "", "", "dmi"},
    {"oem_string", "oem_strings", "", "dmi", "string"},
    {"oem_string", "oem_strings", "integer", "dmi", "string"},
    {"system_configuration_option", "system_configuration_options", "", "dmi", "string"},
    {"system_configuration_option", "system_configuration_options", "integer", "dmi", "string"},
    {"device_type", "device_types", "", "dmi on_board_devices_information", "integer"},
    {"device_type", "device_types", "integer", "dmi on_board_devices_information", "integer"},
    {"device_description", "device_descriptions", "", "dmi on_board_devices_information", "string"},
    {"device_description", "device_descriptions", "integer", "dmi on_board_devices_information", "string"},

    {"smbios", "smbioses", "", "", "smbios"},
    {"structure", "structures", "", "smbios", "smbios structure"},
    {"structure", "structures", "string", "smbios", "smbios structure"},
    {"name", "names", "", "smbios structure", "string"},
    {"length", "lengths", "", "smbios structure", "integer"},
    {"type", "types", "", "smbios structure", "integer"},
    {"value", "values", "", "smbios structure", "smbios value"},
    {"value", "values", "string", "smbios structure", "smbios value"},
    {"integer value", "integer values", "string", "smbios structure", "smbios value"},
    {"string value", "string values", "string", "smbios structure", "smbios value"},
    {"integer", "integers", "string", "smbios structure", "integer"},
    {"string", "strings", "string", "smbios structure", "string"},
    {"name", "names", "", "smbios value", "string"},
    {"type", "types", "", "smbios value", "string"},
    {"offset", "offsets", "", "smbios value", "integer"},
    {"structure", "structures", "", "smbios value", "smbios structure"},

    {"debianpackage", "debianpackages", "", "", "debianpackagecache"},
    {"pkglibversion", "pkglibversions", "", "debianpackagecache", "string"},
    {"base package", "base packages", "string", "debianpackagecache", "debian base package"},
    {"base package", "base packages", "", "debianpackagecache", "debian base package"},
    {"package", "packages", "string", "debianpackagecache", "debian versioned package"},
    {"package", "packages", "", "debianpackagecache", "debian versioned package"},
    {"name", "names", "", "debian base package", "string"},
    {"currently installed", "currently installeds", "", "debian base package", "boolean"},
    {"installed version", "installed versions", "", "debian base package", "debianpkg version"},
    {"pkg version", "pkg versions", "", "debian base package", "debianpkg version"},
    {"name", "names", "", "debian versioned package", "string"},
    {"version", "versions", "", "debian versioned package", "debian package version"},
    {"section", "sections", "", "debian versioned package", "string"},
    {"architecture", "architectures", "", "debian versioned package", "string"},
    {"currently installed", "currently installeds", "", "debian versioned package", "boolean"},
    {"release", "releases", "", "debian versioned package", "string"},
    {"verfile", "verfiles", "", "debian versioned package", "debianpkg verfile"},
    {"dependency", "dependencies", "", "debian versioned package", "debianpkg dependency"},
    {"reverse dependency", "reverse dependencies", "", "debian versioned package", "debianpkg reverse dependencies"},
    {"base package", "base packages", "", "debianpkg version", "debian base package"},
    {"section", "sections", "", "debianpkg version", "string"},
    {"architecture", "architectures", "", "debianpkg version", "string"},
    {"type", "types", "", "debianpkg dependency", "string"},
    {"compare_op", "compare_ops", "", "debianpkg dependency", "string"},
    {"version", "versions", "", "debianpkg dependency", "debian package version"},
    {"critical", "criticals", "", "debianpkg dependency", "boolean"},
    {"version", "versions", "", "debianpkg reverse dependencies", "string"},
    {"epoch", "epochs", "", "debian package version", "debian package version epoch"},
    {"upstream", "upstreams", "", "debian package version", "debian package upstream version"},
    {"revision", "revisions", "", "debian package version", "debian package version revision"},
    {"debian package version", "debian package versions", "debian package version", "", "debian package version"},
    {"debian package version", "debian package versions", "string", "", "debian package version"},
    {"debian package version epoch", "debian package version epochs", "debian package version epoch", "", "debian package version epoch"},
    {"debian package version epoch", "debian package version epochs", "string", "", "debian package version epoch"},
    {"debian package version upstream", "debian package version upstreams", "debian package upstream version", "", "debian package upstream version"},
    {"debian package version upstream", "debian package version upstreams", "string", "", "debian package upstream version"},
    {"debian package version revision", "debian package version revisions", "debian package version revision", "", "debian package version revision"},
    {"debian package version revision", "debian package version revisions", "string", "", "debian package version revision"},
};

constexpr CastRow kCasts[] = {
    {"string", "smbios value", "string"},
    {"string", "debian base package", "string"},
    {"string", "debian versioned package", "string"},
    {"string", "debianpkg version", "string"},
    {"string", "debianpkg verfile", "string"},
    {"string", "debianpkg dependency", "string"},
    {"string", "debianpkg reverse dependencies", "string"},
    {"string", "debian package version", "string"},
    {"string", "debian package version epoch", "string"},
    {"string", "debian package upstream version", "string"},
    {"string", "debian package version revision", "string"},
    {"debian package version", "debianpkg version", "debian package version"},
    {"debian package version", "debian package version", "debian package version"},
    {"debian package version epoch", "debian package version epoch", "debian package version epoch"},
    {"debian package upstream version", "debian package upstream version", "debian package upstream version"},
    {"debian package version revision", "debian package version revision", "debian package version revision"},
};

// Those of a family whose every property stands above; the others have aggregates besides.
constexpr const char* kObjects[] = {
    "smbios", "smbios structure", "smbios value", "debianpackagecache", "debian base package", "debian versioned package",
    "debianpkg version", "debianpkg verfile", "debianpkg dependency", "debianpkg reverse dependencies",
};

constexpr const char* kWithoutText[] = {
    "dmi", "dmi oem_strings", "dmi system_configuration_option", "smbios", "smbios structure", "debianpackagecache",
};
// clang-format on

ptrdiff_t SingularPhrasesOf(const std::string& object) {
    const auto& properties = TypeRegistry::Instance().Properties();
    return std::count_if(properties.begin(), properties.end(), [&](const PropertyAssociation& entry) {
        return !entry.isPlural && entry.directObjectType == Named(object);
    });
}

TEST(StoresVocabulary, EveryPhraseIsThereInBothNumbersAndNoOther) {
    for (const PropertyRow& row : kProperties) {
        ExpectPhrase(row);
    }
    for (const std::string object : kObjects) {
        EXPECT_EQ(SingularPhrasesOf(object),
                  std::count_if(std::begin(kProperties), std::end(kProperties),
                                [&](const PropertyRow& row) { return row.object == object; }))
            << object;
    }
}

TEST(StoresVocabulary, EachTypeOfFirmwareHasItsPhrasesAndNoOthers) {
    ptrdiff_t types = 0;
    for (const CatalogueType& type : FirmwareCatalogue()) {
        const std::string name = "dmi " + type.name;
        if (!type.OnDmi()) {
            // The strings of the first two have types all the same, that of the second in its singular.
            EXPECT_EQ(Named(name) != nullptr, type.name == "oem_strings") << name;
            continue;
        }
        ++types;
        const std::string plural = type.name + "s";
        ExpectPhrase({type.name.c_str(), plural.c_str(), "", "dmi", name.c_str()});
        ExpectPhrase({type.name.c_str(), plural.c_str(), "integer", "dmi", name.c_str()});
        ExpectPhrase({"length", "lengths", "", name.c_str(), "integer"});
        ExpectNoText(name.c_str());
        for (const CatalogueField& field : type.fields) {
            const std::string fields = field.name + "s";
            const bool isNumber = std::string_view("BWDQ").find(field.kind) != std::string_view::npos;
            ExpectPhrase({field.name.c_str(), fields.c_str(), "", name.c_str(), isNumber ? "integer" : "string"});
        }
        // Of devices on board, three more phrases tell of one field and its description.
        EXPECT_EQ(SingularPhrasesOf(name), 1 + static_cast<ptrdiff_t>(type.fields.size()) + (type.number == 10 ? 3 : 0))
            << name;
    }
    EXPECT_EQ(types, 38);
    EXPECT_EQ(SingularPhrasesOf("dmi"), 2 * types + 4);
    EXPECT_EQ(SingularPhrasesOf("dmi oem_strings"), 0);
    EXPECT_EQ(SingularPhrasesOf("dmi system_configuration_option"), 0);
}

TEST(StoresVocabulary, EveryCastIsThereAndNoOther) {
    for (const CastRow& row : kCasts) {
        ExpectCast(row);
    }
    for (const char* type : kWithoutText) {
        ExpectNoText(type);
    }
}

}  // namespace
