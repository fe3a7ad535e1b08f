// Every type, phrase, cast and operator of the content of files and of GRUB's configuration is in the language.
#include "tests/inspectors/vocabulary_rows.h"

namespace {

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

TEST(ContentVocabulary, EveryTypeIsThereWithItsParent) {
    for (const TypeRow& row : kTypes) {
        ExpectType(row);
    }
}

TEST(ContentVocabulary, EveryPhraseIsThereInBothNumbers) {
    for (const PropertyRow& row : kProperties) {
        ExpectPhrase(row);
    }
}

TEST(ContentVocabulary, EveryCastIsThereAndNoOther) {
    for (const CastRow& row : kCasts) {
        ExpectCast(row);
    }
    for (const char* type : kWithoutText) {
        ExpectNoText(type);
    }
}

}  // namespace
