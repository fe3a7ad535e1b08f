// The open-file classes and the streams over them.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <string>
#include <vector>

#include "foundation/file_reader.h"
#include "foundation/file_reading_path.h"
#include "foundation/file_writer.h"
#include "foundation/file_writing_path.h"
#include "foundation/read_lines.h"
#include "tests/foundation/temporary_place.h"

namespace {

using UnixPlatform::FileReadingPath;
using UnixPlatform::FileWritingPath;

size_t OpenDescriptors() {
    size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        ++count;
    }
    return count;
}

std::string AllOf(FileReader& reader, size_t room) {
    std::string text;
    std::vector<unsigned char> space(room);
    while (reader.HasData()) {
        Buffer out(space.data(), space.data() + room);
        reader.Fill(out);
        text += out.Filled().View();
    }
    return text;
}

TEST(FileReadingPath, AnOpenFileHasItsLength) {
    const TemporaryPlace place;
    FileReadingPath path(place.File("a", "12345"));
    EXPECT_TRUE(path.IsOpen());
    EXPECT_EQ(path.Length(), 5);
    EXPECT_EQ(path.Location().Text(), place.Path("a"));
    EXPECT_NE(::fcntl(path.Descriptor(), F_GETFD) & FD_CLOEXEC, 0);
}

TEST(FileReadingPath, LengthLeavesThePositionAlone) {
    const TemporaryPlace place;
    FileReadingPath path(place.File("a", "12345"));
    ASSERT_EQ(::lseek(path.Descriptor(), 2, SEEK_SET), 2);
    EXPECT_EQ(path.Length(), 5);
    EXPECT_EQ(::lseek(path.Descriptor(), 0, SEEK_CUR), 2);
}

TEST(FileReadingPath, TheKernelsMessagesAreNeverOpened) {
    for (const char* name : {"/proc/kmsg", "/PROC/KMSG"}) {
        FileReadingPath path;
        try {
            path.Open(FileLocation(name));
            FAIL();
        } catch (const FileIOError& error) {
            EXPECT_EQ(std::string(error.what()), std::string("File error \"11FileIOError\" on \"") + name + "\"");
            EXPECT_EQ(error.Code(), 0);
        }
        EXPECT_FALSE(path.IsOpen());
    }
}

TEST(FileReadingPath, WhatCannotBeOpenedThrowsByTheLocationTable) {
    const TemporaryPlace place;
    FileReadingPath path;
    EXPECT_THROW(path.Open(FileLocation()), EmptyFileLocationError);
    EXPECT_THROW(path.Open(place.Location("missing")), FileNotFoundError);
    EXPECT_THROW(path.Open(FileLocation(place.File("a"), "b")), DirectoryNotFoundError);
    EXPECT_THROW(path.Open(place.Location(std::string(256, 'n'))), DirectoryNotFoundError);
    place.Link("loop", "loop");
    EXPECT_THROW(path.Open(place.Location("loop")), FileIOError);
    EXPECT_FALSE(path.IsOpen());
}

TEST(FileReadingPath, NoDescriptorLeftIsAFailureOfResources) {
    const TemporaryPlace place;
    const FileLocation a = place.File("a");
    struct rlimit before;
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    struct rlimit none = before;
    none.rlim_cur = 0;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    FileReadingPath path;
    EXPECT_THROW(path.Open(a), FileResourceError);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_NO_THROW(path.Open(a));
}

TEST(FileReadingPath, OpeningClosesWhatWasOpen) {
    const TemporaryPlace place;
    const size_t before = OpenDescriptors();
    {
        FileReadingPath path(place.File("a", "1"));
        path.Open(place.File("b", "12"));
        EXPECT_EQ(path.Length(), 2);
        EXPECT_EQ(OpenDescriptors(), before + 1);
    }
    EXPECT_EQ(OpenDescriptors(), before);
}

TEST(FileReadingPath, AClosedPathHasNoLength) {
    const TemporaryPlace place;
    FileReadingPath path(place.File("a"));
    path.Close();
    EXPECT_FALSE(path.IsOpen());
    EXPECT_THROW(path.Length(), FileNotOpenError);
    EXPECT_NO_THROW(path.Close());
}

