// The files of an application's use: both forms, hostile sizes and counts, and files that cannot be read.
#include "client/stat_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <limits>

#include "foundation/file_error.h"
#include "tests/foundation/temporary_place.h"

namespace {

using Records = std::vector<StatRecord>;

const StatRecord kFirst{1, 2, 3, 4, 5, 6, "1.2.3", "1.2.3 beta"};
const StatRecord kSecond{-1, std::numeric_limits<int64_t>::max(), 0x0102030405060708, 0, 4294967295, 0, "", ""};

std::string Counted(uint32_t count, size_t bytes) {
    std::string text(4, '\0');
    for (int i = 0; i != 4; ++i) {
        text[static_cast<size_t>(i)] = static_cast<char>(count >> 8 * i);
    }
    return text + std::string(bytes, 'x');
}

TEST(StatFile, TheCurrentFormReadsBack) {
    for (const Records& records : {Records(), Records{kFirst}, Records{kFirst, kSecond}}) {
        const std::string bytes = StatFileBytes(records);
        EXPECT_EQ(bytes.size(), 4 + 76 * records.size());
        EXPECT_EQ(ParseStatFile(bytes), records);
    }
}

TEST(StatFile, TheLayoutIsLittleEndian) {
    const std::string bytes = StatFileBytes(Records{kSecond});
    EXPECT_EQ(bytes.substr(0, 4), std::string("\1\0\0\0", 4));
    EXPECT_EQ(bytes.substr(4, 8), std::string(8, '\xff'));
    EXPECT_EQ(bytes.substr(4 + 16, 8), "\x08\x07\x06\x05\x04\x03\x02\x01");
    EXPECT_EQ(bytes.substr(4 + 40, 4), "\xff\xff\xff\xff");
    const std::string texts = StatFileBytes(Records{kFirst}).substr(4 + 44);
    EXPECT_EQ(texts, std::string("1.2.3") + std::string(11, '\0') + "1.2.3 beta" + std::string(6, '\0'));
}

TEST(StatFile, TheOldFormHasNeitherSizeNorVersions) {
    StatRecord expected = kFirst;
    expected.fileSize.reset();
    expected.version.clear();
    expected.stringVersion.clear();
    const std::string bytes = OldStatFileBytes(kFirst);
    EXPECT_EQ(bytes.size(), 40u);
    EXPECT_EQ(ParseStatFile(bytes), Records{expected});
    EXPECT_EQ(ParseStatFile(std::string(40, '\0')), Records{StatRecord()});
}

TEST(StatFile, TheSizeAloneDecides) {
    EXPECT_TRUE(ParseStatFile("").empty());
    EXPECT_TRUE(ParseStatFile(std::string(4, '\0')).empty());
    EXPECT_TRUE(ParseStatFile(std::string(39, '\0')).empty());
    EXPECT_EQ(ParseStatFile(std::string(40, '\xff')).size(), 1u);
    EXPECT_TRUE(ParseStatFile(std::string(41, '\0')).empty());
    EXPECT_EQ(ParseStatFile(Counted(1, 76)).size(), 1u);
}

TEST(StatFile, ACountThatDoesNotFitTheSizeIsABadFile) {
    for (const uint32_t count : {0u, 1u, 3u, 255u, 0x10000u, 0x7fffffffu, 0x80000000u, 0xffffffffu}) {
        EXPECT_TRUE(ParseStatFile(Counted(count, 2 * 76)).empty()) << count;
        EXPECT_TRUE(count == 0 || ParseStatFile(Counted(count, 0)).empty()) << count;
    }
    // 76 times this is 76 in 32 bits.
    EXPECT_TRUE(ParseStatFile(Counted(0x40000001u, 76)).empty());
    EXPECT_EQ(ParseStatFile(Counted(2, 2 * 76)).size(), 2u);
}

TEST(StatFile, AFileThatIsCutAnywhereIsABadFile) {
    const std::string bytes = StatFileBytes(Records{kFirst, kSecond, kFirst});
    for (size_t length = 0; length != bytes.size(); ++length) {
        EXPECT_EQ(ParseStatFile(bytes.substr(0, length)).size(), length == 40 ? 1u : 0u) << length;
    }
    EXPECT_TRUE(ParseStatFile(bytes + '\0').empty());
}

TEST(StatFile, WhatIsTooLongForItsFieldIsCut) {
    StatRecord record;
    record.fileSize = 0;
    record.version = "12345678901234567890";
    record.stringVersion = std::string("ab\0cd", 5);
    record.totalRunCount = 4294967296;
    StatRecord expected = record;
    expected.version = "1234567890123456";
    expected.stringVersion = "ab";
    expected.totalRunCount = 4294967295;
    EXPECT_EQ(ParseStatFile(StatFileBytes(Records{record})), Records{expected});
    record.totalRunCount = -1;
    EXPECT_EQ(ParseStatFile(StatFileBytes(Records{record})).front().totalRunCount, 0);
}

TEST(StatFile, IsReadFromAPlace) {
    const TemporaryPlace place;
    EXPECT_EQ(ReadStatFile(place.File("a.stat", StatFileBytes(Records{kFirst}))), Records{kFirst});
    EXPECT_EQ(ReadStatFile(place.File("old.stat", OldStatFileBytes(kFirst))).size(), 1u);
    EXPECT_TRUE(ReadStatFile(place.File("bad.stat", std::string(41, '\0'))).empty());
    EXPECT_TRUE(ReadStatFile(place.File("none.stat", std::string(4, '\0'))).empty());
    EXPECT_TRUE(ReadStatFile(place.Location("missing.stat")).empty());
    EXPECT_TRUE(ReadStatFile(place.Folder("folder.stat")).empty());
    EXPECT_TRUE(ReadStatFile(FileLocation()).empty());
    // A read of this would wait for a writer.
    ASSERT_EQ(mkfifo(place.Path("fifo.stat").c_str(), 0600), 0);
    EXPECT_TRUE(ReadStatFile(place.Location("fifo.stat")).empty());
}

TEST(StatFile, OfManyRecordsIsReadFromAPlace) {
    const TemporaryPlace place;
    Records records(1000, kFirst);
    for (size_t i = 0; i != records.size(); ++i) {
        records[i].totalRunCount = static_cast<int64_t>(i);
    }
    EXPECT_EQ(ReadStatFile(place.File("a.stat", StatFileBytes(records))), records);
}

// A size that the count does not bear out is not believed: nothing is made ready for a file of holes.
TEST(StatFile, OfAHostileSizeIsNotReadBeyondItsCount) {
    const TemporaryPlace place;
    const FileLocation location = place.File("a.stat", Counted(7, 0));
    for (const uintmax_t records : {uintmax_t{6}, uintmax_t{8}, uintmax_t{1} << 30, (uintmax_t{1} << 32) + 7}) {
        std::filesystem::resize_file(place.Path("a.stat"), 4 + 76 * records);
        EXPECT_TRUE(ReadStatFile(location).empty()) << records;
    }
    std::filesystem::resize_file(place.Path("a.stat"), 4 + 76 * 7);
    EXPECT_EQ(ReadStatFile(location).size(), 7u);
}

TEST(StatFile, IsWrittenWholeAndLeavesNothingBeside) {
    const TemporaryPlace place;
    const FileLocation location = place.Location("a.stat");
    WriteStatFile(location, Records{kFirst});
    EXPECT_EQ(ReadStatFile(location), Records{kFirst});
    WriteStatFile(location, Records{kSecond, kFirst});
    EXPECT_EQ(ReadStatFile(location), (Records{kSecond, kFirst}));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(place.Path()), {}), 1);
    EXPECT_ANY_THROW(WriteStatFile(place.Location("no/such/a.stat"), Records{kFirst}));
}

