// The table of processes: the text that tells a start, refreshes over a crafted listing, and over processes that the
// test starts and ends.
#include "client/process_table.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <limits>
#include <thread>

#include "evaluator/inspector_context.h"
#include "foundation/file_error.h"
#include "tests/client/sleeper.h"
#include "tests/foundation/temporary_place.h"
#include "values/moment.h"

namespace {

// The text of a process's file with this command name and start, in ticks.
std::string StatText(const std::string& name, const std::string& start) {
    return "4711 (" + name + ") S 1 4711 4711 0 -1 4194560 1 2 3 4 5 6 7 8 20 0 1 0 " + start +
           " 4096 100 18446744073709551615 1 1 0 0 0 0 0 0 0 0 0 0 17 1 0 0 0 0 0\n";
}

TEST(ProcessStartSecond, IsTheStartInTicksOverAHundred) {
    EXPECT_EQ(ProcessStartSecond(StatText("bash", "12345")), 123u);
    EXPECT_EQ(ProcessStartSecond(StatText("bash", "99")), 0u);
    EXPECT_EQ(ProcessStartSecond(StatText("bash", "18446744073709551615")), 184467440737095516u);
    EXPECT_EQ(ProcessStartSecond(StatText("bash", "99999999999999999999")), 184467440737095516u);
    EXPECT_EQ(ProcessStartSecond(StatText("bash", "x")), 0u);
}

TEST(ProcessStartSecond, AnyNameIsPassedOver) {
    for (const std::string name : {"a b", "a) b", ") 1 2 3", "((", "))))", "(sd-pam)", "", " ", "\n", "a\nb) S 1 1"}) {
        EXPECT_EQ(ProcessStartSecond(StatText(name, "700")), 7u) << name;
    }
}

TEST(ProcessStartSecond, ANameThatEndsBeforeTheSixthByteIsRefused) {
    const std::string rest = StatText("x", "700").substr(8);
    EXPECT_EQ(ProcessStartSecond("1 (a)" + rest), std::nullopt);
    EXPECT_EQ(ProcessStartSecond("1 (ab)" + rest), 7u);
    EXPECT_EQ(ProcessStartSecond("12 (a)" + rest), 7u);
    EXPECT_EQ(ProcessStartSecond(")" + rest), std::nullopt);
    EXPECT_EQ(ProcessStartSecond(rest), std::nullopt);
    EXPECT_EQ(ProcessStartSecond(""), std::nullopt);
}

TEST(ProcessStartSecond, ATextThatIsCutHasNone) {
    const std::string text = StatText("bash", "700");
    const size_t field = text.find(" 700") + 1;
    for (size_t length = 0; length <= field; ++length) {
        EXPECT_EQ(ProcessStartSecond(text.substr(0, length)), std::nullopt) << length;
    }
    EXPECT_EQ(ProcessStartSecond(text.substr(0, field + 3)), 7u);
}

TEST(ProcessStartSecond, OfThisProcessIsNow) {
    std::ifstream file("/proc/self/stat");
    const std::string text(std::istreambuf_iterator<char>(file), {});
    struct timespec uptime {};
    clock_gettime(CLOCK_BOOTTIME, &uptime);
    const std::optional<uint64_t> second = ProcessStartSecond(text);
    ASSERT_TRUE(second);
    EXPECT_LE(*second, static_cast<uint64_t>(uptime.tv_sec));
    EXPECT_GE(*second + 3600, static_cast<uint64_t>(uptime.tv_sec));
}

// A folder that looks like the kernel's listing.
class CraftedListing : public testing::Test {
protected:
    void Run(const std::string& id, const std::string& path, const std::string& start = "700") const {
        End(id);
        place_.Folder(id);
        place_.Link(id + "/exe", path);
        place_.File(id + "/stat", StatText("anything", start));
    }
    void End(const std::string& id) const { std::filesystem::remove_all(place_.Path(id)); }

    std::vector<std::string> Runs(std::string_view name) {
        std::vector<std::string> texts;
        ProcessRun run;
        for (size_t index = 0; table_.GetAppUsage(name, index, run);) {
            texts.push_back(std::to_string(run.processId) + (run.active ? " runs " : " ran ") + run.path);
        }
        return texts;
    }

