// Every type, phrase and cast of files and their kin is in the language, with its plural, its operands and its result.
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
    {"filesystem object", ""},
    {"file", "filesystem object"},
    {"folder", "filesystem object"},
    {"application", "file"},
    {"download storage folder", "folder"},
    {"device file", "filesystem object"},
    {"fifo file", "filesystem object"},
    {"socket file", "filesystem object"},
    {"symlink", ""},
    {"filesystem", ""},
    {"mode", ""},
    {"mode_mask", ""},
};

constexpr PropertyRow kProperties[] = {
    {"name", "names", "", "filesystem object", "string"},
    {"pathname", "pathnames", "", "filesystem object", "string"},
    {"location", "locations", "", "filesystem object", "string"},
    {"parent folder", "parent folders", "", "filesystem object", "folder"},
    {"ancestor", "ancestors", "", "filesystem object", "folder"},
    {"modification time", "modification times", "", "filesystem object", "time"},
    {"accessed time", "accessed times", "", "filesystem object", "time"},
    {"change time", "change times", "", "filesystem object", "time"},
    {"user name", "user names", "", "filesystem object", "string"},
    {"group name", "group names", "", "filesystem object", "string"},
    {"uid", "uids", "", "filesystem object", "integer"},
    {"gid", "gids", "", "filesystem object", "integer"},
    {"link count", "link counts", "", "filesystem object", "integer"},
    {"name", "names", "", "symlink", "string"},
    {"pathname", "pathnames", "", "symlink", "string"},
    {"location", "locations", "", "symlink", "string"},
    {"parent folder", "parent folders", "", "symlink", "folder"},
    {"ancestor", "ancestors", "", "symlink", "folder"},
    {"modification time", "modification times", "", "symlink", "time"},
    {"accessed time", "accessed times", "", "symlink", "time"},
    {"change time", "change times", "", "symlink", "time"},
    {"user name", "user names", "", "symlink", "string"},
    {"group name", "group names", "", "symlink", "string"},
    {"uid", "uids", "", "symlink", "integer"},
    {"gid", "gids", "", "symlink", "integer"},
    {"link count", "link counts", "", "symlink", "integer"},
    {"mode", "modes", "", "filesystem object", "mode"},
    {"user read", "user reads", "", "filesystem object", "boolean"},
    {"user write", "user writes", "", "filesystem object", "boolean"},
    {"user execute", "user executes", "", "filesystem object", "boolean"},
    {"group read", "group reads", "", "filesystem object", "boolean"},
    {"group write", "group writes", "", "filesystem object", "boolean"},
    {"group execute", "group executes", "", "filesystem object", "boolean"},
    {"other read", "other reads", "", "filesystem object", "boolean"},
    {"other write", "other writes", "", "filesystem object", "boolean"},
    {"other execute", "other executes", "", "filesystem object", "boolean"},
    {"setuid", "setuids", "", "filesystem object", "boolean"},
    {"setgid", "setgids", "", "filesystem object", "boolean"},
    {"user mask", "user masks", "", "filesystem object", "integer"},
    {"group mask", "group masks", "", "filesystem object", "integer"},
    {"other mask", "other masks", "", "filesystem object", "integer"},
    {"file", "files", "string", "", "file"},
    {"file", "files", "string", "folder", "file"},
    {"folder", "folders", "string", "", "folder"},
    {"folder", "folders", "string", "folder", "folder"},
    {"application", "applications", "string", "", "application"},
    {"application", "applications", "string", "folder", "application"},
    {"download storage folder", "download storage folders", "", "", "download storage folder"},
    {"total size", "total sizes", "", "download storage folder", "integer"},
    {"root folder", "root folders", "", "", "folder"},
    {"system folder", "system folders", "", "", "folder"},
    {"download folder", "download folders", "", "", "folder"},
    {"download path", "download paths", "string", "", "string"},
    {"download file", "download files", "string", "", "file"},
    {"default web browser", "default web browsers", "", "", "file"},
    {"file", "files", "", "folder", "file"},
    {"find file", "find files", "string", "folder", "file"},
    {"folder", "folders", "", "folder", "folder"},
    {"find folder", "find folders", "string", "folder", "folder"},
    {"descendant", "descendants", "", "folder", "file"},
    {"descendant folder", "descendant folders", "", "folder", "folder"},
    {"symlink", "symlinks", "", "folder", "symlink"},
    {"device file", "device files", "", "folder", "device file"},
    {"fifo file", "fifo files", "", "folder", "fifo file"},
    {"socket file", "socket files", "", "folder", "socket file"},
    {"size", "sizes", "", "file", "integer"},
    {"value", "values", "", "symlink", "string"},
    {"value accessible", "values accessible", "", "symlink", "boolean"},
    {"symlink", "symlinks", "string", "", "symlink"},
    {"symlink", "symlinks", "string", "folder", "symlink"},
    {"symlink", "symlinks", "filesystem object", "", "symlink"},
    {"device file", "device files", "string", "", "device file"},
    {"device file", "device files", "string", "folder", "device file"},
    {"device file", "device files", "filesystem object", "", "device file"},
    {"fifo file", "fifo files", "string", "", "fifo file"},
    {"fifo file", "fifo files", "string", "folder", "fifo file"},
    {"fifo file", "fifo files", "filesystem object", "", "fifo file"},
    {"socket file", "socket files", "string", "", "socket file"},
    {"socket file", "socket files", "string", "folder", "socket file"},
    {"socket file", "socket files", "filesystem object", "", "socket file"},
    {"file", "files", "symlink", "", "file"},
    {"folder", "folders", "symlink", "", "folder"},
    {"device file", "device files", "symlink", "", "device file"},
    {"fifo file", "fifo files", "symlink", "", "fifo file"},
    {"socket file", "socket files", "symlink", "", "socket file"},
    {"symlink", "symlinks", "symlink", "", "symlink"},
    {"device type", "device types", "", "device file", "string"},
    {"major", "majors", "", "device file", "integer"},
    {"minor", "minors", "", "device file", "integer"},
    {"filesystem", "filesystems", "string", "", "filesystem"},
    {"filesystem", "filesystems", "", "file", "filesystem"},
    {"filesystem", "filesystems", "", "folder", "filesystem"},
    {"filesystem", "filesystems", "", "device file", "filesystem"},
    {"filesystem", "filesystems", "", "fifo file", "filesystem"},
    {"filesystem", "filesystems", "", "socket file", "filesystem"},
    {"filesystem", "filesystems", "", "symlink", "filesystem"},
    {"filesystem", "filesystems", "", "", "filesystem"},
    {"drive", "drives", "string", "", "filesystem"},
    {"drive", "drives", "", "file", "filesystem"},
    {"drive", "drives", "", "folder", "filesystem"},
    {"drive", "drives", "", "device file", "filesystem"},
    {"drive", "drives", "", "fifo file", "filesystem"},
    {"drive", "drives", "", "socket file", "filesystem"},
    {"drive", "drives", "", "symlink", "filesystem"},
    {"drive", "drives", "", "", "filesystem"},
    {"name", "names", "", "filesystem", "string"},
    {"type", "types", "", "filesystem", "string"},
    {"size", "sizes", "", "filesystem", "integer"},
    {"total space", "total spaces", "", "filesystem", "integer"},
    {"free space", "free spaces", "", "filesystem", "integer"},
    {"used space", "used spaces", "", "filesystem", "integer"},
    {"free percent", "free percents", "", "filesystem", "integer"},
    {"used percent", "used percents", "", "filesystem", "integer"},
    {"file count", "file counts", "", "filesystem", "integer"},
    {"free file count", "free file counts", "", "filesystem", "integer"},
    {"used file count", "used file counts", "", "filesystem", "integer"},
    {"setuid", "setuids", "", "mode", "boolean"},
    {"setgid", "setgids", "", "mode", "boolean"},
    {"sticky", "stickies", "", "mode", "boolean"},
    {"user mask", "user masks", "", "mode", "mode_mask"},
    {"group mask", "group masks", "", "mode", "mode_mask"},
    {"other mask", "other masks", "", "mode", "mode_mask"},
    {"read", "reads", "", "mode_mask", "boolean"},
    {"write", "writes", "", "mode_mask", "boolean"},
    {"execute", "executes", "", "mode_mask", "boolean"},
};

