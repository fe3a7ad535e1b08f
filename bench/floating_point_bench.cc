// What floating points cost: their sum, their product, their unique values, and their texts both ways.
#include <benchmark/benchmark.h>

#include <string_view>

#include "bench/question.h"
#include "values/floating_point_text.h"

namespace {

BENCHMARK_CAPTURE(Evaluate, sum_of_a_million_integers, "sum of integers in (1, 1000000)", kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, sum_of_a_million_floating_point_values,
                  "sum of (it as floating point) of integers in (1, 1000000)", kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, unique_values,
                  "number of unique values of (it as floating point / 1000) of integers in (1, 1000000)", kMillion)
    ->Unit(benchmark::kMillisecond);

void Sum(benchmark::State& state) {
    const floating_point step(0.1L, 0.1L, 0);
    for (auto _ : state) {
        floating_point sum(0, floating_point::kLeastNormal, 0);
        for (int64_t i = 0; i < kMillion; ++i) {
            sum = sum + step;
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * kMillion);
}
BENCHMARK(Sum)->Unit(benchmark::kMillisecond);

void Parse(benchmark::State& state, std::string_view text) {
    for (auto _ : state) {
        auto value = ParseFloatingPoint(text);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK_CAPTURE(Parse, money, "1234.50");
BENCHMARK_CAPTURE(Parse, large, "6.02214076e23");
BENCHMARK_CAPTURE(Parse, extreme, "1.5e-4000");

void Write(benchmark::State& state, std::string_view text) {
    const auto value = ParseFloatingPoint(text);
    for (auto _ : state) {
        auto written = TextOf(*value);
        benchmark::DoNotOptimize(written);
    }
}
BENCHMARK_CAPTURE(Write, money, "1234.50");
BENCHMARK_CAPTURE(Write, large, "6.02214076e23");
BENCHMARK_CAPTURE(Write, extreme, "1.5e-4000");

}  // namespace