TEST(FileReadingPath, AFailedCloseThrowsAndCountsAsClosed) {
    const TemporaryPlace place;
    FileReadingPath path(place.File("a"));
    ::close(path.Descriptor());
    EXPECT_THROW(path.Close(), FileIOError);
    EXPECT_EQ(path.Descriptor(), -1);
}

TEST(FileReadingPath, TheDestructorKeepsAFailedCloseToItself) {
    const TemporaryPlace place;
    const FileLocation a = place.File("a");
    EXPECT_NO_THROW({
        FileReadingPath path(a);
        ::close(path.Descriptor());
    });
}

TEST(FileReadingPath, AFileThatRefusesSeekingHasNoLength) {
    FileReadingPath path(FileLocation("/proc/meminfo"));
    EXPECT_EQ(path.Length(), -1);
    EXPECT_EQ(path.Length(), -1);
    path.Close();
    EXPECT_EQ(path.Length(), -1);
    path.Open(FileLocation("/dev/null"));
    EXPECT_EQ(path.Length(), 0);
}

TEST(FileReadingPath, APipeCannotTellItsLength) {
    const TemporaryPlace place;
    ASSERT_EQ(::mkfifo(place.Path("f").c_str(), 0600), 0);
    const int other = ::open(place.Path("f").c_str(), O_RDWR);
    FileReadingPath path(place.Location("f"));
    EXPECT_THROW(path.Length(), FileIOError);
    ::close(other);
}

TEST(FileWritingPath, CreateMakesOrEmpties) {
    const TemporaryPlace place;
    place.File("a", "123");
    FileWritingPath path;
    path.Create(place.Location("a"));
    EXPECT_EQ(path.Length(), 0);
    path.Create(place.Location("new"));
    EXPECT_EQ(path.Length(), 0);
    EXPECT_TRUE(place.Has("new"));
    EXPECT_NE(::fcntl(path.Descriptor(), F_GETFD) & FD_CLOEXEC, 0);
}

TEST(FileWritingPath, NewFilesHaveMode666ThroughTheUmask) {
    const TemporaryPlace place;
    const mode_t before = ::umask(027);
    FileWritingPath path;
    path.CreateNew(place.Location("a"));
    ::umask(before);
    struct stat record;
    ASSERT_EQ(::fstat(path.Descriptor(), &record), 0);
    EXPECT_EQ(record.st_mode & 07777, 0640u);
}

TEST(FileWritingPath, OpenOrCreateKeepsTheContent) {
    const TemporaryPlace place;
    place.File("a", "123");
    FileWritingPath path;
    path.OpenOrCreate(place.Location("a"));
    EXPECT_EQ(path.Length(), 3);
    path.OpenOrCreate(place.Location("new"));
    EXPECT_EQ(path.Length(), 0);
}

TEST(FileWritingPath, CreateNewWantsAFreePlace) {
    const TemporaryPlace place;
    FileWritingPath path;
    path.CreateNew(place.Location("a"));
    EXPECT_THROW(path.CreateNew(place.Location("a")), FileExistsError);
    EXPECT_FALSE(path.IsOpen());
}

TEST(FileWritingPath, OpenExistingMakesNothing) {
    const TemporaryPlace place;
    FileWritingPath path;
    EXPECT_THROW(path.OpenExisting(place.Location("a")), FileNotFoundError);
    EXPECT_FALSE(place.Has("a"));
    path.OpenExisting(place.File("a", "12"));
    EXPECT_EQ(path.Length(), 2);
    EXPECT_THROW(path.OpenExisting(place.Location()), FileIOError);
    EXPECT_THROW(path.OpenExisting(FileLocation()), EmptyFileLocationError);
}

TEST(FileWritingPath, SetLengthCutsOrExtends) {
    const TemporaryPlace place;
    FileWritingPath path;
    path.OpenExisting(place.File("a", "12345"));
    path.SetLength(5);
    EXPECT_EQ(place.Content("a"), "12345");
    path.SetLength(2);
    EXPECT_EQ(place.Content("a"), "12");
    path.SetLength(4);
    EXPECT_EQ(place.Content("a"), std::string("12\0\0", 4));
    path.SetLength(0);
    EXPECT_EQ(place.Content("a"), "");
    path.SetLength(int64_t{5} << 30);
    EXPECT_EQ(path.Length(), int64_t{5} << 30);
}

