// Memory and swap of old and new kernels, and the state of the power adapter.
#include "inspectors/mem_info.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>

#include "foundation/file_error.h"
#include "inspectors/power_level.h"
#include "tests/foundation/temporary_place.h"
#include "tests/inspectors/ask.h"

namespace {

constexpr std::string_view kOld =
    "        total:    used:    free:  shared: buffers:  cached:\n"
    "Mem:  527630336 515846144 11784192 1024 130527232 190246912\n"
    "Swap: 1077501952 40960 1077460992\n"
    "MemTotal:       515264 kB\nMemFree:         1 kB\n";

constexpr std::string_view kNew =
    "MemTotal:       24684092 kB\nMemFree:        23388252 kB\nMemAvailable:   23706032 kB\n"
    "Buffers:            4100 kB\nCached:           479636 kB\nSwapCached:            7 kB\n"
    "SwapTotal:          2000 kB\nSwapFree:           1500 kB\nCached: 1 kB\n";

TEST(Ram, OfAnOldKernelIsOnTheSummaryLine) {
    const ram_info ram = ParseRam(kOld);
    EXPECT_EQ(ram.total, 527630336U);
    EXPECT_EQ(ram.free, 11784192U);
    EXPECT_EQ(ram.shared, 1024U);
    EXPECT_EQ(ram.buffered, 130527232U);
    EXPECT_EQ(ram.cached, 190246912U);
}

TEST(Ram, OfANewKernelIsOnKeyLines) {
    const ram_info ram = ParseRam(kNew);
    EXPECT_EQ(ram.total, 24684092U * uint64_t{1024});
    EXPECT_EQ(ram.free, 23388252U * uint64_t{1024});
    EXPECT_EQ(ram.shared, std::nullopt);
    EXPECT_EQ(ram.buffered, 4100U * 1024);
    EXPECT_EQ(ram.cached, 479636U * 1024);
}

TEST(Ram, TakesAnyCaseAndSkipsToTheFirstDigit) {
    EXPECT_EQ(ParseRam("MEMTOTAL: about x 12 kB").total, 12U * 1024);
    EXPECT_EQ(ParseRam("memtotal:\nMemTotal: 3").total, 3U * 1024);
    EXPECT_EQ(ParseRam(" MemTotal: 3").total, std::nullopt);
    EXPECT_EQ(ParseRam("mem: 1 2").free, std::nullopt);
    EXPECT_EQ(ParseRam("").total, std::nullopt);
}

TEST(Swap, IsOnEitherKindOfLine) {
    const swap_info old = ParseSwap(kOld);
    EXPECT_EQ(old.total, 1077501952U);
    EXPECT_EQ(old.free, 1077460992U);
    EXPECT_EQ(old.used, 40960U);
    const swap_info present = ParseSwap(kNew);
    EXPECT_EQ(present.total, 2000U * 1024);
    EXPECT_EQ(present.free, 1500U * 1024);
    EXPECT_EQ(present.used, 500U * 1024);
    EXPECT_EQ(ParseSwap("SwapTotal: 5 kB\n").used, std::nullopt);
    EXPECT_EQ(ParseSwap("").total, std::nullopt);
}

TEST(Swap, IsUsedWhereItIsNotFreeWhateverTheSummarySays) {
    EXPECT_EQ(ParseSwap("swap: 100 7 60").used, 40U);
    EXPECT_EQ(ParseSwap("swap: 100 7").used, std::nullopt);
    EXPECT_EQ(ParseSwap("SWAPTOTAL: 9\nSwapTotal: 1\nswapfree: 4\nSwapFree: 1\nSwapCached: 2\n").used, 5U * 1024);
}

TEST(MemInfo, ThatCannotBeOpenedIsAFileError) {
    const TemporaryPlace place;
    try {
        ReadMemInfo(place.Path("gone").c_str());
        FAIL();
    } catch (const FileIOError& error) {
        EXPECT_EQ(error.Code(), ENOENT);
        EXPECT_EQ(error.FirstPath(), place.Path("gone"));
    }
    place.File("long", std::string(10000, 'x'));
    EXPECT_EQ(ReadMemInfo(place.Path("long").c_str()), std::string(10000, 'x'));
}

TEST(Ram, AnswersWithTheKernelsFigures) {
    const ram_info ram = ParseRam(ReadMemInfo());
    ASSERT_TRUE(ram.total.has_value());
    const std::string total = std::to_string(*ram.total);
    EXPECT_EQ(Ask("size of ram"), Values({total}));
    EXPECT_EQ(Ask("total amount of random access memory"), Values({total}));
    EXPECT_EQ(Ask("(used amount of it + free amount of it) of ram"), Values({total}));
    EXPECT_EQ(Ask("(available amount of it + unavailable amount of it) of ram"), Values({total}));
    EXPECT_EQ(Ask("(free amount of it + buffered amount of it + cached amount of it - available amount of it) of ram"),
              Values({"0"}));
    EXPECT_EQ(Ask("exists shared amount of ram"), Values({ram.shared ? "True" : "False"}));
    EXPECT_EQ(Ask("(total amount of it - free amount of it - used amount of it) of swap"), Values({"0"}));
}

// The figures change from one reading to the next, so that only those of one question fit each other.
TEST(Ram, AnswersEveryPhraseInBothNumbers) {
    const ram_info ram = ParseRam(ReadMemInfo());
    const std::string total = std::to_string(*ram.total);
    const std::string shared = ram.shared ? "1" : "0";
    for (const char* all : {"rams", "random access memories"}) {
        const std::string of = std::string(" of ") + all;
        EXPECT_EQ(Ask("sizes" + of), Values({total}));
        EXPECT_EQ(Ask("total amounts" + of), Values({total}));
        EXPECT_EQ(Ask("(sum of (used amounts of it; free amounts of it))" + of), Values({total}));
        EXPECT_EQ(Ask("(sum of (available amounts of it; unavailable amounts of it))" + of), Values({total}));
        EXPECT_EQ(Ask("(sum of (free amounts of it; buffered amounts of it; cached amounts of it) = available amount "
                      "of it)" +
                      of),
                  Values({"True"}));
        EXPECT_EQ(Ask("number of shared amounts" + of), Values({shared}));
    }
    const swap_info swap = ParseSwap(ReadMemInfo());
    ASSERT_TRUE(swap.total.has_value());
    const std::string swapTotal = std::to_string(*swap.total);
    EXPECT_EQ(Ask("total amount of swap; total amounts of swaps"), Values({swapTotal, swapTotal}));
    EXPECT_EQ(Ask("(sum of (used amounts of it; free amounts of it)) of swaps"), Values({swapTotal}));
}

TEST(PowerLevel, IsTheStateOfTheAdapterWhereThereIsOne) {
    const char* there = access("/proc/acpi/ac_adapter/ACAD/state", R_OK) == 0 ? "True" : "False";
    EXPECT_EQ(Ask("exists power level; exists power levels"), Values({there, there}));
}

TEST(PowerState, StandsBehindItsKey) {
    EXPECT_EQ(ParsePowerState("state:                   on-line\n"), "on-line");
    EXPECT_EQ(ParsePowerState("name: x\nstate:\toff line \r\nmore\n"), "off line");
    EXPECT_EQ(ParsePowerState("state: "), std::nullopt);
    EXPECT_EQ(ParsePowerState("on-line\n"), std::nullopt);
    EXPECT_EQ(ParsePowerState(""), std::nullopt);
}

}  // namespace
