#include "foundation/file_location.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Text(const FileLocation& location) { return std::string(location.Text()); }

TEST(FileLocation, TheEmptyLocationReadsAsTheEmptyText) {
    const FileLocation empty;
    EXPECT_TRUE(empty.IsEmpty());
    EXPECT_STREQ(empty.CString(), "");
    EXPECT_TRUE(FileLocation(static_cast<const char*>(nullptr)).IsEmpty());
    EXPECT_EQ(empty, FileLocation(""));
    EXPECT_FALSE(empty.IsRoot());
    EXPECT_FALSE(empty.IsAbsolute());
}

TEST(FileLocation, AssigningStripsSlashesFromTheEnd) {
    EXPECT_EQ(Text(FileLocation("/a/b//")), "/a/b");
    EXPECT_EQ(Text(FileLocation("/")), "/");
    EXPECT_EQ(Text(FileLocation("//")), "/");
    EXPECT_EQ(Text(FileLocation("a/")), "a");
    EXPECT_EQ(Text(FileLocation("//a")), "//a");
    EXPECT_EQ(Text(FileLocation(ConstData(std::string_view("/x/")))), "/x");
}

TEST(FileLocation, TextsAroundTheInlineSizeAreCopiedMovedAndReplaced) {
    for (size_t length = 126; length <= 130; ++length) {
        const std::string text(length, 'p');
        FileLocation location(text);
        FileLocation copy("short");
        copy = location;
        EXPECT_EQ(Text(copy), text);
        copy = *&copy;
        EXPECT_EQ(Text(copy), text);
        const FileLocation moved(std::move(location));
        EXPECT_STREQ(moved.CString(), text.c_str());
        copy = FileLocation("short");
        EXPECT_EQ(Text(copy), "short");
    }
}

TEST(FileLocation, ComparisonDisregardsCase) {
    EXPECT_EQ(FileLocation("/TMP/x"), FileLocation("/tmp/X"));
    EXPECT_NE(FileLocation("/tmp"), FileLocation("/tmp2"));
    EXPECT_LT(FileLocation("/tmp"), FileLocation("/TMP2"));
    EXPECT_LT(FileLocation("/A"), FileLocation("/b"));
    EXPECT_FALSE(FileLocation("/a") < FileLocation("/A"));
}

TEST(FileLocation, OnlyASlashAloneIsTheRoot) {
    EXPECT_TRUE(FileLocation("/").IsRoot());
    EXPECT_TRUE(FileLocation("/").IsAbsolute());
    EXPECT_FALSE(FileLocation("//a").IsRoot());
    EXPECT_TRUE(FileLocation("/a").IsAbsolute());
    EXPECT_FALSE(FileLocation("a/b").IsAbsolute());
}

TEST(FileLocation, JoiningPutsOneSlashBetween) {
    const FileLocation parent("/a");
    EXPECT_EQ(Text(FileLocation(parent, "b")), "/a/b");
    EXPECT_EQ(Text(FileLocation(parent, FileName("b"))), "/a/b");
    EXPECT_EQ(Text(FileLocation(parent, std::string_view("b/c//"))), "/a/b/c");
    EXPECT_EQ(Text(FileLocation(parent, ConstData(std::string_view("b")))), "/a/b");
    EXPECT_EQ(Text(FileLocation(FileLocation("a"), "b")), "a/b");
}

TEST(FileLocation, AChildWithASlashFollowsDirectly) {
    EXPECT_EQ(Text(FileLocation(FileLocation("/a"), "/b")), "/a/b");
    EXPECT_EQ(Text(FileLocation(FileLocation("/a"), "//b/")), "/a//b");
}

TEST(FileLocation, TheRootJoinedHasTwoSlashes) {
    EXPECT_EQ(Text(FileLocation(FileLocation("/"), "etc")), "//etc");
    EXPECT_EQ(Text(FileLocation(FileLocation("/"), "/etc")), "//etc");
}

TEST(FileLocation, AnEmptyChildIsTheParent) {
    EXPECT_EQ(Text(FileLocation(FileLocation("/a"), "")), "/a");
    EXPECT_EQ(Text(FileLocation(FileLocation("/a"), static_cast<const char*>(nullptr))), "/a");
}