TEST(StatFile, OnlyANameHasAPlace) {
    const FileLocation folder("/f");
    EXPECT_EQ(StatFileLocation(folder, "bash")->Text(), "/f/bash.stat");
    EXPECT_EQ(StatFileLocation(folder, "")->Text(), "/f/.stat");
    EXPECT_FALSE(StatFileLocation(folder, "../bash"));
    EXPECT_FALSE(StatFileLocation(folder, std::string_view("a\0b", 3)));
    EXPECT_TRUE(StatFileLocation(folder, std::string(250, 'n')));
    EXPECT_FALSE(StatFileLocation(folder, std::string(251, 'n')));
}

TEST(StatFile, UseIsAddedToTheSameVersion) {
    Records records{{0, 5, 6, 7, 1, 100, "", ""}};
    AddUse(records, {10, 10, 20, 10, 1, 100, "", ""});
    AddUse(records, {4, 4, 8, 4, 2, 100, "", ""});
    EXPECT_EQ(records, (Records{{4, 10, 20, 21, 4, 100, "", ""}}));
    AddUse(records, {1, 1, 1, 1, 1, 101, "", ""});
    AddUse(records, {1, 1, 1, 1, 1, 100, "1", ""});
    EXPECT_EQ(records.size(), 3u);
    records[0].totalDuration = std::numeric_limits<int64_t>::max();
    AddUse(records, {1, 1, 1, 1, 1, 100, "", ""});
    EXPECT_EQ(records[0].totalDuration, std::numeric_limits<int64_t>::max());
    EXPECT_EQ(records[0].firstStartTime, 1);
}

}  // namespace