constexpr CastRow kCasts[] = {
    {"string", "filesystem object", "string"},
    {"symlink", "filesystem object", "symlink"},
    {"device file", "filesystem object", "device file"},
    {"fifo file", "filesystem object", "fifo file"},
    {"socket file", "filesystem object", "socket file"},
    {"file", "symlink", "file"},
    {"folder", "symlink", "folder"},
    {"device file", "symlink", "device file"},
    {"fifo file", "symlink", "fifo file"},
    {"socket file", "symlink", "socket file"},
    {"symlink", "symlink", "symlink"},
    {"string", "symlink", "string"},
    {"string", "mode", "string"},
    {"string", "mode_mask", "string"},
    {"octal string", "mode", "string"},
    {"integer", "mode_mask", "integer"},
};
// clang-format on

const GuardType* Named(std::string_view name) {
    const TypeRegistry& registry = TypeRegistry::Instance();
    return name.empty() ? registry.WorldType() : registry.TypeByName(name);
}

TEST(FilesVocabulary, EveryTypeIsThereWithItsParent) {
    for (const TypeRow& row : kTypes) {
        SCOPED_TRACE(row.name);
        const GuardType* type = Named(row.name);
        ASSERT_NE(type, nullptr);
        EXPECT_EQ(type->parent == nullptr ? "" : type->parent->Name(), row.parent);
    }
}

