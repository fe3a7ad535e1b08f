#include "foundation/file_stat.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <limits>

#include "tests/foundation/temporary_place.h"

namespace {

bool IsZero(const struct stat64& record) {
    const struct stat64 zero = {};
    return std::memcmp(&record, &zero, sizeof zero) == 0;
}

TEST(FileStat, BeforeTheFirstLookItIsMissing) {
    const FileStat stat;
    EXPECT_EQ(stat.GetState(), 3);
    EXPECT_TRUE(stat.Location().IsEmpty());
}

TEST(FileStat, APlaceThatIsNoLinkHasTwoRecordsThatAgree) {
    const TemporaryPlace place;
    const FileStat stat(place.File("a", "12345"));
    EXPECT_EQ(stat.GetState(), 0);
    EXPECT_TRUE(stat.IsRegular());
    EXPECT_FALSE(stat.IsDirectory());
    EXPECT_EQ(stat.Target().st_size, 5);
    EXPECT_EQ(std::memcmp(&stat.Target(), &stat.Itself(), sizeof(struct stat64)), 0);
    EXPECT_EQ(stat.Location().Text(), place.Path("a"));
}

TEST(FileStat, ALinkHasItsTargetFirstAndItselfSecond) {
    const TemporaryPlace place;
    place.File("a", "12345");
    const FileStat stat(place.Link("l", "a"));
    EXPECT_EQ(stat.GetState(), 1);
    EXPECT_TRUE(stat.IsRegular());
    EXPECT_EQ(stat.Target().st_size, 5);
    EXPECT_TRUE(S_ISLNK(stat.Itself().st_mode));
}

TEST(FileStat, ADanglingLinkHasAZeroedTarget) {
    const TemporaryPlace place;
    const FileStat stat(place.Link("l", "nowhere"));
    EXPECT_EQ(stat.GetState(), 2);
    EXPECT_TRUE(IsZero(stat.Target()));
    EXPECT_TRUE(S_ISLNK(stat.Itself().st_mode));
    EXPECT_TRUE(stat.IsThere());
    EXPECT_FALSE(stat.IsRegular());
    EXPECT_FALSE(stat.IsDirectory());
}

TEST(FileStat, AMissingPlaceHasTwoZeroedRecords) {
    const TemporaryPlace place;
    FileStat stat(place.File("a"));
    stat.Look(place.Location("b"));
    EXPECT_EQ(stat.GetState(), 3);
    EXPECT_TRUE(IsZero(stat.Target()));
    EXPECT_TRUE(IsZero(stat.Itself()));
    EXPECT_FALSE(stat.IsThere());
    EXPECT_FALSE(stat.IsRegular());
    EXPECT_EQ(FileStat(FileLocation()).GetState(), 3);
}

TEST(FileStat, ALookIsNeverRefreshed) {
    const TemporaryPlace place;
    const FileStat stat(place.File("a", "1"));
    place.File("a", "123");
    EXPECT_EQ(stat.Target().st_size, 1);
}

TEST(FileStat, EveryTypeIsTold) {
    const TemporaryPlace place;
    EXPECT_TRUE(FileStat(place.Location()).IsDirectory());
    EXPECT_TRUE(FileStat(FileLocation("/dev/null")).IsCharacterDevice());
    EXPECT_FALSE(FileStat(FileLocation("/dev/null")).IsBlockDevice());
    ASSERT_EQ(::mkfifo(place.Path("f").c_str(), 0600), 0);
    EXPECT_TRUE(FileStat(place.Location("f")).IsFifo());
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
    struct sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strcpy(address.sun_path, place.Path("s").c_str());
    ASSERT_EQ(::bind(descriptor, reinterpret_cast<struct sockaddr*>(&address), sizeof address), 0);
    EXPECT_TRUE(FileStat(place.Location("s")).IsSocket());
    EXPECT_FALSE(FileStat(place.Location("s")).IsRegular());
    ::close(descriptor);
}

TEST(FileStat, RecordsAreEqualByStateAndBytes) {
    const TemporaryPlace place;
    const FileLocation a = place.File("a", "1");
    EXPECT_EQ(FileStat(a), FileStat(a));
    EXPECT_NE(FileStat(a), FileStat(place.File("b", "1")));
    EXPECT_NE(FileStat(a), FileStat(place.Link("l", "a")));
    FileStat changed(a);
    changed.SetModificationTime(0);
    EXPECT_NE(changed, FileStat(a));
}

TEST(FileStat, AMissingPlaceIsUnlikeAnyOther) {
    const FileStat missing;
    EXPECT_NE(missing, FileStat());
    EXPECT_NE(missing, FileStat(FileLocation("/")));
    EXPECT_FALSE(missing == missing);
}

TEST(FileStat, TimesAreSecondsTimesAMillion) {
    EXPECT_EQ(FileStat::TimeOf(3), 3000000);
    EXPECT_EQ(FileStat::TimeOf(-3), -3000000);
    EXPECT_EQ(FileStat::TimeOf(std::numeric_limits<int64_t>::max()), std::numeric_limits<int64_t>::max());
    EXPECT_EQ(FileStat::TimeOf(std::numeric_limits<int64_t>::min()), std::numeric_limits<int64_t>::min());
    EXPECT_EQ(FileStat::SecondsOf(3999999), 3);
    EXPECT_EQ(FileStat::SecondsOf(-1), 0);
    EXPECT_EQ(FileStat::SecondsOf(-1000001), -1);
}

TEST(FileStat, TheModificationTimeIsSetInMemory) {
    const TemporaryPlace place;
    FileStat stat(place.File("a"));
    stat.SetModificationTime(1234567890123456);
    EXPECT_EQ(stat.ModificationTime(), 1234567890000000);
    EXPECT_NE(FileStat(place.Location("a")).ModificationTime(), 1234567890000000);
    EXPECT_THROW(FileStat().SetModificationTime(0), InvalidStats);
}

TEST(FileStat, EachTimeIsItsOwn) {
    const TemporaryPlace place;
    const FileLocation a = place.File("a");
    const struct timespec times[2] = {{1000, 0}, {2000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, a.CString(), times, 0), 0);
    const FileStat stat(a);
    EXPECT_EQ(stat.AccessTime(), 1000000000);
    EXPECT_EQ(stat.ModificationTime(), 2000000000);
    EXPECT_EQ(stat.ChangeTime(), FileStat::TimeOf(stat.Target().st_ctime));
    EXPECT_GT(stat.ChangeTime(), stat.ModificationTime());
}

}  // namespace
