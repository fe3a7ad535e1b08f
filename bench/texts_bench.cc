// What texts cost: one pattern over a million strings, joins of a million pieces, and markup of a million elements.
#include <benchmark/benchmark.h>

#include <string_view>

#include "bench/question.h"
#include "foundation/stack_allocator.h"
#include "values/regular_expression.h"
#include "values/rope.h"

namespace {

BENCHMARK_CAPTURE(Evaluate, plain_contains, "number of (integers in (1, 1000000)) whose (it as string contains \"99\")",
                  kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, regex_contains,
                  "number of (integers in (1, 1000000)) whose (it as string contains regex \"9{2}\")", kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, regex_computed,
                  "number of (integers in (1, 1000000)) whose (it as string contains regex (\"9\" & \"{2}\"))",
                  kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, regex_that_changes,
                  "number of (integers in (1, 100000)) whose (\"99\" contains regex (it as string))", kMillion / 10)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, regex_parts,
                  "number of parenthesized parts of matches (regex \"([0-9])[05]\") of (it as string) of integers in "
                  "(1, 100000)",
                  kMillion / 10)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, elements,
                  "length of (concatenation of lis of (it as string) of integers in (1, 1000000) as string)", kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, list, "length of (ordered list of (it as string) of integers in (1, 1000000) as string)",
                  kMillion)
    ->Unit(benchmark::kMillisecond);

// What the compilation of a pattern costs, which a loop pays once.
void Compile(benchmark::State& state) {
    for (auto _ : state) {
        const CompiledExpression expression("9{2}", REG_EXTENDED);
        benchmark::DoNotOptimize(&expression);
    }
}
BENCHMARK(Compile);

const inspector_string kPiece("piece", 5);

rope OnTheRight(int64_t joins) {
    rope whole;
    for (int64_t i = 0; i < joins; ++i) {
        whole = whole & kPiece;
    }
    return whole;
}
rope OnTheLeft(int64_t joins) {
    rope whole;
    for (int64_t i = 0; i < joins; ++i) {
        whole = kPiece & whole;
    }
    return whole;
}

template <rope (*Make)(int64_t)>
void Join(benchmark::State& state) {
    StackAllocator<4096> memory;
    const AllocatorInstaller installed(memory);
    char* const mark = memory.Top();
    for (auto _ : state) {
        const rope whole = Make(state.range(0));
        benchmark::DoNotOptimize(&whole);
        memory.ReleaseTo(mark);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Join<OnTheRight>)->Arg(kMillion / 10)->Arg(kMillion)->Unit(benchmark::kMillisecond);
BENCHMARK(Join<OnTheLeft>)->Arg(kMillion / 10)->Arg(kMillion)->Unit(benchmark::kMillisecond);

template <rope (*Make)(int64_t)>
void Flatten(benchmark::State& state) {
    StackAllocator<4096> memory;
    const AllocatorInstaller installed(memory);
    const rope whole = Make(state.range(0));
    char* const mark = memory.Top();
    for (auto _ : state) {
        benchmark::DoNotOptimize(whole.Flattened());
        memory.ReleaseTo(mark);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Flatten<OnTheRight>)->Arg(kMillion / 10)->Arg(kMillion)->Unit(benchmark::kMillisecond);
BENCHMARK(Flatten<OnTheLeft>)->Arg(kMillion / 10)->Arg(kMillion)->Unit(benchmark::kMillisecond);

template <rope (*Make)(int64_t)>
void Search(benchmark::State& state) {
    StackAllocator<4096> memory;
    const AllocatorInstaller installed(memory);
    const rope whole = Make(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(whole.Contains(inspector_string("piecepiecep.", 12)));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Search<OnTheRight>)->Arg(kMillion / 10)->Arg(kMillion)->Unit(benchmark::kMillisecond);
BENCHMARK(Search<OnTheLeft>)->Arg(kMillion / 10)->Arg(kMillion)->Unit(benchmark::kMillisecond);

}  // namespace
