#include "foundation/file_retry.h"

#include <gtest/gtest.h>

#include <chrono>
#include <new>
#include <string>
#include <vector>

#include "foundation/file_operations.h"
#include "tests/foundation/temporary_place.h"

namespace {

std::vector<long> delays;

void NoteDelay(std::chrono::milliseconds delay) { delays.push_back(static_cast<long>(delay.count())); }

class RecordingLog final : public FileRetryLog {
public:
    void RetriedAndSucceeded(const char* operation, const FileLocation& first, const FileLocation* second,
                             unsigned attempts) override {
        Note("succeeded ", operation, first, second, attempts);
    }
    void GivingUp(const char* operation, const FileLocation& first, const FileLocation* second,
                  unsigned attempts) override {
        Note("gave up ", operation, first, second, attempts);
    }
    std::string text;

private:
    void Note(const char* how, const char* operation, const FileLocation& first, const FileLocation* second,
              unsigned attempts) {
        text += std::string(how) + operation + " " + std::string(first.Text()) + " " +
                (second == nullptr ? "-" : std::string(second->Text())) + " " + std::to_string(attempts) + ";";
    }
};

class FileRetry : public testing::Test {
protected:
    void SetUp() override { delays.clear(); }

    // Runs an operation that fails `failures` times; returns the number of calls.
    unsigned Try(unsigned failures) {
        unsigned calls = 0;
        RetryFileOperation(
            [&] {
                if (++calls <= failures) {
                    throw FileLockError(static_cast<int>(calls), "/a");
                }
            },
            "DeleteFile", a_, nullptr, log_);
        return calls;
    }

    const FileRetrySleep noSleep_{NoteDelay};
    const FileLocation a_{"/a"};
    RecordingLog log_;
};

TEST_F(FileRetry, ASuccessAtOnceIsToldToNobody) {
    EXPECT_EQ(Try(0), 1u);
    EXPECT_EQ(log_.text, "");
    EXPECT_TRUE(delays.empty());
}

TEST_F(FileRetry, ALaterSuccessIsToldWithTheAttempts) {
    EXPECT_EQ(Try(2), 3u);
    EXPECT_EQ(log_.text, "succeeded DeleteFile /a - 3;");
    EXPECT_EQ(delays, (std::vector<long>{16, 32}));
}

TEST_F(FileRetry, TheEighthAttemptMaySucceed) {
    EXPECT_EQ(Try(7), 8u);
    EXPECT_EQ(log_.text, "succeeded DeleteFile /a - 8;");
}

TEST_F(FileRetry, TheEighthFailureIsToldOnceAndThrownOn) {
    try {
        Try(8);
        FAIL();
    } catch (const FileLockError& error) {
        EXPECT_EQ(error.Code(), 8);
    }
    EXPECT_EQ(log_.text, "gave up DeleteFile /a - 8;");
    EXPECT_EQ(delays, (std::vector<long>{16, 32, 64, 128, 256, 512, 1024}));
}

TEST_F(FileRetry, AnEmptyLocationIsNotTriedAgain) {
    EXPECT_THROW(DeleteFile(FileLocation(), log_), EmptyFileLocationError);
    EXPECT_EQ(log_.text, "");
    EXPECT_TRUE(delays.empty());
}

TEST_F(FileRetry, AnyOtherExceptionIsTriedAgain) {
    unsigned calls = 0;
    EXPECT_THROW(RetryFileOperation(
                     [&] {
                         ++calls;
                         throw std::bad_alloc();
                     },
                     "X", a_, &a_, log_),
                 std::bad_alloc);
    EXPECT_EQ(calls, 8u);
    EXPECT_EQ(log_.text, "gave up X /a /a 8;");
}

TEST_F(FileRetry, EveryOperationHasItsName) {
    const TemporaryPlace place;
    const FileLocation from = place.Location("from");
    const FileLocation to = place.Location("to");
    const std::string both = " " + place.Path("from") + " " + place.Path("to") + " 8;";
    const std::string one = " " + place.Path("from") + " - 8;";
    EXPECT_THROW(ForceCopyFile(from, to, log_), FileNotFoundError);
    EXPECT_THROW(CopyFile(from, to, log_), FileNotFoundError);
    EXPECT_THROW(ForceMoveFile(from, to, log_), FileNotFoundError);
    EXPECT_THROW(MoveFile(from, to, log_), FileNotFoundError);
    EXPECT_THROW(DeleteFile(from, log_), FileNotFoundError);
    EXPECT_THROW(DeleteDirectory(from, log_), DirectoryNotFoundError);
    EXPECT_EQ(log_.text, "gave up ForceCopyFile" + both + "gave up CopyFile" + both + "gave up ForceMoveFile" + both +
                             "gave up MoveFile" + both + "gave up DeleteFile" + one + "gave up DeleteDirectory" + one);
    log_.text.clear();
    place.Folder("full");
    place.File("full/file");
    EXPECT_THROW(ForceNonexistence(place.Location("full"), log_), FileIOError);
    EXPECT_EQ(log_.text, "gave up ForceNonexistence " + place.Path("full") + " - 8;");
    log_.text.clear();
    FileStat missing(place.Location("missing"));
    EXPECT_THROW(SetModificationTime(missing, 0, log_), InvalidStats);
    EXPECT_EQ(log_.text, "gave up SetModificationTime " + place.Path("missing") + " - 8;");
}

TEST_F(FileRetry, TheOperationsSucceedThroughTheirRetryingForms) {
    const TemporaryPlace place;
    const FileLocation a = place.File("a", "1");
    const FileLocation b = place.Location("b");
    const FileLocation c = place.Location("c");
    CopyFile(a, b, log_);
    ForceCopyFile(a, b, log_);
    MoveFile(b, c, log_);
    ForceMoveFile(a, c, log_);
    EXPECT_EQ(place.Content("c"), "1");
    FileStat stat(c);
    SetModificationTime(stat, 5000000, log_);
    DeleteFile(c, log_);
    DeleteDirectory(place.Folder("d"), log_);
    ForceNonexistence(place.File("e"), log_);
    EXPECT_FALSE(place.Has("e") || place.Has("d") || place.Has("c") || place.Has("a"));
    EXPECT_EQ(log_.text, "");
}

TEST_F(FileRetry, ALogOfNoEffectIsLegal) {
    FileRetryLog log;
    EXPECT_THROW(DeleteFile(FileLocation("/nowhere/at/all"), log), FileNotFoundError);
}

TEST(FileRetrySleep, TheRealSleepTakesItsTime) {
    const auto start = std::chrono::steady_clock::now();
    FileRetrySleep::Sleep(std::chrono::milliseconds(16));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(16));
}

TEST(FileRetrySleep, AReplacementEndsWithItsScope) {
    delays.clear();
    {
        const FileRetrySleep noSleep(NoteDelay);
        FileRetrySleep::Sleep(std::chrono::milliseconds(5));
    }
    FileRetrySleep::Sleep(std::chrono::milliseconds(1));
    EXPECT_EQ(delays, (std::vector<long>{5}));
}

}  // namespace
