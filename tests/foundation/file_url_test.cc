#include "foundation/file_url.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "foundation/file_location.h"
#include "foundation/url_info.h"

namespace {

std::string Place(std::string_view url) { return std::string(FileLocationOfURL(URLInfo(url)).Text()); }

TEST(FileURL, EncodesEachPieceOfThePath) {
    EXPECT_EQ(FileURL("/etc/passwd"), "file:///etc/passwd");
    EXPECT_EQ(FileURL("/a b/c?d#e/%41;x"), "file:///a%20b/c%3Fd%23e/%2541%3Bx");
    EXPECT_EQ(FileURL("/"), "file:///");
    EXPECT_EQ(FileURL("/a/"), "file:///a/");
}

TEST(FileURL, EmptyPiecesStay) { EXPECT_EQ(FileURL("//etc//x"), "file:////etc//x"); }

TEST(FileURL, ARelativePathIsTakenFromTheRoot) {
    EXPECT_EQ(FileURL("a/b"), "file:///a/b");
    EXPECT_FALSE(URLInfo(FileURL("a/b")).HasPort());
    EXPECT_EQ(FileURL("a:1@b"), "file:///a%3A1%40b");
}

TEST(FileURL, TheEmptyTextHasNoPath) {
    EXPECT_EQ(FileURL(""), "file://");
    EXPECT_FALSE(URLInfo(std::string_view("file://")).HasPath());
}

TEST(FileURL, IsAFileURLWithAnEmptyAuthority) {
    const std::string text = FileURL("/x");
    const URLInfo url(text);
    EXPECT_TRUE(url.IsFileURL());
    EXPECT_TRUE(url.Authority().Empty());
}

TEST(FileLocationOfURL, DecodesEachSegment) {
    EXPECT_EQ(Place("file:///etc/passwd"), "/etc/passwd");
    EXPECT_EQ(Place("file:///a%20b/c%3Fd"), "/a b/c?d");
    EXPECT_EQ(Place("file:///a%2Fb"), "/a/b");
    EXPECT_EQ(Place("file:///%zz/%4z"), "/%zz/%4z");
}

TEST(FileLocationOfURL, ASegmentsUnfinishedEscapeEndsWithIt) { EXPECT_EQ(Place("file:///a%4/1%"), "/a/1"); }

TEST(FileLocationOfURL, ASlashAtTheEndIsStripped) {
    EXPECT_EQ(Place("file:///a/"), "/a");
    EXPECT_EQ(Place("file:///"), "/");
    EXPECT_EQ(Place("file:///a//"), "/a");
}

TEST(FileLocationOfURL, OnlyThePathCounts) {
    EXPECT_EQ(Place("file://localhost/a?q#f"), "/a");
    EXPECT_EQ(Place("file:a/b"), "a/b");
    EXPECT_EQ(Place("a;x/b"), "a;x/b");
}

TEST(FileLocationOfURL, WithoutAPathThereIsNone) {
    EXPECT_THROW(Place("file://"), NoPathError);
    EXPECT_THROW(Place(""), NoPathError);
}

TEST(FileURL, GoesThereAndBack) {
    std::string path;
    for (int byte = 1; byte < 256; ++byte) {
        path += '/';
        path += static_cast<char>(byte);
    }
    path += "/end";
    EXPECT_EQ(Place(FileURL(path)), path);
}

}  // namespace