// A row of the table itself, not one that a parent type lends.
const PropertyAssociation* OwnRow(const PropertyRow& row, std::string_view phrase) {
    for (const PropertyAssociation& entry : TypeRegistry::Instance().Properties()) {
        if (entry.name == phrase && entry.indexType == Named(row.index) &&
            entry.directObjectType == Named(row.object)) {
            return &entry;
        }
    }
    return nullptr;
}

// A row whose result is of a type that the language does not have is absent without a word.
TEST(FilesVocabulary, EveryPhraseIsThereInBothNumbers) {
    for (const PropertyRow& row : kProperties) {
        SCOPED_TRACE(std::string(row.singular) + " " + row.index + " of " + row.object);
        const PropertyAssociation* singular = OwnRow(row, row.singular);
        const PropertyAssociation* plural = OwnRow(row, row.plural);
        if (Named(row.result) == nullptr) {
            EXPECT_STREQ(row.result, "time");
            EXPECT_EQ(singular, nullptr);
            EXPECT_EQ(plural, nullptr);
            continue;
        }
        ASSERT_NE(singular, nullptr);
        ASSERT_NE(plural, nullptr);
        EXPECT_FALSE(singular->isPlural);
        EXPECT_TRUE(plural->isPlural);
        EXPECT_EQ(singular->accessor, plural->accessor);
        EXPECT_EQ(singular->accessor->resultType->Name(), row.result);
    }
}

TEST(FilesVocabulary, EveryCastIsThere) {
    for (const CastRow& row : kCasts) {
        SCOPED_TRACE(std::string(row.source) + " as " + row.name);
        const CastDefinition* cast = TypeRegistry::Instance().FindCast(Named(row.source), row.name);
        ASSERT_NE(cast, nullptr);
        EXPECT_EQ(cast->sourceType, Named(row.source));
        EXPECT_EQ(cast->resultType->Name(), row.result);
    }
}

}  // namespace