    TemporaryPlace place_;
    const std::string folder_ = place_.Path() + "/";
    ProcessTable table_{folder_};
};

using Texts = std::vector<std::string>;

TEST_F(CraftedListing, IsReadWhenTheTableIsFirstAskedAndAfterItExpired) {
    Run("7", "/bin/one");
    EXPECT_TRUE(table_.GetProcessActiveByName("one"));
    End("7");
    Run("8", "/bin/two");
    EXPECT_TRUE(table_.GetProcessActiveByName("one"));
    EXPECT_FALSE(table_.GetProcessActiveByName("two"));
    table_.Expire();
    EXPECT_FALSE(table_.GetProcessActiveByName("one"));
    EXPECT_TRUE(table_.GetProcessActiveByName("two"));
}

TEST_F(CraftedListing, ARunEndsWithItsProcess) {
    Run("7", "/bin/one");
    Run("8", "/usr/bin/one");
    table_.Refresh();
    EXPECT_EQ(Runs("one").size(), 2u);
    EXPECT_EQ(table_.GetAppEvent("one"), ApplicationEvent::Started);
    End("7");
    table_.Refresh();
    EXPECT_EQ(Runs("one"), (Texts{"8 runs /usr/bin/one", "7 ran /bin/one"}));
    End("8");
    table_.Refresh();
    EXPECT_EQ(Runs("one"), (Texts{"7 ran /bin/one", "8 ran /usr/bin/one"}));
    EXPECT_EQ(table_.GetAppEvent("one"), ApplicationEvent::Ended);
    EXPECT_EQ(table_.GetAppEvent("two"), ApplicationEvent::None);
}

TEST_F(CraftedListing, TheRunsThatGoOnAreTheSameAfterOthersHaveEnded) {
    for (int id = 1; id <= 40; ++id) {
        Run(std::to_string(id), "/bin/p" + std::to_string(id));
    }
    table_.Refresh();
    for (const char* id : {"1", "2", "17", "40"}) {
        End(id);
        table_.Refresh();
        table_.Refresh();
    }
    for (int id = 1; id <= 40; ++id) {
        const std::string name = "p" + std::to_string(id);
        const bool ended = id == 1 || id == 2 || id == 17 || id == 40;
        EXPECT_EQ(Runs(name), Texts{std::to_string(id) + (ended ? " ran /bin/" : " runs /bin/") + name});
    }
}

TEST_F(CraftedListing, ANumberThatIsUsedAgainIsAnotherRun) {
    Run("7", "/bin/one", "700");
    table_.Refresh();
    Run("7", "/bin/one", "800");
    table_.Refresh();
    EXPECT_EQ(Runs("one"), (Texts{"7 runs /bin/one", "7 ran /bin/one"}));
}

TEST_F(CraftedListing, ANumberThatIsUsedAgainLaterIsNoRunThatGoesOn) {
    Run("7", "/bin/one");
    Run("8", "/bin/two");
    table_.Refresh();
    End("7");
    table_.Refresh();
    Run("7", "/bin/two");
    table_.Refresh();
    table_.Refresh();
    EXPECT_EQ(Runs("one"), Texts{"7 ran /bin/one"});
    EXPECT_EQ(Runs("two"), (Texts{"8 runs /bin/two", "7 runs /bin/two"}));
}

TEST_F(CraftedListing, AProcessThatBecomesAnotherProgramIsAnotherRun) {
    Run("7", "/bin/one");
    table_.Refresh();
    Run("7", "/bin/two");
    table_.Refresh();
    EXPECT_EQ(Runs("one"), Texts{"7 ran /bin/one"});
    EXPECT_EQ(Runs("two"), Texts{"7 runs /bin/two"});
}

TEST_F(CraftedListing, AProgramWhoseFileIsDeletedGoesOn) {
    Run("7", "/bin/one");
    table_.Refresh();
    Run("7", "/bin/one (deleted)");
    table_.Refresh();
    EXPECT_EQ(Runs("one"), Texts{"7 runs /bin/one"});
    Run("7", "/bin/one2 (deleted)");
    table_.Refresh();
    EXPECT_EQ(Runs("one"), Texts{"7 ran /bin/one"});
}

TEST_F(CraftedListing, WhatTellsNoStartIsNoEntry) {
    Run("7", "/bin/one");
    place_.File("7/stat", "7 (a) S");
    Run("8", "/bin/one");
    std::filesystem::remove(place_.Path("8/stat"));
    Run("9", "/bin/one");
    place_.File("9/stat", "9 (" + std::string(10240, 'x') + StatText("", "700"));
    place_.Folder("10");
    place_.Folder("self");
    EXPECT_FALSE(table_.GetProcessActiveByName("one"));
}

// The start of a process ends with the last byte that is read, or is cut by the end.
TEST_F(CraftedListing, ATextIsReadAsFarAsItsFirst10239Bytes) {
    const std::string text = StatText("", "700");
    const size_t upToTheStart = text.find(" 700") + 4;
    const std::string name(10239 - upToTheStart, 'x');
    const auto startOfOne = [this] {
        ProcessTable table(folder_);
        ProcessRun run;
        size_t index = 0;
        return table.GetProcessEntryByName("one", index, run) ? run.startTime : -1;
    };
    Run("7", "/bin/one");
    const int64_t start = startOfOne();
    place_.File("7/stat", StatText(name, "700"));
    EXPECT_NEAR(static_cast<double>(startOfOne()), static_cast<double>(start), 5e5);
    // Of "700", "70" is left.
    place_.File("7/stat", StatText(name + "x", "700"));
    EXPECT_NEAR(static_cast<double>(startOfOne()), static_cast<double>(start - 7000000), 5e5);
}

TEST_F(CraftedListing, EntriesAreNumberedFromTheRunningOnes) {
    for (int id = 1; id <= 100; ++id) {
        Run(std::to_string(id), "/bin/p" + std::to_string(id % 3));
    }
    table_.Refresh();
    for (int id = 1; id <= 100; id += 2) {
        End(std::to_string(id));
    }
    table_.Refresh();
    std::string path;
    size_t size = 0;
    for (; table_.GetProcessName(size, path); ++size) {
        EXPECT_EQ(table_.GetProcessActive(size), size < 50);
    }
    EXPECT_EQ(size, 100u);
    EXPECT_FALSE(table_.GetProcessActive(100));
    size_t found = 0;
    for (size_t index = 0; table_.GetProcessByName("p1", index); ++index) {
        ++found;
    }
    EXPECT_EQ(found, 34u);
    ProcessRun run;
    found = 0;
    for (size_t index = 0; table_.GetProcessEntryByName("p1", index, run); ++found) {
        EXPECT_TRUE(run.active);
        EXPECT_EQ(run.processId % 6, 4);
    }
    EXPECT_EQ(found, 17u);
    // Every run is found again by its process.
    for (int id = 2; id <= 100; id += 2) {
        End(std::to_string(id));
    }
    table_.Refresh();
    EXPECT_FALSE(table_.GetProcessActive(0));
    EXPECT_TRUE(table_.GetProcessName(99, path));
    EXPECT_FALSE(table_.GetProcessName(100, path));
}

TEST_F(CraftedListing, OnlyTheLatestEndedRunsAreRemembered) {
    Run("7", "/bin/one");
    for (size_t i = 0; i != ProcessTable::kMostEnded + 3; ++i) {
        place_.File("7/stat", StatText("one", std::to_string(100 * i)));
        table_.Refresh();
    }
    End("7");
    table_.Refresh();
    std::string path;
    EXPECT_TRUE(table_.GetProcessName(ProcessTable::kMostEnded - 1, path));
    EXPECT_FALSE(table_.GetProcessName(ProcessTable::kMostEnded, path));
}

TEST_F(CraftedListing, TheUseOfTrackedApplicationsIsSummed) {
    table_.Track({"one", "two"});
    const FileLocation program = place_.File("one", "1234");
    Run("7", place_.Path("one"), "0");
    Run("8", place_.Path("one"), "0");
    Run("9", "/bin/three");
    table_.Refresh();
    EXPECT_TRUE(table_.UseToAdd("one").empty());
    End("7");
    End("9");
    table_.Refresh();
    End("8");
    table_.Refresh();
    const std::vector<StatRecord> use = table_.UseToAdd("one");
    ASSERT_EQ(use.size(), 1u);
    EXPECT_EQ(use[0].totalRunCount, 2);
    EXPECT_EQ(use[0].fileSize, 4);
    EXPECT_EQ(use[0].firstStartTime, use[0].lastStartTime);
    EXPECT_GT(use[0].totalDuration, use[0].lastTimeSeen - use[0].lastStartTime);
    EXPECT_LE(use[0].totalDuration, 2 * (use[0].lastTimeSeen - use[0].lastStartTime));
    EXPECT_LE(use[0].lastTimeSeen, Now().Microseconds());
    EXPECT_TRUE(table_.UseToAdd("two").empty());
    EXPECT_TRUE(table_.UseToAdd("three").empty());

    const TemporaryPlace statDir;
    const StatRecord before{1, 2, 3, 4, 5, 4, "", ""};
    statDir.File("one.stat", StatFileBytes(std::vector<StatRecord>{before}));
    EXPECT_ANY_THROW(table_.Store(statDir.Location("missing")));
    EXPECT_EQ(table_.UseToAdd("one"), use);
    table_.Store(statDir.Location());
    EXPECT_TRUE(table_.UseToAdd("one").empty());
    const std::vector<StatRecord> stored = ReadStatFile(statDir.Location("one.stat"));
    ASSERT_EQ(stored.size(), 1u);
    EXPECT_EQ(stored[0].totalRunCount, 7);
    EXPECT_EQ(stored[0].totalDuration, use[0].totalDuration + 4);
    EXPECT_EQ(stored[0].firstStartTime, 1);
    EXPECT_FALSE(statDir.Has("two.stat"));
}

TEST_F(CraftedListing, WhatIsNoLongerTrackedIsForgotten) {
    table_.Track({"one", "a/b", "one"});
    Run("7", "/bin/one");
    table_.Refresh();
    End("7");
    table_.Refresh();
    EXPECT_EQ(table_.UseToAdd("one").size(), 1u);
    table_.Track({"two", "one"});
    EXPECT_EQ(table_.UseToAdd("one").size(), 1u);
    table_.Track({});
    EXPECT_TRUE(table_.UseToAdd("one").empty());
}

TEST_F(CraftedListing, TheBudgetIsToldOfEachProcess) {
    struct Counting : CpuBudget {
        void Spend() override { ++count; }
        int count = 0;
    } budget;
    Run("7", "/bin/one");
    Run("8", "/bin/two");
    table_.Refresh(budget);
    EXPECT_EQ(budget.count, 2);
}

TEST_F(CraftedListing, AListingThatCannotBeReadKeepsWhatIsKnown) {
    Run("7", "/bin/one");
    table_.Refresh();
    std::filesystem::rename(place_.Path(), place_.Path() + "x");
    EXPECT_THROW(table_.Refresh(), FileIOError);
    EXPECT_TRUE(table_.GetProcessActiveByName("one"));
    std::filesystem::rename(place_.Path() + "x", place_.Path());
}

TEST_F(CraftedListing, OneThreadRefreshesWhileAnotherReads) {
    Run("7", "/bin/one");
    std::thread worker([this] {
        for (int i = 0; i != 200; ++i) {
            table_.Refresh();
        }
    });
    std::string path;
    for (int i = 0; i != 2000; ++i) {
        EXPECT_TRUE(table_.GetProcessName(0, path));
        EXPECT_EQ(path, "/bin/one");
    }
    worker.join();
}

TEST(ProcessTable, FollowsTheProcessesOfThisMachine) {
    const TemporaryPlace place;
    const std::string name = "zendry-sleep-" + std::to_string(getpid());
    ProcessTable table;
    table.Track({name});
    EXPECT_FALSE(table.GetProcessActiveByName(name));
    const int64_t before = Now().Microseconds();
    Sleeper sleeper(place.Path(name));
    table.Refresh();
    EXPECT_TRUE(table.GetProcessActiveByName(name));
    ProcessRun run;
    size_t index = 0;
    ASSERT_TRUE(table.GetProcessEntryByName(name, index, run));
    EXPECT_EQ(run.processId, sleeper.Process());
    EXPECT_EQ(run.path, place.Path(name));
    EXPECT_NEAR(static_cast<double>(run.startTime), static_cast<double>(before), 5e6);
    EXPECT_FALSE(table.GetProcessEntryByName(name, index, run));
    sleeper.End();
    table.Refresh();
    EXPECT_FALSE(table.GetProcessActiveByName(name));
    index = 0;
    ASSERT_TRUE(table.GetAppUsage(name, index, run));
    EXPECT_FALSE(run.active);
    const std::vector<StatRecord> use = table.UseToAdd(name);
    ASSERT_EQ(use.size(), 1u);
    EXPECT_EQ(use[0].totalRunCount, 1);
    EXPECT_EQ(use[0].fileSize, static_cast<int64_t>(std::filesystem::file_size("/bin/sleep")));
}

TEST(ProcessTable, TheProcessHasOne) {
    const std::string self = std::filesystem::read_symlink("/proc/self/exe").filename();
    EXPECT_EQ(ProcessTable::SGetInstance(), ProcessTable::SGetInstance());
    EXPECT_TRUE(ProcessTable::SGetProcessActiveByName(self));
    EXPECT_EQ(ProcessTable::SGetAppEvent(self), ApplicationEvent::Started);
    size_t index = 0;
    EXPECT_TRUE(ProcessTable::SGetProcessByName(self, index));
    EXPECT_TRUE(ProcessTable::SGetProcessActive(index));
    std::string path;
    EXPECT_TRUE(ProcessTable::SGetProcessName(index, path));
    EXPECT_EQ(path, std::filesystem::read_symlink("/proc/self/exe"));
    ProcessRun run;
    index = 0;
    EXPECT_TRUE(ProcessTable::SGetProcessEntryByName(self, index, run));
    index = 0;
    EXPECT_TRUE(ProcessTable::SGetAppUsage(self, index, run));
}

}  // namespace
