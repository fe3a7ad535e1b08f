// What versions cost: a million texts made versions and compared, plain and inside a question.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>
#include <vector>

#include "bench/question.h"
#include "foundation/stack_allocator.h"
#include "values/version.h"

namespace {

// A million different texts, each with the ending.
std::vector<std::string> Texts(std::string_view ending) {
    std::vector<std::string> texts;
    for (int i = 0; i < kMillion; ++i) {
        texts.push_back(std::to_string(i / 10000) + "." + std::to_string(i / 100 % 100) + "." +
                        std::to_string(i % 100) + std::string(ending));
    }
    return texts;
}

// Parsing both sides of each comparison; the memory of a pair is used again for the next.
template <class Version>
void Compare(benchmark::State& state, std::string_view ending) {
    const std::vector<std::string> texts = Texts(ending);
    const std::string other = "50.50.50" + std::string(ending);
    StackAllocator<4096> memory;
    const AllocatorInstaller installed(memory);
    char* const mark = memory.Top();
    for (auto _ : state) {
        int64_t lesser = 0;
        for (const std::string& text : texts) {
            const Version a{inspector_string(text)};
            const Version b{inspector_string(other)};
            lesser += a < b;
            memory.ReleaseTo(mark);
        }
        benchmark::DoNotOptimize(lesser);
    }
    state.SetItemsProcessed(state.iterations() * kMillion);
}

void Versions(benchmark::State& state, std::string_view ending) { Compare<inspector_version>(state, ending); }

void StrverscmpVersions(benchmark::State& state, std::string_view ending) {
    Compare<inspector_strverscmp_version>(state, ending);
}

BENCHMARK_CAPTURE(Versions, numbers, "")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Versions, texts, "-1ubuntu2")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StrverscmpVersions, texts, "-1ubuntu2")->Unit(benchmark::kMillisecond);

// The same question without versions, for the part that the strings have in it.
BENCHMARK_CAPTURE(Evaluate, strings, "number of (\"1.\" & it as string) of integers in (1, 1000000)", kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(
    Evaluate, filter,
    "number of (((\"1.\" & it as string) of integers in (1, 1000000)) as version) whose (it < \"1.500\", kMillion)")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, maximum, "maximum of (((\"1.\" & it as string) of integers in (1, 1000000)) as version)",
                  kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, unique,
                  "number of unique values of (((\"1.\" & (it mod 1000) as string) of integers in (1, 1000000)) as "
                  "version)",
                  kMillion)
    ->Unit(benchmark::kMillisecond);

}  // namespace