TEST(FileWritingPath, ALengthBelowZeroIsNoSeek) {
    const TemporaryPlace place;
    FileWritingPath path;
    path.Create(place.Location("a"));
    try {
        path.SetLength(-1);
        FAIL();
    } catch (const FileIOError& error) {
        EXPECT_EQ(std::string(error.what()),
                  "File error \"11FileIOError\" on \"" + place.Path("a") + "\": Unknown error: 22");
    }
}

TEST(FileWritingPath, FlushReachesTheDiskOrThrows) {
    const TemporaryPlace place;
    FileWritingPath path;
    path.Create(place.Location("a"));
    EXPECT_NO_THROW(path.Flush());
    path.Close();
    EXPECT_THROW(path.Flush(), FileIOError);
}

TEST(FileReader, GivesTheFileInPiecesOfAnySize) {
    const TemporaryPlace place;
    FileReadingPath path(place.File("a", "0123456789"));
    for (const size_t room : {1, 3, 10, 11}) {
        FileReader reader(path);
        EXPECT_EQ(AllOf(reader, room), "0123456789");
        EXPECT_TRUE(reader.AtEnd());
        EXPECT_EQ(reader.Position(), 10u);
    }
}

TEST(FileReader, BeginsAtItsOffset) {
    const TemporaryPlace place;
    FileReadingPath path(place.File("a", "0123456789"));
    FileReader reader(path, 7);
    EXPECT_EQ(AllOf(reader, 64), "789");
    FileReader behind(path, 11);
    EXPECT_FALSE(behind.HasData());
}

TEST(FileReader, TwoReadersShareOnePath) {
    const TemporaryPlace place;
    FileReadingPath path(place.File("a", "0123"));
    FileReader one(path);
    FileReader two(path, 2);
    unsigned char bytes[2];
    one.Read(bytes, bytes + 2);
    EXPECT_EQ(ConstData(bytes, 2).View(), "01");
    two.Read(bytes, bytes + 2);
    EXPECT_EQ(ConstData(bytes, 2).View(), "23");
    one.Read(bytes, bytes + 2);
    EXPECT_EQ(ConstData(bytes, 2).View(), "23");
}

TEST(FileReader, AShortReadIsTheEndOfTheFile) {
    const TemporaryPlace place;
    FileReadingPath path(place.File("a", "0123"));
    FileReader reader(path, 2);
    unsigned char bytes[3];
    try {
        reader.Read(bytes, bytes + 3);
        FAIL();
    } catch (const EndOfFileError& error) {
        EXPECT_EQ(error.Code(), 90);
    }
    EXPECT_EQ(reader.Position(), 4u);
}

TEST(FileReader, AGrowingFileKeepsTheReaderAlive) {
    const TemporaryPlace place;
    FileReadingPath path(place.File("a", "12"));
    FileReader reader(path);
    EXPECT_EQ(AllOf(reader, 8), "12");
    unsigned char byte;
    Buffer nothing(&byte, &byte + 1);
    reader.Fill(nothing);
    EXPECT_TRUE(nothing.Filled().Empty());
    place.File("a", "12345");
    EXPECT_TRUE(reader.HasData());
    EXPECT_EQ(AllOf(reader, 8), "345");
}

TEST(FileReader, AFileWithoutALengthIsReadToItsEnd) {
    FileReadingPath path(FileLocation("/proc/cpuinfo"));
    std::ifstream file("/proc/cpuinfo");
    std::string first;
    std::getline(file, first);
    for (const size_t room : {1, 7, 4096}) {
        FileReader reader(path);
        EXPECT_TRUE(reader.HasData());
        EXPECT_TRUE(reader.HasData());
        const std::string text = AllOf(reader, room);
        EXPECT_EQ(text.substr(0, first.size() + 1), first + "\n");
        EXPECT_EQ(reader.Position(), text.size());
        EXPECT_TRUE(reader.AtEnd());
    }
}

TEST(FileReader, AnExactReadOfAFileWithoutALengthMayBeginWithThePeekedByte) {
    FileReadingPath path(FileLocation("/proc/meminfo"));
    FileReader reader(path);
    ASSERT_TRUE(reader.HasData());
    unsigned char bytes[9];
    reader.Read(bytes, bytes + 1);
    reader.Read(bytes + 1, bytes + 9);
    EXPECT_EQ(ConstData(bytes, 9).View(), "MemTotal:");
}

