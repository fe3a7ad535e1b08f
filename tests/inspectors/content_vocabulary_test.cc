// Every type, phrase, cast and operator of the content of files and of GRUB's configuration is in the language.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "registry/type_registry.h"

namespace {

struct TypeRow {
    const char* name;
    const char* parent;
};

struct PropertyRow {
    const char* singular;
    const char* plural;
    const char* index;
    const char* object;
    const char* result;
};

struct CastRow {
    const char* name;
    const char* source;
    const char* result;
};

// clang-format off
constexpr TypeRow kTypes[] = {
    {"file line", "string"},
    {"file section", ""},
    {"file content", ""},
    {"grub device", ""},
    {"grub block list", ""},
    {"grub file location", ""},
    {"grub kernel", ""},
    {"grub module", ""},
    {"grub bootable image", ""},
    {"grub image choice", ""},
    {"grub color", ""},
    {"grub color pair", ""},
    {"grub color scheme", ""},
    {"grub config file", ""},
};

constexpr PropertyRow kProperties[] = {
    {"line", "lines", "integer", "file", "file line"},
    {"line", "lines", "", "file", "file line"},
    {"line starting with", "lines starting with", "string", "file", "file line"},
    {"line containing", "lines containing", "string", "file", "file line"},
    {"line number", "line numbers", "", "file line", "integer"},
    {"previous line", "previous lines", "", "file line", "file line"},
    {"next line", "next lines", "", "file line", "file line"},
    {"key", "keys", "string", "file", "string"},
    {"section", "sections", "string", "file", "file section"},
    {"key", "keys", "string", "file section", "string"},
    {"sha1", "sha1s", "", "file", "string"},
    {"sha1", "sha1s", "", "string", "string"},
    {"content", "contents", "", "file", "file content"},
    {"byte", "bytes", "integer", "file", "integer"},
    {"grub config file", "grub config files", "", "", "grub config file"},
    {"grub config file", "grub config files", "string", "", "grub config file"},
    {"path", "paths", "", "grub config file", "string"},
    {"default image", "default images", "", "grub config file", "grub image choice"},
    {"fallback image", "fallback images", "", "grub config file", "grub image choice"},
    {"fallback image", "fallback images", "integer", "grub config file", "grub image choice"},
    {"gfxmenu", "gfxmenus", "", "grub config file", "grub file location"},
    {"splashimage", "splashimages", "", "grub config file", "grub file location"},
    {"timeout", "timeouts", "", "grub config file", "integer"},
    {"hiddenmenu", "hiddenmenus", "", "grub config file", "boolean"},
    {"bootable image", "bootable images", "", "grub config file", "grub bootable image"},
    {"bootable image", "bootable images", "integer", "grub config file", "grub bootable image"},
    {"bootable image", "bootable images", "string", "grub config file", "grub bootable image"},
    {"color scheme", "color schemes", "", "grub config file", "grub color scheme"},
    {"title", "titles", "", "grub bootable image", "string"},
    {"kernel", "kernels", "", "grub bootable image", "grub kernel"},
    {"chainloader", "chainloaders", "", "grub bootable image", "grub file location"},
    {"initrd", "initrds", "", "grub bootable image", "grub file location"},
    {"root", "roots", "", "grub bootable image", "grub device"},
    {"rootnoverify", "rootnoverifys", "", "grub bootable image", "grub device"},
    {"savedefault", "savedefaults", "", "grub bootable image", "boolean"},
    {"quiet", "quiets", "", "grub bootable image", "boolean"},
    {"module", "modules", "", "grub bootable image", "grub module"},
    {"module", "modules", "integer", "grub bootable image", "grub module"},
    {"location", "locations", "", "grub kernel", "grub file location"},
    {"boot argument", "boot arguments", "", "grub kernel", "string"},
    {"boot argument", "boot arguments", "integer", "grub kernel", "string"},
    {"location", "locations", "", "grub module", "grub file location"},
    {"boot argument", "boot arguments", "", "grub module", "string"},
    {"boot argument", "boot arguments", "integer", "grub module", "string"},
    {"nounzip", "nounzips", "", "grub module", "boolean"},
    {"device", "devices", "", "grub file location", "grub device"},
    {"block list", "block lists", "", "grub file location", "grub block list"},
    {"path", "paths", "", "grub file location", "string"},
    {"index", "indexes", "", "grub image choice", "integer"},
    {"foreground", "foregrounds", "", "grub color pair", "grub color"},
    {"background", "backgrounds", "", "grub color pair", "grub color"},
    {"normal", "normals", "", "grub color scheme", "grub color pair"},
    {"highlight", "highlights", "", "grub color scheme", "grub color pair"},
};

constexpr CastRow kCasts[] = {
    {"uppercase", "file content", "file content"},
    {"lowercase", "file content", "file content"},
    {"string", "grub device", "string"},
    {"string", "grub block list", "string"},
    {"string", "grub file location", "string"},
    {"string", "grub module", "string"},
    {"string", "grub bootable image", "string"},
    {"string", "grub image choice", "string"},
    {"string", "grub color", "string"},
    {"string", "grub color pair", "string"},
};

constexpr const char* kWithoutText[] = {"file section", "file content", "grub kernel", "grub color scheme", "grub config file"};
// clang-format on

const GuardType* Named(std::string_view name) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    return name.empty() ? registry.WorldType() : registry.TypeByName(name);
}

TEST(ContentVocabulary, EveryTypeIsThereWithItsParent) {
    for (const TypeRow& row : kTypes) {
        SCOPED_TRACE(row.name);
        const GuardType* type = Named(row.name);
        ASSERT_NE(type, nullptr);
        EXPECT_EQ(type->parent == nullptr ? "" : type->parent->Name(), row.parent);
    }
}

const PropertyAssociation* OwnRow(const PropertyRow& row, std::string_view phrase) {
    for (const PropertyAssociation& entry : TypeRegistry::Instance().Properties()) {
        if (entry.name == phrase && entry.indexType == Named(row.index) &&
            entry.directObjectType == Named(row.object)) {
            return &entry;
        }
    }
    return nullptr;
}

TEST(ContentVocabulary, EveryPhraseIsThereInBothNumbers) {
    for (const PropertyRow& row : kProperties) {
        SCOPED_TRACE(std::string(row.singular) + " " + row.index + " of " + row.object);
        const PropertyAssociation* singular = OwnRow(row, row.singular);
        const PropertyAssociation* plural = OwnRow(row, row.plural);
        ASSERT_NE(singular, nullptr);
        ASSERT_NE(plural, nullptr);
        EXPECT_FALSE(singular->isPlural);
        EXPECT_TRUE(plural->isPlural);
        EXPECT_EQ(singular->accessor, plural->accessor);
        EXPECT_EQ(singular->accessor->resultType->Name(), row.result);
    }
}

TEST(ContentVocabulary, EveryCastIsThereAndNoOther) {
    for (const CastRow& row : kCasts) {
        SCOPED_TRACE(std::string(row.source) + " as " + row.name);
        const CastDefinition* cast = TypeRegistry::Instance().FindCast(Named(row.source), row.name);
        ASSERT_NE(cast, nullptr);
        EXPECT_EQ(cast->sourceType, Named(row.source));
        EXPECT_EQ(cast->resultType->Name(), row.result);
    }
    for (const char* type : kWithoutText) {
        EXPECT_EQ(TypeRegistry::Instance().FindCast(Named(type), "string"), nullptr) << type;
    }
}

}  // namespace
