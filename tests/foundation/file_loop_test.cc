#include "foundation/file_loop.h"

#include <gtest/gtest.h>

#include <clocale>
#include <optional>
#include <string>
#include <vector>

#include "tests/foundation/temporary_place.h"

namespace {

using UnixPlatform::FileLoop;

std::vector<std::string> Names(FileLoop&& loop) {
    std::vector<std::string> names;
    for (; loop.Valid(); loop.Next()) {
        names.emplace_back(loop.Current().Location().Name().Text());
    }
    return names;
}

using List = std::vector<std::string>;

TEST(FileLoop, GivesEveryNameInOrderWithoutTheDots) {
    const TemporaryPlace place;
    for (const char* name : {"b", "a", ".hidden", "..x", "...", "c"}) {
        place.File(name);
    }
    place.Folder("d");
    place.Link("e", "nowhere");
    EXPECT_EQ(Names(FileLoop(place.Location())), (List{"...", "..x", ".hidden", "a", "b", "c", "d", "e"}));
}

TEST(FileLoop, TheOrderIsThatOfTheLocale) {
    const TemporaryPlace place;
    place.File("a");
    place.File("B");
    const std::string before = std::setlocale(LC_COLLATE, nullptr);
    std::setlocale(LC_COLLATE, "C");
    EXPECT_EQ(Names(FileLoop(place.Location())), (List{"B", "a"}));
    for (const char* locale : {"en_US.UTF-8", "de_DE.UTF-8"}) {
        if (std::setlocale(LC_COLLATE, locale) != nullptr) {
            EXPECT_EQ(Names(FileLoop(place.Location())), (List{"a", "B"}));
        }
    }
    std::setlocale(LC_COLLATE, before.c_str());
}

TEST(FileLoop, APatternKeepsTheNamesThatMatch) {
    const TemporaryPlace place;
    for (const char* name : {"a.txt", "b.TXT", "c.txt", "d"}) {
        place.File(name);
    }
    EXPECT_EQ(Names(FileLoop(place.Location(), "*.txt")), (List{"a.txt", "c.txt"}));
    EXPECT_EQ(Names(FileLoop(place.Location(), "?")), (List{"d"}));
    EXPECT_EQ(Names(FileLoop(place.Location(), "*")), (List{"a.txt", "b.TXT", "c.txt", "d"}));
    EXPECT_EQ(Names(FileLoop(place.Location(), "")), List{});
}

TEST(FileLoop, AClassKeepsTheNamesWithItsExtension) {
    const TemporaryPlace place;
    for (const char* name : {"1.htm", "2.html", "3.log", "4"}) {
        place.File(name);
    }
    EXPECT_EQ(Names(FileLoop(place.Location(), FileClass::SiteLog)), (List{"3.log"}));
    EXPECT_EQ(Names(FileLoop(place.Location(), FileClass::Page)), (List{"1.htm"}));
    EXPECT_EQ(Names(FileLoop(place.Location(), FileClass::Other)).size(), 4u);
}

TEST(FileLoop, EntriesShowTheirPlaceAndTheirLook) {
    const TemporaryPlace place;
    place.File("a", "123");
    FileLoop loop(place.Location());
    EXPECT_EQ(loop.Current().Location().Text(), place.Path("a"));
    EXPECT_EQ(loop.Current().Target().st_size, 3);
}

TEST(FileLoop, NamesOfEveryLengthAreGiven) {
    const TemporaryPlace place;
    for (const size_t length : {1, 23, 24, 127, 128, 255}) {
        place.File(std::string(length, 'n'));
    }
    size_t count = 0;
    for (FileLoop loop(place.Location()); loop.Valid(); loop.Next(), ++count) {
        EXPECT_TRUE(loop.Current().IsRegular());
    }
    EXPECT_EQ(count, 6u);
}

TEST(FileLoop, ANameThatHasGoneSinceTheListingIsMissing) {
    const TemporaryPlace place;
    place.File("a");
    place.File("b", "123");
    FileLoop loop(place.Location());
    std::filesystem::remove(place.Path("b"));
    EXPECT_EQ(loop.Current().GetState(), FileStat::NoLink);
    loop.Next();
    EXPECT_EQ(loop.Current().GetState(), FileStat::Missing);
    EXPECT_EQ(loop.Current().Location().Text(), place.Path("b"));
    loop.Next();
    EXPECT_FALSE(loop.Valid());
}

TEST(FileLoop, ANameThatHasComeSinceTheListingIsNotGiven) {
    const TemporaryPlace place;
    place.File("a");
    FileLoop loop(place.Location());
    place.File("b");
    loop.Next();
    EXPECT_FALSE(loop.Valid());
}

TEST(FileLoop, WhatCannotBeListedHasNoEntries) {
    const TemporaryPlace place;
    EXPECT_FALSE(FileLoop(place.Location("missing")).Valid());
    EXPECT_FALSE(FileLoop(place.File("file")).Valid());
    EXPECT_FALSE(FileLoop(FileLocation()).Valid());
    EXPECT_FALSE(FileLoop(place.Folder("empty")).Valid());
}

TEST(FileLoop, ACursorThatIsNotValidHasNoCurrent) {
    const TemporaryPlace place;
    place.File("a");
    FileLoop loop(place.Location());
    loop.Next();
    EXPECT_THROW(loop.Current(), FileLoop::InvalidIteratorPosition);
    EXPECT_THROW(loop.Current(), FileLoop::Error);
    loop.Next();
    EXPECT_FALSE(loop.Valid());
}

TEST(FileLoop, TheRootsEntriesHaveTwoSlashes) {
    const FileLoop loop(FileLocation("/"), "etc");
    ASSERT_TRUE(loop.Valid());
    EXPECT_EQ(loop.Current().Location().Text(), "//etc");
    EXPECT_TRUE(loop.Current().IsDirectory());
}

TEST(FileLoop, AnEntryMayBeTakenAway) {
    const TemporaryPlace place;
    place.File("a", "12");
    place.Link("b", "a");
    FileLoop loop(place.Location());
    const FileStat a = std::move(loop.TakeCurrent());
    loop.Next();
    const FileStat b = std::move(loop.TakeCurrent());
    loop.Next();
    EXPECT_THROW(loop.TakeCurrent(), FileLoop::InvalidIteratorPosition);
    EXPECT_EQ(a.Location(), place.Location("a"));
    EXPECT_EQ(a, FileStat(place.Location("a")));
    EXPECT_EQ(b.Location(), place.Location("b"));
    EXPECT_EQ(b.Target().st_ino, a.Itself().st_ino);  // reading a link may change its times
    EXPECT_EQ(b.GetState(), FileStat::Link);
}

// The links on the way to the folder count for what the kernel refuses, however the folder was opened.
TEST(FileLoop, ALinkIsFollowedByItsWholePath) {
    const TemporaryPlace place;
    place.File("f");
    place.Link("up", ".");
    std::string path = place.Path();
    for (int i = 0; i < 40; ++i) {
        path += "/up";
    }
    FileLoop loop{FileLocation(path)};
    ASSERT_TRUE(loop.Valid());
    EXPECT_EQ(loop.Current().GetState(), FileStat::NoLink);
    loop.Next();
    EXPECT_EQ(loop.Current().GetState(), FileStat::DanglingLink);
}

TEST(FileLoop, AFullFolderIsListedWhole) {
    const TemporaryPlace place;
    List names;
    for (int i = 1000; i < 4000; ++i) {
        names.push_back("an entry with a long name " + std::to_string(i));
        place.File(names.back());
    }
    EXPECT_EQ(Names(FileLoop(place.Location())), names);
}

}  // namespace