TEST(FileReader, AFileThatDoesNotFillItsLengthEnds) {
    const char* const name = "/sys/kernel/uevent_seqnum";
    // Only the kernel makes files whose length lies: this one claims a page and gives a number and a line feed.
    if (::access(name, R_OK) != 0) {
        GTEST_SKIP() << "this machine has no /sys";
    }
    FileReadingPath path{FileLocation(name)};
    ASSERT_GT(path.Length(), 100);
    FileReader reader(path);
    const std::string text = AllOf(reader, 1);
    ASSERT_GE(text.size(), 2U);
    EXPECT_LT(text.size(), 100U);
    EXPECT_EQ(text.find_first_not_of("0123456789"), text.size() - 1);
    EXPECT_EQ(text.back(), '\n');
    EXPECT_TRUE(reader.AtEnd());
}

TEST(FileReader, AFailedReadThrowsByTheReadTable) {
    const TemporaryPlace place;
    FileReadingPath folder(place.Location());
    FileReader reader(folder);
    unsigned char byte;
    EXPECT_THROW(reader.Read(&byte, &byte + 1), FileIOError);
    FileReadingPath file(place.File("a", "1"));
    FileReader beyond(file, ~uint64_t{0});
    EXPECT_THROW(beyond.Read(&byte, &byte + 1), FileSeekError);
}

TEST(FileWriter, WritesAtItsPosition) {
    const TemporaryPlace place;
    FileWritingPath path;
    path.OpenExisting(place.File("a", "0123456789"));
    const ConstData text(std::string_view("xyz"));
    FileWriter writer(path, 8);
    writer.Write(text.begin, text.end);
    EXPECT_EQ(writer.Position(), 11u);
    writer.Write(text.begin, text.begin);
    EXPECT_EQ(place.Content("a"), "01234567xyz");
}

TEST(FileWriter, AFullDiskAndABadSeekHaveTheirClasses) {
    FileWritingPath full;
    full.OpenExisting(FileLocation("/dev/full"));
    const unsigned char byte = 'x';
    EXPECT_THROW(FileWriter(full).Write(&byte, &byte + 1), FileDiskFullError);
    const TemporaryPlace place;
    FileWritingPath path;
    path.Create(place.Location("a"));
    EXPECT_THROW(FileWriter(path, ~uint64_t{0}).Write(&byte, &byte + 1), FileSeekError);
}

TEST(FileDataSink, StartOpensAndFinishCloses) {
    const TemporaryPlace place;
    const size_t before = OpenDescriptors();
    FileDataSink sink(place.File("a", "old content"));
    EXPECT_EQ(OpenDescriptors(), before);
    for (const std::string_view text : {"ab", "c"}) {
        sink.Start();
        EXPECT_EQ(OpenDescriptors(), before + 1);
        sink(ConstData(text))(ConstData())(ConstData(text));
        sink.Finish();
        EXPECT_EQ(OpenDescriptors(), before);
        EXPECT_EQ(place.Content("a"), std::string(text) + std::string(text));
    }
}

TEST(FileDataSink, AFailedStreamClosesTheFile) {
    const size_t before = OpenDescriptors();
    {
        FileDataSink sink(FileLocation("/dev/full"));
        sink.Start();
        EXPECT_THROW(sink(ConstData(std::string_view("x"))), FileDiskFullError);
    }
    EXPECT_EQ(OpenDescriptors(), before);
}

std::vector<std::string> Blocks(FileReadingLoop&& loop) {
    std::vector<std::string> blocks;
    while (loop.HasBytesRemaining()) {
        blocks.emplace_back(loop.Fill().View());
    }
    return blocks;
}

using List = std::vector<std::string>;

TEST(FileReadingLoop, GivesTheStretchInBlocks) {
    const TemporaryPlace place;
    FileReadingPath path(place.File("a", "0123456789"));
    unsigned char space[4];
    const Buffer buffer(space, space + sizeof space);
    EXPECT_EQ(Blocks({path, buffer}), (List{"0123", "4567", "89"}));
    EXPECT_EQ(Blocks({path, buffer, 1, 6}), (List{"1234", "56"}));
    EXPECT_EQ(Blocks({path, buffer, 3, 0}), List{});
}

TEST(FileReadingLoop, MayReadPastTheEnd) {
    const TemporaryPlace place;
    FileReadingPath path(place.File("a", "0123456789"));
    unsigned char space[4];
    const Buffer buffer(space, space + sizeof space);
    EXPECT_EQ(Blocks({path, buffer, 1, 5, true}), (List{"1234", "5678"}));
    EXPECT_EQ(Blocks({path, buffer, 6, 4, true}), (List{"6789"}));
}

