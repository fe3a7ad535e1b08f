// What reading and printing times costs: each benchmark is a million texts or values.
#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <vector>

#include "bench/question.h"
#include "foundation/stack_allocator.h"
#include "values/inspector_date.h"
#include "values/moment.h"
#include "values/time_interval.h"
#include "values/time_language.h"
#include "values/zoned_time_of_day.h"

namespace {

// A few texts of each kind in turn, so that no branch is learned by heart.
template <class Read>
void ReadMillion(benchmark::State& state, const std::vector<std::string>& texts, Read read) {
    for (auto _ : state) {
        size_t next = 0;
        for (int i = 0; i < kMillion; ++i) {
            benchmark::DoNotOptimize(read(inspector_string(texts[next])));
            next = next + 1 == texts.size() ? 0 : next + 1;
        }
    }
    state.SetItemsProcessed(state.iterations() * kMillion);
}

template <class Print>
void PrintMillion(benchmark::State& state, Print print) {
    StackAllocator<4096> memory;
    const AllocatorInstaller installed(memory);
    for (auto _ : state) {
        for (int i = 0; i < kMillion; ++i) {
            char* const mark = memory.Top();
            benchmark::DoNotOptimize(print(i));
            memory.ReleaseTo(mark);
        }
    }
    state.SetItemsProcessed(state.iterations() * kMillion);
}

void ReadIntervals(benchmark::State& state) {
    ReadMillion(state, {"1 day", "2 days, 03:00:00", "-00:00:01", "00:05:00", "35 days, 01:02:03.500"},
                ParseTimeInterval);
}
void ReadDates(benchmark::State& state) {
    ReadMillion(state, {"Tue, 09 Mar 1999", "9 Mar 1999", "29 Feb 2000", "Fri, 31 Dec 1999"}, ParseDate);
}
void RefuseDates(benchmark::State& state) {
    ReadMillion(state, {"Wed, 09 Mar 1999", "31 Apr 2000", "1999-03-09", "yesterday", ""}, ParseDate);
}
void ReadTimes(benchmark::State& state) {
    ReadMillion(state, {"Tue, 09 Mar 1999 10:11:12 +0000", "9 Mar 1999 10:11:12 est", "29 Feb 2000 23:59 -0330"},
                [](const inspector_string& text) { return TimeText::Parsed(TimeGrammar::kTime, text.Data()); });
}
void ReadTimesOfDay(benchmark::State& state) { ReadMillion(state, {"9:05", "23:59:59", "12:30"}, ParseTimeOfDay); }

void PrintIntervals(benchmark::State& state) {
    PrintMillion(state, [](int i) { return TimeIntervalText(time_interval(int64_t{i} * 1234567890)); });
}
void PrintDates(benchmark::State& state) {
    PrintMillion(state, [](int i) { return DateText(*inspector_date::OfDayNumber(i)); });
}
void PrintTimes(benchmark::State& state) {
    PrintMillion(state, [](int i) { return LocalTimeText(moment(int64_t{i} * 1234567890)); });
}
void PrintTimesOfDay(benchmark::State& state) {
    PrintMillion(state, [](int i) { return TimeOfDayText(time_of_day::OfSeconds(i)); });
}

BENCHMARK(ReadIntervals)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadDates)->Unit(benchmark::kMillisecond);
BENCHMARK(RefuseDates)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadTimes)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadTimesOfDay)->Unit(benchmark::kMillisecond);
BENCHMARK(PrintIntervals)->Unit(benchmark::kMillisecond);
BENCHMARK(PrintDates)->Unit(benchmark::kMillisecond);
BENCHMARK(PrintTimes)->Unit(benchmark::kMillisecond);
BENCHMARK(PrintTimesOfDay)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(
    Evaluate, print_and_read,
    "number of (it as string as time) of (universal time \"1 Jan 2000 00:00\" + it * second) of integers in (1, "
    "1000000)",
    kMillion)
    ->Unit(benchmark::kMillisecond);

}  // namespace