TEST(FileLocation, AChildOfSlashesLeavesOneBehindTheParent) {
    EXPECT_EQ(Text(FileLocation(FileLocation("/a"), "/")), "/a/");
    EXPECT_EQ(Text(FileLocation(FileLocation("/a"), "///")), "/a/");
}

TEST(FileLocation, AnEmptyParentCannotBeJoined) {
    EXPECT_THROW(FileLocation(FileLocation(), "a"), EmptyFileLocationError);
    EXPECT_THROW(FileLocation(FileLocation(), ""), EmptyFileLocationError);
}

TEST(FileLocation, TheParentEndsAtTheLastSlash) {
    EXPECT_EQ(Text(FileLocation("/a/b").Parent()), "/a");
    EXPECT_EQ(Text(FileLocation("a/b").Parent()), "a");
    EXPECT_EQ(Text(FileLocation("/a").Parent()), "/");
    EXPECT_EQ(Text(FileLocation("//b").Parent()), "/");
    EXPECT_EQ(Text(FileLocation("/a//b").Parent()), "/a");
    EXPECT_EQ(Text(FileLocation(FileLocation("/a"), "/").Parent()), "/a");
}

TEST(FileLocation, SomeLocationsHaveNoParent) {
    EXPECT_THROW(FileLocation("/").Parent(), RootHasNoParent);
    EXPECT_THROW(FileLocation().Parent(), EmptyFileLocationError);
    try {
        FileLocation("a").Parent();
        FAIL();
    } catch (const InvalidFileLocation& error) {
        EXPECT_STREQ(error.what(), "File error \"19InvalidFileLocation\" on \"a\"");
    }
}

TEST(FileLocation, TheNameIsTheLastComponent) {
    EXPECT_EQ(FileLocation("/a/b").Name().Text(), "b");
    EXPECT_EQ(FileLocation("b").Name().Text(), "b");
    EXPECT_EQ(FileLocation().Name().Text(), "");
    EXPECT_THROW(FileLocation("/").Name(), IllegalFileNameLength);
    EXPECT_THROW(FileLocation("/a/..").Name(), IllegalFileName);
    EXPECT_THROW(FileLocation("/" + std::string(256, 'n')).Name(), IllegalFileNameLength);
}

TEST(FileLocation, InsideIsTheFolderOrAnythingBelowIt) {
    const FileLocation folder("/Data");
    EXPECT_TRUE(IsInside(folder, FileLocation("/data")));
    EXPECT_TRUE(IsInside(folder, FileLocation("/data/a/b")));
    EXPECT_TRUE(FileLocation("/data/a").IsInside(folder));
    EXPECT_FALSE(IsInside(folder, FileLocation("/database")));
    EXPECT_FALSE(IsInside(folder, FileLocation("/")));
    EXPECT_FALSE(IsInside(folder, FileLocation("//data/a")));
    EXPECT_TRUE(IsInside(FileLocation("/"), FileLocation("/x")));
    EXPECT_TRUE(IsInside(FileLocation("a"), FileLocation("a/b")));
    EXPECT_THROW(IsInside(folder, FileLocation("a/b")), InvalidFileLocation);
}

TEST(FileLocation, StrictlyInsideIsWithoutTheFolder) {
    const FileLocation folder("/data");
    EXPECT_FALSE(IsStrictlyInside(folder, FileLocation("/DATA")));
    EXPECT_TRUE(IsStrictlyInside(folder, FileLocation("/data/a")));
    EXPECT_FALSE(IsStrictlyInside(folder, FileLocation("/other")));
    EXPECT_FALSE(FileLocation("/data").IsStrictlyInside(folder));
}

TEST(FileLocation, InsideNeedsTwoTexts) {
    EXPECT_THROW(IsInside(FileLocation(), FileLocation("/a")), EmptyFileLocationError);
    EXPECT_THROW(IsInside(FileLocation("/a"), FileLocation()), EmptyFileLocationError);
    EXPECT_THROW(IsStrictlyInside(FileLocation(), FileLocation()), EmptyFileLocationError);
}

}  // namespace