TEST(FileReadingLoop, AFileThatEndsBeforeTheStretchThrows) {
    const TemporaryPlace place;
    FileReadingPath path(place.File("a", "012"));
    unsigned char space[4];
    FileReadingLoop loop(path, Buffer(space, space + sizeof space), 1, 5);
    EXPECT_EQ(loop.Fill().View(), "12");
    EXPECT_EQ(loop.BytesRemaining(), 3u);
    EXPECT_THROW(loop.Fill(), FileReadingLoopEndOfFileError);
}

TEST(FileReadingLoop, AFileWithoutALengthIsReadUntilItGivesNoMore) {
    FileReadingPath path(FileLocation("/proc/version"));
    unsigned char space[16];
    std::string text;
    for (FileReadingLoop loop(path, Buffer(space, space + sizeof space)); loop.HasBytesRemaining();) {
        text += loop.Fill().View();
    }
    std::ifstream file("/proc/version");
    EXPECT_EQ(text, std::string(std::istreambuf_iterator<char>(file), {}));
}

class LineRecorder final : public LineReceiver {
public:
    void Start(uint64_t position) override { text += "S" + std::to_string(position) + " "; }
    void Text(const unsigned char* begin, const unsigned char* end) override {
        if (throws) {
            throw FormatError();
        }
        text.append(begin, end);
    }
    void EndOfLine(uint64_t start, uint64_t end) override {
        text += " E" + std::to_string(start) + "-" + std::to_string(end) + " ";
    }
    void Finish(uint64_t position) override { text += " F" + std::to_string(position); }
    std::string text;
    bool throws = false;
};

TEST(ReadLines, GivesEveryLineOfTheFile) {
    const TemporaryPlace place;
    LineRecorder lines;
    ReadLines(place.File("a", "ab\r\nc\n"), lines);
    EXPECT_EQ(lines.text, "S0 ab E2-4 c E5-6  F6");
    LineRecorder none;
    ReadLines(place.File("empty"), none);
    EXPECT_EQ(none.text, "S0  F0");
}

TEST(ReadLines, ReadsARangeWithPositionsOfTheFile) {
    const TemporaryPlace place;
    const FileLocation a = place.File("a", "ab\ncd\nef\n");
    LineRecorder lines;
    ReadLines(a, lines, {3, 7});
    EXPECT_EQ(lines.text, "S3 cd E5-6 e F7");
    LineRecorder beyond;
    ReadLines(a, beyond, {6, 100});
    EXPECT_EQ(beyond.text, "S6 ef E8-9  F9");
    LineRecorder none;
    ReadLines(a, none, {5, 5});
    EXPECT_EQ(none.text, "S5  F5");
}

TEST(ReadLines, ATerminatorAcrossTwoBlocksIsOne) {
    const TemporaryPlace place;
    for (size_t length = 2045; length <= 2049; ++length) {
        LineRecorder lines;
        ReadLines(place.File("a", std::string(length, 'x') + "\r\ny"), lines);
        const std::string end =
            " E" + std::to_string(length) + "-" + std::to_string(length + 2) + " y F" + std::to_string(length + 3);
        EXPECT_EQ(lines.text, "S0 " + std::string(length, 'x') + end);
    }
}

TEST(ReadLines, TheFileIsClosedOnEveryPath) {
    const TemporaryPlace place;
    const FileLocation a = place.File("a", "ab");
    const size_t before = OpenDescriptors();
    LineRecorder lines;
    ReadLines(a, lines);
    lines.throws = true;
    EXPECT_THROW(ReadLines(a, lines), FormatError);
    EXPECT_THROW(ReadLines(place.Location(), lines), FileIOError);
    EXPECT_EQ(OpenDescriptors(), before);
}

TEST(ReadLines, WhatCannotBeOpenedIsNoStream) {
    const TemporaryPlace place;
    LineRecorder lines;
    EXPECT_THROW(ReadLines(place.Location("missing"), lines), FileNotFoundError);
    EXPECT_THROW(ReadLines(FileLocation(), lines), EmptyFileLocationError);
    EXPECT_EQ(lines.text, "");
}

}  // namespace
